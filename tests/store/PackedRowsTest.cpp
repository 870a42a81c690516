#include "store/reading/PackedRows.h"

#include <string>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(Packed, RowsGiveBackWhatAStatementShows) {
    const Table& events = *findTable("tblEventInfo");
    const std::vector<const Column*> fields{events.find("fldEventName"), events.find("fldNumGames"),
                                            events.find("fldComment")};
    PackedRows rows(
        std::make_shared<const Projection>(Projection{.fields = {0, 2}, .places = {0, std::nullopt, 1}}));
    const SQLite::Database database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    const std::string longest(70000, 'd');
    Statement statement(database,
                        "SELECT 7, '" + longest + "', '3-6-10' UNION ALL SELECT -7, NULL, '" + longest + "'");
    while (statement.executeStep())
        rows.addRow(statement, 1, fields);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows.key(0), 7);
    EXPECT_EQ(rows.key(1), -7);
    EXPECT_EQ(rows.value(0, 0), Value{longest});
    EXPECT_EQ(rows.value(0, 2), Value{"3-6-10"});
    EXPECT_EQ(rows.value(1, 0), Value{Null{}});
    EXPECT_EQ(rows.value(1, 2), Value{longest});
}

}  // namespace

}  // namespace tallybrook
