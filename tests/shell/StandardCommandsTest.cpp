#include "shell/StandardCommands.h"
#include "support/Play.h"

namespace tallybrook::test {

namespace {

using Names = std::vector<std::string>;

/// A screen with the standard commands and nothing else, in the words of most screens.
class UsualScreen : public Screen {
public:
    explicit UsualScreen(Program& program)
        : Screen(program.screens, "frmUsual", "Usual"),
          cmdPrevious(program, *this),
          cmdMain(program, *this),
          cmdExit(program, *this),
          mnuFile(*this, cmdExit),
          mnuHelp(program, *this) {}

    Layout layout() override { return layout::buttons({cmdPrevious, cmdMain, cmdExit}); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}

    PreviousButton cmdPrevious;
    MainButton cmdMain;
    ExitButton cmdExit;
    FileMenu mnuFile;
    HelpMenu mnuHelp;
};

class StandardCommands : public testing::Test {
protected:
    StandardCommands() {
        Program& program = play.program();
        program.screens.add("frmUsual", [&program] { return std::make_unique<UsualScreen>(program); });
        play.load("frmUsual");
        play.display.forgetEvents();
    }

    Play play;
};

TEST_F(StandardCommands, AreControlsInTheirOrder) {
    Names names;
    for (const Control* const control : play.screen().controls())
        names.push_back(control->name() + " " + control->caption());
    EXPECT_EQ(names,
              (Names{"cmdPrevious &Previous Screen", "cmdMain &Main Menu", "cmdExit E&xit", "mnuFile &File",
                     "mnuExit E&xit", "mnuHelp &Help", "mnuTBKHelp Tallybrook Help", "mnuAbout &About"}));
}

TEST_F(StandardCommands, AskBeforeTheyLeave) {
    play.click("cmdPrevious", {{"Previous Screen", Answer::No, "Return to previous screen?"}});
    play.click("cmdMain", {{"Return to Main", Answer::No, "Return to main menu?"}});
    play.click("mnuExit", {{"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    EXPECT_EQ(play.display.events(), Names{});
    play.click("cmdPrevious", {{"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmMain");
    play.load("frmUsual");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmMain");
    EXPECT_EQ(play.program().screens.find("frmUsual"), nullptr);
    play.load("frmUsual");
    play.click("cmdExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(StandardCommands, HelpAndTellAboutTheProgram) {
    play.click("mnuTBKHelp");
    EXPECT_EQ(play.display.events(), Names{"help 0"});
    play.click("mnuAbout");
    EXPECT_EQ(play.screen().name(), "frmAbout");
}

}  // namespace

}  // namespace tallybrook::test
