#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tallybrook {

/// The logbook's file cannot be used: it is no logbook, is too new, or cannot be opened. what() is a text
/// for people that names the file and says what to do. The file is left as it was.
class LogbookRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Refuses a logbook's file; `why` says what is wrong and what a person can do.
[[noreturn]] void refuseLogbook(const std::filesystem::path& file, const std::string& why);

/// What a person can do where the file is no longer any good.
inline constexpr std::string_view kPutCopy =
    "Please go back to a backup with the Tallybrook Keeper, or put a copy of your logbook in its place; the "
    "folder Backups beside it may hold some.";

}  // namespace tallybrook
