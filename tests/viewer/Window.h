#pragma once

#include "desktop/ModalHands.h"
#include "readers/Files.h"
#include "viewer/ReportWindow.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QSplitter>
#include <QTest>
#include <memory>

namespace tallybrook::test {

/// The viewer's window on a report, used with mouse and keys.
class Window : public testing::Test {
protected:
    Window() { start("League Night.txt", "Strike\tSpare\r\nstrike\tspare\r\nSTRIKE\r\n"); }

    /// Starts the viewer on a report of these bytes.
    void start(const QString& name, const QByteArray& bytes) {
        window.reset();
        window = std::make_unique<ReportWindow>(settings);
        ASSERT_TRUE(window->open(files.write(name, bytes)));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    template <typename Widget>
    Widget& part() {
        return *window->findChild<Widget*>();
    }
    ReportView& view() { return *dynamic_cast<ReportView*>(window->findChild<QSplitter*>()->widget(0)); }
    FindBar& findBar() {
        QWidget* const field = window->findChild<QLineEdit*>();
        return *dynamic_cast<FindBar*>(field->parentWidget());
    }
    QString words() { return findBar().findChild<QLabel*>()->text(); }
    [[nodiscard]] QAction* action(const QString& caption) const {
        for (QAction* const one : window->findChildren<QAction*>()) {
            if (one->text().remove('&') == caption)
                return one;
        }
        return nullptr;
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* const focus = window->focusWidget();
        QTest::keyClick(focus == nullptr ? window.get() : focus, key, modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(window->focusWidget(), text); }
    QString selected() { return view().selectedText(); }

    /// Answers the next box, which must say this.
    void expectBox(const QString& text) {
        hands.expect([text](QDialog& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), "Tallybrook");
            EXPECT_EQ(box.text(), text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), QMessageBox::Critical);
            box.accept();
        });
    }

    Files files;
    QSettings settings{files.path("settings.ini"), QSettings::IniFormat};
    std::unique_ptr<ReportWindow> window;
    ModalHands hands;
};

}  // namespace tallybrook::test
