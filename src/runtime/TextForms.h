#pragma once

#include "runtime/DateTime.h"
#include "runtime/Integer.h"

#include <string>
#include <string_view>

// The text forms of dates and numbers, English (US) whatever the machine's locale.
namespace tallybrook {

/// M/d/yyyy, as in 11/4/2026; a time of day is left out.
std::string shortDate(DateTime when);

/// h:mm:ss AM/PM, as in 9:55:00 PM; the date is left out.
std::string timeText(DateTime when);

/// The time to the minute, as in 9:55 PM.
std::string timeOfDay(DateTime when);

/// Date and time with one blank between them; the date alone at midnight; the time alone on the zero date,
/// so that the zero date itself is "12:00:00 AM".
std::string dateText(DateTime when);

/// The same moment without its seconds.
DateTime withoutSeconds(DateTime when);

/// Reads a text as a date with an optional time. Takes month/day/year with "/", "-" or "." between them
/// (day and month swapped where the first cannot be a month; years of two digits are 1930 to 2029; without
/// a year, `currentYear`), year-month-day, and month names or their first three letters in any usual order.
/// Error 13 for everything else.
DateTime readDate(std::string_view text, int currentYear);

/// The number a text begins with: blanks anywhere are skipped; sign, digits, one point, digits, exponent;
/// the rest is passed over. 0 where there are no digits.
double leadingNumber(std::string_view text);

/// The nearest whole number, halves to even; error 6 outside the type's range.
Int16 toInt16(double number);
Int32 toInt32(double number);

/// The number with grouped thousands, a leading 0 and `decimals` places, its decimal text of 15 significant
/// digits rounded half away from zero.
std::string formatNumber(double number, int decimals);

/// Reads back what formatNumber() wrote: commas are passed over.
double readFormatted(std::string_view text);

/// The shortest text that reads back as the same double, without a point for a whole number.
std::string doubleText(double number);

/// The same without an exponent, however large or small the number.
std::string plainDecimal(double number);

}  // namespace tallybrook
