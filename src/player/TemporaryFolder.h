#pragma once

#include <filesystem>

namespace tallybrook {

/// A new empty folder, removed with all that is in it.
class TemporaryFolder {
public:
    /// Throws std::system_error where none can be made.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace tallybrook
