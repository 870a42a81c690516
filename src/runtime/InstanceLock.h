#pragma once

#include "runtime/RegularFile.h"

#include <filesystem>

namespace tallybrook {

/// A lock on a file that only one running program can hold, and that dies with it.
class InstanceLock {
public:
    /// Tries for the lock. Error 76 where the folder is missing, 75 where the file cannot be made.
    explicit InstanceLock(const std::filesystem::path& file);

    /// Whether the lock is ours.
    [[nodiscard]] bool held() const { return held_; }

private:
    RegularFile file_;
    bool held_ = false;
};

}  // namespace tallybrook
