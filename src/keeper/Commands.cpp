#include "keeper/BackupCommands.h"
#include "keeper/Command.h"

#include <array>

namespace tallybrook::keeper {

std::span<const Command> commands() {
    static constexpr std::array kCommands{
        Command{"backups", "", "lists the backups of the logbook", 0, 0, listBackups},
    };
    return kCommands;
}

}  // namespace tallybrook::keeper
