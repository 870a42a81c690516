#pragma once

#include "ModalHands.h"
#include "app/Application.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "desktop/BoxWindow.h"
#include "desktop/DesktopDisplay.h"
#include "support/TemporaryFolder.h"

#include <QAbstractButton>
#include <QTest>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// The program's own screens on the real desktop, with an empty logbook after the first start.
class OwnScreens : public testing::Test {
protected:
    OwnScreens() {
        display.attach(program);
        answerNext(Answer::OK);  // there is no configuration
        answerNext(Answer::No);  // no check
        display.perform([this] { application.start(); });
    }
    ~OwnScreens() override { EXPECT_EQ(display.takeFailure(), nullptr) << "a failure has been kept"; }

    TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    DesktopDisplay display;
    Application application{display, clock, folder.path() / "data"};
    Program& program = application.program();
    ModalHands hands;

    [[nodiscard]] Screen& screen() { return *program.screens.front(); }
    [[nodiscard]] ScreenWindow& window() { return *display.windowOf(screen()); }
    [[nodiscard]] Control& control(const std::string& name) {
        Control* const found = screen().find(name);
        if (found == nullptr)
            throw std::runtime_error("no control " + name + " on " + screen().name());
        return *found;
    }

    void answerNext(Answer answer) {
        hands.expect([answer](QDialog& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            QAbstractButton* const button = box.button(BoxWindow::buttonOf(answer));
            if (button != nullptr)
                return button->click();
            ADD_FAILURE() << "another box is up: " << box.text().toStdString();
            box.buttons().front()->click();
        });
    }
    /// A click with the boxes that it brings up, and their answers.
    void click(const std::string& name, std::initializer_list<Answer> answers = {}) {
        for (const Answer answer : answers)
            answerNext(answer);
        display.perform([&] { person::click(control(name)); });
    }
    void type(const std::string& name, const std::string& text) {
        display.perform([&] { person::type(dynamic_cast<TextBox&>(control(name)), text); });
    }
    void pick(const std::string& name, const std::string& item) {
        auto& list = dynamic_cast<ItemList&>(control(name));
        const auto found = std::ranges::find(list.items(), item);
        display.perform([&] { person::pick(list, static_cast<int>(found - list.items().begin())); });
    }

    /// Makes an event of three games; the first game is in front.
    void beginEvent() {
        click("mnuAddFromForm");
        fillEvent();
    }
    /// Fills in the new event that is in front, and goes on to its first game.
    void fillEvent() {
        type("txtEvent", "Thursday League");
        type("txtCenter", "Brookside Lanes");
        type("txtNumGames", "3");
        click("cmdUpdGames", {Answer::Yes});
    }
    /// Goes from the first game of a new event to its first frame.
    void beginFrames() {
        type("txtStartLane", "13");
        type("txtGameScore", "170");
        click("cmdUpdFrame", {Answer::Yes});
    }

    /// Goes through all screens of the program, in several of their states, and calls `look` on each once its
    /// window stands.
    template <typename Look>
    void tour(Look look) {
        const auto see = [&] {
            QTest::qWait(1);
            look();
        };
        see();
        for (const auto& [entry, back] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"mnuHHSetup", "cmdMain"}, {"mnuSyncPDA", "cmdRetMain"}, {"mnuDBTools", "cmdRetMain"}}) {
            click(entry);
            see();
            click(back, {Answer::Yes});
        }
        click("mnuAbout");
        see();
        click("cmdAboutOK");
        tourOfEntry(see);
        tourOfReports(see);
    }

private:
    template <typename See>
    void tourOfEntry(See see) {
        click("mnuAddFromForm");
        see();
        fillEvent();
        see();
        beginFrames();
        see();
        click("optFirstNo");
        click("chkFirstPinfall(7)");
        see();
        click("cmdFirstDone");
        see();
        click("cmdRetMain");
        click("mnuEditData", {Answer::OK});
        see();
        click("cmdMain", {Answer::Yes});
    }
    template <typename See>
    void tourOfReports(See see) {
        click("mnuReports");
        see();
        click("mnuRptEvent");
        see();
        pick("cboListField(0)", "Event Name");
        pick("cboSearchOp(0)", "contains");
        type("txtSearchVal(0)", "league");
        click("cmdSearch", {Answer::OK});
        see();
        click("cmdPrevious", {Answer::Yes});
        click("cmdPrevious", {Answer::Yes});
        click("mnuRptGame");
        see();
        click("cmdPrevious", {Answer::Yes});
        click("mnuStats");
        click("optEvType(1)");
        click("optFilter(0)");
        click("chkDate");
        click("chkEvent");
        see();
    }
};

}  // namespace tallybrook::test
