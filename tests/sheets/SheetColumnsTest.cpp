#include "sheets/SheetColumns.h"

#include <map>
#include <set>
#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tallybrook::sheets {

namespace {

// Each sheet with its columns: the heading, the field, and the width in letters.
constexpr const char* kSheets = R"(Events
    Event Key: tblEventInfo.fldSessionNum, 8
    Event: tblEventInfo.fldEventName, 24
    Date: tblEventInfo.fldDateBowled, 12
    Center: tblEventInfo.fldCenterName, 24
    Location: tblEventInfo.fldCenterLoc, 24
    Type: tblEventInfo.fldEventType, 12
    Games: tblEventInfo.fldNumGames, 8
    Games Recorded: tblEventInfo.fldGmsRecorded, 12
    Series Total: tblEventInfo.fldSeriesTot, 12
    Series Average: tblEventInfo.fldSeriesAvg, 12
    Comment: tblEventInfo.fldComment, 40
    Handheld Record: tblEventInfo.fldHHRecordID, 12
Games
    Game Key: tblGameInfo.fldGameKey, 8
    Event Key: tblGameInfo.fldSessionNum, 8
    Game: tblGameInfo.fldGameNum, 8
    Start Lane: tblGameInfo.fldStartLane, 8
    Left Lane: tblGameInfo.fldLeftLane, 8
    Right Lane: tblGameInfo.fldRightLane, 8
    Lane Pair: tblGameInfo.fldLanePair, 8
    Score: tblGameInfo.fldGameScore, 8
    Lane Condition: tblGameInfo.fldLaneCond, 24
    Comment: tblGameInfo.fldComment, 40
    Score Type: tblGameInfo.fldScoreType, 8
    Frames Recorded: tblGameInfo.fldFrmsRecorded, 12
    Handheld Record: tblGameInfo.fldHHRecordID, 12
    Bowling Hand: tblGameInfo.fldBowlHand, 8
Frames
    Frame Key: tblFrameInfo.fldFrameKey, 8
    Event Key: tblFrameInfo.fldSessionNum, 8
    Game: tblFrameInfo.fldGameNum, 8
    Frame: tblFrameInfo.fldFrameNum, 8
    Lane: tblFrameInfo.fldLaneBowled, 8
    Ball: tblFrameInfo.fldBallUsed, 12
    Foot Position: tblFrameInfo.fldFootPos, 8
    Target: tblFrameInfo.fldLaneTgt, 8
    First Ball: tblFrameInfo.fldFirstBallRes, 12
    Second Ball: tblFrameInfo.fldSecondBallRes, 12
    Fill Ball: tblFrameInfo.fldFillBallRes, 12
    Comment: tblFrameInfo.fldComment, 40
    Line Score: tblFrameInfo.fldLineScore, 8
    Handheld Record: tblFrameInfo.fldHHRecordID, 12
Games with Events
    Date: tblEventInfo.fldDateBowled, 12
    Event: tblEventInfo.fldEventName, 24
    Type: tblEventInfo.fldEventType, 12
    Center: tblEventInfo.fldCenterName, 24
    Location: tblEventInfo.fldCenterLoc, 24
    Game: tblGameInfo.fldGameNum, 8
    Score: tblGameInfo.fldGameScore, 8
    Score Type: tblGameInfo.fldScoreType, 8
    Lane Pair: tblGameInfo.fldLanePair, 8
    Start Lane: tblGameInfo.fldStartLane, 8
    Lane Condition: tblGameInfo.fldLaneCond, 24
    Comment: tblGameInfo.fldComment, 40
    Series Total: tblEventInfo.fldSeriesTot, 12
    Series Average: tblEventInfo.fldSeriesAvg, 12
    Event Key: tblGameInfo.fldSessionNum, 8
    Game Key: tblGameInfo.fldGameKey, 8
)";

std::string told() {
    std::string text;
    for (const SheetPlan& sheet : sheetPlans()) {
        text += std::string(sheet.name) + "\n";
        for (const SheetColumn& column : sheet.columns)
            text += fmt::format("    {}: {}, {}\n", column.heading, column.field, column.width);
    }
    return text;
}

TEST(SheetColumns, AreThose) {
    EXPECT_EQ(told(), kSheets);
}

TEST(SheetColumns, OfAFieldAreHeadedAlikeInEverySheet) {
    std::map<std::string, std::string> headings;
    for (const SheetPlan& sheet : sheetPlans()) {
        for (const SheetColumn& column : sheet.columns)
            EXPECT_EQ(headings.emplace(column.field, column.heading).first->second, column.heading)
                << sheet.name << ", " << column.field;
    }
}

TEST(SheetColumns, AreHeadedEachInItsOwnWayInASheet) {
    for (const SheetPlan& sheet : sheetPlans()) {
        std::set<std::string> headings;
        for (const SheetColumn& column : sheet.columns)
            EXPECT_TRUE(headings.insert(column.heading).second) << sheet.name << ", " << column.heading;
    }
}

}  // namespace

}  // namespace tallybrook::sheets
