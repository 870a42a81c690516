// What statements cost: rows walked and commits made are counted, not timed.

#include "store/DataControl.h"
#include "store/Recordset.h"
#include "store/Update_Series.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

class NoReports : public FailureReporter {
public:
    void databaseError(const RunTimeError& failure, std::string_view) override {
        ADD_FAILURE() << "unexpected box: " << failure.what();
    }
    void retrying(std::string_view, int) override { ADD_FAILURE() << "nothing is retried here"; }
};

class Cost : public testing::Test {
protected:
    void SetUp() override {
        SQLite::Transaction transaction(store.connection().database());
        for (int session = 1; session <= 50; ++session) {
            add("tblEventInfo", {{"fldHHRecordID", "R" + std::to_string(session)},
                                 {"fldCenterName", session % 2 == 0 ? "Brook" : "Hill"}});
            for (int game = 1; game <= 3; ++game) {
                add("tblGameInfo",
                    {{"fldSessionNum", std::to_string(session)}, {"fldGameNum", std::to_string(game)}});
                add("tblFrameInfo", {{"fldSessionNum", std::to_string(session)},
                                     {"fldGameNum", std::to_string(game)},
                                     {"fldFrameNum", "1"}});
            }
        }
        transaction.commit();
        walked();
        sqlite3_commit_hook(
            store.connection().database().getHandle(),
            [](void* count) {
                ++*static_cast<int*>(count);
                return 0;
            },
            &commits);
    }
    void add(const std::string& table, const std::vector<std::pair<const char*, std::string>>& fields) {
        Recordset rows(store);
        rows.Open("SELECT * FROM " + table);
        rows.AddNew();
        for (const auto& [field, value] : fields)
            rows[field] = value;
        rows.Update();
    }
    /// The rows that statements have walked over in whole tables since the last call.
    int walked() {
        int rows = 0;
        sqlite3* const handle = store.connection().database().getHandle();
        for (sqlite3_stmt* one = sqlite3_next_stmt(handle, nullptr); one != nullptr;
             one = sqlite3_next_stmt(handle, one))
            rows += sqlite3_stmt_status(one, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1);
        return rows;
    }
    int countOf(const std::string& sql) {
        Recordset rows(store);
        rows.Open(sql);
        return rows.RecordCount();
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
    NoReports reports;
    int commits = 0;
};

TEST_F(Cost, OfTheStandingStatementsIsALookUp) {
    for (const auto& [sql, hits] : std::vector<std::pair<std::string, int>>{
             {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 20", 1},
             {"SELECT * FROM tblGameInfo WHERE fldSessionNum = 20", 3},
             {"SELECT * FROM tblGameInfo WHERE fldSessionNum = 20 ORDER BY fldGameNum", 3},
             {"SELECT * FROM tblFrameInfo WHERE fldSessionNum = 20 AND fldGameNum = 2 ORDER BY fldFrameNum",
              1},
             {"SELECT * FROM tblEventInfo WHERE fldHHRecordID = 'r20'", 1},
             {"SELECT * FROM tblEventInfo WHERE fldHHRecordID = '\u00dc'", 0},
             {"SELECT DISTINCT fldCenterLoc FROM tblEventInfo WHERE fldCenterName = 'BROOK'", 1}}) {
        EXPECT_EQ(countOf(sql), hits) << sql;
        EXPECT_LE(walked(), 1) << sql;  // the end of an index of few rows counts as one
    }
    EXPECT_EQ(countOf("SELECT * FROM tblEventInfo"), 50);
    EXPECT_GE(walked(), 49) << "the count does count";
}

TEST_F(Cost, OfOpeningIsNotThatOfReading) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblFrameInfo");
    EXPECT_EQ(walked(), 0);
    rows.Close();
    EXPECT_EQ(walked(), 0);
}

TEST_F(Cost, OfLookingAtSomeRowsOfManyIsThatOfThese) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblFrameInfo");
    EXPECT_EQ(rows.RecordCount(), 150);
    EXPECT_GT(walked(), 0);
    for (int row = 0; row < 150; row += 37)
        EXPECT_EQ(toText(rows.valueAt(row, "fldGameNum")), std::to_string(row % 3 + 1));
    EXPECT_EQ(walked(), 0);
}

TEST_F(Cost, OfSavingANewEventDoesNotGrowWithTheLogbook) {
    DataControl list(store);
    list.setRecordSource("SELECT * FROM tblEventInfo");
    list.Refresh();  // no box is bound, so nothing is read
    Recordset events(store);
    events.Open("SELECT * FROM tblEventInfo");
    events.AddNew();
    events["fldEventName"] = "Tuesday";
    events.Update();
    const Int32 session = toInt32(events["fldSessionNum"]);
    events["fldGmsRecorded"] = std::int64_t{2};
    events.Update();
    Int16 total;
    double average = 0;
    Int16 games;
    Update_Series(store, reports, session, {total, average, games});
    EXPECT_EQ(walked(), 0);
    EXPECT_EQ(commits, 3);  // one for each row stored
    EXPECT_EQ(toText(events["fldEventName"]), "Tuesday");
    EXPECT_EQ(list.recordset().RecordCount(), 50);
    EXPECT_EQ(events.RecordCount(), 51);
}

TEST_F(Cost, OfLookingIsNoCommit) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    for (; !rows.Eof(); rows.MoveNext())
        EXPECT_FALSE(isNull(rows["fldGameNum"]));
    rows.MoveFirst();
    rows.Update();
    rows.AddNew();
    rows.CancelUpdate();
    EXPECT_EQ(commits, 0);
}

}  // namespace

}  // namespace tallybrook
