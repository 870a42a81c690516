#pragma once

#include "Stopwatch.h"

#include <sqlite3.h>

namespace tallybrook::bench {

/// Counts the transactions that a connection brings to the disk, and takes the time of the first one behind
/// the row added last.
class CommitWatch {
public:
    explicit CommitWatch(sqlite3* handle) : handle_(handle) {
        sqlite3_commit_hook(handle_, committed, this);
        sqlite3_update_hook(handle_, changed, this);
    }
    ~CommitWatch() {
        sqlite3_commit_hook(handle_, nullptr, nullptr);
        sqlite3_update_hook(handle_, nullptr, nullptr);
    }
    CommitWatch(const CommitWatch&) = delete;
    CommitWatch& operator=(const CommitWatch&) = delete;

    [[nodiscard]] int commits() const { return commits_; }
    /// Seconds since the beginning of the watch.
    [[nodiscard]] double seconds() const { return time_.seconds(); }
    /// Seconds from the beginning of the watch until all rows that were added were being brought to the disk.
    [[nodiscard]] double secondsUntilStored() const { return stored_; }

private:
    static int committed(void* self) {
        auto& watch = *static_cast<CommitWatch*>(self);
        ++watch.commits_;
        if (watch.hasNewRow_)
            watch.stored_ = watch.time_.seconds();
        watch.hasNewRow_ = false;
        return 0;
    }
    static void changed(void* self, int what, const char*, const char*, sqlite3_int64) {
        if (what == SQLITE_INSERT)
            static_cast<CommitWatch*>(self)->hasNewRow_ = true;
    }

    sqlite3* handle_;
    Stopwatch time_;
    int commits_ = 0;
    bool hasNewRow_ = false;
    double stored_ = 0;
};

}  // namespace tallybrook::bench
