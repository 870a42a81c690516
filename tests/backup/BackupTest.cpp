#include "backup/Backups.h"
#include "backup/Contents.h"
#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/SameText.h"
#include "support/StoredEvents.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <memory>
#include <optional>
#include <set>
#include <thread>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

constexpr DateTime kNow = makeDate(2026, 11, 21) + std::chrono::hours{20} + std::chrono::minutes{15};

std::int64_t eventsIn(const fs::path& logbook) {
    const SQLite::Database database(logbook.string());
    SQLite::Statement count(database, "SELECT count(*) FROM tblEventInfo");
    count.executeStep();
    return count.getColumn(0).getInt64();
}

/// Ends what a logbook written just now could still be mistaken for: it was written a minute ago.
void letTimePass(const fs::path& logbook) {
    fs::last_write_time(logbook, fs::last_write_time(logbook) - std::chrono::minutes{1});
}

class BackupTest : public testing::Test {
protected:
    BackupTest() { makeLogbook(3); }

    void makeLogbook(int events) const {
        test::writeEvents(logbook, events, clock);
        letTimePass(logbook);
    }
    void open() {
        store.emplace(logbook, clock);
        backups.emplace(*store, logbook, clock);
    }
    void close() {
        backups.reset();
        store.reset();
    }
    /// Opens the logbook and makes a backup, if there is to be one.
    void backUp() {
        open();
        backups->begin();
        backups->finish();
        EXPECT_EQ(backups->takeFailure(), std::nullopt);
        close();
    }
    void addEvent() {
        Recordset events(*store);
        events.Open("SELECT * FROM tblEventInfo");
        events.AddNew();
        events["fldEventName"] = "Added";
        events.Update();
    }
    void deleteFirstEvent() {
        Recordset events(*store);
        events.Open("SELECT * FROM tblEventInfo");
        events.Delete();
    }
    void changeEvent(int key, const std::string& comment) {
        Recordset events(*store);
        events.Open("SELECT * FROM tblEventInfo WHERE fldSessionNum = " + std::to_string(key));
        events["fldComment"] = comment;
        events.Update();
    }
    [[nodiscard]] Names names() const {
        Names names;
        if (fs::exists(folder())) {
            for (const auto& entry : fs::directory_iterator(folder()))
                names.insert(entry.path().filename().string());
        }
        return names;
    }
    [[nodiscard]] fs::path folder() const { return data.path() / "Backups"; }
    /// What a person is told of a backup that failed.
    [[nodiscard]] std::string told(const std::string& why) const {
        return "The logbook could not be backed up. The program goes on all the same.\r\nFolder of the "
               "backups: " +
               folder().string() + "\r\n" + why;
    }
    /// Makes a backup that fails, and tells why.
    std::string failure() {
        open();
        backups->begin();
        backups->finish();
        std::string why = backups->takeFailure().value_or("");
        EXPECT_EQ(backups->takeFailure(), std::nullopt) << "told twice";
        EXPECT_NE(why.find(folder().string()), std::string::npos) << why;
        addEvent();
        EXPECT_EQ(store->rows("tblEventInfo").size(), 4U) << "the failure stood in the way";
        close();
        return why;
    }

    /// Makes a backup, which comes upon a logbook that is damaged.
    void expectToldAsDamaged() {
        backups->begin();
        backups->finish();
        EXPECT_EQ(
            backups->takeFailure(),
            told("The logbook is damaged: " + logbook.string() +
                 "\r\nPlease end the program, and go back to the newest backup with the Tallybrook Keeper."));
    }

    const std::string first = "Tallybrook_DB 2026-11-21 20.15.00.mdb";
    const std::string second = "Tallybrook_DB 2026-11-21 20.15.01.mdb";

    test::TemporaryFolder data;
    fs::path logbook = data.path() / "Tallybrook_DB.mdb";
    SettableClock clock{kNow};
    std::optional<Store> store;
    std::optional<Backups> backups;
};

TEST_F(BackupTest, IsMadeUnderTheTimeOfTheClockForTheOwnerAlone) {
    backUp();
    EXPECT_EQ(names(), Names{first});
    EXPECT_EQ(eventsIn(folder() / first), 3);
    constexpr auto kOthers = fs::perms::group_all | fs::perms::others_all;
    EXPECT_EQ(fs::status(folder()).permissions() & kOthers, fs::perms::none);
    EXPECT_EQ(fs::status(folder() / first).permissions() & kOthers, fs::perms::none);
}

TEST_F(BackupTest, IsWholeAndCanTakeTheLogbooksPlace) {
    backUp();
    const SQLite::Database backup((folder() / first).string());
    EXPECT_EQ(contentsOf(backup), contentsOf(SQLite::Database(logbook.string())));
    fs::copy_file(folder() / first, logbook, fs::copy_options::overwrite_existing);
    open();
    EXPECT_EQ(store->rows("tblEventInfo").size(), 3U);
    addEvent();
    EXPECT_EQ(toText(Value{store->rows("tblEventInfo").back().values.front()}), "4")
        << "a key was used again";
}

TEST_F(BackupTest, IsNotMadeOfAnEmptyLogbook) {
    fs::remove(logbook);
    backUp();
    EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(BackupTest, IsMadeAnewOnlyOfAChangedLogbook) {
    backUp();
    clock.set(kNow + std::chrono::hours{1});
    backUp();
    EXPECT_EQ(names(), Names{first});
    open();
    addEvent();
    close();
    backUp();
    EXPECT_EQ(names(), (Names{first, "Tallybrook_DB 2026-11-21 21.15.00.mdb"}));
}

TEST_F(BackupTest, IsMadeBeforeTheFirstDeletionOfAChangedLogbook) {
    backUp();
    clock.set(kNow + std::chrono::hours{1});
    open();
    backups->begin();
    addEvent();
    deleteFirstEvent();
    deleteFirstEvent();
    close();
    const std::string made = "Tallybrook_DB 2026-11-21 21.15.00.mdb";
    EXPECT_EQ(names(), (Names{first, made})) << "one for the first deletion alone";
    EXPECT_EQ(eventsIn(folder() / made), 4) << "what was added is in it, and nothing was deleted yet";
    EXPECT_EQ(eventsIn(logbook), 2);
}

TEST_F(BackupTest, IsNotMadeBeforeADeletionWhereNothingHasChanged) {
    backUp();
    open();
    backups->begin();
    deleteFirstEvent();
    close();
    EXPECT_EQ(names(), Names{first});
    EXPECT_EQ(eventsIn(folder() / first), 3);
}

TEST_F(BackupTest, IsMadeByNobodyOnceTheBackupsAreGone) {
    open();
    backups.reset();
    deleteFirstEvent();
    addEvent();
    close();
    EXPECT_EQ(eventsIn(logbook), 3);
    EXPECT_EQ(names(), Names{});
}

TEST_F(BackupTest, GetsNoMorePagesOnceTheBackupsAreGone) {
    store.emplace(logbook, clock);
    auto own = std::make_unique<Backups>(*store, logbook, clock);
    own->begin();
    own.reset();
    addEvent();
    EXPECT_EQ(store->rows("tblEventInfo").size(), 4U);
}

TEST_F(BackupTest, OfALogbookWrittenJustNowIsMadeAgain) {
    fs::last_write_time(logbook, fs::file_time_type::clock::now() + std::chrono::hours{1});
    backUp();
    backUp();
    EXPECT_EQ(names(), (Names{first, second}));
    EXPECT_LT(fs::last_write_time(folder() / second), fs::last_write_time(logbook))
        << "a write that leaves the date as it is would go unseen";
}

TEST_F(BackupTest, IsMadeAnewOfAnOlderLogbookThatSomebodyHasPutBack) {
    backUp();
    fs::last_write_time(logbook, fs::last_write_time(logbook) - std::chrono::hours{24});
    backUp();
    EXPECT_EQ(names(), (Names{first, second}));
}

TEST_F(BackupTest, IsMadeAnewOfALogbookOfTheSameDateAndAnotherSize) {
    backUp();
    const fs::file_time_type written = fs::last_write_time(logbook);
    fs::remove(logbook);
    makeLogbook(2000);
    fs::last_write_time(logbook, written);
    backUp();
    EXPECT_EQ(names(), (Names{first, second}));
}

TEST_F(BackupTest, LeavesAFolderThatIsThereAsItIs) {
    fs::create_directory(folder());
    constexpr auto kShared = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec;
    fs::permissions(folder(), kShared);
    backUp();
    EXPECT_EQ(fs::status(folder()).permissions(), kShared);
}

TEST_F(BackupTest, FailureIsToldThoughTheNextOneIsMade) {
    fs::create_directories(folder() / (first + ".new") / "in the way");
    open();
    backups->begin();
    addEvent();
    clock.set(kNow + std::chrono::hours{1});
    backups->begin();
    backups->finish();
    EXPECT_EQ(names(), (Names{first + ".new", "Tallybrook_DB 2026-11-21 21.15.00.mdb"}));
    EXPECT_NE(backups->takeFailure().value_or("").find("File exists"), std::string::npos);
    close();
}

TEST_F(BackupTest, HoldsWhatWasThereBeforeTheFirstWrite) {
    for (int events = 3; events < 30; ++events) {
        clock.set(kNow + std::chrono::minutes{events});
        open();
        backups->begin();
        addEvent();
        addEvent();
        EXPECT_EQ(store->rows("tblEventInfo").size(), static_cast<std::size_t>(events) + 2);
        backups->finish();
        close();
        EXPECT_EQ(eventsIn(folder() / *names().rbegin()), events);
        fs::remove(logbook);
        makeLogbook(events + 1);
    }
    EXPECT_EQ(names().size(), 27U);
}

TEST_F(BackupTest, IsTheLogbookAsItStoodToTheByte) {
    makeLogbook(2000);
    for (int round = 0; round < 5; ++round) {
        const std::string before = test::bytesOf(logbook);
        open();
        Backup backup({.logbook = logbook, .folder = BackupFolder(logbook), .now = kNow, .stamp = {}});
        store->connection().database().exec("PRAGMA synchronous = OFF");
        store->beforeOverwriting(
            [&backup](std::int64_t at, std::string_view bytes) { return backup.keep(at, bytes); });
        fs::create_directories(folder());
        {
            const std::jthread waits([&backup] { backup.finish(); });
            for (int write = 0; write < 200; ++write)
                changeEvent(1 + write * 7919 % 2000, fmt::format("{:*<{}}", round, write + 2));
        }
        EXPECT_EQ(backup.failure(), std::nullopt);
        store->beforeOverwriting({});
        close();
        EXPECT_NE(test::bytesOf(logbook), before);
        EXPECT_EQ(test::bytesOf(folder() / *names().rbegin()), before) << "round " << round;
        fs::remove_all(folder());
    }
}

TEST_F(BackupTest, IsOfTheLogbookAsItStoodWhateverIsSavedBeforeItIsRead) {
    const std::string before = test::bytesOf(logbook);
    open();
    backups->begin();
    for (int event = 0; event < 20; ++event)
        addEvent();
    deleteFirstEvent();
    close();
    EXPECT_EQ(test::bytesOf(folder() / first), before);
    EXPECT_EQ(eventsIn(logbook), 22);
}

TEST_F(BackupTest, IsMadeToTheEndOfWhateverWasChanged) {
    open();
    backups->begin();
    addEvent();
    close();
    EXPECT_EQ(names(), Names{first});
}

TEST_F(BackupTest, LeavesNothingBehindWhenItIsGivenUp) {
    open();
    backups->begin();
    close();
    for (const std::string& name : names())
        EXPECT_FALSE(name.ends_with(".new"));
    EXPECT_EQ(eventsIn(logbook), 3);
}

TEST_F(BackupTest, MayFollowAnotherOneAtOnce) {
    open();
    backups->begin();
    addEvent();
    backups->begin();
    addEvent();
    backups->begin();
    backups->finish();
    EXPECT_EQ(names().size(), 3U);
    EXPECT_EQ(eventsIn(folder() / first), 3);
    EXPECT_EQ(eventsIn(folder() / second), 4);
}

TEST_F(BackupTest, RemovesWhatKilledRunsHaveLeftAndNothingElse) {
    fs::create_directory(folder());
    const Names others{"Tallybrook_DB.mdb",
                       "Tallybrook_DB 2026-11-21.mdb",
                       "letter.new",
                       "Tallybrook_DB 2026-02-30 20.15.00.mdb",
                       "Tallybrook_DB 2026-11-21 20.15.61.mdb",
                       "Tallybrook_DB 2026-11-1a 20.15.00.mdb",
                       "Another_DB 2026-01-01 20.15.00.mdb"};
    for (const std::string& name : others)
        std::ofstream(folder() / name) << "mine";
    std::ofstream(folder() / "Tallybrook_DB 2026-11-20 09.00.00.mdb.new") << "half a copy";
    backUp();
    Names expected = others;
    expected.insert(first);
    EXPECT_EQ(names(), expected);
}

TEST_F(BackupTest, MadeAtOnceRemovesWhatKilledRunsHaveLeft) {
    fs::create_directory(folder());
    std::ofstream(folder() / "Tallybrook_DB 2026-11-20 09.00.00.mdb.new") << "half a copy";
    backUpNow(logbook, clock);
    EXPECT_EQ(names(), Names{first});
}

TEST_F(BackupTest, MadeAtOnceOfALogbookWrittenJustNowIsMadeAgain) {
    fs::last_write_time(logbook, fs::file_time_type::clock::now() + std::chrono::hours{1});
    backUpNow(logbook, clock);
    backUp();
    EXPECT_EQ(names(), (Names{first, second}));
}

TEST_F(BackupTest, ForgetsOldOnes) {
    fs::create_directory(folder());
    for (const char* time : {"2026-10-05 08.00.00", "2026-10-06 08.00.00", "2026-11-20 08.00.00",
                             "2026-11-20 09.00.00", "2024-02-28 08.00.00", "2024-02-29 08.00.00"})
        std::ofstream(folder() / fmt::format("Tallybrook_DB {}.mdb", time)) << "a backup";
    backUp();
    EXPECT_EQ(
        names(),
        (Names{"Tallybrook_DB 2024-02-29 08.00.00.mdb", "Tallybrook_DB 2026-10-06 08.00.00.mdb",
               "Tallybrook_DB 2026-11-20 08.00.00.mdb", "Tallybrook_DB 2026-11-20 09.00.00.mdb", first}));
}

TEST_F(BackupTest, MayLieInAFolderOfAnyName) {
    for (const char* name : {"a b", "100 % sure?", "#1 & only=yes;", "Ünïcödé", "記録 ボウリング", "журнал",
                             "'quoted' \"twice\"", "back\\slash", "file:x?mode=rwc", "\xff no UTF-8"}) {
        const fs::path place = data.path() / name;
        fs::create_directory(place);
        logbook = place / "Tallybrook_DB.mdb";
        makeLogbook(2);
        backUp();
        EXPECT_EQ(eventsIn(place / "Backups" / first), 2) << name;
    }
}

TEST_F(BackupTest, LeavesTheLogbookLocked) {
    open();
    backups->begin();
    backups->finish();
    const pid_t child = fork();
    if (child == 0) {
        try {
            const Store other(logbook, clock);
        } catch (const LogbookRefused&) {
            _exit(0);
        }
        _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "another program could open the logbook";
}

TEST_F(BackupTest, FailsWhereTheFolderCannotBeMade) {
    std::ofstream(folder()) << "a file in the way";
    EXPECT_NE(failure().find("File exists"), std::string::npos);
    EXPECT_EQ(test::bytesOf(folder()), "a file in the way");
}

TEST_F(BackupTest, FailsWhereTheFileCannotBeMade) {
    fs::create_directories(folder() / (first + ".new") / "in the way");
    EXPECT_NE(failure().find("File exists"), std::string::npos);
    EXPECT_EQ(names(), Names{first + ".new"});
}

TEST_F(BackupTest, TellsOfAFailureBeforeItIsFinished) {
    fs::create_directories(folder() / (first + ".new") / "in the way");
    open();
    EXPECT_EQ(backups->takeFailure(), std::nullopt) << "nothing has failed yet";
    deleteFirstEvent();  // which waits for the copy
    EXPECT_NE(backups->takeFailure().value_or("").find("File exists"), std::string::npos);
    close();
}

TEST_F(BackupTest, FailsWhereTheDiskIsFull) {
    makeLogbook(3000);
    open();
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    rlimit small = limit;
    small.rlim_cur = 20000;
    setrlimit(RLIMIT_FSIZE, &small);
    backups->begin();
    backups->finish();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, before);
    EXPECT_EQ(backups->takeFailure(), told("File too large\r\nPlease see that there is room on the disk, and "
                                           "that the folder can be written."));
    EXPECT_EQ(names(), Names{});
    addEvent();
}

/// Puts nonsense into the page where a table or an index begins.
void damage(const fs::path& logbook, const std::string& name) {
    int page = 0;
    {
        const SQLite::Database database(logbook.string());
        SQLite::Statement root(database, "SELECT rootpage FROM sqlite_master WHERE name = ?");
        root.bind(1, name);
        ASSERT_TRUE(root.executeStep());
        page = root.getColumn(0).getInt();
    }
    constexpr int kPageSize = 4096;
    std::fstream file(logbook, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp((page - 1) * kPageSize + 3);
    file << std::string(200, '\x7f');
}

TEST_F(BackupTest, TellsOfADamagedLogbookAndKeepsTheOldOnes) {
    for (const char* part : {"tblEventInfo", "tblFrameInfo", "idx_fldCenterName"}) {
        fs::remove(logbook);
        fs::remove_all(folder());
        makeLogbook(3);
        fs::create_directory(folder());
        const Names old{"Tallybrook_DB 2025-10-05 08.00.00.mdb", "Tallybrook_DB 2025-10-06 08.00.00.mdb"};
        for (const std::string& name : old)
            std::ofstream(folder() / name) << "a backup";
        damage(logbook, part);
        open();
        expectToldAsDamaged();
        EXPECT_EQ(names(), old);
        close();
    }
}

// Another program has written over the logbook's head meanwhile.
TEST_F(BackupTest, TellsOfALogbookThatIsNoneAnyMore) {
    open();
    std::fstream(logbook, std::ios::in | std::ios::out | std::ios::binary) << std::string(16, '\x7f');
    expectToldAsDamaged();
    EXPECT_EQ(names(), Names{});
}

}  // namespace

}  // namespace tallybrook
