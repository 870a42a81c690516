#include "backup/KeptFiles.h"

#include "backup/BackupFolder.h"
#include "runtime/DataHome.h"
#include "runtime/Folder.h"
#include "runtime/UnfinishedFile.h"
#include "store/Store.h"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>

#include <sys/stat.h>

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
std::vector<fs::path> namesOfKept(const fs::path& dataFolder) {
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

/// None where the path leads to nothing.
std::optional<std::pair<dev_t, ino_t>> identityOf(const fs::path& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) != 0)
        return std::nullopt;
    return std::pair{found.st_dev, found.st_ino};
}

}  // namespace

// The journal need not be there to be told by its path.
KeptFiles::KeptFiles(const fs::path& dataFolder) : places_(namesOfKept(dataFolder)) {
    const std::size_t names = places_.size();
    for (std::size_t at = 0; at < names; ++at) {
        std::error_code ignored;
        if (fs::is_symlink(places_[at], ignored))
            places_.push_back(placeOf(places_[at]));
        if (const auto identity = identityOf(places_[at]))
            files_.push_back(*identity);
    }
}

bool KeptFiles::has(const fs::path& path) const {
    if (std::ranges::find(places_, placeOf(path)) != places_.end())
        return true;
    const auto identity = identityOf(path);
    return identity && std::ranges::find(files_, *identity) != files_.end();
}

}  // namespace tallybrook
