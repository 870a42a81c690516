#pragma once

#include <filesystem>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace tallybrook {

/// What is kept in a data folder: the logbook, its journal, its backups, the configuration and the lock.
/// Opens none of them, since to close the logbook again would give up its lock.
class KeptFiles {
public:
    explicit KeptFiles(const std::filesystem::path& dataFolder);

    /// Whether a path leads to one of them, however it is spelt and whatever links it goes over.
    [[nodiscard]] bool has(const std::filesystem::path& path) const;

private:
    using Identity = std::pair<dev_t, ino_t>;  // of a file, whatever it is called

    std::vector<std::filesystem::path> places_;
    std::vector<Identity> files_;
};

}  // namespace tallybrook
