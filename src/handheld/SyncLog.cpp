#include "handheld/SyncLog.h"

#include "runtime/TextForms.h"

#include <fmt/format.h>

namespace tallybrook {

void SyncLog::Get_Stamp(const Clock& clock) {
    const DateTime now = withoutSeconds(clock.now());
    stamp_ = shortDate(now) + " " + timeText(now);
}

void Write_Log(std::string_view text, LogFile& log) {
    log->writeLine(text);
    log->flush();
}

std::string syncStamp(DateTime start) {
    const auto day = std::chrono::floor<std::chrono::days>(start);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss time{start - day};
    return fmt::format("{:02}-{:02}-{:04}-{:02}{:02}", unsigned{date.month()}, unsigned{date.day()},
                       int{date.year()}, time.hours().count(), time.minutes().count());
}

}  // namespace tallybrook
