// Backups that can be opened, but are not what they should be, and copies of them that go wrong.

#include "backup/Backups.h"
#include "keeper/Access.h"
#include "keeper/EventGames.h"
#include "keeper/ExitStatus.h"
#include "keeper/Logbooks.h"
#include "keeper/OddProgress.h"
#include "keeper/Restore.h"
#include "runtime/InstanceLock.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

class Copies : public testing::Test {
protected:
    Copies() {
        test::addEvent(data, "Tuesday");
        backUp();
    }

    void backUp() {
        backUpNow(logbookIn(data), clock);
        clock.set(clock.now() + std::chrono::minutes{1});
    }
    [[nodiscard]] fs::path newest() const {
        const BackupFolder backups = backupsIn(data);
        return backups.existing(backups.times().back());
    }
    /// Lets an index tell of other rows than there are, which only a thorough check finds.
    static void spoilAnIndex(const fs::path& file) {
        const auto run = [&](const std::string& sql) {
            SQLite::Database(file.string(), SQLite::OPEN_READWRITE)
                .exec("PRAGMA writable_schema = ON; " + sql);
        };
        run("CREATE TABLE aside AS SELECT * FROM sqlite_schema WHERE name = 'idxEventDate'; "
            "DELETE FROM sqlite_schema WHERE name = 'idxEventDate'");
        run("UPDATE tblEventInfo SET fldDateBowled = '2026-11-04'");
        run("INSERT INTO sqlite_schema SELECT * FROM aside; DROP TABLE aside");
    }
    static std::string refusalOf(const std::function<void()>& work) {
        try {
            work();
            return "";
        } catch (const Refused& refused) {
            EXPECT_EQ(refused.status(), ExitStatus::BadInput);
            return refused.what();
        }
    }

    test::TemporaryFolder folder;
    const fs::path& data = folder.path();
    SettableClock clock{makeDate(2026, 11, 22) + std::chrono::hours{20}};
    NoProgress nobody;
};

TEST_F(Copies, ThatAreUnsoundAreNotReadInPlaceOfTheLogbook) {
    test::addEvent(data, "Friday");
    backUp();
    spoilAnIndex(newest());
    const InstanceLock running(lockIn(data));
    const ReadableLogbook logbook(data, clock);
    EXPECT_EQ(logbook.note(),
              "Tallybrook is running. This is from its newest backup, of 11/22/2026 8:00:00 PM.");
    EXPECT_EQ(countsOf(logbook.database()).events, 1);
}

TEST_F(Copies, ThatAreUnsoundGiveNothingBack) {
    const auto before = test::rowsOf(logbookIn(data));
    spoilAnIndex(newest());
    const std::string why = "The backup is damaged: " + newest().string() + "\nPlease choose another one.";
    EXPECT_EQ(refusalOf([&] { restoreAll(HeldLogbook(data), newest(), clock, nobody); }), why);
    EXPECT_EQ(refusalOf([&] { takeEvents(HeldLogbook(data), newest(), {1}, clock, nobody); }), why);
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(Copies, OfAnotherProgramAreTold) {
    const fs::path copy = data / "other.mdb";
    {
        SQLite::Database(copy.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
            .exec("CREATE TABLE a (b)");
    }
    EXPECT_EQ(refusalOf([&] { openCopy(copy); }), "The backup cannot be read: " + copy.string() +
                                                      "\nIt is damaged, or is no logbook of this version.");
    fs::copy_file(newest(), data / "short.mdb");
    fs::resize_file(data / "short.mdb", fs::file_size(newest()) - 100);
    EXPECT_EQ(refusalOf([&] { openCopy(data / "short.mdb"); }),
              "The backup cannot be read: " + (data / "short.mdb").string() +
                  "\nIt is damaged: its end is missing.");
}

TEST_F(Copies, ThatADiskSpoilsAreNotPutInPlace) {
    test::change(data, {"UPDATE tblEventInfo SET fldEventName = 'Wednesday'"});
    const auto before = test::rowsOf(logbookIn(data));
    const fs::path copy = logbookIn(data).string() + ".new";
    Meddling progress("Checking the copy", [&] {
        std::string bytes = test::bytesOf(copy);
        bytes.replace(bytes.find("Tuesday"), 7, "Monday!");
        std::ofstream(copy, std::ios::binary) << bytes;
    });
    try {
        restoreAll(HeldLogbook(data), newest(), clock, progress);
        ADD_FAILURE() << "it was restored";
    } catch (const Refused& refused) {
        EXPECT_EQ(refused.status(), ExitStatus::Failed);
        EXPECT_STREQ(refused.what(), "The copy was not like the backup. Please check the disk.");
    }
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
    EXPECT_FALSE(fs::exists(copy));
}

TEST_F(Copies, AreNotProvedToTheEndOnceThatIsCancelled) {
    test::change(
        data, {"WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n < 20000) "
               "INSERT INTO tblFrameInfo (fldSessionNum, fldFrameNum) SELECT 1, n FROM numbers"});
    const SQLite::Database logbook(logbookIn(data).string());
    Impatient impatient(0);
    EXPECT_THROW(isSound(logbook, impatient), Cancelled);
    EXPECT_TRUE(isSound(logbook, nobody));
}

TEST_F(Copies, BesideALinkThatLeadsNowhereStayThere) {
    fs::remove(logbookIn(data));
    fs::create_symlink(data / "nothing.mdb", logbookIn(data));
    EXPECT_THROW(restoreAll(HeldLogbook(data), newest(), clock, nobody), Refused);
    EXPECT_TRUE(fs::is_symlink(logbookIn(data)));
    EXPECT_FALSE(fs::exists(data / "nothing.mdb"));
}

TEST_F(Copies, OfWhatIsPutAsideAreCalledSo) {
    std::ofstream(logbookIn(data)) << "nonsense";
    EXPECT_EQ(restoreAll(HeldLogbook(data), newest(), clock, nobody).keptBefore,
              data / "Backups" / "Tallybrook_DB put aside 2026-11-22 20.01.00.mdb");
}

TEST_F(Copies, OfEventsKeepTheOrderOfTheirRows) {
    test::deleteEvent(data, 1);
    EXPECT_EQ(takeEvents(HeldLogbook(data), newest(), {1}, clock, nobody),
              (Counts{.events = 1, .games = 2, .frames = 20}));
    const SQLite::Database logbook(logbookIn(data).string());
    SQLite::Statement frames(logbook,
                             "SELECT group_concat(fldGameNum || '.' || fldFrameNum, ' ') FROM (SELECT * FROM "
                             "tblFrameInfo ORDER BY fldFrameKey)");
    frames.executeStep();
    EXPECT_EQ(frames.getColumn(0).getString(),
              "1.1 1.2 1.3 1.4 1.5 1.6 1.7 1.8 1.9 1.10 2.1 2.2 2.3 2.4 2.5 2.6 2.7 2.8 2.9 2.10");
}

TEST_F(Copies, ShowGamesAndFramesByTheirNumbers) {
    test::change(data, {"DELETE FROM tblGameInfo", "DELETE FROM tblFrameInfo",
                        "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum) VALUES (1, 2), (1, 1)",
                        "INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum) VALUES (1, 1, 2), "
                        "(1, 2, 1), (1, 1, 1)"});
    const auto games = gamesOf(SQLite::Database(logbookIn(data).string()), 1);
    ASSERT_EQ(games->size(), 2U);
    EXPECT_EQ(games->at(0).number, "1");
    EXPECT_EQ(games->at(0).frames, (std::vector<std::string>{"1:", "2:"}));
    EXPECT_EQ(games->at(1).number, "2");
    EXPECT_EQ(games->at(1).frames, std::vector<std::string>{"1:"});
}

}  // namespace

}  // namespace tallybrook::keeper
