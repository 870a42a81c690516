#include "carry/MatchedColumns.h"

#include "runtime/TextCompare.h"

#include <algorithm>

namespace tallybrook::carry {

std::vector<MatchedColumn> matchedColumns(const Table& table, const std::vector<std::string>& names) {
    std::vector<MatchedColumn> matched;
    for (const Column& column : table.columns) {
        const auto found = std::ranges::find_if(
            names, [&](const std::string& name) { return compareText(name, column.name) == 0; });
        if (found != names.end())
            matched.push_back({&column, static_cast<std::size_t>(found - names.begin())});
    }
    return matched;
}

}  // namespace tallybrook::carry
