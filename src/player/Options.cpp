#include "player/Options.h"

#include "player/Moment.h"

#include <algorithm>
#include <array>

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

struct Option {
    std::string_view name;
    void (*set)(Options& options, const std::string& value);
};

constexpr std::array<Option, 4> kOptions{
    {{"--display", setDisplay}, {"--data", setData}, {"--clock", setClock}, {"--shots", setShots}}};

}  // namespace

Options readOptions(std::span<const std::string> arguments) {
    Options options;
    for (; !arguments.empty(); arguments = arguments.subspan(1)) {
        const auto* const option = std::ranges::find(kOptions, arguments.front(), &Option::name);
        if (option == kOptions.end()) {
            if (arguments.front().starts_with('-'))
                throw WrongUsage("there is no option " + arguments.front());
            setScript(options, arguments.front());
            continue;
        }
        arguments = arguments.subspan(1);
        if (arguments.empty())
            throw WrongUsage(std::string(option->name) + " needs a value");
        option->set(options, arguments.front());
    }
    return options;
}

}  // namespace tallybrook
