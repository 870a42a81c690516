#include "player/PlannedDisplay.h"

#include <system_error>

namespace tallybrook {

namespace fs = std::filesystem;

std::optional<fs::path> PlannedDisplay::fileDialog(const FileDialog&) {
    const std::optional<fs::path>& file = std::get<Choice>(planned_).file;
    if (file) {
        std::error_code stays;  // a folder that is not there cannot become the current one
        fs::current_path(file->parent_path(), stays);
    }
    return file;
}

}  // namespace tallybrook
