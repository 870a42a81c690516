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

/// Whether both are one file; the journal need not be there to be told by its path.
bool isSameFile(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored) ||
           fs::weakly_canonical(one, ignored) == fs::weakly_canonical(other, ignored);
}

}  // namespace

bool isKeptFile(const fs::path& dataFolder, const fs::path& path) {
    return std::ranges::any_of(keptFiles(dataFolder),
                               [&](const fs::path& kept) { return isSameFile(path, kept); });
}

}  // namespace tallybrook
