#include "runtime/Clock.h"
#include "runtime/TextForms.h"
#include "store/CommitAtEnd.h"
#include "store/Recordset.h"
#include "store/RowInsert.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

class Commits : public testing::Test {
protected:
    Commits() { sqlite3_commit_hook(store.connection().database().getHandle(), countCommit, &commits); }
    static int countCommit(void* count) {
        ++*static_cast<int*>(count);
        return 0;
    }
    void add(const std::string& comment) {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        rows.AddNew();
        rows["fldComment"] = comment;
        rows.Update();
    }
    /// Leaves so many keys for the rows to come.
    void leaveKeys(std::int64_t left) {
        SQLite::Database& database = store.connection().database();
        database.exec("DELETE FROM sqlite_sequence WHERE name = 'tblGameInfo'");
        SQLite::Statement last(database, "INSERT INTO sqlite_sequence VALUES ('tblGameInfo', ?)");
        last.bind(1, std::numeric_limits<std::int64_t>::max() - left);
        last.exec();
        commits = 0;
    }
    /// What is stored, in the order of the keys.
    std::vector<std::string> comments() {
        std::vector<std::string> found;
        for (const Store::Row& row : store.rows("tblGameInfo"))
            found.push_back(toText(row.values[column("fldComment")]));
        return found;
    }
    static std::size_t column(const std::string& name) {
        const std::vector<std::string> names = Store::fieldNames("tblGameInfo");
        return static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
    }
    int count() {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        return rows.RecordCount();
    }
    [[nodiscard]] bool isWithin() {
        return sqlite3_get_autocommit(store.connection().database().getHandle()) == 0;
    }
    /// Refuses the next commits.
    void refuseCommits(int count) {
        refusals = count;
        const auto refuse = [](void* left) { return (*static_cast<int*>(left))-- > 0 ? 1 : 0; };
        sqlite3_commit_hook(store.connection().database().getHandle(), refuse, &refusals);
    }
    void limitPages(int pages) {
        store.connection().database().execAndGet("PRAGMA max_page_count = " + std::to_string(pages));
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
    int commits = 0;
    int refusals = 0;  // still to come; below zero by the commits that were not refused
};

TEST_F(Commits, StoreTheirRowsAtOnce) {
    CommitAtEnd rows(store);
    add("one");
    add("two");
    EXPECT_EQ(commits, 0);
    EXPECT_EQ(count(), 2);
    rows.commit();
    EXPECT_EQ(commits, 1);
    EXPECT_FALSE(isWithin());
    add("three");
    EXPECT_EQ(commits, 2);
}

TEST_F(Commits, KeepWhatWasStoredBeforeAFailure) {
    const auto fails = [&] {
        CommitAtEnd rows(store);
        add("one");
        throw RunTimeError(error::kTypeMismatch);
    };
    EXPECT_THROW(fails(), RunTimeError);
    EXPECT_EQ(commits, 1);
    EXPECT_EQ(count(), 1);
}

TEST_F(Commits, InsideOthersAddNothing) {
    CommitAtEnd outer(store);
    {
        CommitAtEnd inner(store);
        add("one");
        inner.commit();
    }
    EXPECT_EQ(commits, 0);
    EXPECT_TRUE(isWithin());
    outer.commit();
    EXPECT_EQ(commits, 1);
}

TEST_F(Commits, KeepWhatWasStoredBeforeAFailureThatUndoesTheTransaction) {
    leaveKeys(2);
    CommitAtEnd rows(store);
    add("one");
    add("two");
    EXPECT_THROW(add("three"), RunTimeError);
    EXPECT_FALSE(isWithin());
    EXPECT_EQ(comments(), (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(commits, 2);
    rows.commitSoFar();
    EXPECT_TRUE(isWithin());
}

TEST_F(Commits, KeepChangesAndDeletionsBeforeAFailureThatUndoesTheTransaction) {
    add("one");
    add("two");
    add("three");
    leaveKeys(0);
    CommitAtEnd rows(store);
    Recordset games(store);
    games.Open("SELECT * FROM tblGameInfo");
    games["fldComment"] = "changed";
    games.Update();
    games.MoveNext();
    games.Delete();
    EXPECT_THROW(add("four"), RunTimeError);
    EXPECT_EQ(comments(), (std::vector<std::string>{"changed", "three"}));
}

TEST_F(Commits, KeepValuesOfAllKindsBeforeAFailureThatUndoesTheTransaction) {
    leaveKeys(3);
    const std::string quote(1000, '\'');
    CommitAtEnd rows(store);
    RowInsert games(store, "tblGameInfo", {"fldSessionNum", "fldGameNum", "fldGameScore", "fldComment"});
    games.add(Value{std::int64_t{70000}}, Value{std::int64_t{-1}}, Value{Null{}}, Value{quote});
    EXPECT_THROW(games.add(Value{std::int64_t{1}}, Value{"two"}, Value{Null{}}, Value{""}), RunTimeError);
    Recordset events(store);
    events.Open("SELECT * FROM tblEventInfo");
    events.AddNew();
    events["fldDateBowled"] = makeDate(2026, 11, 14);
    events["fldSeriesAvg"] = 170.25;
    events.Update();
    add("two");
    add("three");
    const std::vector<Value> event = store.rows("tblEventInfo").at(0).values;
    const std::vector<Value> game = store.rows("tblGameInfo").at(0).values;
    EXPECT_THROW(add("four"), RunTimeError);
    EXPECT_EQ(comments(), (std::vector<std::string>{quote, "two", "three"}));
    EXPECT_EQ(store.rows("tblEventInfo").at(0).values, event);
    EXPECT_EQ(store.rows("tblGameInfo").at(0).values, game);
}

TEST_F(Commits, KeepWhatFitsOnADiskThatGetsFull) {
    const int pages = store.connection().database().execAndGet("PRAGMA page_count").getInt();
    limitPages(pages + 1);
    CommitAtEnd rows(store);
    add("one");
    EXPECT_THROW(add(std::string(100000, 'x')), RunTimeError);
    EXPECT_EQ(comments(), std::vector<std::string>{"one"});
    add("two");
    EXPECT_EQ(comments(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(Commits, GoRowByRowWhereAllAtOnceIsRefused) {
    CommitAtEnd rows(store);
    add("one");
    add("two");
    refuseCommits(1);
    rows.commit();
    EXPECT_EQ(refusals, -2);
    EXPECT_EQ(comments(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(Commits, GoRowByRowBehindWhatIsStoredAlready) {
    CommitAtEnd rows(store);
    add("one");
    rows.commitSoFar();
    add("two");
    refuseCommits(1);
    rows.commit();
    EXPECT_EQ(comments(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(Commits, GoRowByRowWithoutWhatHasFailedBefore) {
    store.connection().database().exec(
        "CREATE TRIGGER refusal BEFORE INSERT ON tblGameInfo WHEN NEW.fldComment = 'refused' "
        "BEGIN SELECT RAISE(ABORT, 'not this one'); END");
    CommitAtEnd rows(store);
    add("one");
    EXPECT_THROW(add("refused"), RunTimeError);
    add("two");
    refuseCommits(1);
    rows.commit();
    EXPECT_EQ(comments(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(Commits, LoseWhatIsRefusedEachTimeAndTellIt) {
    CommitAtEnd rows(store);
    add("one");
    add("two");
    int tries = 0;  // to commit all of it, then each row
    const auto refuse = [](void* tried) { return ++*static_cast<int*>(tried) == 2 ? 0 : 1; };
    sqlite3_commit_hook(store.connection().database().getHandle(), refuse, &tries);
    EXPECT_THROW(rows.commit(), RunTimeError);
    EXPECT_FALSE(isWithin());
    EXPECT_EQ(comments(), std::vector<std::string>{"one"});
}

TEST_F(Commits, KeepNoMoreThanAFewThousandChangesWaiting) {
    CommitAtEnd rows(store);
    for (int row = 0; row < 4000; ++row)
        add("row");
    EXPECT_EQ(commits, 1);
    EXPECT_TRUE(isWithin());
    add("one more");
    add("and another");
    EXPECT_EQ(commits, 1);
    rows.commit();
    EXPECT_EQ(commits, 2);
    EXPECT_EQ(count(), 4002);
}

TEST_F(Commits, BringWhatWaitsToTheDiskBeforeSomebodyIsWaitedFor) {
    store.bringToDisk();
    EXPECT_FALSE(isWithin());
    CommitAtEnd rows(store);
    add("one");
    store.bringToDisk();
    EXPECT_EQ(commits, 1);
    EXPECT_TRUE(isWithin());
}

TEST_F(Commits, LeaveNothingOpenOnAFullDisk) {
    limitPages(store.connection().database().execAndGet("PRAGMA page_count").getInt());
    {
        CommitAtEnd rows(store);
        EXPECT_THROW(add(std::string(100000, 'x')), RunTimeError);
    }
    EXPECT_FALSE(isWithin());
    limitPages(100000);
    add("again");
    EXPECT_EQ(count(), 1);
    EXPECT_FALSE(isWithin());
}

}  // namespace

}  // namespace tallybrook
