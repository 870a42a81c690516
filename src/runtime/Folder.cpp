#include "runtime/Folder.h"

#include <memory>

#include <dirent.h>

namespace tallybrook {

namespace {

struct Closer {
    void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

// The iterator of the standard library ends the program where there is no memory for a name.
std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, Closer> opened(opendir(folder.c_str()));
    if (!opened)
        return names;
    while (const dirent* const entry = readdir(opened.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            names.emplace_back(name);
    }
    return names;
}

}  // namespace tallybrook
