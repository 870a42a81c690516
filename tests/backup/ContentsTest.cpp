// What tells one database from another: the rows of its tables, and all its pages.

#include "backup/Contents.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

class ContentsOf : public testing::Test {
protected:
    Contents after(const std::vector<std::string>& statements) const {
        SQLite::Database database((folder.path() / "some.mdb").string(),
                                  SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        for (const std::string& statement : statements)
            database.exec(statement);
        return contentsOf(database);
    }

    test::TemporaryFolder folder;
};

using Rows = std::map<std::string, std::int64_t>;

TEST_F(ContentsOf, CountTheRowsOfTablesOfAnyName) {
    EXPECT_EQ(after({"CREATE TABLE plain (a)", "INSERT INTO plain VALUES (1), (2)",
                     R"(CREATE TABLE "two ""words""" (a))", R"(INSERT INTO "two ""words""" VALUES (1))"})
                  .rowCounts,
              (Rows{{"plain", 2}, {"two \"words\"", 1}}));
}

TEST_F(ContentsOf, LeaveOutWhatHasNoRowsOfItsOwn) {
    EXPECT_EQ(after({"CREATE TABLE plain (a)", "CREATE VIEW seen AS SELECT * FROM plain",
                     "PRAGMA writable_schema = ON",
                     "INSERT INTO sqlite_master VALUES ('table', 'odd', 'odd', 0, 'CREATE VIRTUAL TABLE odd "
                     "USING nothing_known()')"})
                  .rowCounts,
              (Rows{{"plain", 0}}));
}

TEST_F(ContentsOf, DifferWithEveryPageAndNotWithTheHead) {
    const Contents made = after({"CREATE TABLE plain (a)", "CREATE INDEX one ON plain (a)"});
    EXPECT_EQ(after({"PRAGMA user_version = 7"}), made) << "that stands in the head";
    const Contents renamed = after({"DROP INDEX one", "CREATE INDEX two ON plain (a)"});
    EXPECT_EQ(renamed.rowCounts, made.rowCounts);
    EXPECT_NE(renamed.hash, made.hash) << "the first page tells of the index";
    const Contents filled = after({"INSERT INTO plain VALUES (1)"});
    EXPECT_NE(after({"UPDATE plain SET a = 2"}).hash, filled.hash);
}

}  // namespace

}  // namespace tallybrook
