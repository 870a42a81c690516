#pragma once

#include "backup/Backups.h"
#include "desktop/ModalHands.h"
#include "keeper/Logbooks.h"
#include "keeperwindow/KeeperWindow.h"
#include "support/TemporaryFolder.h"

#include <QAccessible>
#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <memory>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

/// The window on a logbook of two events with a backup, and the hands that use it.
class Window : public testing::Test {
protected:
    Window() {
        test::addEvent(data, "Tuesday");
        test::addEvent(data, "Friday");
        backUpNow(logbookIn(data), clock);
    }

    void open() {
        window = std::make_unique<KeeperWindow>(data, clock);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        waitForWork();
    }
    void waitForWork() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window->isBusy(); }, 60000));
    }
    template <typename Part>
    Part& part() {
        return *window->findChild<Part*>();
    }
    QListWidget& backups() { return part<QListWidget>(); }
    QTreeWidget& events() { return part<QTreeWidget>(); }
    QPushButton& button(const QString& beginning) {
        for (QPushButton* const each : window->findChildren<QPushButton*>()) {
            if (each->text().remove('&').startsWith(beginning))
                return *each;
        }
        throw std::runtime_error("no button " + beginning.toStdString());
    }
    bool isEveryButtonWideEnough() {
        const auto buttons = window->findChildren<QPushButton*>();
        return std::ranges::all_of(buttons, [](const QPushButton* each) {
            return !each->isVisible() || each->width() >= each->sizeHint().width();
        });
    }
    bool isShown(const QString& words) {
        const auto labels = window->findChildren<QLabel*>();
        return std::ranges::any_of(
            labels, [&](const QLabel* label) { return label->isVisible() && label->text().contains(words); });
    }
    /// Whether a text in the window is called by just these words.
    bool isReadAloud(const QString& words) {
        const auto labels = window->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](QLabel* label) {
            return QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name) == words;
        });
    }
    void trigger(const QString& caption) {
        for (QAction* const action : window->findChildren<QAction*>()) {
            if (action->text().remove('&') == caption)
                action->trigger();
        }
        waitForWork();
        waitForWork();  // what follows it
    }
    void expectFile(const fs::path& file, const QString& title) {
        hands.expect([file, title](QDialog& dialog) {
            auto& chooser = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(chooser.windowTitle(), title);
            chooser.findChild<QLineEdit*>()->setText(QString::fromStdString(file.string()));
            chooser.findChild<QLineEdit*>()->setFocus();
            QTest::keyClick(chooser.findChild<QLineEdit*>(), Qt::Key_Return);
        });
    }
    void expectBox(const QString& words, const QString& answer) {
        hands.expect([words, answer](QDialog& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_TRUE(box.text().contains(words)) << box.text().toStdString();
            for (QAbstractButton* const each : box.buttons()) {
                if (each->text().remove('&') == answer)
                    return each->click();
            }
            ADD_FAILURE() << "no button " << answer.toStdString();
        });
    }

    test::TemporaryFolder folder;
    const fs::path& data = folder.path();
    SettableClock clock{makeDate(2026, 11, 22) + std::chrono::hours{20}};
    std::unique_ptr<KeeperWindow> window;
    test::ModalHands hands;
};

}  // namespace tallybrook::keeper
