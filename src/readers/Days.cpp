#include "readers/Days.h"

#include <array>

namespace tallybrook {

QString dayText(Day day) {
    const std::chrono::year_month_day date(day);
    return QString("%1/%2/%3")
        .arg(static_cast<unsigned>(date.month()))
        .arg(static_cast<unsigned>(date.day()))
        .arg(static_cast<int>(date.year()));
}

QString monthText(std::chrono::year_month month) {
    constexpr std::array kNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return QString("%1 %2")
        .arg(kNames.at(static_cast<unsigned>(month.month()) - 1))
        .arg(static_cast<int>(month.year()));
}

}  // namespace tallybrook
