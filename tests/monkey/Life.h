#pragma once

#include "player/Options.h"
#include "shell/Program.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook::test {

/// A life in front of the program.
struct Life {
    std::uint64_t seed = 1;  // of the data folder that it begins with
    Options::Where where = Options::Where::Model;
};

/// What has become of a life.
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

/// Lives in a process of its own, in a temporary folder, so that the worst end is one that can be told of. A
/// life at the windows is led once more on the model: what is seen there must be the same.
Ending live(const Life& life, const Begin& begin);

/// The life that a monkey leads: so many actions, or until the program has ended.
Ending liveAsMonkey(const Life& life, int actions);

/// A life whose script is known.
Ending liveAgain(const Life& life, const std::vector<std::string>& script);

}  // namespace tallybrook::test
