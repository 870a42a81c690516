#pragma once

#include "store/Recordset.h"
#include "store/Store.h"

#include <string>
#include <utility>
#include <vector>

namespace tallybrook::test {

/// Fields of a row by their names, and what they hold.
using FieldValues = std::vector<std::pair<std::string, Value>>;

/// Adds a row to the logbook past the screens.
inline void insertRow(Store& store, const std::string& table, const FieldValues& fields) {
    Recordset rows(store);
    rows.Open("SELECT * FROM " + table);
    rows.AddNew();
    for (const auto& [name, value] : fields)
        rows[name] = value;
    rows.Update();
}

}  // namespace tallybrook::test
