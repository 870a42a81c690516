#pragma once

#include "store/sql/Schema.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook::sheets {

/// A column of a sheet.
struct SheetColumn {
    const char* field;  // of the tables of the sheet
    const char* heading;
    double width;  // in letters
};

/// What a sheet of the workbook shows.
struct SheetPlan {
    const char* name;
    std::string_view from;   // where its rows come from, in SQL
    std::string_view order;  // and in which order
    std::vector<SheetColumn> columns;

    /// The statement that finds its rows.
    [[nodiscard]] std::string query() const;
    /// What a column holds.
    [[nodiscard]] static FieldType typeOf(const SheetColumn& column);
};

/// The sheets, in their order.
std::span<const SheetPlan> sheetPlans();

}  // namespace tallybrook::sheets
