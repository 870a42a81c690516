#include "runtime/CommandLine.h"

#include <algorithm>

namespace tallybrook {

void CommandLine::read(std::span<const std::string> arguments) const {
    for (; !arguments.empty(); arguments = arguments.subspan(1)) {
        if (setFlag(arguments.front()) || takeWord(arguments.front()))
            continue;
        const Option& option = optionCalled(arguments.front());
        arguments = arguments.subspan(1);
        if (arguments.empty())
            throw WrongUsage(option.name + " needs a value");
        option.set(arguments.front());
    }
}

bool CommandLine::setFlag(const std::string& name) const {
    const auto flag = std::ranges::find(flags_, name, &Flag::name);
    if (flag == flags_.end())
        return false;
    flag->set();
    return true;
}

bool CommandLine::takeWord(const std::string& word) const {
    if (!onWord || word.starts_with('-'))
        return false;
    onWord(word);
    return true;
}

const CommandLine::Option& CommandLine::optionCalled(const std::string& name) const {
    const auto option = std::ranges::find(options_, name, &Option::name);
    if (option == options_.end())
        throw WrongUsage("there is no option " + name);
    return *option;
}

}  // namespace tallybrook
