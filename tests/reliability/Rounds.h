#pragma once

#include <cstdlib>
#include <filesystem>

namespace tallybrook::test {

/// How often a random test is run: as often as the environment's TALLYBROOK_ROUNDS says, else the ordinary
/// number of times.
inline int roundsOr(int ordinary) {
    const char* const rounds = std::getenv("TALLYBROOK_ROUNDS");
    return rounds == nullptr ? ordinary : std::atoi(rounds);
}

/// What it draws from: the environment's TALLYBROOK_SEED, else always the same.
inline unsigned seedOr(unsigned ordinary) {
    const char* const seed = std::getenv("TALLYBROOK_SEED");
    return seed == nullptr ? ordinary : static_cast<unsigned>(std::strtoul(seed, nullptr, 10));
}

/// Copies a data folder with the times of its files, by which a logbook is known as one that there is a
/// backup of.
inline void copyDataFolder(const std::filesystem::path& from, const std::filesystem::path& to) {
    namespace fs = std::filesystem;
    fs::copy(from, to, fs::copy_options::recursive);
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        if (entry.is_regular_file())
            fs::last_write_time(to / entry.path().lexically_relative(from), entry.last_write_time());
    }
}

}  // namespace tallybrook::test
