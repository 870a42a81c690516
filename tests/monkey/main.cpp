// A monkey in front of the program: random actions on the screens' own model or on the real windows, and a
// look at everything that must hold after each. A life that goes wrong is cut down and shown as a script for
// the player.

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

constexpr const char* kHowToCall =
    "usage: monkey [--display model|desktop] [--seed N] [--lives N] [--actions N]\n"
    "       monkey --make DIR [--seed N]     makes the data folder that the life of a seed begins with\n";

struct Wishes {
    Life first;  // the others have the seeds that follow
    int lives = 1;
    int actions = 200;
    std::string make;  // the data folder to be made; empty to live
};

Options::Where readDisplay(const std::string& name) {
    const std::map<std::string, Options::Where> known{{"model", Options::Where::Model},
                                                      {"desktop", Options::Where::Desktop}};
    return known.at(name);
}

Wishes readWishes(std::span<char* const> arguments) {
    if (arguments.size() % 2 != 0)
        throw std::invalid_argument("a value is missing");
    Wishes wishes;
    const std::map<std::string, std::function<void(const std::string&)>> known{
        {"--display", [&](const std::string& value) { wishes.first.where = readDisplay(value); }},
        {"--seed", [&](const std::string& value) { wishes.first.seed = std::stoull(value); }},
        {"--lives", [&](const std::string& value) { wishes.lives = std::stoi(value); }},
        {"--actions", [&](const std::string& value) { wishes.actions = std::stoi(value); }},
        {"--make", [&](const std::string& value) { wishes.make = value; }}};
    for (std::size_t at = 0; at < arguments.size(); at += 2)
        known.at(arguments[at])(arguments[at + 1]);
    return wishes;
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

void tell(const Life& life, const Ending& ending) {
    const auto fails = [&](const std::vector<std::string>& script) {
        return firstLine(liveAgain(life, script).wrong) == firstLine(ending.wrong);
    };
    std::cout << "seed " << life.seed << ": " << ending.wrong << "\n# monkey --seed " << life.seed
              << " --make DIR && tallybrook-play --data DIR SCRIPT"
              << std::endl;  // to cut a life down takes long
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
        if (line.starts_with("box "))
            ++seen[line.substr(0, line.find(" icon="))];
        else if (line.starts_with("show ") || line.starts_with("retrying ") ||
                 line.starts_with("run-time error "))
            ++seen[line];
    }
}

int live(const Wishes& wishes) {
    std::map<std::string, int> seen;
    int wrong = 0;
    Life life = wishes.first;
    for (int lived = 0; lived < wishes.lives; ++lived, ++life.seed) {
        const Ending ending = liveAsMonkey(life, wishes.actions);
        count(ending, seen);
        if (ending.wrong.empty())
            continue;
        ++wrong;
        tell(life, ending);
    }
    for (const auto& [what, times] : seen)
        std::cout << times << '\t' << what << '\n';
    std::cout << wishes.lives << " lives, " << wrong << " went wrong\n";
    return wrong == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Wishes wishes = readWishes(std::span(argv + 1, argv + argc));
        if (wishes.make.empty())
            return live(wishes);
        makeHome(wishes.first.seed, wishes.make);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n' << kHowToCall;
        return 2;
    }
}
