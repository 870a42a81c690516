#pragma once

#include "ModalHands.h"
#include "TestScreens.h"
#include "desktop/BoxWindow.h"
#include "desktop/DesktopDisplay.h"
#include "support/TemporaryFolder.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QTest>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// The test screens on the real desktop, used with mouse and keys.
class Desktop : public testing::Test {
protected:
    Desktop() {
        program.screens.add("frmMain", [this] { return std::make_unique<frmMain>(program); });
        program.screens.add("frmOther", [this] { return std::make_unique<frmOther>(program); });
        display.attach(program);
        load("frmMain");
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    ~Desktop() override { EXPECT_EQ(display.takeFailure(), nullptr) << "a failure has been kept"; }

    TemporaryFolder folder;
    SystemClock clock;
    DesktopDisplay display{{.patience = std::chrono::milliseconds{40}}};
    Program program{display, clock, folder.path()};
    ModalHands hands;

    void load(const std::string& name) {
        display.perform([&] { program.screens.load(name); });
    }
    template <typename Screen = frmMain>
    Screen& screen(const std::string& name = "frmMain") {
        return dynamic_cast<Screen&>(*program.screens.find(name));
    }
    [[nodiscard]] ScreenWindow& window() { return *display.windowOf(screen()); }
    template <typename Widget = QWidget>
    Widget& widget(const Control& control) {
        return dynamic_cast<Widget&>(*display.widgetOf(control));
    }

    /// What the screen's handlers have written down since the last call.
    std::vector<std::string> log() { return std::exchange(screen().log, {}); }

    using Lines = std::vector<std::string>;

    void click(const Control& control, Qt::MouseButton button = Qt::LeftButton) {
        QWidget& target = widget(control);
        const bool isMarked = target.inherits("QRadioButton") || target.inherits("QCheckBox");
        QTest::mouseClick(surfaceOf(target), button, Qt::NoModifier,
                          isMarked ? QPoint(8, target.height() / 2) : QPoint());
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(keyTarget(), key, modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(keyTarget(), text); }

    /// What of the widget the mouse is pressed on.
    static QWidget* surfaceOf(QWidget& widget) {
        auto* const area = qobject_cast<QAbstractScrollArea*>(&widget);
        return area == nullptr ? &widget : area->viewport();
    }
    QWidget* keyTarget() { return window().focusWidget() == nullptr ? &window() : window().focusWidget(); }

    /// Answers the next message box with a click on one of its buttons.
    void answerNext(Answer answer) {
        hands.expect([answer](QDialog& box) {
            QTest::mouseClick(dynamic_cast<QMessageBox&>(box).button(BoxWindow::buttonOf(answer)),
                              Qt::LeftButton);
        });
    }
    Answer ask(const MessageBox& box) {
        Answer answer{};
        display.perform([&] { answer = display.messageBox(box); });
        return answer;
    }
};

}  // namespace tallybrook::test
