#include "keeper/Options.h"

#include "runtime/DataHome.h"

namespace tallybrook::keeper {

Options readOptions(std::span<const std::string> arguments) {
    Options options{.data = defaultDataFolder()};
    CommandLine line({{"--data", [&](const std::string& folder) { options.data = folder; }},
                      {"--same", [&](const std::string& choice) { options.same = choice; }},
                      {"--event", [&](const std::string& choice) { options.events.push_back(choice); }}},
                     {{"--json", [&] { options.json = true; }},
                      {"--verbatim", [&] { options.verbatim = true; }},
                      {"--window", [&] { options.window = true; }},
                      {"--help", [&] { options.help = true; }},
                      {"--version", [&] { options.version = true; }}});
    line.onWord = [&](const std::string& word) {
        if (options.command.empty())
            options.command = word;
        else
            options.words.push_back(word);
    };
    line.read(arguments);
    if (options.data.empty())
        throw WrongUsage("the data folder has no name");
    return options;
}

}  // namespace tallybrook::keeper
