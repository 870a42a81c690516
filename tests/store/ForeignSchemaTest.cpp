// A file that somebody else has made with a logbook's number and names: only true tables are taken for the
// logbook's, and nothing that stands in the file is run.

#include "SourceFolder.h"
#include "store/Recordset.h"
#include "store/Store.h"
#include "store/file/Connection.h"
#include "store/file/UnlockedFile.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

class ForeignSchema : public testing::Test {
protected:
    ForeignSchema() { make(""); }

    /// A logbook with further statements run on it.
    void make(const std::string& statements) const {
        fs::remove(file);
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec(test::bytesOf(TALLYBROOK_SOURCE_DIR "/tests/store/schemas/1.sql"));
        database.exec(statements);
    }
    /// The names of a table's fields, each with something before it.
    static std::string list(const std::string& table, const std::string& before) {
        std::string names;
        for (const std::string& name : Store::fieldNames(table))
            names.append(names.empty() ? "" : ", ").append(before).append(name);
        return names;
    }
    void expectForeign(const std::string& statements) const {
        make(statements);
        const std::string before = test::bytesOf(file);
        try {
            const Store store(file, clock);
            ADD_FAILURE() << statements;
        } catch (const LogbookRefused& refused) {
            EXPECT_NE(std::string(refused.what()).find("another program"), std::string::npos)
                << refused.what();
        }
        EXPECT_EQ(test::bytesOf(file), before);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    }

    test::TemporaryFolder folder;
    fs::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
};

class Replaced : public ForeignSchema, public testing::WithParamInterface<const char*> {};

TEST_P(Replaced, ByAViewIsRefused) {
    expectForeign(
        fmt::format("ALTER TABLE {0} RENAME TO kept; CREATE VIEW {0} AS SELECT * FROM kept", GetParam()));
}

TEST_P(Replaced, ByAViewWithoutEndIsRefused) {
    expectForeign(
        fmt::format("DROP TABLE {0}; CREATE VIEW {0} AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                    "SELECT i + 1 FROM n) SELECT {1} FROM n",
                    GetParam(), list(GetParam(), "i AS ")));
}

TEST_P(Replaced, ByAVirtualTableIsRefused) {
    expectForeign(fmt::format("DROP TABLE {0}; CREATE VIRTUAL TABLE {0} USING fts5({1})", GetParam(),
                              list(GetParam(), "")));
}

TEST_P(Replaced, ByATableWithoutRowNumbersIsRefused) {
    expectForeign(fmt::format("DROP TABLE {0}; CREATE TABLE {0} ({1}, PRIMARY KEY ({2})) WITHOUT ROWID",
                              GetParam(), list(GetParam(), ""), Store::fieldNames(GetParam()).front()));
}

INSTANTIATE_TEST_SUITE_P(Table, Replaced, testing::Values("tblEventInfo", "tblGameInfo", "tblFrameInfo"));

TEST_F(ForeignSchema, MayHoldMoreThanTheLogbook) {
    make("CREATE TABLE recipes (name TEXT); CREATE VIEW best AS SELECT * FROM tblGameInfo");
    Store store(file, clock);
    EXPECT_EQ(store.rows("tblEventInfo").size(), 2U);
}

// As they are to every other program for such files, the names of tables are the same in any case.
TEST_F(ForeignSchema, MayNameTheTablesInOtherLetters) {
    make("ALTER TABLE tblEventInfo RENAME TO kept; ALTER TABLE kept RENAME TO TBLEVENTINFO");
    Store store(file, clock);
    EXPECT_EQ(store.rows("tblEventInfo").size(), 2U);
}

TEST_F(ForeignSchema, HasItsTriggersNotRun) {
    make(
        "CREATE TABLE noted (what TEXT);"
        "CREATE TRIGGER emptying AFTER INSERT ON tblEventInfo BEGIN DELETE FROM tblGameInfo; END;"
        "CREATE TRIGGER refusing BEFORE DELETE ON tblEventInfo BEGIN SELECT RAISE(ABORT, 'no'); END;"
        "CREATE TRIGGER endless BEFORE UPDATE ON tblEventInfo BEGIN INSERT INTO noted SELECT i FROM "
        "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n); END");
    Store store(file, clock);
    Recordset events(store);
    events.Open("SELECT * FROM tblEventInfo");
    events["fldComment"] = "changed";
    events.Update();
    events.Delete();
    events.AddNew();
    events["fldEventName"] = "added";
    events.Update();
    EXPECT_EQ(store.rows("tblEventInfo").size(), 2U);
    EXPECT_EQ(store.rows("tblGameInfo").size(), 1U);
}

void expectDistrusted(SQLite::Database& database) {
    EXPECT_EQ(database.execAndGet("PRAGMA trusted_schema").getInt(), 0);
    database.exec("PRAGMA writable_schema = ON");
    EXPECT_THROW(database.exec("DELETE FROM sqlite_schema"), SQLite::Exception);
}

TEST_F(ForeignSchema, IsTrustedByNoConnection) {
    {
        Store store(file, clock);
        expectDistrusted(store.connection().database());
    }
    SQLite::Database asItStands = openAsItStands(file);
    expectDistrusted(asItStands);
}

}  // namespace

}  // namespace tallybrook
