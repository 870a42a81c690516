#include "reliability/TextFiles.h"

#include "support/SameText.h"

#include <algorithm>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

bool isText(const fs::path& file) {
    static const std::vector<std::string> kExtensions{".txt", ".log", ".conf", ".cdb", ".tmp", ".out"};
    return std::ranges::find(kExtensions, file.extension().string()) != kExtensions.end();
}

std::string withoutPath(std::string text, const std::string& path) {
    for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path, at))
        text.replace(at, path.size(), "<data>");
    return text;
}

}  // namespace

TextFiles textFilesOf(const fs::path& data) {
    TextFiles files;
    for (const auto& entry : fs::recursive_directory_iterator(data)) {
        const std::string name = entry.path().lexically_relative(data).string();
        if (entry.is_regular_file() && isText(entry.path()))
            files[name] = withoutPath(bytesOf(entry.path()), data.string());
        else if (name.starts_with("Backups/") && name.ends_with(".mdb"))
            files[name] = "";
    }
    return files;
}

bool isNothingLost(const TextFiles& files, const TextFiles& before, const TextFiles& after) {
    return std::ranges::all_of(before, [&](const auto& file) {
        const auto& [name, bytes] = file;
        const auto now = files.find(name);
        const auto then = after.find(name);
        if (now == files.end())
            return then == after.end();
        return now->second.starts_with(bytes) || (then != after.end() && now->second == then->second);
    });
}

}  // namespace tallybrook::test
