#pragma once

#include "shell/Program.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook::test {

/// What has become of a life in front of the program.
struct Ending {
    std::string wrong;                // empty where all went well
    std::vector<std::string> script;  // what was done, as lines for the player
    std::string transcript;
};

/// Says what is done next: a line for the player, or nothing at the end. `asked` is the transcript's line of
/// the box, input box or dialog that is up, else empty.
using NextLine = std::function<std::optional<std::string>(std::string_view asked, Program& program)>;

/// Begins a life; `home` is the folder that holds the data folder.
using Begin = std::function<NextLine(const std::filesystem::path& home)>;

/// Lives in a process of its own over the data folder of a seed, in a temporary folder, so that the worst end
/// is one that can be told of.
Ending live(std::uint64_t seed, const Begin& begin);

/// The life that a monkey leads: so many actions, or until the program has ended.
Ending liveAsMonkey(std::uint64_t seed, int actions);

/// The same script again over the data folder of a seed.
Ending liveAgain(std::uint64_t seed, const std::vector<std::string>& script);

}  // namespace tallybrook::test
