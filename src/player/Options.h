#pragma once

#include "runtime/CommandLine.h"
#include "runtime/DateTime.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tallybrook {

/// What the player is called with.
struct Options {
    enum class Where { Model, Desktop };

    bool help = false;  // whether to tell how to play instead of playing
    Where where = Where::Model;
    std::optional<std::filesystem::path> data;  // a temporary folder where none is told
    DateTime clock =
        makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55} + std::chrono::seconds{32};
    std::optional<std::filesystem::path> shots;   // no pictures where none is told
    std::optional<std::filesystem::path> script;  // standard input where none is told
};

inline constexpr std::string_view kUsage =
    "usage: tallybrook-play [--display model|desktop] [--data DIR] [--clock \"YYYY-MM-DD HH:MM:SS\"] "
    "[--shots DIR] [SCRIPT]\n       tallybrook-play --help     tells the commands of a script";

/// Reads the arguments of the command line, without the program's name. Throws WrongUsage.
Options readOptions(std::span<const std::string> arguments);

}  // namespace tallybrook
