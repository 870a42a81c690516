#pragma once

#include "runtime/DateTime.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallybrook {

/// Reads "YYYY-MM-DD HH:MM:SS"; nothing where the text is no such moment.
std::optional<DateTime> readMoment(std::string_view text);

/// The date as YYYY-MM-DD.
std::string plainDate(DateTime when);

}  // namespace tallybrook
