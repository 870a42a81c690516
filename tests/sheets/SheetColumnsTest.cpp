#include "sheets/SheetColumns.h"

#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook::sheets {

namespace {

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
