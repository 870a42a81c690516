#pragma once

#include "carry/Cell.h"
#include "store/sql/Schema.h"

#include <string>

namespace tallybrook::carry {

/// A value of the old logbook as the new one takes it.
struct Converted {
    Value value;
    std::string told = {};  // what was lost on the way; empty where nothing was
};

/// Converts a value to a column's own type. What cannot be converted becomes a Null. `currentYear` is taken
/// for a date without a year.
Converted converted(const Cell& cell, FieldType type, int currentYear);

}  // namespace tallybrook::carry
