// What the boxes say that many screens bring up, and what becomes of handlers within handlers.

#include "runtime/EndProgram.h"
#include "shell/TBK_Globals.h"
#include "shell/frmAbout.h"
#include "support/Play.h"

#include <functional>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(Boxes, TellOfAFailureWithItsNumberAndItsPlace) {
    const MessageBox box = databaseErrorBox(RunTimeError(6), "Game Information, Save_Game.");
    EXPECT_EQ(
        box.text,
        "Error Number: 6\r\nError: Overflow\r\nModule: Game Information, Save_Game.\r\n"
        "If this persists, please send email to support@tallybrook.example with this error information.");
    EXPECT_EQ(box.title, "Database Error");
    EXPECT_EQ(box.icon, Icon::Critical);
    EXPECT_EQ(box.buttons, MessageBox{}.buttons);
}

TEST(Boxes, AskWithYesAndNo) {
    const MessageBox box = question("Go on?", "Check", Icon::Warning);
    EXPECT_EQ(box.text, "Go on?");
    EXPECT_EQ(box.title, "Check");
    EXPECT_EQ(box.buttons, Buttons::YesNo);
    EXPECT_EQ(box.icon, Icon::Warning);
    EXPECT_EQ(lines({"one", "two", "three"}), "one\r\ntwo\r\nthree");
}

TEST(Boxes, AskBeforeTheEndWithNoAsWhatReturnGives) {
    Play play;
    play.run([&] { Exit_Confirm(play.program()); }, {{"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    EXPECT_EQ(play.display.boxes().back().preset, Answer::No);
    EXPECT_FALSE(play.program().hasEnded());
}

TEST(Boxes, AskBeforeAFormIsReset) {
    Play play;
    Answer answer = Answer::Yes;
    play.run([&] { answer = Reset_Confirm(play.program()); },
             {{"Confirm - Form Reset", Answer::No,
               "Resetting the form will erase the data in the form\r\nContinue?"}});
    EXPECT_EQ(answer, Answer::No);
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
}

/// What could not be stored before a box has one of its own, which comes first.
TEST(Boxes, TellOfWhatWasLostBeforeThem) {
    TestDisplay display;
    for (const char* const error :
         {"Error Number: 61\r\nError: Disk full", "Error Number: 6\r\nError: Overflow"})
        display.expect({"Database Error", Answer::OK,
                        std::string(error) + "\r\nModule: Here.\r\nIf this persists, please send email to "
                                             "support@tallybrook.example with this error information."});
    BoxReporter reporter(display, [] { throw RunTimeError(61); });
    reporter.databaseError(RunTimeError(6), "Here.");
}

TEST(Performing, NeedsALogbook) {
    TestDisplay display;
    const SettableClock clock(makeDate(2026, 11, 14));
    Program program(display, clock, "nowhere");
    for (const auto& ask : std::vector<std::function<void()>>{
             [&] { static_cast<void>(program.store()); }, [&] { static_cast<void>(program.backups()); }}) {
        try {
            ask();
            ADD_FAILURE() << "there is none";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), 91);
        }
    }
}

TEST(Performing, EndsTheProgramForWantOfMemory) {
    Play play;
    play.display.forgetEvents();
    play.run([] { throw std::bad_alloc(); });
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"run-time error 7", "end program"}));
}

TEST(Performing, ShowsTheScreenLoadedLastWhereNoneIsVisible) {
    TestDisplay display;
    const SettableClock clock(makeDate(2026, 11, 14));
    Program program(display, clock, "nowhere");
    program.screens.add("frmAbout", [&program] { return std::make_unique<frmAbout>(program); });
    program.perform([&program] {
        program.screens.load("frmAbout");
        program.screens.hide(*program.screens.front());
    });
    EXPECT_EQ(display.events(),
              (std::vector<std::string>{"load frmAbout", "show frmAbout", "hide frmAbout", "show frmAbout"}));
    EXPECT_FALSE(program.hasEnded());
}

TEST(Performing, EndsTheHandlersAroundAnEndedOne) {
    Play play;
    bool isReached = false;
    play.run([&] {
        play.program().perform([] { throw EndHandler{}; });
        isReached = true;
    });
    EXPECT_FALSE(isReached);
    play.run([&] { isReached = true; });
    EXPECT_TRUE(isReached);
}

}  // namespace

}  // namespace tallybrook::test
