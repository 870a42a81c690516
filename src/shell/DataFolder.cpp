#include "shell/DataFolder.h"

#include "backup/BackupFolder.h"
#include "runtime/Folder.h"
#include "shell/Program.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <vector>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> ownFiles(const Program& program) {
    const fs::path logbook = program.logbookFile();
    std::vector<fs::path> files = Store::filesOf(logbook);
    files.push_back(configurationFile(program));
    files.push_back(lockFile(program));
    const fs::path backups = BackupFolder(logbook).path();
    for (const std::string& name : namesIn(backups))
        files.push_back(backups / name);
    return files;
}

/// Whether both are one file; the journal need not be there to be told by its path.
bool isSameFile(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored) ||
           fs::weakly_canonical(one, ignored) == fs::weakly_canonical(other, ignored);
}

}  // namespace

fs::path lockFile(const Program& program) {
    return program.dataFolder / "Tallybrook.lock";
}

fs::path configurationFile(const Program& program) {
    return program.dataFolder / "tbrkcfg.conf";
}

bool isOwnFile(const Program& program, const fs::path& path) {
    return std::ranges::any_of(ownFiles(program), [&](const fs::path& own) { return isSameFile(path, own); });
}

}  // namespace tallybrook
