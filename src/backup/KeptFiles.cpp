#include "backup/KeptFiles.h"

#include "backup/BackupFolder.h"
#include "runtime/DataHome.h"
#include "runtime/Folder.h"
#include "runtime/UnfinishedFile.h"
#include "store/Store.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <vector>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// Where a path leads, also by links to something that is not there.
fs::path placeOf(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code ignored;
    for (int links = 0; links < kMostLinks && fs::is_symlink(path, ignored); ++links)
        path = path.parent_path() / fs::read_symlink(path, ignored);
    return fs::weakly_canonical(path, ignored);
}

/// Each of them in its folder's own place, so that a look at many of them need not follow that every time.
std::vector<fs::path> keptFiles(const fs::path& dataFolder) {
    const fs::path folder = placeOf(dataFolder);
    const fs::path logbook = logbookIn(folder);
    std::vector<fs::path> files = Store::filesOf(logbook);
    files.push_back(configurationIn(folder));
    files.push_back(UnfinishedFile::nameFor(configurationIn(folder)));
    files.push_back(lockIn(folder));
    const fs::path backups = placeOf(BackupFolder(logbook).path());
    for (const std::string& name : namesIn(backups))
        files.push_back(backups / name);
    return files;
}

/// Whether a path, which leads to that place, is that of a file. The journal need not be there to be told by
/// its path.
bool leadsTo(const fs::path& kept, const fs::path& path, const fs::path& place) {
    std::error_code ignored;
    return place == kept || fs::equivalent(path, kept, ignored) ||
           (fs::is_symlink(kept, ignored) && place == placeOf(kept));
}

}  // namespace

bool isKeptFile(const fs::path& dataFolder, const fs::path& path) {
    const fs::path place = placeOf(path);
    return std::ranges::any_of(keptFiles(dataFolder),
                               [&](const fs::path& kept) { return leadsTo(kept, path, place); });
}

}  // namespace tallybrook
