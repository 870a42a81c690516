#pragma once

#include <filesystem>

namespace tallybrook {

/// A lock on a file that only one running program can hold, and that dies with it.
class InstanceLock {
public:
    /// Tries for the lock. Error 76 where the folder is missing, 75 where the file cannot be made.
    explicit InstanceLock(const std::filesystem::path& file);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    /// Whether the lock is ours.
    [[nodiscard]] bool held() const { return held_; }

private:
    int descriptor_ = -1;
    bool held_ = false;
};

}  // namespace tallybrook
