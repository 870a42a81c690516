#pragma once

#include "store/sql/Schema.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook::carry {

/// A column of a logbook that the old file has too.
struct MatchedColumn {
    const Column* column;
    std::size_t place;  // among those of the file
};

/// The columns of a table that are among those of the file, by their names without case, in the table's
/// order.
std::vector<MatchedColumn> matchedColumns(const Table& table, const std::vector<std::string>& names);

}  // namespace tallybrook::carry
