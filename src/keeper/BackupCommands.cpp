#include "keeper/BackupCommands.h"

#include "backup/BackupFolder.h"
#include "keeper/Command.h"
#include "runtime/DataHome.h"
#include "runtime/TextForms.h"

#include <ranges>

namespace tallybrook::keeper {

void listBackups(const Errand& errand) {
    const BackupFolder folder(logbookIn(errand.options.data));
    for (const DateTime time : folder.times() | std::views::reverse)
        errand.out << dateText(time) << '\n';
}

}  // namespace tallybrook::keeper
