#include "backup/KeptFiles.h"

#include "backup/BackupFolder.h"
#include "runtime/DataHome.h"
#include "runtime/Folder.h"
#include "runtime/UnfinishedFile.h"
#include "store/Store.h"

#include <algorithm>
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

/// What tells a file that was looked at from all others, whatever it is called.
std::pair<dev_t, ino_t> identityIn(const struct stat& found) {
    return {found.st_dev, found.st_ino};
}

}  // namespace

// The journal need not be there to be told by its path.
KeptFiles::KeptFiles(const fs::path& dataFolder) : places_(namesOfKept(dataFolder)) {
    const std::size_t names = places_.size();
    for (std::size_t at = 0; at < names; ++at) {
        struct stat found {};
        bool isThere = lstat(places_[at].c_str(), &found) == 0;
        if (isThere && S_ISLNK(found.st_mode)) {
            isThere = stat(places_[at].c_str(), &found) == 0;
            places_.push_back(placeOf(places_[at]));
        }
        if (isThere)
            files_.push_back(identityIn(found));
    }
}

bool KeptFiles::has(const fs::path& path) const {
    if (std::ranges::find(places_, placeOf(path)) != places_.end())
        return true;
    struct stat found {};
    return stat(path.c_str(), &found) == 0 && std::ranges::find(files_, identityIn(found)) != files_.end();
}

}  // namespace tallybrook
