#include "support/Play.h"
#include "support/StoredEvents.h"

#include <fstream>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

class ProgramsBackups : public testing::Test {
protected:
    ProgramsBackups() {
        writeEvents(data.path() / "Tallybrook_DB.mdb", 3, clock);
        std::ofstream(data.path() / "tbrkcfg.conf") << "HHTYPE=\"\"\r\nHHSYNCDIR=\"\"\r\n";
    }
    [[nodiscard]] std::ptrdiff_t count() const {
        return std::distance(fs::directory_iterator(data.path() / "Backups"), fs::directory_iterator());
    }
    void start() {
        display.expect({"Database Check", Answer::No});
        application.start();
    }
    void perform(const std::function<void()>& action) { application.program().perform(action); }

    TemporaryFolder data;
    SettableClock clock{makeDate(2026, 11, 14)};
    TestDisplay display;
    Application application{display, clock, data.path()};
};

TEST_F(ProgramsBackups, AreMadeAtTheStartAndBeforeACheck) {
    start();
    application.program().backups().finish();
    EXPECT_EQ(count(), 1);
    perform([&] {
        Recordset events(application.program().store());
        events.Open("SELECT * FROM tblEventInfo");
        events["fldComment"] = "changed";
        events.Update();
    });
    perform([&] { application.program().screens.load("frmDBTools"); });
    display.expect({"Database Check", Answer::Yes});
    for (int box = 0; box < 5; ++box)
        display.expect({"Database Error", Answer::OK});  // of tables without games and frames
    display.expect({"Check Complete", Answer::OK});
    perform([&] { person::click(*application.program().screens.front()->find("cmdDBCheck")); });
    application.program().backups().finish();
    EXPECT_EQ(count(), 2);
}

TEST_F(ProgramsBackups, ThatFailAreToldOnce) {
    std::ofstream(data.path() / "Backups") << "in the way";
    display.expect({"Database Check", Answer::No});
    display.expect(
        {"Tallybrook", Answer::OK,
         "The logbook could not be backed up. The program goes on all the same.\r\n"
         "Folder of the backups: " +
             (data.path() / "Backups").string() +
             "\r\nFile exists\r\nPlease see that there is room on the disk, and that the folder can be "
             "written."});
    application.start();
    EXPECT_EQ(display.boxes().back().icon, Icon::Warning);
    EXPECT_EQ(display.events().back(), "show frmMain");
    application.program().backups().begin();
    perform([] {});
}

}  // namespace

}  // namespace tallybrook::test
