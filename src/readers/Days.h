#pragma once

#include <QString>
#include <chrono>

namespace tallybrook {

using Day = std::chrono::local_days;

/// The day in figures as reports write it, as in "11/14/2026".
QString dayText(Day day);
/// As in "Nov 2026".
QString monthText(std::chrono::year_month month);

}  // namespace tallybrook
