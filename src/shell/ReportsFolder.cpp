#include "shell/ReportsFolder.h"

#include <filesystem>
#include <system_error>

namespace tallybrook {

std::string reportsFolder() {
    std::error_code gone;  // a current folder that somebody has deleted has no path
    return (std::filesystem::current_path(gone) / "Reports").string();
}

}  // namespace tallybrook
