#include "shell/DataFolder.h"

#include "shell/Program.h"

namespace tallybrook {

namespace fs = std::filesystem;

fs::path lockFile(const Program& program) {
    return lockIn(program.dataFolder);
}

fs::path configurationFile(const Program& program) {
    return configurationIn(program.dataFolder);
}

KeptFiles ownFiles(const Program& program) {
    return KeptFiles(program.dataFolder);
}

}  // namespace tallybrook
