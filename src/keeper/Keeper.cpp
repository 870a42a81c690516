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

void requireWords(const Command& command, std::size_t count) {
    if (count < command.leastWords)
        throw WrongUsage(std::string(command.name) + " needs " + std::string(command.words));
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
    requireWords(command, options.words.size());
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
