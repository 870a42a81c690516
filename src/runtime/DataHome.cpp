#include "runtime/DataHome.h"

#include <cstdlib>

namespace tallybrook {

namespace fs = std::filesystem;

fs::path defaultDataFolder() {
    if (const char* const home = std::getenv("XDG_DATA_HOME");
        home != nullptr && fs::path(home).is_absolute())
        return fs::path(home) / "Tallybrook";
    const char* const home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : ".") / ".local" / "share" / "Tallybrook";
}

fs::path logbookIn(const fs::path& dataFolder) {
    return dataFolder / "Tallybrook_DB.mdb";
}

fs::path lockIn(const fs::path& dataFolder) {
    return dataFolder / "Tallybrook.lock";
}

fs::path configurationIn(const fs::path& dataFolder) {
    return dataFolder / "tbrkcfg.conf";
}

}  // namespace tallybrook
