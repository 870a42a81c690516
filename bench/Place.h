#pragma once

#include <filesystem>
#include <vector>

namespace tallybrook::bench {

/// A logbook of one size that may be changed, and what was made with it.
struct Place {
    int events = 0;
    std::filesystem::path folder;  // the program's data folder, with the handheld's files of the same events
    std::vector<int> nights;       // keys of events all over it that have three whole games with every pin

    [[nodiscard]] std::filesystem::path logbook() const { return folder / "Tallybrook_DB.mdb"; }
    /// Another folder beside it.
    [[nodiscard]] std::filesystem::path beside(const char* name) const { return folder.parent_path() / name; }
};

/// Looks at a copy of a sample of so many events, on which the program is started once.
Place placeAt(const std::filesystem::path& folder, int events);

/// Copies a sample, a folder named after its number of events, to where it may be changed. The copy is left
/// there.
Place copySample(const std::filesystem::path& samples, int events, const std::filesystem::path& target);

}  // namespace tallybrook::bench
