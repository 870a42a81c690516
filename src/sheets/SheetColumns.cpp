#include "sheets/SheetColumns.h"

#include <fmt/format.h>

namespace tallybrook::sheets {

namespace {

// In letters.
constexpr double kNumber = 8;
constexpr double kWord = 12;
constexpr double kName = 24;
constexpr double kNote = 40;

const std::vector<SheetPlan>& plans() {
    static const std::vector<SheetPlan> kPlans{
        {"Events",
         "tblEventInfo",
         "fldSessionNum",
         {{"tblEventInfo.fldSessionNum", "Event Key", kNumber},
          {"tblEventInfo.fldEventName", "Event", kName},
          {"tblEventInfo.fldDateBowled", "Date", kWord},
          {"tblEventInfo.fldCenterName", "Center", kName},
          {"tblEventInfo.fldCenterLoc", "Location", kName},
          {"tblEventInfo.fldEventType", "Type", kWord},
          {"tblEventInfo.fldNumGames", "Games", kNumber},
          {"tblEventInfo.fldGmsRecorded", "Games Recorded", kWord},
          {"tblEventInfo.fldSeriesTot", "Series Total", kWord},
          {"tblEventInfo.fldSeriesAvg", "Series Average", kWord},
          {"tblEventInfo.fldComment", "Comment", kNote},
          {"tblEventInfo.fldHHRecordID", "Handheld Record", kWord}}},
        {"Games",
         "tblGameInfo",
         "fldGameKey",
         {{"tblGameInfo.fldGameKey", "Game Key", kNumber},
          {"tblGameInfo.fldSessionNum", "Event Key", kNumber},
          {"tblGameInfo.fldGameNum", "Game", kNumber},
          {"tblGameInfo.fldStartLane", "Start Lane", kNumber},
          {"tblGameInfo.fldLeftLane", "Left Lane", kNumber},
          {"tblGameInfo.fldRightLane", "Right Lane", kNumber},
          {"tblGameInfo.fldLanePair", "Lane Pair", kNumber},
          {"tblGameInfo.fldGameScore", "Score", kNumber},
          {"tblGameInfo.fldLaneCond", "Lane Condition", kName},
          {"tblGameInfo.fldComment", "Comment", kNote},
          {"tblGameInfo.fldScoreType", "Score Type", kNumber},
          {"tblGameInfo.fldFrmsRecorded", "Frames Recorded", kWord},
          {"tblGameInfo.fldHHRecordID", "Handheld Record", kWord},
          {"tblGameInfo.fldBowlHand", "Bowling Hand", kNumber}}},
        {"Frames",
         "tblFrameInfo",
         "fldFrameKey",
         {{"tblFrameInfo.fldFrameKey", "Frame Key", kNumber},
          {"tblFrameInfo.fldSessionNum", "Event Key", kNumber},
          {"tblFrameInfo.fldGameNum", "Game", kNumber},
          {"tblFrameInfo.fldFrameNum", "Frame", kNumber},
          {"tblFrameInfo.fldLaneBowled", "Lane", kNumber},
          {"tblFrameInfo.fldBallUsed", "Ball", kWord},
          {"tblFrameInfo.fldFootPos", "Foot Position", kNumber},
          {"tblFrameInfo.fldLaneTgt", "Target", kNumber},
          {"tblFrameInfo.fldFirstBallRes", "First Ball", kWord},
          {"tblFrameInfo.fldSecondBallRes", "Second Ball", kWord},
          {"tblFrameInfo.fldFillBallRes", "Fill Ball", kWord},
          {"tblFrameInfo.fldComment", "Comment", kNote},
          {"tblFrameInfo.fldLineScore", "Line Score", kNumber},
          {"tblFrameInfo.fldHHRecordID", "Handheld Record", kWord}}},
        {"Games with Events",
         "tblGameInfo LEFT JOIN tblEventInfo USING (fldSessionNum)",
         "fldDateBowled, fldSessionNum, fldGameNum, fldGameKey",
         {{"tblEventInfo.fldDateBowled", "Date", kWord},
          {"tblEventInfo.fldEventName", "Event", kName},
          {"tblEventInfo.fldEventType", "Type", kWord},
          {"tblEventInfo.fldCenterName", "Center", kName},
          {"tblEventInfo.fldCenterLoc", "Location", kName},
          {"tblGameInfo.fldGameNum", "Game", kNumber},
          {"tblGameInfo.fldGameScore", "Score", kNumber},
          {"tblGameInfo.fldScoreType", "Score Type", kNumber},
          {"tblGameInfo.fldLanePair", "Lane Pair", kNumber},
          {"tblGameInfo.fldStartLane", "Start Lane", kNumber},
          {"tblGameInfo.fldLaneCond", "Lane Condition", kName},
          {"tblGameInfo.fldComment", "Comment", kNote},
          {"tblEventInfo.fldSeriesTot", "Series Total", kWord},
          {"tblEventInfo.fldSeriesAvg", "Series Average", kWord},
          {"tblGameInfo.fldSessionNum", "Event Key", kNumber},
          {"tblGameInfo.fldGameKey", "Game Key", kNumber}}},
    };
    return kPlans;
}

}  // namespace

std::string SheetPlan::query() const {
    std::string fields;
    for (const SheetColumn& column : columns)
        fields += (fields.empty() ? "" : ", ") + std::string(column.field);
    return fmt::format("SELECT {} FROM {} ORDER BY {}", fields, from, order);
}

FieldType SheetPlan::typeOf(const SheetColumn& column) {
    const std::string_view field = column.field;
    const std::size_t point = field.find('.');
    return findTable(field.substr(0, point))->find(field.substr(point + 1))->type;
}

std::span<const SheetPlan> sheetPlans() {
    return plans();
}

}  // namespace tallybrook::sheets
