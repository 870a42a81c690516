#include "store/sql/Sql.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

int faultOf(const std::string& sql) {
    try {
        parseSelect(sql, 2026);
        return 0;
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
}

TEST(Sql, UnderstandsTheStatementsOfTheProgram) {
    for (const char* sql :
         {"SELECT * FROM tblEventInfo", "SELECT tblEventInfo.* FROM tblEventInfo WHERE fldSessionNum = 5",
          "SELECT * FROM tblEventInfo where fldSessionNum = 5",
          "SELECT * from tblFrameInfo WHERE fldSessionNum = 1 AND fldGameNum = 2 ORDER BY fldFrameNum",
          "SELECT fldGameNum, fldGameScore FROM tblGameInfo WHERE fldSessionNum = 1 ORDER BY fldGameNum",
          "SELECT DISTINCT fldCenterLoc FROM tblEventInfo WHERE fldCenterName = 'Brook Lanes'",
          "select * from TBLGAMEINFO where FLDGAMESCORE >= 200 and fldgamescore<=300 or fldLaneCond like "
          "'%dry%'",
          "SELECT * FROM tblEventInfo WHERE fldDateBowled >= #11/4/2026# ORDER BY fldDateBowled, "
          "fldEventName",
          "SELECT * FROM tblEventInfo WHERE fldSeriesAvg > 200.5",
          "SELECT * FROM tblEventInfo WHERE fldSeriesAvg > -.5",
          "SELECT * FROM tblEventInfo WHERE fldEventName = 'O''Brien'",
          "SELECT * FROM tblEventInfo WHERE fldDateBowled LIKE '11/%'",
          "SELECT * FROM tblGameInfo WHERE fldGameScore LIKE '2%'"})
        EXPECT_EQ(faultOf(sql), 0) << sql;
}

TEST(Sql, RefusesWhatIsNotInTheSubset) {
    const std::vector<std::pair<std::string, int>> cases{
        {"", error::kStatementNotUnderstood},
        {"DELETE FROM tblEventInfo", error::kStatementNotUnderstood},
        {"SELECT * FROM sqlite_master", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo;", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo; DELETE FROM tblEventInfo", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo, tblGameInfo", error::kStatementNotUnderstood},
        {"SELECT tblGameInfo.* FROM tblEventInfo", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = ", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = (1)", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 1 OR", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum <> 1", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldEventName = 'O'Brien'", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldEventName = 'open", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldDateBowled = #open", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldDateBowled = #2/30/2026#", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 1.2.3", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 5x", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = -", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo ORDER BY fldEventName DESC", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo ORDER fldEventName", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo -- all", error::kStatementNotUnderstood},
        {"SELECT FROM tblEventInfo", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE  ORDER BY fldEventName", error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 1 AND  ORDER BY fldEventName",
         error::kStatementNotUnderstood},
        {"SELECT * FROM tblEventInfo ORDER BY like", error::kStatementNotUnderstood},
        {"SELECT fldNone FROM tblEventInfo", error::kUnknownColumn},
        {"SELECT * FROM tblEventInfo WHERE fldGameNum = 1", error::kUnknownColumn},
        {"SELECT * FROM tblEventInfo ORDER BY fldGameNum", error::kUnknownColumn},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 'one'", error::kCriteriaOfWrongType},
        {"SELECT * FROM tblEventInfo WHERE fldEventName = 1", error::kCriteriaOfWrongType},
        {"SELECT * FROM tblEventInfo WHERE fldEventName = #1/1/2026#", error::kCriteriaOfWrongType},
        {"SELECT * FROM tblEventInfo WHERE fldDateBowled = '1/1/2026'", error::kCriteriaOfWrongType},
        {"SELECT * FROM tblEventInfo WHERE fldEventName LIKE 5", error::kCriteriaOfWrongType},
    };
    for (const auto& [sql, number] : cases)
        EXPECT_EQ(faultOf(sql), number) << sql;
}

TEST(Sql, BindsAndTighterThanOr) {
    const Select select = parseSelect(
        "SELECT * FROM tblGameInfo WHERE fldGameNum = 1 OR fldGameNum = 2 AND fldGameScore > 9", 2026);
    ASSERT_EQ(select.anyOf.size(), 2U);
    EXPECT_EQ(select.anyOf[0].size(), 1U);
    EXPECT_EQ(select.anyOf[1].size(), 2U);
}

TEST(Sql, ReadsALiteralAsItStands) {
    const Select select = parseSelect(
        "SELECT * FROM tblEventInfo WHERE fldEventName = 'a''b' AND fldDateBowled < #3/4# AND fldSeriesAvg = "
        "-2.5",
        2026);
    EXPECT_EQ(std::get<std::string>(select.anyOf[0][0].value), "a'b");
    EXPECT_EQ(std::get<DateTime>(select.anyOf[0][1].value), makeDate(2026, 3, 4));
    EXPECT_EQ(std::get<double>(select.anyOf[0][2].value), -2.5);
}

TEST(Sql, TakesAnyTextWithoutHarm) {
    const std::vector<std::string> pieces{"SELECT", "*",   "FROM", "tblGameInfo", "WHERE", "fldGameNum",
                                          "=",      ">=",  "1",    "-",           "'",     "''",
                                          "#",      "AND", "OR",   "LIKE",        ".",     ",",
                                          "ORDER",  "BY",  "\xff", "9e9",         "(",     "DISTINCT"};
    EXPECT_TRUE(rc::check([&](std::vector<unsigned> picks) {
        std::string sql;
        for (const unsigned pick : picks)
            sql += pieces[pick % pieces.size()] + (pick % 3 == 0 ? "" : " ");
        const int fault = faultOf(sql);
        RC_ASSERT(fault == 0 || fault == error::kStatementNotUnderstood || fault == error::kUnknownColumn ||
                  fault == error::kCriteriaOfWrongType || fault == error::kOverflow);
    }));
    EXPECT_EQ(faultOf("SELECT * FROM tblGameInfo WHERE " + std::string(200000, 'x')), error::kUnknownColumn);
}

}  // namespace

}  // namespace tallybrook
