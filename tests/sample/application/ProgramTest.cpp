#include "controls/Grid.h"
#include "sample/Made.h"
#include "shell/TBK_Globals.h"
#include "support/Play.h"

#include <fstream>

namespace tallybrook::test {

namespace {

/// The program on a folder.
class Visit {
public:
    explicit Visit(const std::filesystem::path& folder, Answer check = Answer::No)
        : application_(display, clock_, folder) {
        display.expect({"Tallybrook", Answer::OK});
        display.expect({"Database Check", check});
        if (check == Answer::Yes)
            display.expect({"Check Complete", Answer::OK});
        application_.start();
    }

    TestDisplay display;

    [[nodiscard]] Program& program() { return application_.program(); }
    [[nodiscard]] Screen& screen() { return *program().screens.front(); }
    void perform(const std::function<void()>& action, const std::vector<Expected>& boxes) {
        for (const Expected& box : boxes)
            display.expect(box);
        program().perform(action);
        display.expectNothingLeft();
    }
    void click(const std::string& control, const std::vector<Expected>& boxes = {}) {
        perform([&] { person::click(Play::control(screen(), control)); }, boxes);
    }
    void open(const std::string& name, const std::vector<Expected>& boxes = {}) {
        perform(
            [&] {
                program().screens.hide(screen());
                program().screens.load(name);
            },
            boxes);
    }

private:
    SettableClock clock_{makeDate(2026, 11, 14)};
    Application application_;
};

TEST(Program, FindsNothingToPutRight) {
    const Made made(200);
    const std::vector<Row> before = made.everything();
    { const Visit visit(made.folder(), Answer::Yes); }
    EXPECT_EQ(made.everything(), before);
    const std::string report = bytesOf(made.folder() / "DB_Report.txt");
    EXPECT_NE(report.find(" frames checked, 0 frames deleted."), std::string::npos);
    EXPECT_NE(report.find(" games checked, 0 games deleted."), std::string::npos);
    EXPECT_EQ(report.find("changed to"), std::string::npos);
}

TEST(Program, ListsTheEvents) {
    const Made made(60);
    Visit visit(made.folder());
    visit.program().session.gMode = kEdit;
    visit.open("frmEventList",
               {{"Tallybrook - Search Results", Answer::OK,
                 "There are 60 events available to edit.\r\nTo edit an event, highlight an event and click "
                 "Retrieve Record."}});
    EXPECT_EQ(dynamic_cast<Grid&>(Play::control(visit.screen(), "dgdEventList")).rowCount(), 60);
}

/// Opens the frames of a game, and walks them to their end.
void walkFrames(Visit& visit, int session, int game) {
    visit.program().session.gMode = kEdit;
    visit.program().session.gSessionNum = session;
    visit.open("frmGame");
    for (int before = 1; before < game; ++before)
        visit.click("cmdNextGame");
    visit.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
    for (int frame = 1; frame < 10; ++frame)
        visit.click("cmdNextFrame");
    // The calculated score is the recorded one: nothing is said of a mismatch.
    visit.click("cmdNextFrame", {{"Frame Input", Answer::OK}, {"Game Score", Answer::OK}});
    visit.perform([&] { returnToMain(visit.program()); }, {});
}

TEST(Program, CalculatesTheScoresThatAreRecorded) {
    const Made made(25, 4);
    const std::vector<Row> before = contentOf(made.logbook());
    const std::vector<Row> games = made.query(
        "SELECT fldSessionNum, fldGameNum FROM tblGameInfo WHERE fldFrmsRecorded = 10 GROUP BY fldSessionNum "
        "HAVING fldGameNum = max(fldGameNum)");
    ASSERT_GT(games.size(), 15U);
    {
        Visit visit(made.folder());
        for (const Row& game : games)
            walkFrames(visit, std::stoi(game[0]), std::stoi(game[1]));
        EXPECT_EQ(visit.display.retries(), 0);
    }
    EXPECT_EQ(contentOf(made.logbook()), before);  // each frame was stored again, just as it was
}

TEST(Program, WritesTheStatisticalReport) {
    const Made made(100);
    Visit visit(made.folder());
    visit.open("frmEventStats");
    const std::filesystem::path file = made.folder() / "report.txt";
    visit.display.expectDialog({"Save Report", file});
    visit.click("cmdGenReport", {{"Report Complete", Answer::OK}});
    const std::string report = bytesOf(file);
    EXPECT_NE(report.find("Found 100 matching events."), std::string::npos);
    EXPECT_NE(report.find("\r\n10                      "), std::string::npos);
}

TEST(Program, ImportsTheExportFilesToTheSameLogbook) {
    const Made made(80, 9, true);
    const TemporaryFolder folder;
    const std::filesystem::path data = folder.path() / "data";
    {
        Visit visit(data);
        visit.program().session.gHHType = "Palm";
        visit.program().session.gHHSyncDir = made.folder().string();
        visit.open("frmSyncPDA");
        visit.click("cmdAddPDA", {{"PDA Sync", Answer::OK},
                                  {"Delete PDA Data", Answer::No},
                                  {"Check Complete", Answer::OK},
                                  {"Sync Complete", Answer::OK}});
    }
    EXPECT_EQ(contentOf(data / "Tallybrook_DB.mdb"), contentOf(made.logbook()));
}

TEST(Program, ImportsIntoASampleAsWell) {
    const Made logbook(30, 1);
    const Made handheld(2, 2, true);
    {
        Visit visit(logbook.folder());
        visit.program().session.gHHType = "Palm";
        visit.program().session.gHHSyncDir = handheld.folder().string();
        visit.open("frmSyncPDA");
        visit.click("cmdAddPDA", {{"PDA Sync", Answer::OK},
                                  {"Delete PDA Data", Answer::No},
                                  {"Check Complete", Answer::OK},
                                  {"Sync Complete", Answer::OK}});
    }
    EXPECT_EQ(logbook.number("SELECT count(*) FROM tblEventInfo"), 32);
}

}  // namespace

}  // namespace tallybrook::test
