#include "runtime/InstanceLock.h"

#include "runtime/RunTimeError.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tallybrook {

InstanceLock::InstanceLock(const std::filesystem::path& file)
    : descriptor_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    if (descriptor_ < 0)
        throw RunTimeError(errno == ENOENT ? error::kPathNotFound : error::kPathFileAccess);
    int refused = 0;
    do {
        held_ = flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
        refused = held_ ? 0 : errno;
    } while (refused == EINTR);
    if (refused != 0 && refused != EWOULDBLOCK) {
        close(descriptor_);
        throw RunTimeError(error::kPathFileAccess);
    }
}

InstanceLock::~InstanceLock() {
    close(descriptor_);
}

}  // namespace tallybrook
