#include "backup/BackupFolder.h"
#include "handheld/SyncPlay.h"
#include "runtime/TextEncoding.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Log = std::vector<std::string>;
using Names = std::set<std::string>;

const Names kCdbFiles{"tblEvent.cdb", "tblFrame.cdb", "tblGame.cdb"};

Names with(Names names, const Names& more) {
    names.insert(more.begin(), more.end());
    return names;
}

/// What a run on the test's clock writes to the master log.
std::string banner(const SyncPlay& play, const std::string& stamp = "11-14-2026-2155",
                   const std::string& time = "9:55:00 PM") {
    return withLineEnds({"**************************************************************",
                         "Tallybrook PDA Sync started at 11/14/2026 " + time, "Timestamp: " + stamp,
                         "Log file: " + (play.archiveFolder() / ("PDA_SyncLog-" + stamp + ".txt")).string()});
}

std::string archived(const SyncPlay& play, const std::string& name) {
    return (play.archiveFolder() / (name + "-11-14-2026-2155.cdb")).string();
}

/// The opening of the run's log.
Lines openingOf(const SyncPlay& play, bool deletes) {
    return {"PDA Sync started at 11/14/2026 9:55:00 PM",
            deletes ? "PDA data to be deleted on next sync." : "PDA data to be retained.",
            "11/14/2026 9:55:00 PM: Preparing CDB files",
            "Event CDB File archived to: " + archived(play, "tblEvent"),
            "Game CDB File archived to: " + archived(play, "tblGame"),
            "Frame CDB File archived to: " + archived(play, "tblFrame"),
            ""};
}

Lines joined(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

class SyncRuns : public testing::TestWithParam<Handheld> {
protected:
    SyncPlay play{GetParam()};
};

class PalmRuns : public testing::Test {
protected:
    SyncPlay play;
};

TEST_P(SyncRuns, AddWhatTheHandheldHasLeft) {
    play.put(smallExports());
    play.sync(Answer::No);
    EXPECT_EQ(play.events(), Log{"1|Thursday League|11/12/2026|Rolling Lanes|Springfield|LEAGUE|3|1|541|"
                                 "180.33||E000000001"});
    EXPECT_EQ(play.games(), Log{"1|1|1|13|13|14|13-14|187|dry||P|1|G000000001|N"});
    EXPECT_EQ(play.frames(), Log{"1|1|1|1|13|Blue|20|10|X||||X|F000000001"});
}

/// How many events each backup holds, the oldest first.
std::vector<std::int64_t> eventsInBackups(const SyncPlay& play) {
    const BackupFolder folder(play.dataFolder() / "Tallybrook_DB.mdb");
    std::vector<std::int64_t> counts;
    for (const DateTime time : folder.times()) {
        const SQLite::Database backup(folder.existing(time).string());
        SQLite::Statement count(backup, "SELECT count(*) FROM tblEventInfo");
        count.executeStep();
        counts.push_back(count.getColumn(0).getInt64());
    }
    return counts;
}

TEST_P(SyncRuns, AreBehindABackupOfWhatWasThere) {
    play.insertEvent();
    play.insertGame();
    play.insertFrame(1, "X", "X");
    play.put(smallExports());
    play.sync(Answer::No);
    play.program().backups().finish();
    ASSERT_FALSE(eventsInBackups(play).empty());
    EXPECT_EQ(eventsInBackups(play).front(), 1);
    EXPECT_EQ(play.events().size(), 2U);
}

TEST_P(SyncRuns, TellTheirStoryInTheLogs) {
    play.put(smallExports());
    play.sync(Answer::No);
    EXPECT_TRUE(isSameText(play.masterLog(), banner(play)));
    EXPECT_TRUE(
        isSameText(play.runLog(),
                   withLineEnds(joined(
                       openingOf(play, false),
                       {"11/14/2026 9:55:00 PM: Reading events", "Total of 1 events in file.",
                        "Event E000000001 added to database. Key: 1",
                        "Events processed: 1, Events added: 1, Events in error: 0",
                        "Completed processing events: 11/14/2026 9:55:00 PM", "",
                        "11/14/2026 9:55:00 PM: Reading games.", "Total of 1 games in file.",
                        "Record ID: G000000001 added to database, Event key: 1, Game number: 1",
                        "Games processed: 1, Games added: 1, Games in error: 0",
                        "Completed processing games: 11/14/2026 9:55:00 PM", "", "Total of 1 frames in file.",
                        "Record ID: F000000001 added to database, Event key: 1, Game number: 1, Frame "
                        "number: 1",
                        "Frames processed: 1, Frames added: 1, Frames in error: 0",
                        "Completed processing frames: 11/14/2026 9:55:00 PM", "",
                        "Starting database reconciliaton at 11/14/2026 9:55:00 PM",
                        "Database reconciliaton complete at 11/14/2026 9:55:00 PM"}))));
}

TEST_P(SyncRuns, LeaveTheFilesWhereDataAreRetained) {
    const Exports files = smallExports();
    play.put(files);
    play.sync(Answer::No);
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_EQ(play.working("tblEvent.cdb"), withLineEnds(files.events));
    EXPECT_EQ(play.working("tblGame.cdb"), withLineEnds(files.games));
    EXPECT_EQ(play.working("tblFrame.cdb"), withLineEnds(files.frames));
}

TEST_P(SyncRuns, ArchiveTheFiles) {
    const Exports files = smallExports();
    play.put(files);
    play.sync(Answer::Yes);
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()),
              (Names{"PDA_SyncLog-11-14-2026-2155.txt", "tblEvent-11-14-2026-2155.cdb",
                     "tblFrame-11-14-2026-2155.cdb", "tblGame-11-14-2026-2155.cdb"}));
    EXPECT_EQ(bytesOf(archived(play, "tblEvent")), withLineEnds(files.events));
    EXPECT_EQ(bytesOf(archived(play, "tblGame")), withLineEnds(files.games));
    EXPECT_EQ(bytesOf(archived(play, "tblFrame")), withLineEnds(files.frames));
}

TEST_P(SyncRuns, LeaveTheMarksWhereDataAreDeleted) {
    play.put(smallExports());
    play.sync(Answer::Yes);
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_TRUE(isSameText(play.working("tblEvent.cdb"),
                           withLineEnds({"# tblEvent", "# RECCNT=1",
                                         R"(E000000001,0x0002,101,"Thursday League","11/12/2026",)"
                                         R"("Rolling Lanes","Springfield","",3,180.33,541)"})));
    EXPECT_TRUE(
        isSameText(play.working("tblGame.cdb"),
                   withLineEnds({"# tblGame", "# RECCNT=1",
                                 R"(G000000001,0x0002,201,101,1,187,13,14,13,"13-14","P","dry","")"})));
    EXPECT_TRUE(isSameText(
        play.working("tblFrame.cdb"),
        withLineEnds({"# tblFrame", "# RECCNT=1",
                      R"(F000000001,0x0002,301,101,201,1,1,13,"Blue","20","10","X","","","X","")"})));
    EXPECT_TRUE(play.runLog().starts_with(withLineEnds(openingOf(play, true))));
}

TEST_P(SyncRuns, GoOnWithoutFrames) {
    Exports files = smallExports();
    files.frames = {countLine(0)};
    play.put(files);
    play.sync(Answer::Yes, {}, {{"Database Error"}, {"Check Complete"}});  // the check finds no frame
    EXPECT_TRUE(play.runLog().find(withLineEnds(
                    {"Total of 0 frames in file.", "Frames processed: 0, Frames added: 0, Frames in error: 0",
                     "Completed processing frames: 11/14/2026 9:55:00 PM", ""})) != std::string::npos);
    EXPECT_EQ(play.working("tblFrame.cdb"), withLineEnds({countLine(0)}));
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_EQ(play.games(), Log{"1|1|1|13|13|14|13-14|187|dry||N|0|G000000001|N"});
}

TEST_P(SyncRuns, ReadFramesWhateverTheirCountSays) {
    Exports files = smallExports();
    files.frames[1] = countLine(0);
    play.put(files);
    play.sync(Answer::No);
    EXPECT_EQ(play.frames().size(), 1U);
    EXPECT_TRUE(play.logHolds("Total of 0 frames in file."));
}

TEST_P(SyncRuns, EndEarlyWithoutEvents) {
    Exports files = smallExports();
    files.events[1] = countLine(0);  // whatever stands behind it
    play.put(files);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Sync Complete", Answer::OK, "There were no events to process."}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    EXPECT_TRUE(play.events().empty());
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_EQ(play.working("tblEvent.cdb"), withLineEnds(files.events));
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()).size(), 4U);
    EXPECT_TRUE(isSameText(
        play.runLog(), withLineEnds(joined(openingOf(play, true), {"11/14/2026 9:55:00 PM: Reading events",
                                                                   "No events to process."}))));
    EXPECT_TRUE(isSameText(play.masterLog(), banner(play)));
    EXPECT_EQ(play.display.events(), (Log{"hide frmSyncPDA", "busy", "show frmSyncPDA", "default"}));
    EXPECT_TRUE(play.enabled("cmdAddPDA"));
}

TEST_P(SyncRuns, EndEarlyWithoutGames) {
    Exports files = smallExports();
    files.games = {countLine(0), GameLine{}.text()};
    play.put(files);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Sync Complete", Answer::OK, "There were no games to process."}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    EXPECT_EQ(play.display.events(), (Log{"hide frmSyncPDA", "busy", "show frmSyncPDA", "default"}));
    EXPECT_TRUE(play.enabled("cmdAddPDA"));
    EXPECT_EQ(play.events().size(), 1U);
    EXPECT_TRUE(play.games().empty());
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_EQ(play.working("tblEvent.cdb"), withLineEnds(files.events));
    EXPECT_TRUE(play.runLog().ends_with(
        withLineEnds({"Completed processing events: 11/14/2026 9:55:00 PM", "",
                      "11/14/2026 9:55:00 PM: Reading games.", "No games to process."})));

    // A later run meets the event as a duplicate.
    files.games[0] = countLine(1);
    play.put(files);
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::Yes}},
              {{"Database Error"}, {"Check Complete"}});  // the first one still has no games
    EXPECT_EQ(play.events().size(), 2U);
}

TEST_P(SyncRuns, ComeBackBeforeTheyTellOfAnEarlyEnd) {
    Exports files = smallExports();
    files.events[1] = countLine(0);
    play.put(files);
    Log before;
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Sync Complete", Answer::OK, "", [&] { before = play.display.events(); }}});
    EXPECT_EQ(before, (Log{"hide frmSyncPDA", "busy", "show frmSyncPDA", "default"}));
}

TEST_P(SyncRuns, EndEarlyLeavingTheDataAlone) {
    Exports files = smallExports();
    files.events[1] = countLine(0);
    play.put(files);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::No),
                             {"Sync Complete", Answer::OK, "There were no events to process."}});
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));

    files = smallExports();
    files.games[1] = countLine(0);
    play.put(files);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::No),
                             {"Sync Complete", Answer::OK, "There were no games to process."}});
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_EQ(play.working("tblGame.cdb"), withLineEnds(files.games));
    EXPECT_TRUE(play.enabled("cmdAddPDA"));
}

TEST_P(SyncRuns, AreCompleteEvenIfEveryRecordIsInError) {
    play.put({.events = {countLine(1), EventLine{.status = "0x0002"}.text()},
              .games = {countLine(1), GameLine{}.text()},
              .frames = {countLine(1), FrameLine{}.text()}});
    play.sync(Answer::Yes, {}, SyncPlay::checkOfNothing());
    EXPECT_EQ(play.display.boxes().back().text, play.complete().text);
    EXPECT_EQ(play.working("tblGame.cdb"), withLineEnds({countLine(1)}));
    EXPECT_TRUE(play.logHolds("Record ID E000000001 marked for deletion, not processed."));
    EXPECT_TRUE(play.logHolds("Events processed: 1, Events added: 0, Events in error: 1"));
    EXPECT_TRUE(play.logHolds("No event found for record ID G000000001. Event ID: 101"));
    EXPECT_TRUE(play.logHolds("Games processed: 1, Games added: 0, Games in error: 1"));
    EXPECT_TRUE(
        play.logHolds("No event or game found for Record ID F000000001, will not be added. Frame "
                      "number: 1, Game number: 1"));
    EXPECT_TRUE(play.logHolds("Frames processed: 1, Frames added: 0, Frames in error: 1"));
}

TEST_P(SyncRuns, ShareALogWithinOneMinute) {
    play.put(smallExports());
    play.sync(Answer::No);
    play.clock.set(play.clock.now() + std::chrono::seconds{27});
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::No}}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_TRUE(isSameText(play.masterLog(), banner(play) + banner(play)));
    EXPECT_TRUE(play.logHolds("Conflicting record ID E000000001 not processed."));
    EXPECT_FALSE(play.logHolds("Event E000000001 added to database. Key: 1"));
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()).size(), 4U);

    play.clock.set(play.clock.now() + std::chrono::seconds{1});  // the next minute
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::No}}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()).size(), 8U);
    EXPECT_TRUE(isSameText(play.masterLog(),
                           banner(play) + banner(play) + banner(play, "11-14-2026-2156", "9:56:00 PM")));
}

TEST_P(SyncRuns, StampTheirFilesWithTheTimeOfTheStart) {
    play.clock.set(makeDate(2027, 1, 2) + std::chrono::minutes{5});
    play.put(smallExports());
    play.sync(Answer::No);
    EXPECT_TRUE(play.runLog("01-02-2027-0005").starts_with("PDA Sync started at 1/2/2027 12:05:00 AM\r\n"));
    EXPECT_TRUE(fs::exists(play.archiveFolder() / "tblFrame-01-02-2027-0005.cdb"));
}

TEST_P(SyncRuns, DateTheirLogByTheClockAsItGoesOn) {
    play.clock.set(makeDate(2026, 11, 14) + std::chrono::hours{23} + std::chrono::minutes{50});
    play.put(smallExports());
    const auto wait = [&](int minutes) {
        return [this, minutes] { play.clock.set(play.clock.now() + std::chrono::minutes{minutes}); };
    };
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             {"Delete PDA Data", Answer::No, "", wait(7)},
                             {"Check Complete", Answer::OK, "", wait(8)},
                             play.complete("11-14-2026-2350")});
    EXPECT_TRUE(isSameText(play.masterLog(), banner(play, "11-14-2026-2350", "11:50:00 PM")));
    EXPECT_TRUE(fs::exists(play.archiveFolder() / "tblFrame-11-14-2026-2350.cdb"));
    const std::string log = play.runLog("11-14-2026-2350");
    EXPECT_TRUE(log.starts_with(
        withLineEnds({"PDA Sync started at 11/14/2026 11:50:00 PM", "PDA data to be retained.",
                      "11/14/2026 11:57:00 PM: Preparing CDB files"})));
    for (const char* const line :
         {"11/14/2026 11:57:00 PM: Reading events", "Completed processing events: 11/14/2026 11:57:00 PM",
          "Completed processing frames: 11/14/2026 11:57:00 PM"})
        EXPECT_NE(log.find(std::string(line) + "\r\n"), std::string::npos) << line;
    EXPECT_TRUE(log.ends_with(withLineEnds({"Starting database reconciliaton at 11/14/2026 11:57:00 PM",
                                            "Database reconciliaton complete at 11/15/2026 12:05:00 AM"})));
}

TEST_P(SyncRuns, SetTheCountsByTheCheck) {
    play.put({.events = {EventLine{.games = "4"}.text()},
              .games = {GameLine{}.text(),
                        GameLine{.recordId = "G000000002", .gameId = "202", .number = "2"}.text()},
              .frames = {FrameLine{}.text(), FrameLine{.recordId = "F000000002", .number = "2"}.text()}});
    play.sync(Answer::No);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldNumGames", "fldGmsRecorded"}), Log{"4|2"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldScoreType", "fldFrmsRecorded"}), (Log{"P|2", "N|0"}));
    EXPECT_TRUE(fs::exists(play.dataFolder() / "DB_Report.txt"));
}

TEST_P(SyncRuns, NeverMakeAnOutFileWhereDataAreRetained) {
    // A file of that name that was there before stays as it is.
    for (const char* const name : {"tblEvent.out", "tblGame.out", "tblFrame.out"})
        std::ofstream(play.workingFolder() / name) << "of an earlier run";
    play.put(smallExports());
    play.sync(Answer::No);
    for (const char* const name : {"tblEvent.out", "tblGame.out", "tblFrame.out"})
        EXPECT_EQ(play.working(name), "of an earlier run");
}

TEST_P(SyncRuns, OverwriteWhatAFailedRunHasLeft) {
    for (const char* const name : {"tblEvent.out", "tblGame.out", "tblFrame.tmp"})
        std::ofstream(play.workingFolder() / name) << "of an earlier run";
    play.put(smallExports());
    play.sync(Answer::Yes);
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), with(kCdbFiles, {"PDASyncLog-Master.log"}));
    EXPECT_TRUE(play.working("tblEvent.cdb").starts_with("# tblEvent\r\n"));
}

TEST_P(SyncRuns, WriteBackInTheEncodingThatTheFileHas) {
    Exports files{.events = {"# Z\u00fcrich", EventLine{.name = "Z\u00fcrich \u20ac"}.text()},
                  .games = {GameLine{.comment = "gr\u00fcn"}.text()},
                  .frames = {FrameLine{.comment = "\u00fc"}.text()}};
    play.put("tblEvent", encoded(withLineEnds(files.events), Encoding::Windows1252));
    play.put("tblGame", withLineEnds(files.games));
    play.put("tblFrame", encoded(withLineEnds(files.frames), Encoding::Windows1252));
    play.sync(Answer::Yes);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}), Log{"Z\u00fcrich \u20ac"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldComment"}), Log{"gr\u00fcn"});
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldComment"}), Log{"\u00fc"});
    EXPECT_TRUE(
        play.working("tblEvent.cdb").starts_with("# Z\xFCrich\r\nE000000001,0x0002,101,\"Z\xFCrich \x80\","));
    EXPECT_NE(play.working("tblGame.cdb").find("\"gr\xC3\xBCn\"\r\n"), std::string::npos);
    EXPECT_NE(play.working("tblFrame.cdb").find("\"\xFC\"\r\n"), std::string::npos);
}

TEST_P(SyncRuns, TakeAnyLineEndsAndWriteTheirOwn) {
    play.put("tblEvent", "\xEF\xBB\xBF# one\n# two\r" + EventLine{}.text());
    play.put("tblGame", GameLine{}.text() + "\n");
    play.put("tblFrame", FrameLine{}.text() + "\r");
    play.sync(Answer::Yes);
    EXPECT_EQ(play.frames().size(), 1U);
    EXPECT_TRUE(play.working("tblEvent.cdb").starts_with("# one\r\n# two\r\nE000000001,0x0002,"));
    EXPECT_TRUE(play.working("tblFrame.cdb").ends_with("\"\"\r\n"));
}

INSTANTIATE_TEST_SUITE_P(OfBothHandhelds, SyncRuns, testing::Values(Handheld::Palm, Handheld::PocketPC),
                         [](const auto& parameter) {
                             return parameter.param == Handheld::Palm ? "Palm" : "PocketPC";
                         });

TEST_F(PalmRuns, TakeAndReplaceTheFilesOfTheHandheld) {
    const Exports files = smallExports();
    play.put(files);
    std::ofstream(play.workingFolder() / "tblEvent.cdb") << "what was there before";
    play.sync(Answer::Yes);
    EXPECT_EQ(SyncPlay::filesIn(play.handheldFolder()), kCdbFiles);
    for (const std::string& name : kCdbFiles)
        EXPECT_EQ(bytesOf(play.handheldFolder() / name), play.working(name)) << name;
}

TEST_F(PalmRuns, LeaveTheFilesOfTheHandheldWhereDataAreRetained) {
    const Exports files = smallExports();
    play.put(files);
    play.sync(Answer::No);
    EXPECT_EQ(bytesOf(play.handheldFolder() / "tblEvent.cdb"), withLineEnds(files.events));
    EXPECT_EQ(play.working("tblEvent.cdb"), withLineEnds(files.events));
}

TEST(PocketPCRuns, DoNothingInTheSynchronizationFolder) {
    SyncPlay play(Handheld::PocketPC);
    play.put(smallExports());
    play.sync(Answer::Yes);
    EXPECT_EQ(SyncPlay::filesIn(play.handheldFolder()), Names{});
    fs::remove(play.handheldFolder());
    play.put(smallExports());
    play.sync(Answer::Yes, {{"Duplicate Record ID", Answer::Yes}}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_FALSE(fs::exists(play.handheldFolder()));
}

TEST(PocketPCRuns, AreThoseOfEveryTypeButPalm) {
    for (const char* const type : {"PPC", "palm", "Palm ", "PALM"}) {
        SyncPlay play(Handheld::PocketPC);
        play.session().gHHType = type;
        play.put(smallExports());
        play.sync(Answer::No);
        EXPECT_EQ(play.events().size(), 1U) << type;
    }
}

// --- The configuration -------------------------------------------------------------------------------------

TEST_F(PalmRuns, ReadTheConfigurationAgainWhereItIsNotWhole) {
    play.put(smallExports());
    std::ofstream(play.dataFolder() / "tbrkcfg.conf")
        << "HHTYPE=\"Palm\"\r\nHHSYNCDIR=\"" << play.handheldFolder().string() << "\"\r\n";
    play.session().gHHSyncDir = "";
    play.sync(Answer::No);
    EXPECT_EQ(play.session().gHHSyncDir, play.handheldFolder().string());
    EXPECT_EQ(play.events().size(), 1U);
}

TEST_F(PalmRuns, GoOnWithAConfigurationThatStaysEmpty) {
    play.session().gHHType = play.session().gHHSyncDir = "";  // as the file of a first start has them
    play.put(smallExports());                                 // as for a Pocket PC
    play.sync(Answer::Yes);
    EXPECT_EQ(play.events().size(), 1U);
}

TEST_F(PalmRuns, EndWithoutAnyConfiguration) {
    play.put(smallExports());
    play.session().gHHType = "";
    fs::remove(play.dataFolder() / "tbrkcfg.conf");
    play.failingSync(
        {{"PDA Configuration Error", Answer::OK,
          "No PDA configuration was read. Click OK to return to the main menu, and from the main "
          "menu select 'File -> Handheld Setup' to set up your PDA for use with Tallybrook."},
         SyncPlay::failure("ReadCDBEvents", 52),
         SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.display.boxes()[2].icon, Icon::Critical);
    EXPECT_EQ(play.display.boxes()[2].defaultAnswer(), Answer::OK);
    EXPECT_TRUE(isSameText(play.masterLog(), banner(play) + "No PDA configuration file.\r\n"));
    EXPECT_EQ(play.display.events(), (Log{"hide frmSyncPDA", "busy", "unload frmSyncPDA", "show frmMain",
                                          "run-time error 52", "end program"}));
}

TEST_F(PalmRuns, FailOnAConfigurationThatCannotBeRead) {
    play.put(smallExports());
    play.session().gHHType = "";
    std::ofstream(play.dataFolder() / "tbrkcfg.conf") << "no setting\r\n";
    play.failingSync({SyncPlay::failure("Prep_Files", 5), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
}

// --- The chain of a failure --------------------------------------------------------------------------------

TEST_P(SyncRuns, EndTheProgramWhereAFileIsMissing) {
    for (const char* const missing : {"tblEvent", "tblGame", "tblFrame"}) {
        SyncPlay other(GetParam());
        other.put(smallExports());
        const bool isPalm = GetParam() == Handheld::Palm;
        fs::remove(SyncPlay::exportFile(isPalm ? other.handheldFolder() : other.workingFolder(), missing));
        other.failingSync({SyncPlay::failure("Prep_Files", 53), SyncPlay::failure("ReadCDBEvents", 52),
                           SyncPlay::failure("cmdAddPDA", 52)});
        EXPECT_EQ(other.display.boxes().back().icon, Icon::Critical);
        EXPECT_EQ(other.display.boxes().back().buttons, Buttons::OK);
        EXPECT_TRUE(isSameText(other.masterLog(),
                               banner(other) + withLineEnds({"Error Number: 53", "Error: File not found",
                                                             "Module: Sync PDA, Prep_Files."})));
        EXPECT_TRUE(isSameText(other.runLog(), withLineEnds({"PDA Sync started at 11/14/2026 9:55:00 PM",
                                                             "PDA data to be deleted on next sync.",
                                                             "11/14/2026 9:55:00 PM: Preparing CDB files"})));
        EXPECT_EQ(other.display.events(), (Log{"hide frmSyncPDA", "busy", "unload frmSyncPDA", "show frmMain",
                                               "run-time error 52", "end program"}));
    }
}

TEST_P(SyncRuns, LeaveTheRowsAndTheFilesOfAFailedRun) {
    Exports files = smallExports();
    files.games.push_back(GameLine{.recordId = "G000000002", .score = "99999"}.text());
    play.put(files);
    play.failingSync({SyncPlay::failure("ReadCDBGames", 6), SyncPlay::failure("ReadCDBFrames", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.events().size(), 1U);
    EXPECT_EQ(play.games().size(), 1U);
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()),
              with(kCdbFiles, {"PDASyncLog-Master.log", "tblEvent.out", "tblEvent.tmp", "tblFrame.out",
                               "tblFrame.tmp", "tblGame.out", "tblGame.tmp"}));
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()).size(), 4U);
    EXPECT_EQ(play.working("tblGame.cdb"), withLineEnds(files.games));
    EXPECT_TRUE(play.masterLog().ends_with(
        "Error Number: 6\r\nError: Overflow\r\nModule: Sync PDA, ReadCDBGames.\r\n"));
}

TEST_P(SyncRuns, ReturnToTheMainMenuWhereTheArchiveIsMissing) {
    play.put(smallExports());
    fs::remove(play.archiveFolder());
    play.click("cmdAddPDA", {SyncPlay::failure("cmdAddPDA", 76)});
    EXPECT_FALSE(play.program().hasEnded());
    EXPECT_EQ(play.screen().name(), "frmMain");
    EXPECT_EQ(play.display.events(), (Log{"unload frmSyncPDA", "show frmMain"}));
    EXPECT_EQ(play.masterLog(),
              withLineEnds({"Error Number: 76", "Error: Path not found", "Module: Sync PDA, cmdAddPDA."}));
    EXPECT_FALSE(fs::exists(play.archiveFolder()));
}

TEST_P(SyncRuns, EndTheProgramWhereTheWorkingFolderIsMissing) {
    fs::remove_all(play.workingFolder());
    play.click("cmdAddPDA", {SyncPlay::failure("cmdAddPDA", 76)});
    EXPECT_TRUE(play.program().hasEnded());
    EXPECT_EQ(play.display.events(), (Log{"run-time error 52", "end program"}));
}

TEST_F(PalmRuns, AreOverBeforeACleanUpThatFails) {
    // The handheld's file cannot be replaced: there is something else of that name by then.
    play.put(smallExports());
    const fs::path inTheWay = play.handheldFolder() / "tblGame.cdb";
    const auto putSomethingThere = [&] {
        fs::remove(inTheWay);
        fs::create_directory(inTheWay);
    };
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Check Complete", Answer::OK, "", putSomethingThere},
                             SyncPlay::failure("Sync_Cleanup", 70),
                             play.complete()});
    EXPECT_FALSE(play.program().hasEnded());
    EXPECT_EQ(play.screen().name(), "frmMain");
    EXPECT_EQ(play.display.events(),
              (Log{"hide frmSyncPDA", "busy", "unload frmSyncPDA", "show frmMain", "default"}));
    EXPECT_EQ(play.events().size(), 1U);
    EXPECT_TRUE(play.masterLog().ends_with(
        "Error Number: 70\r\nError: Permission denied\r\nModule: Sync PDA, Sync_Cleanup.\r\n"));
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()),
              with(kCdbFiles, {"PDASyncLog-Master.log", "tblEvent.out", "tblFrame.out", "tblGame.out"}));
}

TEST_F(PalmRuns, WriteNothingToTheRootForAnEmptyDirectory) {
    play.put(smallExports());
    const auto forgetTheDirectory = [&] { play.session().gHHSyncDir = ""; };
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Check Complete", Answer::OK, "", forgetTheDirectory},
                             SyncPlay::failure("Sync_Cleanup", 76),
                             play.complete()});
    EXPECT_FALSE(fs::exists("/tblEvent.cdb"));
}

TEST_F(PalmRuns, FailOnAnEmptyDirectory) {
    play.put(smallExports());
    play.session().gHHSyncDir = "";
    play.failingSync({SyncPlay::failure("Prep_Files", 53), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(PalmRuns, RefuseASynchronizationFolderThatIsTheWorkingFolder) {
    play.session().gHHType = "PPC";
    play.put(smallExports());
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = play.workingFolder().string();
    play.failingSync({SyncPlay::failure("Prep_Files", 70), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.working("tblEvent.cdb"), withLineEnds(smallExports().events));
}

}  // namespace

}  // namespace tallybrook::test
