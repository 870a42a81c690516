#include "store/sql/Sql.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

/// Why a statement is refused; nothing if it is understood.
std::optional<RunTimeError> refusalOf(const std::string& sql) {
    try {
        parseSelect(sql, 2026);
        return std::nullopt;
    } catch (const RunTimeError& failure) {
        return failure;
    }
}

int faultOf(const std::string& sql) {
    const auto refusal = refusalOf(sql);
    return refusal ? refusal->number() : 0;
}

std::string descriptionOf(const std::string& sql) {
    const auto refusal = refusalOf(sql);
    return refusal ? refusal->what() : "";
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

TEST(Sql, TellsWhyItDoesNotUnderstandAStatement) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "SELECT was expected"},
        {"DELETE FROM tblEventInfo", "SELECT was expected"},
        {"SELECT FROM tblEventInfo", "a name was expected"},
        {"SELECT DISTINCT distinct FROM tblEventInfo", "a name was expected"},
        {"SELECT tblEventInfo. FROM tblEventInfo", "* was expected"},
        {"SELECT * tblEventInfo", "FROM was expected"},
        {"SELECT * FROM sqlite_master", "there is no such table"},
        {"SELECT tblGameInfo.* FROM tblEventInfo", "the fields are not those of the table"},
        {"SELECT * FROM tblEventInfo;", "\";\" was not expected"},
        {"SELECT * FROM tblEventInfo; DELETE FROM tblEventInfo", "\";\" was not expected"},
        {"SELECT * FROM tblEventInfo, tblGameInfo", "\",\" was not expected"},
        {"SELECT * FROM tblEventInfo -- all", "\"-\" was not expected"},
        {"SELECT * FROM tblEventInfo ORDER fldEventName", "BY was expected"},
        {"SELECT * FROM tblEventInfo ORDER BY like", "a name was expected"},
        {"SELECT * FROM tblEventInfo ORDER BY fldEventName DESC", "\"DESC\" was not expected"},
        {"SELECT * FROM tblEventInfo ORDER BY fldEventName, fldDateBowled, fldComment",
         "\",\" was not expected"},
        {"SELECT * FROM tblEventInfo WHERE", "a name was expected"},
        {"SELECT * FROM tblEventInfo WHERE  ORDER BY fldEventName", "a name was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum", "a comparison was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum <> 1", "a value was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = ", "a value was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = (1)", "a value was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = -", "a value was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 1 OR", "a name was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 1 AND  ORDER BY fldEventName",
         "a name was expected"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 1.2.3", "\"1.2.3\" is no number"},
        {"SELECT * FROM tblEventInfo WHERE fldSessionNum = 5x", "\"5\" is no number"},
        {"SELECT * FROM tblEventInfo WHERE fldEventName = 'O'Brien'", "\"Brien\" was not expected"},
        {"SELECT * FROM tblEventInfo WHERE fldEventName = 'open", "a text has no end"},
        {"SELECT * FROM tblEventInfo WHERE fldDateBowled = #open", "a date has no end"},
        {"SELECT * FROM tblEventInfo WHERE fldDateBowled = #2/30/2026#", "#2/30/2026# is no date"},
    };
    for (const auto& [sql, why] : cases) {
        EXPECT_EQ(faultOf(sql), error::kStatementNotUnderstood) << sql;
        EXPECT_EQ(descriptionOf(sql), "Syntax error in the statement: " + why + ".") << sql;
    }
}

TEST(Sql, RefusesUnknownColumnsAndValuesOfTheWrongType) {
    const std::vector<std::pair<std::string, int>> cases{
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
    EXPECT_EQ(descriptionOf("SELECT fldNone FROM tblEventInfo"),
              "The statement names the column \"fldNone\", which does not exist.");
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
