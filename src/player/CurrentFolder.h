#pragma once

#include <filesystem>

namespace tallybrook {

/// Puts the process's current folder back when the play is over: file dialogs change it.
class CurrentFolder {
public:
    CurrentFolder() = default;
    ~CurrentFolder();
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

    /// The folder that was current at the beginning.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_ = std::filesystem::current_path();
};

}  // namespace tallybrook
