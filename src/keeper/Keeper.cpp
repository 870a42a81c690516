#include "keeper/Keeper.h"

#include "keeper/Command.h"
#include "keeper/Help.h"

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
    try {
        const Options options = readOptions(arguments);
        carryOut(options, {options, clock, progress, out, notes});
        out.flush();
        return out ? ExitStatus::Done : ExitStatus::Failed;
    } catch (const WrongUsage& wrong) {
        notes << "tallybrook-keeper: " << wrong.what() << "\nTry tallybrook-keeper --help.\n";
        return ExitStatus::WrongUsage;
    } catch (const Cancelled& cancelled) {
        notes << cancelled.what() << '\n';
        return ExitStatus::Cancelled;
    } catch (const Refused& refused) {
        notes << refused.what() << '\n';
        return refused.status();
    } catch (const std::exception& failure) {
        notes << failure.what() << '\n';
        return ExitStatus::Failed;
    }
}

}  // namespace tallybrook::keeper
