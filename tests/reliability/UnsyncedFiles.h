#pragma once

#include "reliability/WatchedVfs.h"

#include <filesystem>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace tallybrook::test {

/// Keeps, for each file of a logbook, what has reached the disk and what has not: what a power cut leaves of
/// the latter is anybody's guess. To be told of every call while the engine has the files.
class UnsyncedFiles {
public:
    /// The logbook lies on the disk as it is, and nobody has it open.
    explicit UnsyncedFiles(const std::filesystem::path& logbook);

    void note(const DiskAccess& access);

    /// Puts what a power cut at this moment leaves into a folder, under the names of the files. Of what was
    /// not synchronised any sectors may be there, and any not; a file that was deleted may be back.
    void cut(const std::filesystem::path& folder, std::mt19937& random) const;

private:
    /// A write, or where there are no bytes a truncation to the size.
    struct Change {
        std::size_t at = 0;
        std::optional<std::string> bytes = std::nullopt;
    };
    struct File {
        std::optional<std::string> onDisk = std::nullopt;  // nothing where there is no such file
        bool isThere = true;
        std::vector<Change> changes = {};  // since then
    };

    static void make(const Change& change, std::string& contents);
    static void makePart(const Change& change, std::string& contents, std::mt19937& random);
    static std::optional<std::string> leftOf(const File& file, std::mt19937& random);
    [[nodiscard]] File* find(std::string_view path);

    std::map<std::string, File, std::less<>> files_;  // by path
};

}  // namespace tallybrook::test
