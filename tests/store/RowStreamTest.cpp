#include "store/Recordset.h"
#include "store/RowStream.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

class Stream : public testing::Test {
protected:
    Stream() {
        add("Thursday League", makeDate(2026, 11, 12), "LEAGUE");
        add("Open", makeDate(2026, 11, 7), "TOURNAMENT");
        add("", Null{}, "league");
    }
    void add(const Value& name, const Value& date, const Value& type) {
        Recordset events(store);
        events.Open("SELECT * FROM tblEventInfo");
        events.AddNew();
        events["fldEventName"] = name;
        events["fldDateBowled"] = date;
        events["fldEventType"] = type;
        events.Update();
    }
    /// Number of what `fails` raises; 0 if it raises nothing.
    template <typename Fails>
    static int failureOf(Fails fails) {
        try {
            fails();
        } catch (const RunTimeError& failure) {
            return failure.number();
        }
        return 0;
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
};

TEST_F(Stream, GivesWhatARecordsetHolds) {
    for (const std::string& sql : std::vector<std::string>{
             "SELECT * FROM tblEventInfo", "SELECT * FROM tblEventInfo ORDER BY fldDateBowled",
             "SELECT * FROM tblEventInfo WHERE fldEventType = 'League'",
             "SELECT * FROM tblEventInfo WHERE fldDateBowled >= #11/7/2026# and fldDateBowled <= #11/8/2026#",
             "SELECT * FROM tblEventInfo WHERE fldEventName = 'nobody'"}) {
        Recordset rows(store);
        rows.Open(sql);
        EXPECT_EQ(countRows(store, sql), rows.RecordCount()) << sql;
        RowStream stream(store, sql, {"fldDateBowled", "fldEventName", "fldsessionnum"});
        for (; !rows.Eof(); rows.MoveNext()) {
            ASSERT_TRUE(stream.next()) << sql;
            EXPECT_EQ(stream[0], rows["fldDateBowled"].value()) << sql;
            EXPECT_EQ(stream[1], rows["fldEventName"].value()) << sql;
            EXPECT_EQ(stream[2], rows["fldSessionNum"].value()) << sql;
        }
        EXPECT_FALSE(stream.next()) << sql;
    }
}

TEST_F(Stream, RefusesWhatARecordsetRefuses) {
    for (const auto& refused : std::vector<std::pair<std::string, int>>{
             {"SELECT * FROM tblEventInfo WHERE fldEventName = 'O'Hara'", error::kStatementNotUnderstood},
             {"SELECT * FROM tblEventInfo WHERE fldNothing = 1", error::kUnknownColumn},
             {"SELECT * FROM tblEventInfo WHERE fldNumGames = 'x'", error::kCriteriaOfWrongType}}) {
        const std::string& sql = refused.first;
        const int number = refused.second;
        EXPECT_EQ(failureOf([&] { RowStream(store, sql, {"fldEventName"}); }), number) << sql;
        EXPECT_EQ(failureOf([&] { countRows(store, sql); }), number) << sql;
    }
    EXPECT_EQ(failureOf([&] { RowStream(store, "SELECT * FROM tblEventInfo", {"fldNothing"}); }),
              error::kUnknownField);
}

}  // namespace

}  // namespace tallybrook
