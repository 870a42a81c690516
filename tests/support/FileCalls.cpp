#include "support/FileCalls.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tallybrook::test {

namespace {

using Kind = FileCall::Kind;

std::recursive_mutex mutex;  // calls come from several threads
std::function<int(const FileCall&)> watch;
bool isWatching = false;
thread_local bool isWithin = false;  // what the watcher itself does is not shown to it

template <typename Function>
Function* original(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::string pathOf(int file) {
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t size = readlink(link.c_str(), path.data(), path.size());
    return {path.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
}

/// The error that the call is to fail with, or 0.
template <typename Path>
int errorOf(Kind kind, Path path) {
    if (!isWatching || isWithin)
        return 0;
    const std::scoped_lock lock(mutex);
    isWithin = true;
    const int saved = errno;
    const int error = watch ? watch({kind, path()}) : 0;
    errno = saved;
    isWithin = false;
    return error;
}

/// Carries a call out, or lets it fail.
template <typename Path, typename CarryOut>
auto unlessFailing(Kind kind, Path path, CarryOut carryOut) -> decltype(carryOut()) {
    if (const int error = errorOf(kind, path); error != 0) {
        errno = error;
        return -1;
    }
    return carryOut();
}
template <typename CarryOut>
auto onPath(Kind kind, const char* path, CarryOut carryOut) {
    return unlessFailing(
        kind, [&] { return std::string(path); }, carryOut);
}
template <typename CarryOut>
auto onFile(Kind kind, int file, CarryOut carryOut) {
    return unlessFailing(
        kind, [&] { return pathOf(file); }, carryOut);
}

template <typename WriteSome>
ssize_t writeTo(int file, std::size_t size, WriteSome writeSome) {
    const int error = errorOf(Kind::Write, [&] { return pathOf(file); });
    if (error == 0)
        return writeSome(size);
    if (error == ENOSPC)
        writeSome(size / 2);
    errno = error;
    return -1;
}

Kind openingKind(int flags) {
    return (flags & (O_CREAT | O_TRUNC)) != 0 ? Kind::Make : Kind::Open;
}

/// Streams write by calls inside the C library, which nobody outside can see; these are let out.
ssize_t writeCookie(void* cookie, const char* bytes, std::size_t size) {
    const int file = *static_cast<int*>(cookie);
    std::size_t written = 0;
    while (written < size) {
        const ssize_t result = write(file, bytes + written, size - written);
        if (result < 0)
            break;
        written += static_cast<std::size_t>(result);
    }
    return static_cast<ssize_t>(written);
}

int closeCookie(void* cookie) {
    const int file = *static_cast<int*>(cookie);
    delete static_cast<int*>(cookie);
    return close(file);
}

}  // namespace

bool changesFiles(const FileCall& call) {
    return call.kind == Kind::Make || call.kind == Kind::Write || call.kind == Kind::Rename ||
           call.kind == Kind::Remove || call.kind == Kind::Change;
}

FileCalls::FileCalls(std::function<int(const FileCall&)> before) {
    const std::scoped_lock lock(mutex);
    watchedBefore_ = std::exchange(watch, std::move(before));
    wasWatching_ = std::exchange(isWatching, true);
}

FileCalls::~FileCalls() {
    const std::scoped_lock lock(mutex);
    watch = std::move(watchedBefore_);
    isWatching = wasWatching_;
}

}  // namespace tallybrook::test

using namespace tallybrook::test;

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return onPath(openingKind(flags), path,
                  [&] { return original<int(const char*, int, ...)>("open")(path, flags, mode); });
}
int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return onPath(openingKind(flags), path,
                  [&] { return original<int(const char*, int, ...)>("open64")(path, flags, mode); });
}
int close(int file) {
    // What cannot be closed is closed all the same.
    const int error = errorOf(Kind::Close, [&] { return pathOf(file); });
    const int result = original<int(int)>("close")(file);
    if (error != 0)
        errno = error;
    return error != 0 ? -1 : result;
}
FILE* fdopen(int file, const char* mode) noexcept {
    if (!isWatching)
        return original<FILE*(int, const char*)>("fdopen")(file, mode);
    return fopencookie(new (std::nothrow) int(file), mode,
                       {.read = nullptr, .write = writeCookie, .seek = nullptr, .close = closeCookie});
}
FILE* fopen64(const char* path, const char* mode) {
    if (const int error = errorOf(*mode == 'r' ? Kind::Open : Kind::Make, [&] { return std::string(path); });
        error != 0) {
        errno = error;
        return nullptr;
    }
    return original<FILE*(const char*, const char*)>("fopen64")(path, mode);
}
ssize_t read(int file, void* bytes, size_t size) {
    return onFile(Kind::Read, file,
                  [&] { return original<ssize_t(int, void*, size_t)>("read")(file, bytes, size); });
}
ssize_t write(int file, const void* bytes, size_t size) {
    return writeTo(file, size, [&](std::size_t some) {
        return original<ssize_t(int, const void*, size_t)>("write")(file, bytes, some);
    });
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
    return writeTo(file, size, [&](std::size_t some) {
        return original<ssize_t(int, const void*, size_t, off64_t)>("pwrite64")(file, bytes, some, offset);
    });
}
ssize_t sendfile(int to, int from, off_t* offset, size_t size) noexcept {
    return writeTo(to, size, [&](std::size_t some) {
        return original<ssize_t(int, int, off_t*, size_t)>("sendfile")(to, from, offset, some);
    });
}
ssize_t copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t size,
                        unsigned flags) {
    return writeTo(to, size, [&](std::size_t some) {
        return original<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned)>("copy_file_range")(
            from, fromOffset, to, toOffset, some, flags);
    });
}
int ftruncate64(int file, off64_t size) noexcept {
    return onFile(Kind::Change, file, [&] { return original<int(int, off64_t)>("ftruncate64")(file, size); });
}
int fchmod(int file, mode_t mode) noexcept {
    return onFile(Kind::Change, file, [&] { return original<int(int, mode_t)>("fchmod")(file, mode); });
}
int rename(const char* from, const char* to) noexcept {
    return onPath(Kind::Rename, from,
                  [&] { return original<int(const char*, const char*)>("rename")(from, to); });
}
int remove(const char* path) noexcept {
    return onPath(Kind::Remove, path, [&] { return original<int(const char*)>("remove")(path); });
}
int unlink(const char* path) noexcept {
    return onPath(Kind::Remove, path, [&] { return original<int(const char*)>("unlink")(path); });
}
int mkdir(const char* path, mode_t mode) noexcept {
    return onPath(Kind::Make, path, [&] { return original<int(const char*, mode_t)>("mkdir")(path, mode); });
}
int fsync(int file) {
    return onFile(Kind::Sync, file, [&] { return isWatching ? 0 : original<int(int)>("fsync")(file); });
}
int fdatasync(int file) {
    return onFile(Kind::Sync, file, [&] { return isWatching ? 0 : original<int(int)>("fdatasync")(file); });
}
}
