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
    held_ = flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
}

InstanceLock::~InstanceLock() {
    close(descriptor_);
}

}  // namespace tallybrook
