#pragma once

#include "runtime/Value.h"

#include <cstdint>
#include <string>
#include <variant>

namespace tallybrook::carry {

/// A value that the old logbook has and no program could take; `what` says what there is, as in "a picture or
/// a file".
struct Unreadable {
    std::string what;
    friend bool operator==(const Unreadable&, const Unreadable&) = default;
};

/// What stands in a field of the old logbook. A text is UTF-8, a date has its time of day.
using Cell = std::variant<Null, std::int64_t, double, std::string, DateTime, Unreadable>;

}  // namespace tallybrook::carry
