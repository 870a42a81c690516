#include "runtime/UnfinishedFile.h"

#include "runtime/RegularFile.h"

#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// Not every file system can; the file that got its name is whole either way.
void bringNamesToDisk(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

}  // namespace

UnfinishedFile::UnfinishedFile(fs::path place) : place_(std::move(place)), path_(nameFor(place_)) {
    std::error_code ignored;  // what cannot be removed is in the way
    fs::remove(path_, ignored);
    const RegularFile made(path_, O_WRONLY | O_CREAT | O_EXCL);
}

UnfinishedFile::~UnfinishedFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
}

void UnfinishedFile::putInPlace() const {
    RegularFile(path_, O_RDONLY).bringToDisk();
    fs::rename(path_, place_);
    bringNamesToDisk(fs::absolute(place_).parent_path());
}

}  // namespace tallybrook
