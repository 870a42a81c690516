#include "backup/KeptFiles.h"

#include "backup/BackupFolder.h"
#include "runtime/DataHome.h"
#include "runtime/Folder.h"
#include "store/Store.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <vector>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> keptFiles(const fs::path& dataFolder) {
    const fs::path logbook = logbookIn(dataFolder);
    std::vector<fs::path> files = Store::filesOf(logbook);
    files.push_back(configurationIn(dataFolder));
    files.push_back(lockIn(dataFolder));
    const fs::path backups = BackupFolder(logbook).path();
    for (const std::string& name : namesIn(backups))
        files.push_back(backups / name);
    return files;
}

/// Where a path leads, also by links to something that is not there.
fs::path placeOf(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code ignored;
    for (int links = 0; links < kMostLinks && fs::is_symlink(path, ignored); ++links)
        path = path.parent_path() / fs::read_symlink(path, ignored);
    return fs::weakly_canonical(path, ignored);
}

/// Whether both are one file; the journal need not be there to be told by its path.
bool isSameFile(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored) || placeOf(one) == placeOf(other);
}

}  // namespace

bool isKeptFile(const fs::path& dataFolder, const fs::path& path) {
    return std::ranges::any_of(keptFiles(dataFolder),
                               [&](const fs::path& kept) { return isSameFile(path, kept); });
}

}  // namespace tallybrook
