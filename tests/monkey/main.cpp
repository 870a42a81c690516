// A monkey in front of the program: random actions on the screens' own model, and a look at everything that
// must hold after each. A life that goes wrong is cut down and shown as a script for the player.

#include "monkey/Home.h"
#include "monkey/Life.h"
#include "monkey/Shrink.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <span>
#include <stdexcept>
#include <string>

using namespace tallybrook;
using namespace tallybrook::test;

namespace {

constexpr const char* kUsage =
    "usage: monkey [--seed N] [--lives N] [--actions N]\n"
    "       monkey --make DIR [--seed N]     makes the data folder that the life of a seed begins with\n";

struct Options {
    std::uint64_t seed = 1;
    int lives = 1;
    int actions = 200;
    std::string make;  // the data folder to be made; empty to live
};

Options readOptions(std::span<char* const> arguments) {
    if (arguments.size() % 2 != 0)
        throw std::invalid_argument("a value is missing");
    Options options;
    const std::map<std::string, std::function<void(const std::string&)>> known{
        {"--seed", [&](const std::string& value) { options.seed = std::stoull(value); }},
        {"--lives", [&](const std::string& value) { options.lives = std::stoi(value); }},
        {"--actions", [&](const std::string& value) { options.actions = std::stoi(value); }},
        {"--make", [&](const std::string& value) { options.make = value; }}};
    for (std::size_t at = 0; at < arguments.size(); at += 2)
        known.at(arguments[at])(arguments[at + 1]);
    return options;
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

void tell(std::uint64_t seed, const Ending& ending) {
    const auto fails = [&](const std::vector<std::string>& script) {
        return firstLine(liveAgain(seed, script).wrong) == firstLine(ending.wrong);
    };
    std::cout << "seed " << seed << ": " << ending.wrong << "\n# monkey --seed " << seed
              << " --make DIR && tallybrook-play --data DIR SCRIPT\n";
    for (const std::string& line : fails(ending.script) ? shrink(ending.script, fails) : ending.script)
        std::cout << line << '\n';
    std::cout << std::endl;
}

/// What the monkey has seen: how often each screen came up, and each box.
void count(const Ending& ending, std::map<std::string, int>& seen) {
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = ending.transcript.find('\n', begin)) != std::string::npos;
         begin = end + 1) {
        const std::string line = ending.transcript.substr(begin, end - begin);
        if (line.starts_with("show "))
            ++seen[line];
        else if (line.starts_with("box "))
            ++seen[line.substr(0, line.find(" icon="))];
        else if (line.starts_with("retrying ") || line.starts_with("run-time error "))
            ++seen[line];
    }
}

int live(const Options& options) {
    std::map<std::string, int> seen;
    int wrong = 0;
    for (int life = 0; life < options.lives; ++life) {
        const std::uint64_t seed = options.seed + static_cast<std::uint64_t>(life);
        const Ending ending = liveAsMonkey(seed, options.actions);
        count(ending, seen);
        if (ending.wrong.empty())
            continue;
        ++wrong;
        tell(seed, ending);
    }
    for (const auto& [what, times] : seen)
        std::cout << times << '\t' << what << '\n';
    std::cout << options.lives << " lives, " << wrong << " went wrong\n";
    return wrong == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Options options = readOptions(std::span(argv + 1, argv + argc));
        if (options.make.empty())
            return live(options);
        makeHome(options.seed, options.make);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n' << kUsage;
        return 2;
    }
}
