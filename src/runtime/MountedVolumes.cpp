#include "runtime/MountedVolumes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// Undoes the escapes of the table of mounted volumes: a backslash and three octal digits.
std::string unescaped(const std::string& text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 3 < text.size()) {
            plain += static_cast<char>(std::stoi(text.substr(at + 1, 3), nullptr, 8));
            at += 3;
        } else {
            plain += text[at];
        }
    }
    return plain;
}

}  // namespace

std::vector<std::string> mountedVolumes() {
    std::ifstream table("/proc/self/mounts");
    return volumesIn(table);
}

std::vector<std::string> volumesIn(std::istream& table) {
    std::vector<std::string> volumes;
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string device;
        std::string place;
        words >> device >> place;
        std::error_code ignored;
        // What lies on a device or a server; not what the system mounts for itself.
        const bool holdsFiles =
            device.starts_with("/dev/") || device.find(":/") != std::string::npos || device.starts_with("//");
        if (holdsFiles && fs::is_directory(unescaped(place), ignored))
            volumes.push_back(unescaped(place));
    }
    volumes.emplace_back("/");
    std::ranges::sort(volumes);
    volumes.erase(std::unique(volumes.begin(), volumes.end()), volumes.end());
    return volumes;
}

}  // namespace tallybrook
