#include "keeper/Keeper.h"

#include "keeper/Command.h"
#include "keeper/Help.h"
#include "keeper/Outcome.h"

#include <algorithm>

namespace tallybrook::keeper {

namespace {

const Command& commandCalled(const std::string& name) {
    const auto found = std::ranges::find(commands(), name, &Command::name);
    if (name.empty())
        throw WrongUsage("no command is given");
    if (found == commands().end())
        throw WrongUsage("there is no command " + name);
    return *found;
}

/// A script gives an empty word where something is missing, which is not to mean any backup or file.
void requireWords(const Command& command, const std::vector<std::string>& words) {
    const std::size_t count = words.size();
    if (count < command.leastWords)
        throw WrongUsage(std::string(command.name) + " needs " + std::string(command.words));
    if (std::ranges::any_of(words, &std::string::empty))
        throw WrongUsage("a word after " + std::string(command.name) + " is empty");
    if (count > command.mostWords)
        throw WrongUsage("too many words after " + std::string(command.name));
}

void carryOut(const Options& options, const Errand& errand) {
    if (options.help) {
        errand.out << helpText();
        return;
    }
    if (options.version) {
        errand.out << "tallybrook-keeper " TALLYBROOK_VERSION "\n";
        return;
    }
    const Command& command = commandCalled(options.command);
    requireWords(command, options.words);
    command.run(errand);
}

}  // namespace

ExitStatus runKeeper(std::span<const std::string> arguments, const Clock& clock, Progress& progress,
                     std::ostream& out, std::ostream& notes) {
    const Outcome outcome = outcomeOf([&] {
        const Options options = readOptions(arguments);
        carryOut(options, {options, clock, progress, out, notes});
        if (!out.flush())
            throw Refused(ExitStatus::Failed, "The answer could not be written.");
    });
    if (outcome.status == ExitStatus::WrongUsage)
        notes << "tallybrook-keeper: " << outcome.why << "\nTry tallybrook-keeper --help.\n";
    else if (outcome.status != ExitStatus::Done)
        notes << outcome.why << '\n';
    return outcome.status;
}

}  // namespace tallybrook::keeper
