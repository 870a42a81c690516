#include "reliability/WatchedVfs.h"

#include <mutex>
#include <new>
#include <stdexcept>
#include <string>

namespace tallybrook::test {

namespace {

/// Whoever looks over the engine's shoulder, and only as long as it is there: calls come from several
/// threads, and a watcher can make calls of its own.
class Watching {
public:
    void set(DiskWatcher* watcher) {
        const std::scoped_lock lock(mutex_);
        watcher_ = watcher;
    }
    DiskVerdict before(const DiskAccess& access) {
        const std::scoped_lock lock(mutex_);
        return watcher_ == nullptr ? DiskVerdict{} : watcher_->before(access);
    }
    void after(const DiskAccess& access) {
        const std::scoped_lock lock(mutex_);
        if (watcher_ != nullptr)
            watcher_->after(access);
    }

private:
    std::recursive_mutex mutex_;
    DiskWatcher* watcher_ = nullptr;
};

/// What the engine reserves room for: ours, and behind it the file of the VFS below.
struct WatchedFile {
    sqlite3_file base;
    std::string* path;
    Watching* watching;

    static WatchedFile& of(sqlite3_file* file) { return *reinterpret_cast<WatchedFile*>(file); }
    static sqlite3_file* below(sqlite3_file* file) {
        return reinterpret_cast<sqlite3_file*>(reinterpret_cast<std::byte*>(file) + kRoom);
    }
    static const std::size_t kRoom;
};
constexpr std::size_t kAlignment = alignof(std::max_align_t);
const std::size_t WatchedFile::kRoom = (sizeof(WatchedFile) + kAlignment - 1) / kAlignment * kAlignment;

/// Carries a call out past the watcher; `carryPart` what reaches the file of one that fails.
template <typename CarryOut, typename CarryPart>
int past(Watching& watching, const DiskAccess& access, CarryOut carryOut, CarryPart carryPart) {
    if (const DiskVerdict verdict = watching.before(access); verdict.result != SQLITE_OK) {
        carryPart(verdict.reaching);
        return verdict.result;
    }
    const int result = carryOut();
    if (result == SQLITE_OK)
        watching.after(access);
    return result;
}

template <typename CarryOut>
int past(Watching& watching, const DiskAccess& access, CarryOut carryOut) {
    return past(watching, access, carryOut, [](std::size_t) {});
}

template <typename CarryOut>
int past(sqlite3_file* file, DiskAccess access, CarryOut carryOut) {
    const WatchedFile& watched = WatchedFile::of(file);
    access.file = *watched.path;
    sqlite3_file* const below = WatchedFile::below(file);
    return past(*watched.watching, access, [&] { return carryOut(*below->pMethods, below); });
}

int closeFile(sqlite3_file* file) {
    sqlite3_file* const below = WatchedFile::below(file);
    const int result = below->pMethods->xClose(below);
    delete WatchedFile::of(file).path;
    return result;
}

int read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
    return past(file, {.call = DiskCall::Read, .file = {}, .offset = offset},
                [&](auto& methods, auto* below) { return methods.xRead(below, bytes, size, offset); });
}

int write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    const WatchedFile& watched = WatchedFile::of(file);
    sqlite3_file* const below = WatchedFile::below(file);
    const DiskAccess access{.call = DiskCall::Write,
                            .file = *watched.path,
                            .offset = offset,
                            .bytes = {static_cast<const char*>(bytes), static_cast<std::size_t>(size)}};
    const auto writeSome = [&](std::size_t some) {
        return below->pMethods->xWrite(below, bytes, static_cast<int>(some), offset);
    };
    return past(
        *watched.watching, access, [&] { return writeSome(access.bytes.size()); },
        [&](std::size_t some) {
            if (some > 0)
                writeSome(some);
        });
}

int truncate(sqlite3_file* file, sqlite3_int64 size) {
    return past(file, {.call = DiskCall::Truncate, .file = {}, .offset = size},
                [&](auto& methods, auto* below) { return methods.xTruncate(below, size); });
}

/// The disk itself is spared: what would be lost with it is for a watcher to say.
int sync(sqlite3_file* file, int) {
    return past(file, {.call = DiskCall::Sync, .file = {}}, [](auto&, auto*) { return SQLITE_OK; });
}

int fileSize(sqlite3_file* file, sqlite3_int64* size) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xFileSize(below, size);
}
int lock(sqlite3_file* file, int level) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xLock(below, level);
}
int unlock(sqlite3_file* file, int level) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xUnlock(below, level);
}
int checkReservedLock(sqlite3_file* file, int* result) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xCheckReservedLock(below, result);
}
int fileControl(sqlite3_file* file, int operation, void* argument) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xFileControl(below, operation, argument);
}
int sectorSize(sqlite3_file* file) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xSectorSize(below);
}
int deviceCharacteristics(sqlite3_file* file) {
    sqlite3_file* const below = WatchedFile::below(file);
    return below->pMethods->xDeviceCharacteristics(below);
}

/// The methods of the first version: all that a rollback journal needs.
sqlite3_io_methods fileMethods() {
    sqlite3_io_methods methods{};
    methods.iVersion = 1;
    methods.xClose = closeFile;
    methods.xRead = read;
    methods.xWrite = write;
    methods.xTruncate = truncate;
    methods.xSync = sync;
    methods.xFileSize = fileSize;
    methods.xLock = lock;
    methods.xUnlock = unlock;
    methods.xCheckReservedLock = checkReservedLock;
    methods.xFileControl = fileControl;
    methods.xSectorSize = sectorSize;
    methods.xDeviceCharacteristics = deviceCharacteristics;
    return methods;
}

const sqlite3_io_methods kFileMethods = fileMethods();

}  // namespace

struct WatchedVfs::Hooks {
    sqlite3_vfs* below = sqlite3_vfs_find(nullptr);
    sqlite3_vfs vfs = *below;  // what is not replaced works on the VFS below: it looks at nothing of its own
    Watching watching;

    Hooks() {
        vfs.pNext = nullptr;
        vfs.zName = "watched";
        vfs.pAppData = this;
        vfs.szOsFile = static_cast<int>(WatchedFile::kRoom) + below->szOsFile;
        vfs.xOpen = open;
        vfs.xDelete = remove;
        vfs.xAccess = access;
        vfs.xFullPathname = fullPathname;
    }

    static Hooks& of(sqlite3_vfs* vfs) { return *static_cast<Hooks*>(vfs->pAppData); }

    static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
        Hooks& hooks = of(vfs);
        file->pMethods = nullptr;  // stays so where the opening fails, so that nothing is closed
        auto path = std::make_unique<std::string>(name == nullptr ? "" : name);
        const DiskAccess access{
            .call = DiskCall::Open, .file = *path, .makes = (flags & SQLITE_OPEN_CREATE) != 0};
        const int result = past(hooks.watching, access, [&] {
            return hooks.below->xOpen(hooks.below, name, WatchedFile::below(file), flags, outFlags);
        });
        if (result != SQLITE_OK)
            return result;
        WatchedFile& watched = WatchedFile::of(file);
        watched.base.pMethods = &kFileMethods;
        watched.path = path.release();
        watched.watching = &hooks.watching;
        return SQLITE_OK;
    }

    static int remove(sqlite3_vfs* vfs, const char* name, int syncsFolder) {
        Hooks& hooks = of(vfs);
        return past(hooks.watching, {.call = DiskCall::Delete, .file = name, .syncs = syncsFolder != 0},
                    [&] { return hooks.below->xDelete(hooks.below, name, 0); });
    }

    static int access(sqlite3_vfs* vfs, const char* name, int flags, int* result) {
        sqlite3_vfs* const real = of(vfs).below;
        return real->xAccess(real, name, flags, result);
    }

    static int fullPathname(sqlite3_vfs* vfs, const char* name, int size, char* full) {
        sqlite3_vfs* const real = of(vfs).below;
        return real->xFullPathname(real, name, size, full);
    }
};

WatchedVfs::WatchedVfs() : hooks_(std::make_unique<Hooks>()) {
    if (sqlite3_vfs_register(&hooks_->vfs, 1) != SQLITE_OK)
        throw std::runtime_error("the VFS cannot be registered");
}

WatchedVfs::~WatchedVfs() {
    sqlite3_vfs_unregister(&hooks_->vfs);
    sqlite3_vfs_register(hooks_->below, 1);
}

void WatchedVfs::watch(DiskWatcher* watcher) {
    hooks_->watching.set(watcher);
}

}  // namespace tallybrook::test
