#pragma once

#include <filesystem>

namespace tallybrook::test {

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
