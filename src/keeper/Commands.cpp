#include "keeper/ArchiveCommands.h"
#include "keeper/BackupCommands.h"
#include "keeper/CarryCommand.h"
#include "keeper/Command.h"
#include "keeper/ExportCommands.h"

#include <array>

namespace tallybrook::keeper {

namespace {

constexpr std::size_t kMany = 100000;

}  // namespace

std::span<const Command> commands() {
    static constexpr std::array kCommands{
        Command{"backups", "", "lists the backups, and how each differs from today's logbook", 0, 0,
                listBackups},
        Command{"look", "BACKUP [EVENT]", "shows the events of a backup, or the games and frames of one", 1,
                2, lookIntoBackup},
        Command{"compare", "BACKUP", "tells which events were changed or deleted since", 1, 1, compareBackup},
        Command{"restore", "BACKUP", "puts a backup in the place of the logbook, which is backed up first", 1,
                1, restoreBackup},
        Command{"take", "BACKUP EVENT...", "adds events of a backup to the logbook, under new keys", 2, kMany,
                takeFromBackup},
        Command{"archive", "FILE", "writes all of the logbook into one open text file", 1, 1,
                writeArchiveFile},
        Command{"xlsx", "FILE", "writes the logbook as one workbook for spreadsheets", 1, 1,
                writeWorkbookFile},
        Command{"csv", "FOLDER", "writes the tables of the logbook as files of comma-separated values", 1, 1,
                writeCsvFiles},
        Command{"look-archive", "FILE", "checks an archive and lists its events", 1, 1, lookIntoArchive},
        Command{"read-archive", "FILE", "reads an archive into the logbook, or makes the logbook from it", 1,
                1, readArchiveFile},
        Command{"carry-over", "[FILE]",
                "makes the logbook from an old one, an Access database (.mdb): FILE, or\n"
                "        the one in the logbook's place",
                0, 1, carryOldLogbookOver},
    };
    return kCommands;
}

}  // namespace tallybrook::keeper
