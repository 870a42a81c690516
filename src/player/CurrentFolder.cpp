#include "player/CurrentFolder.h"

#include <system_error>

namespace tallybrook {

CurrentFolder::~CurrentFolder() {
    std::error_code ignored;
    std::filesystem::current_path(path_, ignored);
}

}  // namespace tallybrook
