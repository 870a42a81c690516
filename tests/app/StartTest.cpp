#include "support/Play.h"
#include "support/SameText.h"

#include <fstream>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Log = std::vector<std::string>;

class Start : public testing::Test {
protected:
    fs::path data() const { return folder.path() / "home" / "Tallybrook"; }

    TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14) + std::chrono::hours{21}};
    TestDisplay display;
};

TEST_F(Start, MakesTheDataFolderOnce) {
    {
        Application program(display, clock, data());
        expectFirstStart(display);
        program.start();
        EXPECT_EQ(display.events(), (Log{"load frmMain", "show frmMain"}));
        EXPECT_EQ(program.program().session.gToday, makeDate(2026, 11, 14));
    }
    EXPECT_TRUE(fs::is_directory(data() / "TBRK" / "PDA DB Archive"));
    EXPECT_TRUE(fs::is_regular_file(data() / "Tallybrook_DB.mdb"));
    EXPECT_EQ(fs::status(data()).permissions() & (fs::perms::group_all | fs::perms::others_all),
              fs::perms::none);

    fs::remove_all(data() / "TBRK");
    fs::remove(data() / "Tallybrook_DB.mdb");
    Application again(display, clock, data());
    display.expect({"Database Check", Answer::No});
    again.start();
    EXPECT_FALSE(fs::exists(data() / "TBRK"));  // what was taken away stays away
    EXPECT_TRUE(fs::exists(data() / "Tallybrook_DB.mdb"));
}

TEST_F(Start, FinishesAFirstStartThatWasCutOff) {
    for (const std::vector<const char*>& folders :
         {std::vector<const char*>{}, {"TBRK"}, {"TBRK", "TBRK/PDA DB Archive"}, {"Backups"}}) {
        fs::remove_all(data());
        fs::create_directories(data());
        for (const char* const made : folders)
            fs::create_directory(data() / made);
        std::ofstream(data() / "Tallybrook.lock").flush();
        Application program(display, clock, data());
        expectFirstStart(display);
        program.start();
        EXPECT_TRUE(fs::is_directory(data() / "TBRK" / "PDA DB Archive"));
    }
}

TEST_F(Start, MakesNoFolderThatWasTakenAwayWhereAnythingOfTheLogbookIsLeft) {
    for (const char* const left : {"Tallybrook_DB.mdb", "tbrkcfg.conf"}) {
        fs::remove_all(data());
        {
            Application program(display, clock, data());
            expectFirstStart(display);
            program.start();
        }
        for (const char* const gone : {"Tallybrook_DB.mdb", "tbrkcfg.conf", "TBRK"}) {
            if (gone != std::string(left))
                fs::remove_all(data() / gone);
        }
        Application again(display, clock, data());
        if (left == std::string("Tallybrook_DB.mdb"))
            display.expect({"Tallybrook", Answer::OK});
        display.expect({"Database Check", Answer::No});
        again.start();
        EXPECT_FALSE(fs::exists(data() / "TBRK")) << left;
    }
}

TEST_F(Start, WritesAConfigurationWhereThereIsNone) {
    const fs::path file = data() / "tbrkcfg.conf";
    {
        Application program(display, clock, data());
        expectFirstStart(display);
        program.start();
        EXPECT_EQ(display.boxes().at(0).icon, Icon::None);
        EXPECT_EQ(display.boxes().at(1).icon, Icon::Question);
        EXPECT_EQ(display.boxes().at(1).defaultAnswer(), Answer::Yes);
        EXPECT_EQ(
            display.boxes().at(1).text,
            "Check database consistency?\r\nThis could take a few minutes, depending on the size of your "
            "database.");
    }
    EXPECT_NE(bytesOf(file).find("HHTYPE=\"\"\r\n"), std::string::npos);
    std::ofstream(file) << "HHTYPE=\"Palm\"\nHHSYNCDIR=\"/sync\"\n";
    Application again(display, clock, data());
    display.expect({"Database Check", Answer::No});
    again.start();
    EXPECT_EQ(again.program().session.gHHType, "Palm");
    EXPECT_EQ(again.program().session.gHHSyncDir, "/sync");
}

TEST_F(Start, WritesTheConfigurationBetweenItsTwoBoxes) {
    const fs::path file = data() / "tbrkcfg.conf";
    display.expect({"Tallybrook", Answer::OK, "", [&] { EXPECT_FALSE(fs::exists(file)); }});
    display.expect({"Database Check", Answer::No, "",
                    [&] { EXPECT_TRUE(bytesOf(file).ends_with("HHSYNCDIR=\"\"\r\n")); }});
    Application program(display, clock, data());
    program.start();
    EXPECT_EQ(program.program().session.gHHSyncDir, "");
}

TEST_F(Start, EndsAtAConfigurationThatCannotBeRead) {
    fs::create_directories(data());
    std::ofstream(data() / "tbrkcfg.conf") << "HHTYPE=\"Palm\"\n\n";
    Application program(display, clock, data());
    program.start();
    EXPECT_EQ(display.events(), (Log{"run-time error 5", "end program"}));
}

TEST_F(Start, EndsAtAConfigurationThatCannotBeWritten) {
    fs::create_directories(data() / "tbrkcfg.conf" / "in the way");
    Application program(display, clock, data());
    display.expect({"Tallybrook", Answer::OK});
    program.start();
    EXPECT_EQ(display.events(), (Log{"run-time error 75", "end program"}));
}

TEST_F(Start, ChecksTheDatabaseOnDemand) {
    Application program(display, clock, data());
    display.expect({"Tallybrook", Answer::OK});
    display.expect({"Database Check", Answer::Yes});
    for (int box = 0; box < 4; ++box)
        display.expect(
            {"Database Error", Answer::OK});  // of three empty tables, and of an empty list of events
    display.expect({"No Events", Answer::OK, "No events in the database to process."});
    display.expect(
        {"Check Complete", Answer::OK,
         "Database check is complete. \r\nResults are logged to " + (data() / "DB_Report.txt").string()});
    program.start();
    EXPECT_EQ(display.events(), (Log{"load frmMain", "show frmMain"}));
    EXPECT_TRUE(fs::exists(data() / "DB_Report.txt"));
}

TEST_F(Start, LeavesARunningCopyAlone) {
    Application first(display, clock, data());
    expectFirstStart(display);
    first.start();
    TestDisplay other;
    other.expect({"Already Running", Answer::OK, "Tallybrook is already running."});
    Application second(other, clock, data());
    second.start();
    EXPECT_EQ(other.boxes().at(0).icon, Icon::None);
    EXPECT_EQ(other.events(), Log{"end program"});
    EXPECT_FALSE(first.program().hasEnded());
    EXPECT_NE(first.program().screens.front(), nullptr);
}

TEST_F(Start, RefusesAFileThatIsNoLogbook) {
    fs::create_directories(data());
    std::ofstream(data() / "Tallybrook_DB.mdb") << "no logbook";
    display.expect({"Tallybrook", Answer::OK});
    Application program(display, clock, data());
    program.start();
    EXPECT_TRUE(program.program().hasEnded());
    EXPECT_NE(display.boxes().at(0).text.find((data() / "Tallybrook_DB.mdb").string()), std::string::npos);
}

TEST_F(Start, TellsOfAFolderThatCannotBeMade) {
    std::ofstream(folder.path() / "home") << "a file in the way";
    display.expect({"Tallybrook", Answer::OK});
    Application program(display, clock, data());
    program.start();
    EXPECT_TRUE(program.program().hasEnded());
    EXPECT_NE(display.boxes().at(0).text.find(data().string()), std::string::npos);
}

TEST(MainMenu, OffersWhatThereIs) {
    Play play;
    for (const char* entry : {"mnuHHSetup", "mnuExit", "mnuSyncPDA", "mnuAddFromForm", "mnuEditData",
                              "mnuDBTools", "mnuReports", "mnuTBKHelp", "mnuAbout"})
        EXPECT_TRUE(play.enabled(entry)) << entry;
    EXPECT_EQ(play.focus(), "none");
}

TEST(MainMenu, HasItsCaptions) {
    Play play;
    EXPECT_EQ(play.screen().caption(), "Main Menu");
    play.expectSeen({{"lblTitle", "Main Menu"},
                     {"mnuFile", "&File"},
                     {"mnuHHSetup", "Handheld &Setup"},
                     {"mnuExit", "E&xit"},
                     {"mnuMainFile", "&Data"},
                     {"mnuAddEvent", "&Add Data"},
                     {"mnuSyncPDA", "Add From &PDA"},
                     {"mnuAddFromForm", "Add Fr&om Form"},
                     {"mnuEditData", "&Edit Data"},
                     {"mnuDBTools", "Database &Tools"},
                     {"mnuReports", "&Reports"},
                     {"mnuMainHelp", "&Help"},
                     {"mnuTBKHelp", "Tallybrook Help"},
                     {"mnuAbout", "&About"}});
}

TEST(MainMenu, TellsItsScreensWhatTheUserCameFor) {
    Play adding;
    adding.session().gMode = kReport;
    adding.click("mnuAddFromForm");
    EXPECT_EQ(adding.screen().name(), "frmEvent");
    EXPECT_EQ(adding.session().gMode, kAdd);
    Play editing;
    editing.session().gMode = kReport;
    editing.click("mnuEditData", {{"Tallybrook - Search Results"}});
    EXPECT_EQ(editing.screen().name(), "frmEventList");
    EXPECT_EQ(editing.session().gMode, kEdit);
}

TEST(MainMenu, AsksBeforeItEnds) {
    Play play;
    play.click("mnuExit", {{"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    EXPECT_EQ(play.screen().name(), "frmMain");
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
    play.close({{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
    EXPECT_EQ(play.display.events().back(), "end program");
}

TEST(MainMenu, ShowsHelpAndTheAboutBox) {
    Play play;
    play.display.forgetEvents();
    play.press("F1");
    play.click("mnuAbout");
    EXPECT_EQ(play.screen().caption(), "About Tallybrook");
    EXPECT_TRUE(play.program().screens.find("frmMain")->isVisible());
    play.run([&] { person::click(Play::control(*play.program().screens.find("frmMain"), "mnuAbout")); });
    play.close();
    EXPECT_EQ(play.display.events(), (Log{"help 0", "load frmAbout", "show frmAbout", "unload frmAbout"}));
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST(Screens, GoBackToTheLastOneLoaded) {
    Play play;
    play.click("mnuAddFromForm");
    play.type("txtEvent", "Chain");
    play.click("cmdUpdGames", {{"Update Games", Answer::Yes}});
    play.type("txtStartLane", "7");
    play.display.forgetEvents();
    play.click("cmdPrevious", {{"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.display.events(), (Log{"unload frmGame", "show frmEvent"}));
    EXPECT_EQ(play.text("txtEvent"), "Chain");
    EXPECT_EQ(play.focus(), "cmdUpdGames");
}

TEST(Screens, ReturnToMainFromAnyDepth) {
    Play play;
    play.click("mnuAddFromForm");
    play.type("txtEvent", "Chain");
    play.click("cmdUpdGames", {{"Update Games", Answer::Yes}});
    play.type("txtStartLane", "7");
    play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
    play.display.forgetEvents();
    play.click("cmdRetMain");
    EXPECT_EQ(play.display.events(), (Log{"unload frmFrame", "unload frmGame", "unload frmEvent",
                                          "unload frmMain", "load frmMain", "show frmMain"}));
    EXPECT_EQ(play.program().screens.loaded().size(), 1U);
    play.click("mnuAddFromForm");
    EXPECT_EQ(play.screen().name(), "frmEvent");
}

TEST(Screens, GiveNobodyUpWithoutAWindow) {
    Play play;
    play.run([&] { play.program().screens.hide(play.screen()); });
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST(Program, ShowsAFailureThatNothingCatches) {
    Play play;
    play.display.forgetEvents();
    play.run([] { throw RunTimeError(error::kOverflow); });
    EXPECT_EQ(play.display.events(), (Log{"run-time error 6", "end program"}));
    play.run([] { FAIL() << "nothing runs after the end"; });
}

}  // namespace

}  // namespace tallybrook::test
