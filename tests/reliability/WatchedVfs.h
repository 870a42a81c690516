#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include <sqlite3.h>

namespace tallybrook::test {

enum class DiskCall { Open, Read, Write, Sync, Truncate, Delete };

/// A call of the engine to one of its files.
struct DiskAccess {
    DiskCall call;
    std::string_view file;        // its full path; empty where it has no name
    std::int64_t offset = 0;      // of a write; the new size of a truncation
    std::string_view bytes = {};  // of a write
    bool makes = false;           // of an opening: whether the file is made where there is none
    bool syncs = false;           // of a deletion: whether it is brought to the disk at once
};

/// What becomes of a call: it is carried out, or fails with a result code of the engine. Of a write that
/// fails the first bytes can reach the file all the same.
struct DiskVerdict {
    int result = SQLITE_OK;
    std::size_t reaching = 0;
};

/// Looks over the engine's shoulder. Calls come from several threads, one after another.
class DiskWatcher {
public:
    virtual ~DiskWatcher() = default;
    virtual DiskVerdict before(const DiskAccess&) { return {}; }
    /// Called when the call has been carried out.
    virtual void after(const DiskAccess&) {}
};

/// While it lives every file that the engine opens by default is reached through it, and so past the watcher.
/// Nothing may be open when it goes. There can be one at a time.
class WatchedVfs {
public:
    WatchedVfs();
    ~WatchedVfs();
    WatchedVfs(const WatchedVfs&) = delete;
    WatchedVfs& operator=(const WatchedVfs&) = delete;

    /// The watcher of all calls from now on; none for a null pointer. The one before is called no more then.
    void watch(DiskWatcher* watcher);

private:
    struct Hooks;
    std::unique_ptr<Hooks> hooks_;
};

}  // namespace tallybrook::test
