#include "backup/BackupFolder.h"

#include "backup/Retention.h"
#include "runtime/Folder.h"
#include "runtime/UnfinishedFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <system_error>

#include <fmt/format.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kForm = "yyyy-mm-dd hh.mm.ss";

/// The number written at some place of a text; -1 where there is none.
int numberAt(std::string_view text, std::size_t place, std::size_t digits) {
    const std::string_view number = text.substr(place, digits);
    int value = -1;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value;
}

/// The moment that such a text tells; nothing where there is no such day.
std::optional<DateTime> momentIn(std::string_view text) {
    const auto unsignedAt = [text](std::size_t place) {
        return static_cast<unsigned>(numberAt(text, place, 2));
    };
    const std::chrono::year_month_day date{std::chrono::year{numberAt(text, 0, 4)},
                                           std::chrono::month{unsignedAt(5)},
                                           std::chrono::day{unsignedAt(8)}};
    if (!date.ok())
        return std::nullopt;
    return DateTime{std::chrono::local_days{date}} + std::chrono::hours{numberAt(text, 11, 2)} +
           std::chrono::minutes{numberAt(text, 14, 2)} + std::chrono::seconds{numberAt(text, 17, 2)};
}

}  // namespace

void BackupFolder::make() const {
    if (fs::is_directory(path_))
        return;
    fs::create_directory(path_);
    fs::permissions(path_, fs::perms::owner_all);
}

std::string BackupFolder::shortName(DateTime time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss clock{time - day};
    return fmt::format("{:04}-{:02}-{:02} {:02}.{:02}.{:02}", int{date.year()}, unsigned{date.month()},
                       unsigned{date.day()}, clock.hours().count(), clock.minutes().count(),
                       clock.seconds().count());
}

std::string BackupFolder::nameFor(DateTime time) const {
    return logbook_.stem().string() + " " + shortName(time) + logbook_.extension().string();
}

std::optional<DateTime> BackupFolder::timeIn(const std::string& name) const {
    const std::size_t begin = logbook_.stem().string().size() + 1;
    if (name.size() < begin + kForm.size())
        return std::nullopt;
    const std::optional<DateTime> time = momentIn(std::string_view(name).substr(begin, kForm.size()));
    return time && nameFor(*time) == name ? time : std::nullopt;
}

fs::path BackupFolder::fileFor(DateTime time) const {
    const auto isTaken = [this](DateTime moment) { return fs::exists(path_ / nameFor(moment)); };
    while (isTaken(time))
        time += std::chrono::seconds{1};
    return path_ / nameFor(time);
}

std::vector<DateTime> BackupFolder::times() const {
    std::vector<DateTime> times;
    for (const std::string& name : namesIn(path_)) {
        if (const auto time = timeIn(name))
            times.push_back(*time);
    }
    std::ranges::sort(times);
    return times;
}

bool BackupFolder::holdsCopyOf(fs::file_time_type written, std::uintmax_t size) const {
    return std::ranges::any_of(times(), [&](DateTime time) {
        std::error_code failure;
        const fs::path backup = path_ / nameFor(time);
        return fs::last_write_time(backup, failure) == written && fs::file_size(backup, failure) == size;
    });
}

void BackupFolder::removeUnfinished() const {
    for (const std::string& name : namesIn(path_)) {
        std::error_code ignored;
        if (const fs::path backup = fs::path(name).stem();
            UnfinishedFile::nameFor(backup) == name && timeIn(backup))
            fs::remove(path_ / name, ignored);
    }
}

void BackupFolder::thinOut(DateTime now) const {
    for (const DateTime time : backupsToRemove(times(), now)) {
        std::error_code ignored;
        fs::remove(path_ / nameFor(time), ignored);
    }
}

}  // namespace tallybrook
