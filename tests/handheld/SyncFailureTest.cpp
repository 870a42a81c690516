// Runs in which the logbook, a log or a file refuses what is to be done next: which boxes come, and what is
// left on the disk.

#include "handheld/SyncPlay.h"
#include "store/file/Connection.h"
#include "support/FileCalls.h"

#include <cerrno>

#include <sqlite3.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Log = std::vector<std::string>;

/// Three records of each kind, all of one event.
Exports threeOfEach() {
    Exports files;
    for (const char* const last : {"1", "2", "3"}) {
        const std::string number = last;
        files.events.push_back(EventLine{.recordId = "E00000000" + number, .eventId = "10" + number}.text());
        files.games.push_back(
            GameLine{.recordId = "G00000000" + number, .gameId = "20" + number, .number = number}.text());
        files.frames.push_back(FrameLine{.recordId = "F00000000" + number, .number = number}.text());
    }
    return files;
}

/// A failure of the engine, with its words, as a procedure of the run tells it.
Expected engineFailure(const std::string& procedure, const std::string& words) {
    return {"Database Error", Answer::OK,
            lines({"Error Number: -2147467259", "Error: " + words, "Module: Sync PDA, " + procedure + "."})};
}

/// The readers in their order.
struct Reader {
    const char* procedure;
    const char* table;
    const char* refused;  // the record ID of its second record
    const char* summary;  // how the line begins that sums up its file
};

constexpr Reader kReaders[] = {{"ReadCDBEvents", "tblEventInfo", "E000000002", "Events processed: "},
                               {"ReadCDBGames", "tblGameInfo", "G000000002", "Games processed: "},
                               {"ReadCDBFrames", "tblFrameInfo", "F000000002", "Frames processed: "}};

class ReadersThatFail : public testing::TestWithParam<int> {
protected:
    ReadersThatFail() { play.put(threeOfEach()); }

    static const Reader& reader() { return kReaders[GetParam()]; }
    /// The boxes of a run whose reader fails: its own, that of the next one, and that of the whole run.
    static std::vector<Expected> chainFrom(const Expected& first) {
        std::vector<Expected> boxes{first};
        if (GetParam() < 2)
            boxes.push_back(SyncPlay::failure(kReaders[GetParam() + 1].procedure, 52));
        boxes.push_back(SyncPlay::failure("cmdAddPDA", 52));
        return boxes;
    }
    /// The record IDs that stand in the reader's table, whatever the program still has open.
    Log stored() { return play.rows(reader().table, {"fldHHRecordID"}); }
    sqlite3* engine() { return play.program().store().connection().database().getHandle(); }
    /// Lets the engine refuse the second record, and undo as much as `how` says. The first one stays.
    void refuseTheSecond(const std::string& how) {
        play.program().store().connection().database().exec(
            std::string("CREATE TRIGGER refusal BEFORE INSERT ON ") + reader().table +
            " WHEN NEW.fldHHRecordID = '" + reader().refused + "' BEGIN SELECT RAISE(" + how +
            ", 'not this one'); END");
        play.failingSync(chainFrom(engineFailure(reader().procedure, "not this one")));
        std::string kept = reader().refused;
        kept.back() = '1';
        EXPECT_EQ(stored(), Log{kept});
        EXPECT_TRUE(play.runLog().find(kept + " added to database") != std::string::npos);
    }
    void expectNoSummary() {
        EXPECT_EQ(play.runLog().find(reader().summary), std::string::npos);
        EXPECT_TRUE(
            play.masterLog().ends_with(std::string("Module: Sync PDA, ") + reader().procedure + ".\r\n"));
    }

    SyncPlay play;
};

TEST_P(ReadersThatFail, KeepTheRowsBeforeOneThatIsRefused) {
    refuseTheSecond("ABORT");
    EXPECT_EQ(play.runLog().find(reader().refused), std::string::npos);
    expectNoSummary();
    EXPECT_EQ(play.display.events(), (Log{"hide frmSyncPDA", "busy", "unload frmSyncPDA", "show frmMain",
                                          "run-time error 52", "end program"}));
}

TEST_P(ReadersThatFail, KeepTheRowsBeforeAFailureThatUndoesThem) {
    refuseTheSecond("ROLLBACK");
    expectNoSummary();
}

TEST_P(ReadersThatFail, SumUpNothingThatCouldNotBeStored) {
    int commitsBefore = GetParam();  // each reader brings its rows to the disk once; then row by row in vain
    const auto refuse = [](void* before) { return (*static_cast<int*>(before))-- <= 0 ? 1 : 0; };
    sqlite3_commit_hook(engine(), refuse, &commitsBefore);
    play.failingSync(chainFrom(engineFailure(reader().procedure, "constraint failed")));
    sqlite3_commit_hook(engine(), nullptr, nullptr);
    EXPECT_TRUE(stored().empty());
    for (int before = 0; before < GetParam(); ++before)
        EXPECT_EQ(play.rows(kReaders[before].table, {"fldHHRecordID"}).size(), 3U);
    EXPECT_TRUE(play.runLog().find(" added to database") != std::string::npos);
    expectNoSummary();
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()).size(), 10U);  // with what it has not read to its end
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, ReadersThatFail, testing::Values(0, 1, 2),
                         [](const auto& kind) { return std::string(kReaders[kind.param].procedure); });

// --- What is on the disk while a box is up -----------------------------------------------------------------

class RowsOnTheDisk : public testing::Test {
protected:
    [[nodiscard]] bool everythingIsOnTheDisk() {
        return sqlite3_txn_state(engine(), "main") != SQLITE_TXN_WRITE;
    }
    sqlite3* engine() { return play.program().store().connection().database().getHandle(); }
    /// One new event and one that has its record ID.
    static Exports twoAlike() {
        Exports files = smallExports();
        files.events.push_back(EventLine{.eventId = "102"}.text());
        return files;
    }

    SyncPlay play;
};

TEST_F(RowsOnTheDisk, AreAllOfThemWhileAQuestionIsUp) {
    play.put(twoAlike());
    int rows = -1;
    const auto look = [&] {
        EXPECT_TRUE(everythingIsOnTheDisk());
        rows = static_cast<int>(play.events().size());
    };
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::Yes, "", look}},
              {{"Database Error"}, {"Check Complete"}});  // the second event has no games
    EXPECT_EQ(rows, 1);
    EXPECT_EQ(play.events().size(), 2U);
}

TEST_F(RowsOnTheDisk, AreAllOfThemWhileAFailureIsTold) {
    Exports files = smallExports();
    files.frames.emplace_back("");
    play.put(files);
    const auto look = [&] {
        EXPECT_TRUE(everythingIsOnTheDisk());
        EXPECT_EQ(play.frames().size(), 1U);
    };
    Expected first = SyncPlay::failure("ParseDBLine", 5);
    first.meanwhile = look;
    play.failingSync({first, SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ReadCDBFrames", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(RowsOnTheDisk, AreAllOfThemWhereACountOfNoneEndsTheReading) {
    Exports files = smallExports();
    files.events.push_back(countLine(0));
    play.put(files);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::No),
                             {"Sync Complete", Answer::OK, "There were no events to process.",
                              [&] { EXPECT_TRUE(everythingIsOnTheDisk()); }}});
    EXPECT_EQ(play.events().size(), 1U);
}

TEST_F(RowsOnTheDisk, AreNotAskedAboutWhereTheyCannotGetThere) {
    play.put(twoAlike());
    sqlite3_commit_hook(
        engine(), [](void*) { return 1; }, nullptr);
    play.failingSync({engineFailure("ReadCDBEvents", "constraint failed"),
                      SyncPlay::failure("ReadCDBGames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    sqlite3_commit_hook(engine(), nullptr, nullptr);
    EXPECT_TRUE(play.events().empty());
}

TEST_F(RowsOnTheDisk, AreToldOfInALogThatCanBeRead) {
    play.put(twoAlike());
    std::string log;
    std::string whole;
    play.click("cmdAddPDA",
               {SyncPlay::sayingWhatIsToCome(),
                SyncPlay::askingToDelete(Answer::No),
                {"Duplicate Record ID", Answer::No, "", [&] { log = play.runLog(); }},
                {"Check Complete"},
                {"Sync Complete", Answer::OK, play.complete().text, [&] { whole = play.runLog(); }}});
    EXPECT_TRUE(log.ends_with("Event E000000001 added to database. Key: 1\r\n"));
    EXPECT_TRUE(whole.ends_with("Database reconciliaton complete at 11/14/2026 9:55:00 PM\r\n"));
    EXPECT_TRUE(isSameText(play.runLog(), whole));
}

TEST_F(RowsOnTheDisk, AreToldOfInALogThatCanBeReadWhileAFailureIsTold) {
    Exports files = smallExports();
    files.events.push_back(
        EventLine{.recordId = "E000000002", .eventId = "102", .date = "some night"}.text());
    play.put(files);
    std::string log;
    Expected first = SyncPlay::failure("ReadCDBEvents", error::kTypeMismatch);
    first.meanwhile = [&] { log = play.runLog(); };
    play.failingSync({first, SyncPlay::failure("ReadCDBGames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(log.ends_with("Event E000000001 added to database. Key: 1\r\n")) << log;
}

constexpr const char* kRunLog = "PDA_SyncLog-11-14-2026-2155.txt";

// --- Files that cannot be written --------------------------------------------------------------------------

class FilesThatFail : public testing::Test {
protected:
    FilesThatFail() { play.put(smallExports()); }

    /// What refuses the nth call of that kind, from 0, on the file of that name.
    static std::function<int(const FileCall&)> refusing(FileCall::Kind kind, const std::string& name,
                                                        int error, int before = 0) {
        return [=, left = before](const FileCall& call) mutable {
            const bool isMeant = call.kind == kind && call.path.ends_with(name);
            return isMeant && left-- == 0 ? error : 0;
        };
    }
    void expectTheProgramToGoOn(const Expected& failure) {
        EXPECT_FALSE(play.program().hasEnded());
        EXPECT_EQ(play.screen().name(), "frmMain");
        EXPECT_EQ(play.display.boxes().back().icon, Icon::Critical);
        EXPECT_TRUE(play.masterLog().ends_with("\r\n" + failure.text + "\r\n"));
    }

    SyncPlay play;
};

TEST_F(FilesThatFail, EndTheProgramWhereTheAnswerCannotBeLogged) {
    const FileCalls full(refusing(FileCall::Kind::Write, kRunLog, ENOSPC, 1));
    play.failingSync({SyncPlay::failure("Prep_Sync", 61), SyncPlay::failure("Prep_Files", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(
        play.masterLog().ends_with("Error Number: 61\r\nError: Disk full\r\nModule: Sync PDA, "
                                   "Prep_Sync.\r\n"));
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()), (std::set<std::string>{"PDASyncLog-Master.log"}));
}

TEST_F(FilesThatFail, EndTheProgramWhereACopyCannotBeOpened) {
    const FileCalls refused(refusing(FileCall::Kind::Open, "tblGame.tmp", EACCES));
    play.failingSync({SyncPlay::failure("Prep_Files", 75), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(FilesThatFail, EndTheProgramWhereTheMarksCannotBeWritten) {
    fs::create_directory(play.workingFolder() / "tblGame.out");
    play.failingSync({SyncPlay::failure("Prep_Files", 75), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(
        play.masterLog().ends_with("Error Number: 75\r\nError: Path/File access error\r\nModule: "
                                   "Sync PDA, Prep_Files.\r\n"));
    EXPECT_TRUE(play.events().empty());
}

TEST_F(FilesThatFail, EndTheRunWhereAnEarlyEndMissesItsFiles) {
    Exports files = smallExports();
    files.events.push_back(EventLine{}.text());
    files.events.push_back(countLine(0));
    play.put(files);
    const Expected failure = SyncPlay::failure("cmdAddPDA", 53);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Duplicate Record ID", Answer::No, "",
                              [&] { fs::remove(play.workingFolder() / "tblGame.tmp"); }},
                             failure});
    expectTheProgramToGoOn(failure);
    EXPECT_EQ(play.display.events(), (Log{"hide frmSyncPDA", "busy", "unload frmSyncPDA", "show frmMain"}));
    EXPECT_EQ(play.events().size(), 1U);
    EXPECT_TRUE(play.runLog().ends_with("No events to process.\r\n"));
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()),
              (std::set<std::string>{"PDASyncLog-Master.log", "tblEvent.cdb", "tblEvent.out", "tblFrame.cdb",
                                     "tblFrame.out", "tblFrame.tmp", "tblGame.cdb", "tblGame.out"}));
}

TEST_F(FilesThatFail, EndTheRunEarlyAlthoughItCannotBeLogged) {
    struct Early {
        Lines Exports::*file;
        const char* procedure;
        int writesBefore;  // in front of the line that there is nothing to process
        const char* words;
    };
    for (const Early& early :
         {Early{&Exports::events, "ReadCDBEvents", 5, "There were no events to process."},
          Early{&Exports::games, "ReadCDBGames", 10, "There were no games to process."}}) {
        SyncPlay other;
        Exports files = smallExports();
        (files.*early.file)[1] = countLine(0);
        other.put(files);
        const FileCalls full(refusing(FileCall::Kind::Write, kRunLog, ENOSPC, early.writesBefore));
        const Expected failure = SyncPlay::failure(early.procedure, 61);
        other.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                                  SyncPlay::askingToDelete(Answer::Yes),
                                  failure,
                                  {"Sync Complete", Answer::OK, early.words}});
        EXPECT_FALSE(other.program().hasEnded());
        EXPECT_EQ(other.display.events(),
                  (Log{"hide frmSyncPDA", "busy", "unload frmSyncPDA", "show frmMain", "default"}));
        EXPECT_TRUE(other.masterLog().ends_with("\r\n" + failure.text + "\r\n"));
        EXPECT_EQ(
            SyncPlay::filesIn(other.workingFolder()),
            (std::set<std::string>{"PDASyncLog-Master.log", "tblEvent.cdb", "tblFrame.cdb", "tblGame.cdb"}));
    }
}

/// The lines of the log in front of those that tell of the check, one write each.
constexpr int kWritesBeforeTheCheck = 18;

TEST_F(FilesThatFail, EndTheRunWhereTheCheckCannotBeLogged) {
    const FileCalls full(refusing(FileCall::Kind::Write, kRunLog, ENOSPC, kWritesBeforeTheCheck));
    const Expected failure = SyncPlay::failure("cmdAddPDA", 61);
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(), SyncPlay::askingToDelete(Answer::Yes), failure});
    expectTheProgramToGoOn(failure);
    EXPECT_FALSE(fs::exists(play.dataFolder() / "DB_Report.txt"));
    EXPECT_EQ(play.frames().size(), 1U);
    EXPECT_EQ(play.working("tblFrame.cdb"), withLineEnds(smallExports().frames));
}

TEST_F(FilesThatFail, EndTheRunWhereTheEndOfTheCheckCannotBeLogged) {
    const FileCalls full(refusing(FileCall::Kind::Write, kRunLog, EIO, kWritesBeforeTheCheck + 1));
    const Expected failure = SyncPlay::failure("cmdAddPDA", 75);
    play.click(
        "cmdAddPDA",
        {SyncPlay::sayingWhatIsToCome(), SyncPlay::askingToDelete(Answer::Yes), {"Check Complete"}, failure});
    expectTheProgramToGoOn(failure);
    EXPECT_TRUE(play.runLog().find("Starting database reconciliaton at ") != std::string::npos);
    EXPECT_EQ(play.working("tblFrame.cdb"), withLineEnds(smallExports().frames));
}

// --- The order of the copies -------------------------------------------------------------------------------

TEST(CopiesOfThePalm, StopAtAMissingFile) {
    SyncPlay play;
    play.put(smallExports());
    fs::remove(SyncPlay::exportFile(play.handheldFolder(), "tblGame"));
    play.failingSync({SyncPlay::failure("Prep_Files", 53), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()),
              (std::set<std::string>{"PDASyncLog-Master.log", "tblEvent.cdb"}));
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()),
              (std::set<std::string>{"PDA_SyncLog-11-14-2026-2155.txt"}));
}

TEST(CopiesOfThePocketPC, StopAtAMissingFile) {
    SyncPlay play(Handheld::PocketPC);
    play.put(smallExports());
    fs::remove(SyncPlay::exportFile(play.workingFolder(), "tblGame"));
    play.failingSync({SyncPlay::failure("Prep_Files", 53), SyncPlay::failure("ReadCDBEvents", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(SyncPlay::filesIn(play.workingFolder()),
              (std::set<std::string>{"PDASyncLog-Master.log", "tblEvent.cdb", "tblFrame.cdb"}));
    EXPECT_EQ(SyncPlay::filesIn(play.archiveFolder()),
              (std::set<std::string>{"PDA_SyncLog-11-14-2026-2155.txt", "tblEvent-11-14-2026-2155.cdb"}));
}

}  // namespace

}  // namespace tallybrook::test
