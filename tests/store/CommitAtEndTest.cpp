#include "runtime/Clock.h"
#include "store/CommitAtEnd.h"
#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

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
    int count() {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        return rows.RecordCount();
    }
    [[nodiscard]] bool isWithin() {
        return sqlite3_get_autocommit(store.connection().database().getHandle()) == 0;
    }
    void limitPages(int pages) {
        store.connection().database().execAndGet("PRAGMA max_page_count = " + std::to_string(pages));
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
    int commits = 0;
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
