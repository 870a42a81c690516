#include "maintenance/CheckRun.h"
#include "maintenance/modDBUtils.h"
#include "runtime/TextFile.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"
#include "store/file/Connection.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <filesystem>

#include <sqlite3.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Rows = std::vector<std::string>;

class DatabaseCheck : public testing::Test {
protected:
    void addEvent(const Value& recorded = std::int64_t{0}, const Value& name = "Thursday League",
                  const Value& date = makeDate(2026, 11, 12)) {
        play.insert("tblEventInfo", {{"fldEventName", name},
                                     {"fldDateBowled", date},
                                     {"fldEventType", "LEAGUE"},
                                     {"fldNumGames", std::int64_t{3}},
                                     {"fldGmsRecorded", recorded},
                                     {"fldSeriesTot", std::int64_t{555}}});
    }
    void addGame(int session, const Value& number, const Value& type, const Value& frames = std::int64_t{0}) {
        play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{session}},
                                    {"fldGameNum", number},
                                    {"fldScoreType", type},
                                    {"fldFrmsRecorded", frames}});
    }
    void addFrame(int session, int game, int number, const Value& firstBall) {
        play.insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{session}},
                                     {"fldGameNum", std::int64_t{game}},
                                     {"fldFrameNum", std::int64_t{number}},
                                     {"fldFirstBallRes", firstBall}});
    }
    Rows games() {
        return play.rows("tblGameInfo", {"fldSessionNum", "fldGameNum", "fldScoreType", "fldFrmsRecorded"});
    }

    /// Runs the check, with the boxes that come before its own, and returns what it wrote between its first
    /// and its last line.
    Rows check(std::vector<Expected> boxes = {}) {
        fs::remove(report());
        boxes.push_back(complete());
        play.run([&] { DB_Check(play.program()); }, boxes);
        std::string text = bytesOf(report());
        EXPECT_TRUE(text.starts_with(kHead)) << text;
        EXPECT_TRUE(text.ends_with(kTail)) << text;
        text = text.substr(kHead.size(), text.size() - kHead.size() - kTail.size());
        Rows lines;
        for (std::size_t end = 0; (end = text.find("\r\n")) != std::string::npos; text.erase(0, end + 2))
            lines.push_back(text.substr(0, end));
        EXPECT_EQ(text, "");
        return lines;
    }
    [[nodiscard]] fs::path report() const { return play.dataFolder() / "DB_Report.txt"; }
    [[nodiscard]] Expected complete() const {
        return {"Check Complete", Answer::OK,
                "Database check is complete. \r\nResults are logged to " + report().string()};
    }
    static Expected failure(const std::string& procedure, int number) {
        return {"Database Error", Answer::OK,
                databaseErrorBox(RunTimeError(number), "DB_Utils, " + procedure + ".").text};
    }
    static constexpr int kNoRow = error::kNoCurrentRow;
    static inline const std::string kHead =
        "***************************************************\r\n"
        "Database check started on 11/14/2026, 9:55:00 PM\r\n"
        "Checking database integrity.\r\n";
    static inline const std::string kTail =
        "Game score type check complete.\r\n"
        "Updating event averages.\r\n"
        "Database check completed on 11/14/2026, 9:55:00 PM\r\n";

    Play play;
};

TEST_F(DatabaseCheck, OfAConsistentLogbookChangesNothing) {
    addEvent(std::int64_t{2});
    addGame(1, std::int64_t{1}, "P", std::int64_t{2});
    addGame(1, std::int64_t{2}, "N");
    addFrame(1, 1, 1, "X");
    addFrame(1, 1, 2, "10");
    EXPECT_EQ(check(), (Rows{"2 frames checked, 0 frames deleted.", "2 games checked, 0 games deleted.",
                             "Checking game score types."}));
    EXPECT_EQ(games(), (Rows{"1|1|P|2", "1|2|N|0"}));
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot"}), Rows{"2|555"});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
}

// It cannot take the name, since it is added to.
TEST_F(DatabaseCheck, WritesThroughNoLink) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "P", std::int64_t{1});
    addFrame(1, 1, 1, "X");
    const fs::path notes = play.dataFolder() / "notes.txt";
    const fs::path logbook = play.dataFolder() / "Tallybrook_DB.mdb";
    std::ofstream(notes) << "notes";
    for (const fs::path& target : {notes, logbook}) {
        fs::remove(report());
        fs::create_symlink(target, report());
        const std::string before = bytesOf(target);
        std::vector<Expected> boxes{failure("DB_Check", error::kPathFileAccess)};
        for (const char* const procedure : {"DB_Check", "DB_Integ", "DB_Integ", "DB_Integ", "Check_ScType",
                                            "Check_ScType", "Upd_Avg", "DB_Check"})
            boxes.push_back(failure(procedure, error::kBadFileNameOrNumber));
        boxes.push_back(complete());
        play.run([&] { DB_Check(play.program()); }, boxes);
        EXPECT_EQ(bytesOf(target), before) << target;
    }
}

TEST_F(DatabaseCheck, DeletesWhatBelongsToNoEvent) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "P", std::int64_t{1});
    addFrame(1, 1, 1, "X");
    addFrame(1, 7, 1, "X");  // its event is there, though its game is not
    addFrame(2, 1, 1, "X");
    addFrame(2, 1, 2, "X");
    addGame(2, std::int64_t{1}, "P");
    addGame(0, std::int64_t{1}, "P");
    EXPECT_EQ(check(), (Rows{"4 frames checked, 2 frames deleted.", "3 games checked, 2 games deleted.",
                             "Checking game score types."}));
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldSessionNum", "fldGameNum"}), (Rows{"1|1", "1|7"}));
    EXPECT_EQ(games(), Rows{"1|1|P|1"});
}

TEST_F(DatabaseCheck, KeepsARowWhoseKeyCannotBeRead) {
    addEvent();
    play.insert("tblFrameInfo", {{"fldSessionNum", Null{}}});
    addFrame(2, 1, 1, "X");
    play.insert("tblFrameInfo", {{"fldSessionNum", Null{}}});  // behind a row that was deleted
    const Expected null = failure("DB_Integ", error::kInvalidUseOfNull);
    const Rows lines = check({null, null, failure("DB_Integ", kNoRow), failure("Check_ScType", kNoRow)});
    EXPECT_EQ(lines.front(), "3 frames checked, 1 frames deleted.");
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldSessionNum"}), (Rows{"null", "null"}));
}

TEST_F(DatabaseCheck, GoesOnBehindADeletionThatIsRefused) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    addFrame(2, 1, 1, "X");
    addFrame(2, 1, 2, "X");
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE DELETE ON tblFrameInfo WHEN OLD.fldFrameNum = 1 "
        "BEGIN SELECT RAISE(ABORT, 'not this one'); END");
    const Rows lines =
        check({{"Database Error", Answer::OK,
                databaseErrorBox(RunTimeError(-2147467259, "not this one"), "DB_Utils, DB_Integ.").text}});
    EXPECT_EQ(lines.front(), "2 frames checked, 2 frames deleted.");
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldFrameNum"}), Rows{"1"});
}

TEST_F(DatabaseCheck, ConcludesTheScoreTypeFromTheLowestFrame) {
    addEvent(std::int64_t{6});
    addGame(1, std::int64_t{1}, "N", std::int64_t{1});
    addFrame(1, 1, 1, "X");
    addGame(1, std::int64_t{2}, "P", std::int64_t{2});
    addFrame(1, 2, 2, "10");  // pins in a later frame
    addFrame(1, 2, 1, "");
    addGame(1, std::int64_t{3}, "P");
    addGame(1, std::int64_t{4}, "L", std::int64_t{1});
    addFrame(1, 4, 3, Null{});  // not equal to an empty text
    addGame(1, std::int64_t{5}, "p", std::int64_t{1});
    addFrame(1, 5, 1, "10");
    addGame(1, std::int64_t{6}, "L", std::int64_t{1});
    addFrame(1, 6, 1, "");
    const std::string event = ", Event: Thursday League, Date: 11/12/2026, score type changed to ";
    EXPECT_EQ(check(), (Rows{"6 frames checked, 0 frames deleted.", "6 games checked, 0 games deleted.",
                             "Checking game score types.", "Game number: 1" + event + "P",
                             "Game number: 2" + event + "L", "Game number: 3" + event + "N",
                             "Game number: 4" + event + "P", "Game number: 5" + event + "P"}));
    EXPECT_EQ(games(), (Rows{"1|1|P|1", "1|2|L|2", "1|3|N|0", "1|4|P|1", "1|5|P|1", "1|6|L|1"}));
}

// One look at a game tells nothing of its frames there, so they are walked over.
TEST_F(DatabaseCheck, ConcludesTheScoreTypesOfGamesWhoseNumbersAreStoredAsBytes) {
    addEvent(std::int64_t{3});
    for (const std::int64_t game : {1, 2, 3})
        addGame(1, game, "Q", std::int64_t{game == 3 ? 0 : 2});
    addFrame(1, 1, 2, "10");
    addFrame(1, 1, 1, "");
    addFrame(1, 2, 2, "");
    addFrame(1, 2, 1, "10");
    play.program().store().connection().database().exec(
        "UPDATE tblGameInfo SET fldGameNum = CAST(fldGameNum AS BLOB)");
    check();
    EXPECT_EQ(play.rows("tblGameInfo", {"fldScoreType", "fldFrmsRecorded"}), (Rows{"L|2", "P|2", "N|0"}));
}

TEST_F(DatabaseCheck, TakesAGameWhoseFramesWereTypedForALineScoreWhateverItsColumnHeld) {
    for (const std::string held : {"L", "N"}) {
        SQLite::Database& logbook = play.program().store().connection().database();
        logbook.exec(
            "CREATE TRIGGER another_default AFTER INSERT ON tblGameInfo BEGIN UPDATE tblGameInfo SET "
            "fldScoreType = '" +
            held + "' WHERE fldGameKey = NEW.fldGameKey; END");
        play.click("mnuAddFromForm");
        play.type("txtEvent", "League of " + held);
        play.click("cmdUpdGames", {{"Update Games", Answer::Yes}});
        play.click("optScType(1)");
        play.type("txtStartLane", "7");
        play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
        play.type("txtCount(1)", "9/");
        play.click("cmdRetMain");
        logbook.exec("DROP TRIGGER another_default");
    }
    EXPECT_EQ(games(), (Rows{"1|1|L|0", "2|1|N|0"}));
    check();
    EXPECT_EQ(games(), (Rows{"1|1|L|1", "2|1|L|1"}));
}

TEST_F(DatabaseCheck, CorrectsTheRecordedCounts) {
    addEvent(std::int64_t{3});
    addGame(1, std::int64_t{1}, "P", std::int64_t{10});
    addFrame(1, 1, 1, "X");
    EXPECT_EQ(check(),
              (Rows{"1 frames checked, 0 frames deleted.", "1 games checked, 0 games deleted.",
                    "Checking game score types.",
                    "Game number: 1, Event: Thursday League, Date: 11/12/2026, frames recorded changed to 1",
                    "Event: Thursday League, Date: 11/12/2026, games recorded changed to 1"}));
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded"}), Rows{"1"});
    EXPECT_EQ(games(), Rows{"1|1|P|1"});
}

TEST_F(DatabaseCheck, SeesADeletedGameInTheSameRun) {
    addEvent(std::int64_t{1});
    addGame(9, std::int64_t{1}, "N");
    const Rows lines = check({failure("DB_Integ", kNoRow), failure("Check_ScType", kNoRow)});
    EXPECT_EQ(lines.back(), "Event: Thursday League, Date: 11/12/2026, games recorded changed to 0");
}

TEST_F(DatabaseCheck, LeavesNullsAlone) {
    addEvent(Null{}, Null{}, Null{});
    addGame(1, std::int64_t{1}, Null{}, Null{});
    addFrame(1, 1, 1, "X");
    const Rows lines = check({failure("Check_ScType", error::kInvalidUseOfNull)});
    EXPECT_EQ(lines.size(), 3U);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldScoreType", "fldFrmsRecorded"}), Rows{"null|null"});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded"}), Rows{"null"});
}

TEST_F(DatabaseCheck, TellsOfACountThatIsBeyondAllNumbersAndGoesOn) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "P");
    addFrame(1, 1, 1, "X");
    addEvent();
    addGame(2, std::int64_t{1}, "N");
    SQLite::Database& logbook = play.program().store().connection().database();
    logbook.exec("UPDATE tblGameInfo SET fldFrmsRecorded = '1e999x' WHERE fldSessionNum = 1");
    logbook.exec("UPDATE tblEventInfo SET fldGmsRecorded = '1e999x' WHERE fldSessionNum = 2");
    const Rows lines =
        check({failure("Check_ScType", error::kOverflow), failure("Check_ScType", error::kOverflow)});
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[3],
              "Game number: 1, Event: Thursday League, Date: 11/12/2026, frames recorded changed to 1");
    EXPECT_EQ(lines[4], "Event: Thursday League, Date: 11/12/2026, games recorded changed to 1");
    EXPECT_EQ(games(), (Rows{"1|1|P|1", "2|1|N|0"}));
}

TEST_F(DatabaseCheck, NamesAGameByTheOneBeforeWhereItsNumberCannotBeRead) {
    addEvent(std::int64_t{2});
    addGame(1, std::int64_t{1}, "N");
    addGame(1, std::int64_t{2}, "N");
    addEvent(std::int64_t{1});
    addGame(2, Null{}, "P");
    const Rows lines =
        check({failure("DB_Integ", kNoRow), failure("Check_ScType", error::kInvalidUseOfNull)});
    EXPECT_EQ(lines.back(),
              "Game number: 2, Event: Thursday League, Date: 11/12/2026, score type changed to N");
}

TEST_F(DatabaseCheck, TellsOfAGameNumberBeyond16Bits) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    play.program().store().connection().database().exec("UPDATE tblGameInfo SET fldGameNum = 32768");
    check({failure("DB_Integ", kNoRow), failure("Check_ScType", error::kOverflow)});
}

TEST_F(DatabaseCheck, LeavesNothingWaitingForTheDiskWhileAFailureIsTold) {
    addEvent(std::int64_t{7});
    addGame(1, std::int64_t{1}, "Q");
    addEvent();  // without games, which is told
    addFrame(9, 1, 1, "X");
    Expected box = failure("Check_ScType", kNoRow);
    box.meanwhile = [this] {
        sqlite3* const engine = play.program().store().connection().database().getHandle();
        EXPECT_NE(sqlite3_txn_state(engine, "main"), SQLITE_TXN_WRITE);
        EXPECT_EQ(games(), Rows{"1|1|N|0"});
        EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded"}), (Rows{"1", "0"}));
    };
    check({box});
}

TEST_F(DatabaseCheck, KeepsWhatItHasDoneBeforeAFailureThatUndoesTheTransaction) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    for (const int frame : {1, 2, 3})
        addFrame(2, 1, frame, "X");
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE DELETE ON tblFrameInfo WHEN OLD.fldFrameNum = 3 "
        "BEGIN SELECT RAISE(ROLLBACK, 'not this one'); END");
    const Rows lines =
        check({{"Database Error", Answer::OK,
                databaseErrorBox(RunTimeError(-2147467259, "not this one"), "DB_Utils, DB_Integ.").text}});
    EXPECT_EQ(lines.front(), "3 frames checked, 3 frames deleted.");
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldFrameNum"}), Rows{"3"});
}

TEST_F(DatabaseCheck, ReportsAChangeThatIsRefusedAllTheSame) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "P");
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE UPDATE ON tblGameInfo BEGIN SELECT RAISE(ABORT, 'not this one'); END");
    const RunTimeError raised(-2147467259, "not this one");
    const Expected refusal{"Database Error", Answer::OK,
                           databaseErrorBox(raised, "DB_Utils, Check_ScType.").text};
    const Rows lines = check({failure("DB_Integ", kNoRow), refusal, refusal});  // as it is left, once more
    EXPECT_EQ(lines.back(),
              "Game number: 1, Event: Thursday League, Date: 11/12/2026, score type changed to N");
    EXPECT_EQ(games(), Rows{"1|1|P|0"});
}

TEST_F(DatabaseCheck, OfAnEmptyLogbookTellsOfEachEmptyTable) {
    const std::vector<Expected> boxes{failure("DB_Integ", kNoRow),
                                      failure("DB_Integ", kNoRow),
                                      failure("Check_ScType", kNoRow),
                                      failure("Upd_Avg", error::kSubscriptOutOfRange),
                                      {"No Events", Answer::OK, "No events in the database to process."}};
    EXPECT_EQ(check(boxes), (Rows{"0 frames checked, 0 frames deleted.", "0 games checked, 0 games deleted.",
                                  "Checking game score types."}));
    const MessageBox& noEvents = play.display.boxes()[4];
    EXPECT_EQ(noEvents.icon, Icon::Information);
    EXPECT_EQ(noEvents.buttons, Buttons::OK);
}

TEST_F(DatabaseCheck, CountsNothingInATableThatIsNotThere) {
    addEvent();
    play.program().store().connection().database().exec("ALTER TABLE tblFrameInfo RENAME TO elsewhere");
    const std::vector<Expected> boxes(9, {"Database Error", Answer::OK});
    EXPECT_EQ(check(boxes).front(), "0 frames checked, 0 frames deleted.");
}

TEST_F(DatabaseCheck, TellsOfTheSeriesOnceForEachEvent) {
    const auto updateAverages = [this] {
        CheckRun run(play.program());
        run.createRecordsets();
        Upd_Avg(run);
    };
    const Expected noFile = failure("Upd_Avg", error::kBadFileNameOrNumber);
    const auto series = [](const RunTimeError& raised) {
        return Expected{"Database Error", Answer::OK,
                        databaseErrorBox(raised, "TBK_Globals, Update_Series.").text};
    };
    addEvent();
    addEvent();
    play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{0}}, {"fldGameScore", Null{}}});
    const Expected null = series(RunTimeError(error::kInvalidUseOfNull));
    play.run(updateAverages, {noFile, null, null});

    play.program().store().connection().database().exec("DROP TABLE tblGameInfo");
    const Expected noTable = series(RunTimeError(-2147467259, "no such table: tblGameInfo"));
    play.run(updateAverages, {noFile, noTable, noTable});
}

TEST_F(DatabaseCheck, HasItsWholeReportInTheFileWhenItSaysSo) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    Expected box = complete();
    std::string text;
    box.meanwhile = [&] { text = bytesOf(report()); };
    play.run([&] { DB_Check(play.program()); }, {failure("DB_Integ", kNoRow), box});
    EXPECT_TRUE(text.ends_with(kTail)) << text;
}

TEST_F(DatabaseCheck, AppendsToItsReport) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    check({failure("DB_Integ", kNoRow)});
    const std::string once = bytesOf(report());
    play.run([&] { DB_Check(play.program()); }, {failure("DB_Integ", kNoRow), complete()});
    EXPECT_TRUE(isSameText(bytesOf(report()), once + once));
}

TEST_F(DatabaseCheck, DatesItsEndByTheClockAsItGoesOn) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    Expected box = failure("DB_Integ", kNoRow);
    box.meanwhile = [this] { play.clock.set(play.clock.now() + std::chrono::minutes{7}); };
    play.run([&] { DB_Check(play.program()); }, {box, complete()});
    const std::string text = bytesOf(report());
    EXPECT_TRUE(text.starts_with(kHead)) << text;
    EXPECT_TRUE(text.ends_with("Database check completed on 11/14/2026, 10:02:00 PM\r\n")) << text;
}

TEST_F(DatabaseCheck, SetsTheSharedTotalsToNothing) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    play.session().gSeriesTot = 600;
    play.session().gSeriesAvg = 200;
    play.session().gGmsRecorded = 3;
    check({failure("DB_Integ", kNoRow)});
    EXPECT_EQ(play.session().gSeriesTot, 0);
    EXPECT_EQ(play.session().gSeriesAvg, 0);
    EXPECT_EQ(play.session().gGmsRecorded, 0);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSeriesTot"}), Rows{"555"});
}

TEST_F(DatabaseCheck, GoesOnWithoutItsReport) {
    fs::create_directory(report());
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "P");
    const auto closed = [](const std::string& procedure) {
        return failure(procedure, error::kBadFileNameOrNumber);
    };
    play.run(
        [&] { DB_Check(play.program()); },
        {failure("DB_Check", error::kPathFileAccess), closed("DB_Check"), closed("DB_Integ"),
         failure("DB_Integ", kNoRow), closed("DB_Integ"), closed("DB_Integ"), closed("Check_ScType"),
         closed("Check_ScType"), closed("Check_ScType"), closed("Upd_Avg"), closed("DB_Check"), complete()});
    EXPECT_EQ(games(), Rows{"1|1|N|0"});
}

TEST_F(DatabaseCheck, IsAskedForAtTheStart) {
    play.run([&] { askForCheck(play.program()); }, {{"Database Check", Answer::No}});
    EXPECT_FALSE(fs::exists(report()));
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    play.run([&] { askForCheck(play.program()); },
             {{"Database Check", Answer::Yes}, failure("DB_Integ", kNoRow), complete()});
    EXPECT_TRUE(fs::exists(report()));
}

class DatabaseTools : public DatabaseCheck {
protected:
    DatabaseTools() {
        play.click("mnuDBTools");
        play.display.forgetEvents();
    }
    static inline const Expected kProceed{"Database Check", Answer::Yes,
                                          "This will perform a database consistency check.\r\nDepending on "
                                          "the size of your database, this can take "
                                          "several minutes.\r\nProceed?"};
};

TEST_F(DatabaseTools, ChecksAfterAQuestion) {
    EXPECT_EQ(play.screen().caption(), "Database Tools");
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    play.click("cmdDBCheck", {{kProceed.title, Answer::No, kProceed.text}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
    EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::Yes);
    EXPECT_TRUE(play.display.events().empty());
    play.click("mnuDBCheck", {kProceed, failure("DB_Integ", kNoRow), complete()});
    EXPECT_EQ(play.display.events(), (Rows{"busy", "default"}));
}

TEST_F(DatabaseTools, StayBusyUntilTheCheckIsComplete) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    Expected box = complete();
    Rows before;
    box.meanwhile = [&] { before = play.display.events(); };
    play.click("cmdDBCheck", {kProceed, failure("DB_Integ", kNoRow), box});
    EXPECT_EQ(before, Rows{"busy"});
}

TEST_F(DatabaseTools, BackUpTheLogbookAsItIsBeforeTheCheck) {
    addEvent(std::int64_t{7});
    addGame(1, std::int64_t{1}, "N");
    play.click("cmdDBCheck", {kProceed, failure("DB_Integ", kNoRow), complete()});
    play.program().backups().finish();
    Rows recorded;
    for (const fs::directory_entry& file : fs::directory_iterator(play.dataFolder() / "Backups")) {
        SQLite::Database backup(file.path().string());
        SQLite::Statement events(backup, "SELECT fldGmsRecorded FROM tblEventInfo");
        while (events.executeStep())
            recorded.push_back(events.getColumn(0).getString());
    }
    EXPECT_EQ(recorded, Rows{"7"});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded"}), Rows{"1"});
}

TEST_F(DatabaseTools, CountsTheLogbook) {
    addEvent();
    play.insert("tblEventInfo", {{"fldEventType", "practice"}});
    play.insert("tblEventInfo", {{"fldEventType", "COACHING"}});
    addGame(1, std::int64_t{1}, "P");
    addFrame(1, 1, 1, "X");
    const fs::path file = play.program().logbookFile();
    play.click("cmdDBStats", {{"Database Statistics"}});
    const MessageBox& box = play.display.boxes().back();
    EXPECT_EQ(box.icon, Icon::None);
    EXPECT_EQ(box.buttons, Buttons::OK);
    EXPECT_EQ(box.text,
              "Number of events: 3\r\nLeague Events: 1\r\nPractice Events: 1\r\nTournament Events: 0\r\n\r\n"
              "Number of games: 1\r\nNumber of frames: 1\r\n\r\nDatabase location: " +
                  file.string() + "\r\nDatabase size: " + std::to_string(fs::file_size(file)) +
                  "\r\nLast modified: " + dateText(fileDate(file)));
}

TEST_F(DatabaseTools, OpensAReport) {
    play.display.expectDialog({"Open Report", std::nullopt});
    play.display.expectDialog({"Open Report", report()});
    play.click("mnuFileOpen", {{"Cancelled - Open File", Answer::Retry, "No file was selected."}});
    EXPECT_EQ(play.display.events(), Rows{"viewer " + report().string()});
    EXPECT_EQ(play.display.dialogs().at(0).filter, "Text (*.txt) | .txt");
    EXPECT_EQ(play.display.dialogs().at(0).folder, (fs::current_path() / "Reports").string());
}

TEST_F(DatabaseTools, EndQuietlyWithoutAReportToOpen) {
    play.display.expectDialog({"Open Report", std::nullopt});
    play.display.expectDialog({"Open Report", std::nullopt});
    play.click("mnuFileOpen", {{"Cancelled - Open File", Answer::Retry, "No file was selected."},
                               {"Cancelled - Open File", Answer::Cancel, "No file was selected."}});
    EXPECT_TRUE(play.display.events().empty());
    const MessageBox& box = play.display.boxes().back();
    EXPECT_EQ(box.icon, Icon::None);
    EXPECT_EQ(box.buttons, Buttons::RetryCancel);
}

TEST_F(DatabaseTools, ReturnToTheMainMenu) {
    const Expected question{"Return to Main Menu", Answer::No, "Return to the main menu?"};
    play.click("cmdRetMain", {question});
    EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::No);
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    play.close({{question.title, Answer::Yes, question.text}});
    EXPECT_EQ(play.display.events(),
              (Rows{"unload frmDBTools", "show frmMain", "unload frmMain", "load frmMain", "show frmMain"}));
    EXPECT_EQ(play.program().screens.loaded().size(), 1U);
}

TEST_F(DatabaseTools, OfferHelpAboutAndExit) {
    play.click("mnuTBKHelp");
    play.click("mnuAbout");
    EXPECT_EQ(play.display.events(), (Rows{"help 0", "load frmAbout", "show frmAbout"}));
    play.close();
    play.click("cmdExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(DatabaseTools, CountUpTo32767) {
    play.program().store().connection().database().exec(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32768) "
        "INSERT INTO tblFrameInfo (fldFrameNum) SELECT i FROM n");
    play.click("mnuDBStats", {failure("DB_Stats", error::kOverflow), {"Database Statistics"}});
    EXPECT_NE(play.display.boxes().back().text.find("\r\nNumber of frames: 0\r\n"), std::string::npos);
}

TEST_F(DatabaseTools, TellOfAViewerThatDoesNotStart) {
    play.display.refuseViewer();
    play.display.expectDialog({"Open Report", report()});
    play.click("mnuFileOpen",
               {{"Database Error", Answer::OK,
                 databaseErrorBox(RunTimeError(error::kFileNotFound), "DBTools, mnuFileOpen.").text}});
}

TEST_F(DatabaseTools, LeaveNothingOpenBehindACheck) {
    addEvent(std::int64_t{1});
    addGame(1, std::int64_t{1}, "N");
    for (int run = 0; run < 2; ++run) {
        play.click("cmdDBCheck", {kProceed, failure("DB_Integ", kNoRow), complete()});
        EXPECT_TRUE(fs::remove(report()));
    }
    play.click("cmdDBStats", {{"Database Statistics"}});
}

TEST_F(DatabaseTools, ComeUpWhereTheCurrentFolderIsGone) {
    play.click("cmdRetMain", {{"Return to Main Menu", Answer::Yes}});
    const fs::path before = fs::current_path();
    const fs::path gone = play.dataFolder() / "gone";
    fs::create_directory(gone);
    fs::current_path(gone);
    fs::remove(gone);
    play.click("mnuDBTools");
    EXPECT_EQ(play.screen().name(), "frmDBTools");
    fs::current_path(before);
}

TEST_F(DatabaseTools, HaveTheirCaptions) {
    play.expectSeen({{"lblTitle", "Database Tools"},
                     {"cmdDBCheck", "&Check Database"},
                     {"cmdDBStats", "&Database Statistics"},
                     {"cmdRetMain", "Return to &Main Menu"},
                     {"cmdExit", "E&xit"},
                     {"mnuFile", "&File"},
                     {"mnuFileOpen", "&Open"},
                     {"mnuFileExit", "E&xit"},
                     {"mnuDBTools", "&Tools"},
                     {"mnuDBCheck", "&Check Database"},
                     {"mnuDBStats", "Database &Statistics"},
                     {"mnuRetMain", "&Main Menu"},
                     {"mnuHelp", "&Help"},
                     {"mnuTBKHelp", "Tallybrook Help"},
                     {"mnuAbout", "&About"}});
    const auto entriesOf = [this](const char* name) {
        Rows names;
        for (const Menu* const entry : dynamic_cast<Menu&>(play.control(name)).entries())
            names.push_back(entry->name());
        return names;
    };
    EXPECT_EQ(entriesOf("mnuFile"), (Rows{"mnuFileOpen", "mnuFileExit"}));
    EXPECT_EQ(entriesOf("mnuDBTools"), (Rows{"mnuDBCheck", "mnuDBStats", "mnuRetMain"}));
    EXPECT_EQ(entriesOf("mnuHelp"), (Rows{"mnuTBKHelp", "mnuAbout"}));
    play.click("mnuRetMain", {{"Return to Main Menu", Answer::No}});
    play.click("mnuFileExit", {{"Confirm - Exit", Answer::No}});
}

}  // namespace

}  // namespace tallybrook::test
