#include "runtime/InstanceLock.h"

#include "runtime/RunTimeError.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>

namespace tallybrook {

namespace {

RegularFile opened(const std::filesystem::path& file) {
    try {
        return {file, O_RDWR | O_CREAT};
    } catch (const std::system_error& failure) {
        const bool isMissing = failure.code() == std::errc::no_such_file_or_directory;
        throw RunTimeError(isMissing ? error::kPathNotFound : error::kPathFileAccess);
    }
}

}  // namespace

InstanceLock::InstanceLock(const std::filesystem::path& file) : file_(opened(file)) {
    int refused = 0;
    do {
        held_ = flock(file_.descriptor(), LOCK_EX | LOCK_NB) == 0;
        refused = held_ ? 0 : errno;
    } while (refused == EINTR);
    if (refused != 0 && refused != EWOULDBLOCK)
        throw RunTimeError(error::kPathFileAccess);
}

}  // namespace tallybrook
