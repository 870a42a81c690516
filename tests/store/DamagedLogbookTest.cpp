// Whatever has become of the logbook's file: it is refused with a text that helps and stays as it is, to the
// byte, or it is opened, and its damage shows as failures of statements.

#include "runtime/RunTimeError.h"
#include "store/CommitAtEnd.h"
#include "store/CutOffASave.h"
#include "store/Recordset.h"
#include "store/sql/Schema.h"
#include "support/Anybody.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <functional>
#include <map>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

constexpr std::size_t kPageSize = 4096;

class DamagedLogbook : public testing::Test {
protected:
    /// A logbook with enough rows for some pages of each kind.
    void makeLogbook() const {
        { const Store made(file, clock); }
        SQLite::Database rows(file.string(), SQLite::OPEN_READWRITE);
        constexpr const char* kNumbers =
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";
        rows.exec(
            std::string("BEGIN;") + kNumbers +
            "90) INSERT INTO tblEventInfo (fldEventName, fldDateBowled, fldCenterName, fldComment) "
            "SELECT 'Event ' || i, '2026-11-04', 'Lanes ' || i, "
            "CASE WHEN i % 30 = 0 THEN printf('%.6000c', 'x') END FROM n;" +
            kNumbers + "90) INSERT INTO tblGameInfo (fldSessionNum, fldGameNum) SELECT i, 1 FROM n;" +
            kNumbers +
            "120) INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum) SELECT 1, 1, i FROM n;"
            "COMMIT");
    }
    [[nodiscard]] std::string contents() const { return test::bytesOf(file); }
    void write(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }
    /// All files of the folder with what they hold.
    [[nodiscard]] Files files() const {
        Files found;
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            const bool isFile = entry.is_regular_file();
            found[entry.path().filename().string()] = isFile ? test::bytesOf(entry.path()) : "";
        }
        return found;
    }
    /// Why the logbook is refused; nothing if it was opened.
    [[nodiscard]] std::string refusal() const {
        try {
            const Store store(file, clock);
        } catch (const LogbookRefused& refused) {
            return refused.what();
        }
        return "";
    }
    void expectRefused(const std::string& why) const {
        const Files before = files();
        const std::string text = refusal();
        EXPECT_NE(text.find("cannot be opened:\r\n" + file.string() + "\r\n"), std::string::npos) << text;
        EXPECT_NE(text.find("Please "), std::string::npos) << text;
        EXPECT_NE(text.find(why), std::string::npos) << text;
        EXPECT_EQ(files(), before) << text;
    }
    /// Opens what may be damaged, reads all of it and writes to it. True if it was refused.
    [[nodiscard]] bool isRefusedOrFailsInOrder() const {
        const Files before = files();
        try {
            Store store(file, clock);
            mayFail([&] {
                CommitAtEnd saves(store);
                for (const Table& table : tables())
                    useTable(store, table);
                saves.commit();
            });
            return false;
        } catch (const LogbookRefused&) {
            EXPECT_EQ(files(), before);
            return true;
        }
    }

    test::TemporaryFolder folder;
    fs::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};

private:
    static void mayFail(const std::function<void()>& statement) {
        try {
            statement();
        } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): all that may come of a damage
        }
    }
    static void useTable(Store& store, const Table& table) {
        mayFail([&] { static_cast<void>(store.rows(table.name)); });
        mayFail([&] {
            Recordset found(store);
            found.Open("SELECT * FROM " + table.name + " WHERE fldComment LIKE '%x%'");
            static_cast<void>(found.RecordCount());
        });
        Recordset rows(store);
        mayFail([&] { rows.Open("SELECT * FROM " + table.name); });
        mayFail([&] { rows["fldComment"] = "changed"; });
        mayFail([&] { rows.Update(); });
        mayFail([&] { rows.MoveNext(); });
        mayFail([&] { rows.Delete(); });
        mayFail([&] { rows.AddNew(); });
        mayFail([&] { rows["fldComment"] = std::string(5000, 'y'); });
        mayFail([&] { rows.Update(); });
    }
};

TEST_F(DamagedLogbook, CutShortIsRefusedAtEveryPage) {
    makeLogbook();
    const std::string whole = contents();
    ASSERT_GT(whole.size(), 10 * kPageSize);
    for (std::size_t page = 0; page * kPageSize < whole.size(); ++page) {
        for (const std::size_t more : {std::size_t{0}, std::size_t{1}, kPageSize / 2, kPageSize - 1}) {
            SCOPED_TRACE(page * kPageSize + more);
            write(whole.substr(0, page * kPageSize + more));
            expectRefused(page == 0 && more < 100 ? "no logbook" : "damaged");
        }
    }
}

TEST_F(DamagedLogbook, WithTooMuchAtItsEndIsReadAsBefore) {
    makeLogbook();
    write(contents() + std::string(2 * kPageSize, 'x'));
    EXPECT_EQ(refusal(), "");
}

TEST_F(DamagedLogbook, WithAWrongByteInItsHeadIsRefusedOrFailsInOrder) {
    makeLogbook();
    const std::string whole = contents();
    int refused = 0;
    for (std::size_t at = 0; at < 112; ++at) {
        for (const char change : {'\x01', '\xff'}) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(bytes[at] ^ change);
            fs::remove(file);
            write(bytes);
            refused += isRefusedOrFailsInOrder() ? 1 : 0;
        }
    }
    EXPECT_GE(refused, 40);  // the mark and the schema's number at least
}

TEST_F(DamagedLogbook, WithAWrongByteAnywhereIsRefusedOrFailsInOrder) {
    makeLogbook();
    const std::string whole = contents();
    std::size_t at = 101;
    for (int round = 0; round < 300; ++round) {
        at = (at * 48271 + 11) % whole.size();
        std::string bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << round % 8));
        fs::remove(file);
        write(bytes);
        EXPECT_TRUE(!isRefusedOrFailsInOrder() || at < kPageSize) << at;  // the schema lies on the first page
    }
}

TEST_F(DamagedLogbook, WithAPageOfNonsenseIsRefusedOrFailsInOrder) {
    makeLogbook();
    const std::string whole = contents();
    for (std::size_t page = 0; page < whole.size() / kPageSize; ++page) {
        for (const char nonsense : {'\0', '\x05', '\x7f', '\xff'}) {
            fs::remove(file);
            write(std::string(whole).replace(page * kPageSize, kPageSize, kPageSize, nonsense));
            EXPECT_EQ(isRefusedOrFailsInOrder(), page == 0);
        }
    }
}

TEST_F(DamagedLogbook, WithPagesInTheWrongPlacesFailsInOrder) {
    makeLogbook();
    const std::string whole = contents();
    for (std::size_t page = 1; page + 1 < whole.size() / kPageSize; ++page) {
        std::string bytes = whole;
        bytes.replace(page * kPageSize, kPageSize, whole, (page + 1) * kPageSize, kPageSize);
        bytes.replace((page + 1) * kPageSize, kPageSize, whole, page * kPageSize, kPageSize);
        fs::remove(file);
        write(bytes);
        EXPECT_FALSE(isRefusedOrFailsInOrder());
    }
}

TEST_F(DamagedLogbook, MissingAtTheEndOfALinkIsRefused) {
    const fs::path target = folder.path() / "elsewhere" / "logbook";
    fs::create_symlink(target, file);
    EXPECT_NE(refusal().find("a link to a file that is not there. Please"), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_FALSE(fs::exists(target));
}

TEST_F(DamagedLogbook, AtTheEndOfALinkIsUsedThere) {
    const fs::path place = folder.path() / "elsewhere";
    fs::create_directory(place);
    makeLogbook();
    fs::rename(file, place / "logbook");
    fs::create_symlink(place / "logbook", file);
    {
        Store store(file, clock);
        Recordset events(store);
        events.Open("SELECT * FROM tblEventInfo");
        events.AddNew();
        events.Update();
    }
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(std::distance(fs::directory_iterator(place), {}), 1) << "a journal is left";
    EXPECT_EQ(fs::canonical(file), place / "logbook");
}

TEST_F(DamagedLogbook, InALoopOfLinksIsRefused) {
    fs::create_symlink(file.filename(), file);
    EXPECT_NE(refusal().find(file.string()), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(DamagedLogbook, MayLieInAFolderOfAnyName) {
    for (const char* name :
         {"a b", "100 % sure?", "#1 & only=yes;", "Ünïcödé", "記録 ボウリング", "журнал", "سجل",
          "'quoted' \"twice\"", "back\\slash", "file:x?mode=rwc", "\xff no UTF-8"}) {
        fs::create_directory(folder.path() / name);
        file = folder.path() / name / "Tallybrook_DB.mdb";
        makeLogbook();
        EXPECT_EQ(refusal(), "") << name;
        write("no logbook");
        EXPECT_NE(refusal().find(file.string()), std::string::npos);
    }
}

TEST_F(DamagedLogbook, OfAnotherProgramStaysAsItIsWithASaveThatWasCutOff) {
    {
        SQLite::Database other(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec(
            "PRAGMA user_version = 1; CREATE TABLE recipes (name TEXT); INSERT INTO recipes VALUES ('soup')");
    }
    test::cutOffASave(file, "INSERT INTO recipes SELECT printf('%.9000c', 'x')");
    ASSERT_EQ(files().size(), 2U);
    expectRefused("another program");
}

TEST_F(DamagedLogbook, IsMendedAfterASaveThatWasCutOff) {
    makeLogbook();
    const std::string whole = contents();
    test::cutOffASave(file, "UPDATE tblEventInfo SET fldComment = printf('%.9000c', 'x')");
    ASSERT_NE(contents(), whole);
    ASSERT_TRUE(fs::exists(file.string() + "-journal"));
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(contents(), whole);
    EXPECT_EQ(files().size(), 1U);
}

TEST_F(DamagedLogbook, ShorterThanItsHeadSaysIsMendedFromItsJournal) {
    makeLogbook();
    const std::string whole = contents();
    test::cutOffASave(file, "UPDATE tblEventInfo SET fldComment = printf('%.9000c', 'x')");
    std::string bytes = contents();
    bytes[28] = bytes[29] = '\0';  // the number of pages, high byte first
    bytes[30] = '\x7f';
    bytes.replace(24, 4, bytes, 92, 4);  // which holds if this is the same
    write(bytes);
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(contents(), whole);
}

TEST_F(DamagedLogbook, ThatMayNotBeWrittenIsRefused) {
    using enum fs::perms;
    makeLogbook();
    fs::permissions(folder.path(), all);
    const Files before = files();
    fs::permissions(file, owner_read | group_read | others_read);
    EXPECT_NE(test::asAnybody([&] { return refusal(); }).find("cannot be written. Please"),
              std::string::npos);
    fs::permissions(file, none);
    EXPECT_NE(test::asAnybody([&] { return refusal(); }).find("cannot be read. Please"), std::string::npos);
    fs::permissions(file, all);
    fs::permissions(folder.path(),
                    owner_read | owner_exec | group_read | group_exec | others_read | others_exec);
    EXPECT_NE(test::asAnybody([&] { return refusal(); }).find("cannot be written. Please"),
              std::string::npos);
    fs::permissions(folder.path(), owner_all);
    EXPECT_EQ(files(), before);
}

TEST_F(DamagedLogbook, IsNotReplacedWhereItsFolderMayNotBeSeen) {
    makeLogbook();
    const fs::path inner = folder.path() / "inner";
    fs::create_directory(inner);
    fs::rename(file, inner / file.filename());
    file = inner / file.filename();
    fs::permissions(inner, fs::perms::none);
    fs::permissions(folder.path(), fs::perms::all);
    EXPECT_NE(test::asAnybody([&] { return refusal(); }).find("Please check the permissions"),
              std::string::npos);
    fs::permissions(inner, fs::perms::owner_all);
    EXPECT_EQ(refusal(), "");
}

}  // namespace

}  // namespace tallybrook
