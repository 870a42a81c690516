#include "handheld/SyncPlay.h"
#include "handheld/SyncRun.h"

namespace tallybrook::test {

namespace {

using Log = std::vector<std::string>;

class SyncScreen : public testing::Test {
protected:
    SyncPlay play;
};

TEST_F(SyncScreen, IsReachedFromTheMainMenu) {
    Play other;
    other.display.forgetEvents();
    other.click("mnuSyncPDA");
    EXPECT_EQ(other.display.events(), (Log{"hide frmMain", "load frmSyncPDA", "show frmSyncPDA"}));
    EXPECT_EQ(other.focus(), "none");
}

TEST_F(SyncScreen, BearsItsCaptions) {
    EXPECT_EQ(play.screen().caption(), "Synchronize PDA");
    const std::vector<std::pair<const char*, const char*>> captions{{"lblTitle", "Synchronize PDA"},
                                                                    {"cmdAddPDA", "Add &PDA Data"},
                                                                    {"cmdRetMain", "Main Men&u"},
                                                                    {"cmdExit", "&Exit"},
                                                                    {"mnuExit", "&Exit"},
                                                                    {"mnuSyncPDA", "Add &PDA Data"},
                                                                    {"mnuRetMain", "Main Men&u"},
                                                                    {"mnuFile", "&File"},
                                                                    {"mnuCommands", "&Commands"},
                                                                    {"mnuAbout", "&About Tallybrook"},
                                                                    {"mnuHelp", "&Help"},
                                                                    {"mnuTBKHelp", "Tallybrook Help"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(play.control(name).caption(), caption) << name;
    for (const char* const name : {"cmdAddPDA", "cmdRetMain", "cmdExit"})
        EXPECT_TRUE(play.enabled(name)) << name;
}

TEST_F(SyncScreen, LooksForEventsAmongAll) {
    const SyncControls controls(play.program().store());
    EXPECT_EQ(controls.adoTBKEvent.RecordSource(), "SELECT * FROM tblEventInfo");
}

TEST_F(SyncScreen, HasItsMenus) {
    const auto entriesOf = [this](const char* name) {
        Log names;
        for (const Menu* const entry : dynamic_cast<Menu&>(play.control(name)).entries())
            names.push_back(entry->name());
        return names;
    };
    EXPECT_EQ(entriesOf("mnuFile"), Log{"mnuExit"});
    EXPECT_EQ(entriesOf("mnuCommands"), (Log{"mnuSyncPDA", "mnuRetMain"}));
    EXPECT_EQ(entriesOf("mnuHelp"), (Log{"mnuTBKHelp", "mnuAbout"}));
}

TEST_F(SyncScreen, GoesThroughItsButtonsWithTab) {
    for (const char* const name : {"cmdAddPDA", "cmdRetMain", "cmdExit", "cmdAddPDA"}) {
        play.tab();
        EXPECT_EQ(play.focus(), name);
    }
}

TEST_F(SyncScreen, AsksBeforeItReturnsToTheMainMenu) {
    const std::string words = "Return to the main menu?";
    play.click("cmdRetMain", {{"Return to Main Menu", Answer::No, words}});
    EXPECT_EQ(play.screen().name(), "frmSyncPDA");
    const MessageBox& box = play.display.boxes().back();
    EXPECT_EQ(box.icon, Icon::Question);
    EXPECT_EQ(box.buttons, Buttons::YesNo);
    EXPECT_EQ(box.defaultAnswer(), Answer::Yes);
    play.close({{"Return to Main Menu", Answer::No, words}});
    play.display.forgetEvents();
    play.click("mnuRetMain", {{"Return to Main Menu", Answer::Yes, words}});
    EXPECT_EQ(play.display.events(),
              (Log{"unload frmSyncPDA", "unload frmMain", "load frmMain", "show frmMain"}));
}

TEST_F(SyncScreen, AsksBeforeItExits) {
    play.click("cmdExit", {{"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::No);
    EXPECT_FALSE(play.program().hasEnded());
    play.click("mnuExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(SyncScreen, HelpsAndTellsAboutItself) {
    play.click("mnuTBKHelp");
    EXPECT_EQ(play.display.events(), Log{"help 0"});
    play.click("mnuAbout");
    EXPECT_EQ(play.screen().name(), "frmAbout");
    play.click("cmdAboutOK");
    EXPECT_EQ(play.screen().name(), "frmSyncPDA");
}

TEST_F(SyncScreen, HidesWhileItRunsAndIsFinishedAfterwards) {
    play.put(smallExports());
    play.sync(Answer::No);
    EXPECT_EQ(play.display.events(), (Log{"hide frmSyncPDA", "busy", "show frmSyncPDA", "default"}));
    EXPECT_FALSE(play.enabled("cmdAddPDA"));
    EXPECT_EQ(play.focus(), "cmdRetMain");
    EXPECT_TRUE(play.enabled("mnuSyncPDA"));
}

TEST_F(SyncScreen, IsHiddenBetweenItsFirstBoxAndItsLast) {
    play.put(smallExports());
    std::vector<Log> before;
    const auto look = [&] { before.push_back(play.display.events()); };
    play.click("cmdAddPDA", {{"PDA Sync", Answer::OK, "", look},
                             {"Delete PDA Data", Answer::No, "", look},
                             {"Check Complete", Answer::OK, "", look},
                             {"Sync Complete", Answer::OK, "", look}});
    const Log hidden{"hide frmSyncPDA", "busy"};
    const Log shown{"hide frmSyncPDA", "busy", "show frmSyncPDA", "default"};
    EXPECT_EQ(before, (std::vector<Log>{{}, hidden, hidden, shown}));
}

TEST_F(SyncScreen, DisablesItsButtonOnceItHasToldThatItIsComplete) {
    play.put(smallExports());
    bool before = false;
    play.click("cmdAddPDA", {{"PDA Sync"},
                             {"Delete PDA Data", Answer::No},
                             {"Check Complete"},
                             {"Sync Complete", Answer::OK, "", [&] { before = play.enabled("cmdAddPDA"); }}});
    EXPECT_TRUE(before);
    EXPECT_FALSE(play.enabled("cmdAddPDA"));
}

TEST_F(SyncScreen, RunsAgainFromItsMenu) {
    play.put(smallExports());
    play.sync(Answer::No);
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::Yes}}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_EQ(play.events().size(), 2U);
    EXPECT_FALSE(play.enabled("cmdAddPDA"));
    play.click("mnuRetMain", {{"Return to Main Menu", Answer::Yes}});
    play.click("mnuSyncPDA");
    EXPECT_TRUE(play.enabled("cmdAddPDA"));  // one run per visit
}

TEST_F(SyncScreen, ShowsItsBoxesWithTheirIcons) {
    play.put(smallExports());
    play.sync(Answer::No);
    const std::vector<MessageBox>& boxes = play.display.boxes();
    const std::vector<Icon> icons{Icon::Information, Icon::Question, Icon::Information, Icon::Information};
    ASSERT_EQ(boxes.size(), icons.size());
    for (std::size_t at = 0; at < icons.size(); ++at)
        EXPECT_EQ(boxes[at].icon, icons[at]) << boxes[at].title;
    EXPECT_EQ(boxes[0].buttons, Buttons::OK);
    EXPECT_EQ(boxes[1].buttons, Buttons::YesNo);
    EXPECT_EQ(boxes[1].defaultAnswer(), Answer::Yes);
    EXPECT_EQ(boxes[3].buttons, Buttons::OK);
    EXPECT_EQ(boxes[3].text, play.complete().text);
}

}  // namespace

}  // namespace tallybrook::test
