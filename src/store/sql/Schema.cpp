#include "store/sql/Schema.h"

#include "runtime/TextCompare.h"
#include "store/sql/SchemaSteps.h"

#include <algorithm>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// Columns that the statements look rows up by.
constexpr const char* kIndexes[] = {
    "CREATE INDEX idxEventDate ON tblEventInfo (fldDateBowled)",
    "CREATE INDEX idxGame ON tblGameInfo (fldSessionNum, fldGameNum)",
    "CREATE INDEX idxFrame ON tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum)",
};

std::string sqlType(const Column& column) {
    switch (column.type) {
        case FieldType::Number16:
        case FieldType::Number32:
            return "INTEGER DEFAULT 0";
        case FieldType::Double:
            return "REAL DEFAULT 0";
        case FieldType::Date:
            return "TEXT";
        case FieldType::Text:
            break;
    }
    // A game made by hand is offered pinfall entry until something is known of it.
    return column.name == "fldScoreType" ? "TEXT DEFAULT 'P'" : "TEXT DEFAULT ''";
}

std::string createStatement(const Table& table) {
    std::string columns = table.key().name + " INTEGER PRIMARY KEY AUTOINCREMENT";
    for (auto column = table.columns.begin() + 1; column != table.columns.end(); ++column)
        columns += fmt::format(", {} {}", column->name, sqlType(*column));
    return fmt::format("CREATE TABLE {} ({})", table.name, columns);
}

/// Two indexes serve the comparison without case, which SQLite knows for plain ASCII only: one by its own
/// NOCASE, and one of the few rows that it cannot compare.
void addTextIndexes(std::vector<std::string>& statements, const Table& table, const Column& column) {
    statements.push_back(
        fmt::format("CREATE INDEX idx_{1} ON {0} ({1} COLLATE NOCASE)", table.name, column.name));
    statements.push_back(fmt::format("CREATE INDEX idx_{1}_other ON {0} ({1}) WHERE {2}", table.name,
                                     column.name, isBeyondNocase(column)));
}

template <typename Named>
const Named* findByName(const std::vector<Named>& among, std::string_view name) {
    const auto found =
        std::ranges::find_if(among, [&](const Named& one) { return compareText(one.name, name) == 0; });
    return found == among.end() ? nullptr : &*found;
}

}  // namespace

const Column* Table::find(std::string_view column) const {
    return findByName(columns, column);
}

const std::vector<Table>& tables() {
    using enum FieldType;
    static const std::vector<Table> kTables{
        {"tblEventInfo",
         {{"fldSessionNum", Number32},
          {"fldEventName", Text},
          {"fldDateBowled", Date},
          {"fldCenterName", Text, true},
          {"fldCenterLoc", Text},
          {"fldEventType", Text},
          {"fldNumGames", Number16},
          {"fldGmsRecorded", Number16},
          {"fldSeriesTot", Number16},
          {"fldSeriesAvg", Double},
          {"fldComment", Text},
          {"fldHHRecordID", Text, true}}},
        {"tblGameInfo",
         {{"fldGameKey", Number32},
          {"fldSessionNum", Number32},
          {"fldGameNum", Number16},
          {"fldStartLane", Number16},
          {"fldLeftLane", Number16},
          {"fldRightLane", Number16},
          {"fldLanePair", Text},
          {"fldGameScore", Number16},
          {"fldLaneCond", Text},
          {"fldComment", Text},
          {"fldScoreType", Text},
          {"fldFrmsRecorded", Number16},
          {"fldHHRecordID", Text},
          {"fldBowlHand", Text}}},
        {"tblFrameInfo",
         {{"fldFrameKey", Number32},
          {"fldSessionNum", Number32},
          {"fldGameNum", Number16},
          {"fldFrameNum", Number16},
          {"fldLaneBowled", Number16},
          {"fldBallUsed", Text},
          {"fldFootPos", Text},
          {"fldLaneTgt", Text},
          {"fldFirstBallRes", Text},
          {"fldSecondBallRes", Text},
          {"fldFillBallRes", Text},
          {"fldComment", Text},
          {"fldLineScore", Text},
          {"fldHHRecordID", Text}}},
    };
    return kTables;
}

const Table* findTable(std::string_view name) {
    return findByName(tables(), name);
}

std::string isBeyondNocase(const Column& column) {
    return fmt::format("({0} GLOB '*[^ -~]*' OR typeof({0}) = 'blob')", column.name);
}

std::vector<std::string> schemaStatements() {
    std::vector<std::string> statements;
    for (const Table& table : tables()) {
        statements.push_back(createStatement(table));
        for (const Column& column : table.columns) {
            if (column.isLookedUp)
                addTextIndexes(statements, table, column);
        }
    }
    statements.insert(statements.end(), std::begin(kIndexes), std::end(kIndexes));
    statements.push_back(fmt::format("PRAGMA user_version = {}", newestSchema(schemaSteps())));
    return statements;
}

}  // namespace tallybrook
