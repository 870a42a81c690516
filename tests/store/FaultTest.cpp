// What the file's failures leave behind, and what is in the file when a statement has returned.

#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook {

namespace {

class Faults : public testing::Test {
protected:
    /// Lets the file grow by no page, as on a full disk; or again by as many as it likes.
    static void fillDisk(Store& store, bool full) {
        SQLite::Database& database = store.connection().database();
        const int pages = full ? database.execAndGet("PRAGMA page_count").getInt() : 100000;
        database.execAndGet("PRAGMA max_page_count = " + std::to_string(pages));
    }
    static void expectFull(const std::function<void()>& action) {
        try {
            action();
            ADD_FAILURE() << "nothing failed";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kEngineFailure);
            EXPECT_EQ(failure.description(), "database or disk is full");
        }
    }
    /// Runs the work in another process that then ends with the logbook open, as if it was killed.
    void inDyingProcess(const std::function<void(Store&)>& work) const {
        constexpr int kDone = 7;
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Store store(file, clock);
            work(store);
            _exit(kDone);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == kDone);
    }
    static void addComment(Store& store, const std::string& comment) {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        rows.AddNew();
        rows["fldComment"] = comment;
        rows.Update();
    }

    test::TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
    const std::string large = std::string(200000, 'x');
};

TEST_F(Faults, LeaveANewRowPending) {
    Store store(file, clock);
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows.AddNew();
    rows["fldComment"] = large;
    fillDisk(store, true);
    expectFull([&] { rows.Update(); });
    EXPECT_EQ(toText(rows["fldComment"]), large);
    EXPECT_TRUE(store.rows("tblGameInfo").empty());
    fillDisk(store, false);
    rows.Update();
    EXPECT_EQ(toText(rows["fldGameKey"]), "1");
    EXPECT_EQ(store.rows("tblGameInfo").size(), 1U);
}

TEST_F(Faults, LeaveAnEditPendingAndTheRowCurrent) {
    Store store(file, clock);
    addComment(store, "first");
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows["fldComment"] = large;
    fillDisk(store, true);
    expectFull([&] { rows.Update(); });
    expectFull([&] { rows.MoveNext(); });
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(toText(rows["fldComment"]), large);
    rows.CancelUpdate();
    EXPECT_EQ(toText(rows["fldComment"]), "first");
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    fillDisk(store, false);
    addComment(store, large);
    EXPECT_EQ(store.rows("tblGameInfo").size(), 2U);
}

TEST_F(Faults, OfAnyNumberOfCriteriaAreNumbered) {
    Store store(file, clock);
    std::string sql = "SELECT * FROM tblGameInfo WHERE fldGameNum = 1";
    for (int i = 0; i < 20000; ++i)
        sql += i % 2 == 0 ? " AND fldGameNum = 1" : " OR fldGameNum = 1";
    Recordset rows(store);
    rows.Open(sql);
    EXPECT_THROW(static_cast<void>(rows.RecordCount()), RunTimeError);
    rows.Close();
    rows.Open("SELECT * FROM tblGameInfo");
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_F(Faults, OfTheProgramLoseNothingThatWasStored) {
    inDyingProcess([&](Store& store) {
        addComment(store, "stored");
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        rows.AddNew();
        rows["fldComment"] = "pending";
    });
    Store store(file, clock);
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(toText(rows["fldComment"]), "stored");
}

TEST_F(Faults, InTheMiddleOfASaveAreRolledBack) {
    {
        Store store(file, clock);
        addComment(store, "first");
    }
    inDyingProcess([&](Store& store) {
        SQLite::Database& database = store.connection().database();
        database.exec("PRAGMA cache_size = 1");  // so that changed pages reach the file before the commit
        database.exec("BEGIN");
        for (int i = 0; i < 5; ++i)
            addComment(store, large);
    });
    EXPECT_TRUE(std::filesystem::exists(file.string() + "-journal"));
    EXPECT_EQ(Store(file, clock).rows("tblGameInfo").size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(file.string() + "-journal"));
}

}  // namespace

}  // namespace tallybrook
