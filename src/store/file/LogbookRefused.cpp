#include "store/file/LogbookRefused.h"

namespace tallybrook {

void refuseLogbook(const std::filesystem::path& file, const std::string& why) {
    throw LogbookRefused("The logbook cannot be opened:\r\n" + file.string() + "\r\n" + why);
}

}  // namespace tallybrook
