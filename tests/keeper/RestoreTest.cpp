// Back to a backup, as a whole or by events.

#include "backup/Backups.h"
#include "keeper/BackupList.h"
#include "keeper/ExitStatus.h"
#include "keeper/Keeper.h"
#include "keeper/Logbooks.h"
#include "keeper/Outcome.h"
#include "keeper/Restore.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

using test::rowsOf;

class Restore : public testing::Test {
protected:
    Restore() {
        test::addEvent(data, "Tuesday");
        test::addEvent(data, "Friday");
        backUp();
        backedUp = rowsOf(logbookIn(data));
    }

    void backUp() {
        backUpNow(logbookIn(data), clock);
        clock.set(clock.now() + std::chrono::minutes{1});
    }
    [[nodiscard]] fs::path newest() const {
        const BackupFolder backups = backupsIn(data);
        return backups.existing(backups.times().back());
    }
    [[nodiscard]] fs::path first() const {
        const BackupFolder backups = backupsIn(data);
        return backups.existing(backups.times().front());
    }
    std::string difference() {
        const Today today = todayIn(data, clock, nobody);
        return readBackups(data, today, nobody).back().inWords();
    }
    ExitStatus run(std::vector<std::string> arguments) {
        out.str("");
        notes.str("");
        arguments.insert(arguments.end(), {"--data", data.string()});
        return runKeeper(arguments, clock, nobody, out, notes);
    }

    test::TemporaryFolder folder;
    const fs::path& data = folder.path();
    SettableClock clock{makeDate(2026, 11, 22) + std::chrono::hours{20}};
    NoProgress nobody;
    std::vector<std::string> backedUp;
    std::ostringstream out;
    std::ostringstream notes;
};

TEST_F(Restore, IsPrecededByABackupOfThePresentLogbook) {
    test::deleteEvent(data, 1);
    const auto before = rowsOf(logbookIn(data));
    const Restored restored = restoreAll(HeldLogbook(data), first(), clock, nobody);
    EXPECT_EQ(rowsOf(logbookIn(data)), backedUp);
    EXPECT_EQ(restored.counts, (Counts{.events = 2, .games = 4, .frames = 40}));
    EXPECT_EQ(rowsOf(restored.keptBefore), before);
    EXPECT_EQ(difference(), "the same as today's logbook");
}

TEST_F(Restore, TellsWhereTheLogbookIsWithAClockThatWasSetBack) {
    test::deleteEvent(data, 1);
    const auto before = rowsOf(logbookIn(data));
    clock.set(clock.now() - std::chrono::hours{24 * 30});
    EXPECT_EQ(rowsOf(restoreAll(HeldLogbook(data), newest(), clock, nobody).keptBefore), before);
    EXPECT_EQ(rowsOf(logbookIn(data)), backedUp);
}

TEST_F(Restore, WorksWhereThereIsNoLogbookOrOneThatIsNone) {
    fs::remove(logbookIn(data));
    EXPECT_EQ(restoreAll(HeldLogbook(data), first(), clock, nobody).keptBefore, fs::path());
    EXPECT_EQ(rowsOf(logbookIn(data)), backedUp);

    std::ofstream(logbookIn(data)) << "nonsense";
    std::ofstream(logbookIn(data).string() + "-journal") << "more of it";
    const Restored restored = restoreAll(HeldLogbook(data), first(), clock, nobody);
    EXPECT_EQ(rowsOf(logbookIn(data)), backedUp);
    EXPECT_EQ(test::bytesOf(restored.keptBefore), "nonsense");
    EXPECT_EQ(test::bytesOf(restored.keptBefore.string() + "-journal"), "more of it");
    EXPECT_FALSE(fs::exists(logbookIn(data).string() + "-journal"));
    const BackupFolder backups = backupsIn(data);
    EXPECT_EQ(backups.times().size(), 1U) << "what was put aside is no backup";
}

TEST_F(Restore, ChangesNothingWhereThePresentLogbookCannotBeKept) {
    test::deleteEvent(data, 1);
    const auto before = rowsOf(logbookIn(data));
    const test::TemporaryFolder elsewhere;
    fs::copy_file(first(), elsewhere.path() / "backup.mdb");
    fs::remove_all(data / "Backups");
    std::ofstream(data / "Backups") << "no folder";
    try {
        restoreAll(HeldLogbook(data), elsewhere.path() / "backup.mdb", clock, nobody);
        ADD_FAILURE() << "it was restored";
    } catch (const Refused& refused) {
        EXPECT_EQ(refused.status(), ExitStatus::Failed);
        const std::string why = refused.what();
        EXPECT_TRUE(
            why.starts_with("The present logbook could neither be backed up nor copied, so it was "
                            "left as it is.\nFolder of the backups: " +
                            (data / "Backups").string() + "\n"))
            << why;
        EXPECT_TRUE(
            why.ends_with(". Please see that there is room on the disk, and that the folder can be written."))
            << why;
    }
    EXPECT_EQ(rowsOf(logbookIn(data)), before);
}

TEST_F(Restore, KeepsALinkToTheLogbook) {
    const test::TemporaryFolder elsewhere;
    fs::rename(logbookIn(data), elsewhere.path() / "real.mdb");
    fs::create_symlink(elsewhere.path() / "real.mdb", logbookIn(data));
    test::deleteEvent(data, 1);
    restoreAll(HeldLogbook(data), first(), clock, nobody);
    EXPECT_TRUE(fs::is_symlink(logbookIn(data)));
    EXPECT_EQ(rowsOf(elsewhere.path() / "real.mdb"), backedUp);
}

TEST_F(Restore, RefusesADamagedBackup) {
    test::deleteEvent(data, 1);
    const auto before = rowsOf(logbookIn(data));
    std::fstream bytes(first(), std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(4096);
    bytes << std::string(12000, '\x7f') << std::flush;
    const auto status = [&] {
        return outcomeOf([&] { restoreAll(HeldLogbook(data), first(), clock, nobody); }).status;
    };
    EXPECT_EQ(status(), ExitStatus::BadInput);
    fs::resize_file(first(), 6000);
    EXPECT_EQ(status(), ExitStatus::BadInput);
    EXPECT_EQ(rowsOf(logbookIn(data)), before);
    EXPECT_EQ(difference(), "this backup is damaged");
}

TEST_F(Restore, OfAnEventLeavesAllOthersAsTheyAre) {
    test::deleteEvent(data, 1);
    const auto rest = rowsOf(logbookIn(data));
    EXPECT_EQ(takeEvents(HeldLogbook(data), first(), {1}, clock, nobody),
              (Counts{.events = 1, .games = 2, .frames = 20}));
    SQLite::Database logbook(logbookIn(data).string());
    EXPECT_EQ(logbook.execAndGet("SELECT fldEventName FROM tblEventInfo WHERE fldSessionNum = 3").getString(),
              "Tuesday");
    EXPECT_EQ(difference(), "the same as today's logbook") << "whatever its key is now";
    test::deleteEvent(data, 3);
    const auto again = rowsOf(logbookIn(data));
    EXPECT_TRUE(std::equal(rest.begin(), rest.end() - 3, again.begin())) << "but for the keys given";
}

TEST_F(Restore, OfAnEventMakesALogbookWhereThereIsNone) {
    fs::remove(logbookIn(data));
    EXPECT_EQ(takeEvents(HeldLogbook(data), first(), {2}, clock, nobody),
              (Counts{.events = 1, .games = 2, .frames = 20}));
    EXPECT_EQ(countsOf(SQLite::Database(logbookIn(data).string())).events, 1);
    EXPECT_EQ(backupsIn(data).times().size(), 1U) << "there was nothing to be backed up";
}

TEST_F(Restore, OfEventsIsDoneWhollyOrNotAtAll) {
    const auto before = rowsOf(logbookIn(data));
    EXPECT_THROW(takeEvents(HeldLogbook(data), first(), {1, 2, 77}, clock, nobody), Refused);
    EXPECT_EQ(rowsOf(logbookIn(data)), before);
}

TEST_F(Restore, OfAnEventThatIsNotInTheBackupMakesNothing) {
    EXPECT_EQ(run({"take", "newest", "77"}), ExitStatus::BadInput);
    EXPECT_EQ(notes.str(), "The backup has no event 77.\n");
    EXPECT_EQ(backupsIn(data).times().size(), 1U);
    fs::remove(logbookIn(data));
    EXPECT_EQ(run({"take", "newest", "1", "77"}), ExitStatus::BadInput);
    EXPECT_FALSE(fs::exists(logbookIn(data)));
}

TEST_F(Restore, OfAnEventThatIsNamedTwiceAddsItOnce) {
    test::deleteEvent(data, 1);
    EXPECT_EQ(run({"take", "newest", "1", "01", "1"}), ExitStatus::Done);
    EXPECT_EQ(out.str(), "Added to the logbook: 1 event, 2 games and 20 frames.\n");
}

TEST_F(Restore, OutlivesABackupThatGoesToMakeRoom) {
    for (int old = 0; old < 3; ++old) {
        clock.set(clock.now() + std::chrono::hours{24 * 40});
        test::addEvent(data, "Another");
        backUp();
    }
    fs::copy_file(newest(), data / "Backups" / "Tallybrook_DB 2026-11-01 08.00.00.mdb");
    fs::copy_file(newest(), data / "Backups" / "Tallybrook_DB 2026-11-01 09.00.00.mdb");
    const fs::path goes = data / "Backups" / "Tallybrook_DB 2026-11-01 08.00.00.mdb";
    takeEvents(HeldLogbook(data), goes, {1}, clock, nobody);
    EXPECT_FALSE(fs::exists(goes));
    EXPECT_EQ(countsOf(SQLite::Database(logbookIn(data).string())).events, 6);
}

TEST_F(Restore, TellsInWordsHowABackupDiffers) {
    EXPECT_EQ(difference(), "the same as today's logbook");
    test::addEvent(data, "Sunday", 1);
    EXPECT_EQ(difference(), "1 event, 1 game and 10 frames are not in it");
    test::deleteEvent(data, 1);
    EXPECT_EQ(
        difference(),
        "1 event, 1 game and 10 frames are not in it; 1 event, 2 games and 20 frames were deleted since");
    test::change(data, {"UPDATE tblFrameInfo SET fldComment = 'x' WHERE fldSessionNum = 2"});
    EXPECT_TRUE(difference().ends_with("; 1 event was changed since")) << difference();
    test::change(data,
                 {"DELETE FROM tblFrameInfo WHERE fldSessionNum = 2 AND fldGameNum = 1 AND fldFrameNum = 1",
                  "INSERT INTO tblGameInfo (fldSessionNum) VALUES (NULL)"});
    EXPECT_EQ(
        difference(),
        "1 event, 1 game and 10 frames are not in it; 1 event, 2 games and 21 frames were deleted since; "
        "1 event was changed since; games or frames without an event differ");
}

TEST_F(Restore, SeesAChangeInEveryField) {
    const auto fingerprints = [this] {
        std::vector<std::uint64_t> found;
        for (const EventSummary& event : summaryOf(SQLite::Database(logbookIn(data).string()), nobody).events)
            found.push_back(event.fingerprint);
        return found;
    };
    for (const Table& table : tables()) {
        for (const Column& column : table.columns) {
            if (column.name == table.key().name || column.name == "fldSessionNum")
                continue;
            const auto before = fingerprints();
            test::change(data, {fmt::format("UPDATE {} SET {} = 'changed'", table.name, column.name)});
            EXPECT_NE(fingerprints(), before) << table.name << ": " << column.name;
        }
    }
}

TEST_F(Restore, SeesFieldsThatWereExchanged) {
    test::change(data, {"UPDATE tblFrameInfo SET fldFirstBallRes = fldSecondBallRes, fldSecondBallRes = "
                        "fldFirstBallRes WHERE fldSessionNum = 2"});
    EXPECT_EQ(difference(), "1 event was changed since");
}

TEST_F(Restore, TellsATextFromTheSameBytes) {
    test::change(data, {"UPDATE tblEventInfo SET fldEventName = CAST(fldEventName AS BLOB) "
                        "WHERE fldSessionNum = 1"});
    EXPECT_EQ(difference(), "1 event was changed since");
}

TEST_F(Restore, IsForNobodyWhileTallybrookRuns) {
    test::addEvent(data, "Sunday", 1);
    const auto before = rowsOf(logbookIn(data));
    const InstanceLock running(lockIn(data));
    EXPECT_EQ(run({"restore", "newest"}), ExitStatus::Busy);
    EXPECT_EQ(run({"take", "newest", "1"}), ExitStatus::Busy);
    EXPECT_EQ(run({"archive", (data / "out").string()}), ExitStatus::Done);
    EXPECT_EQ(notes.str(),
              "Tallybrook is running. This is from its newest backup, of 11/22/2026 8:00:00 PM.\n");
    EXPECT_TRUE(out.str().ends_with(": 2 events, 4 games and 40 frames.\n")) << out.str();
    EXPECT_EQ(run({"look-archive", (data / "out").string(), "--json"}), ExitStatus::Done);
    EXPECT_EQ(nlohmann::json::parse(out.str())["note"],
              "Tallybrook is running. This is from its newest backup, of 11/22/2026 8:00:00 PM.");
    EXPECT_EQ(run({"read-archive", (data / "out").string()}), ExitStatus::Busy);
    EXPECT_EQ(run({"backups"}), ExitStatus::Done);
    EXPECT_EQ(rowsOf(logbookIn(data)), before);
}

TEST_F(Restore, IsCalledByTheBeginningOfADate) {
    EXPECT_EQ(run({"look", "11-22"}), ExitStatus::BadInput) << "a part from the middle";
    EXPECT_EQ(run({"look", "2026-11-22"}), ExitStatus::Done);
    EXPECT_NE(out.str().find("     1  11/3/2026   Tuesday, Lanes  (2 games and 20 frames)\n"),
              std::string::npos)
        << out.str();
    backUp();
    EXPECT_EQ(run({"look", "2026-11-22"}), ExitStatus::BadInput);
    EXPECT_EQ(notes.str(),
              "There are 2 backups that begin with 2026-11-22. Please tell the time as well, as in "
              "2026-11-22 20.01.00.\n");
    EXPECT_EQ(run({"look", "2025"}), ExitStatus::BadInput);
    EXPECT_EQ(run({"look", "newest", "2"}), ExitStatus::Done);
    EXPECT_TRUE(out.str().starts_with("Game 1  score 150\n    1: 7-10\n")) << out.str();
    EXPECT_EQ(run({"look", "newest", "9"}), ExitStatus::BadInput);
    EXPECT_EQ(run({"look", "newest", "nine"}), ExitStatus::WrongUsage);
    fs::remove_all(data / "Backups");
    EXPECT_EQ(run({"look", "newest"}), ExitStatus::BadInput);
    EXPECT_EQ(notes.str(), "There are no backups yet in " + (data / "Backups").string() + "\n");
}

TEST_F(Restore, WritesNothingThatATerminalWouldObey) {
    test::change(data,
                 {"UPDATE tblEventInfo SET fldEventName = 'a' || char(27) || '[2J' || char(10) || 'b'"});
    backUp();
    EXPECT_EQ(run({"look", "newest"}), ExitStatus::Done);
    EXPECT_NE(out.str().find("  a[2Jb, Lanes"), std::string::npos) << out.str();
}

TEST_F(Restore, AnswersProgramsInJson) {
    EXPECT_EQ(run({"backups", "--json"}), ExitStatus::Done);
    const auto json = nlohmann::json::parse(out.str());
    EXPECT_EQ(json["backups"][0]["name"], "2026-11-22 20.00.00");
    EXPECT_EQ(json["backups"][0]["frames"], 40);
    EXPECT_EQ(json["backups"][0]["difference"]["words"], "the same as today's logbook");
    EXPECT_EQ(run({"restore", "newest", "--json"}), ExitStatus::Done);
    EXPECT_EQ(nlohmann::json::parse(out.str())["holds"]["events"], 2);
}

TEST_F(Restore, AnswersProgramsThoughANameIsNoUtf8) {
    EXPECT_EQ(run({"archive", (data / "caf\xE9.jsonl").string(), "--json"}), ExitStatus::Done);
    EXPECT_EQ(nlohmann::json::parse(out.str())["place"], (data / "caf\xEF\xBF\xBD.jsonl").string());
}

TEST_F(Restore, ListsBackupsBesideADamagedLogbook) {
    std::ofstream(logbookIn(data)) << "nonsense";
    EXPECT_EQ(run({"backups"}), ExitStatus::Done);
    EXPECT_NE(notes.str().find("The file is no logbook of this program."), std::string::npos);
    EXPECT_NE(out.str().find("today's logbook cannot be read"), std::string::npos);
}

}  // namespace

}  // namespace tallybrook::keeper
