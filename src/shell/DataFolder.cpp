#include "shell/DataFolder.h"

#include "backup/KeptFiles.h"
#include "shell/Program.h"

namespace tallybrook {

namespace fs = std::filesystem;

fs::path lockFile(const Program& program) {
    return lockIn(program.dataFolder);
}

fs::path configurationFile(const Program& program) {
    return configurationIn(program.dataFolder);
}

bool isOwnFile(const Program& program, const fs::path& path) {
    return isKeptFile(program.dataFolder, path);
}

}  // namespace tallybrook
