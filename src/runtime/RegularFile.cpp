#include "runtime/RegularFile.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tallybrook {

namespace {

[[noreturn]] void failed(int why) {
    throw std::system_error(why, std::generic_category());
}

bool isRegular(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/// Repeats a call that a signal has interrupted.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

template <typename Call>
std::size_t countOf(Call call) {
    const ssize_t count = uninterrupted(call);
    if (count < 0)
        failed(errno);
    return static_cast<std::size_t>(count);
}

}  // namespace

RegularFile::RegularFile(const std::filesystem::path& file, int flags) {
    const int links = (flags & O_ACCMODE) == O_RDONLY ? 0 : O_NOFOLLOW;
    descriptor_ = uninterrupted([&] {
        return open(file.c_str(), flags | links | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    });
    if (descriptor_ < 0)
        failed(errno);
    if (!isRegular(descriptor_)) {
        close(descriptor_);
        failed(EINVAL);
    }
}

RegularFile::~RegularFile() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

int RegularFile::release() {
    return std::exchange(descriptor_, -1);
}

std::size_t RegularFile::read(char* bytes, std::size_t most) const {
    return countOf([&] { return ::read(descriptor_, bytes, most); });
}

void RegularFile::write(std::string_view bytes) const {
    while (!bytes.empty())
        bytes.remove_prefix(countOf([&] { return ::write(descriptor_, bytes.data(), bytes.size()); }));
}

void RegularFile::bringToDisk() const {
    if (fsync(descriptor_) != 0)
        failed(errno);
}

}  // namespace tallybrook
