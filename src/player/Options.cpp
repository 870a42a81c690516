#include "player/Options.h"

#include "player/Moment.h"

#include <functional>

namespace tallybrook {

namespace {

void setDisplay(Options& options, const std::string& value) {
    if (value != "model" && value != "desktop")
        throw WrongUsage("there is no display " + value);
    options.where = value == "model" ? Options::Where::Model : Options::Where::Desktop;
}

void setClock(Options& options, const std::string& value) {
    const std::optional<DateTime> moment = readMoment(value);
    if (!moment)
        throw WrongUsage("a time is \"YYYY-MM-DD HH:MM:SS\"");
    options.clock = *moment;
}

void setData(Options& options, const std::string& value) {
    if (value.empty())
        throw WrongUsage("the data folder has no name");
    options.data = value;
}

void setShots(Options& options, const std::string& value) {
    if (value.empty())
        throw WrongUsage("the folder for pictures has no name");
    options.shots = value;
}

void setScript(Options& options, const std::string& value) {
    if (options.script)
        throw WrongUsage("there is one script only");
    options.script = value;
}

}  // namespace

Options readOptions(std::span<const std::string> arguments) {
    Options options;
    const auto to = std::ref(options);
    CommandLine line({{"--display", std::bind_front(setDisplay, to)},
                      {"--data", std::bind_front(setData, to)},
                      {"--clock", std::bind_front(setClock, to)},
                      {"--shots", std::bind_front(setShots, to)}},
                     {{"--help", [&options] { options.help = true; }}});
    line.onWord = std::bind_front(setScript, to);
    line.read(arguments);
    return options;
}

}  // namespace tallybrook
