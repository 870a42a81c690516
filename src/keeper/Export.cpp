#include "keeper/Export.h"

#include "backup/KeptFiles.h"
#include "keeper/ArchiveWriter.h"
#include "keeper/ExitStatus.h"
#include "runtime/UnfinishedFile.h"

#include <system_error>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

void requireExportable(const fs::path& dataFolder, const fs::path& file) {
    if (isKeptFile(dataFolder, file) || isKeptFile(dataFolder, UnfinishedFile::nameFor(file)))
        throw Refused(ExitStatus::Failed,
                      "This file belongs to the logbook itself, and is not written over: " + file.string());
    const fs::path folder = fs::absolute(file).parent_path();
    if (!fs::is_directory(folder))
        throw Refused(ExitStatus::Failed, "There is no such folder: " + folder.string());
    if (fs::is_directory(file))
        throw Refused(ExitStatus::Failed, "This is a folder; please name a file: " + file.string());
}

Exported exportArchive(const fs::path& dataFolder, const fs::path& file, const Clock& clock,
                       Progress& progress) {
    requireExportable(dataFolder, file);
    const ReadableLogbook logbook(dataFolder, clock);
    try {
        return {.counts = writeArchive(logbook.database(), file, progress), .note = logbook.note()};
    } catch (const std::system_error& failure) {
        throw Refused(ExitStatus::Failed, "The archive cannot be written: " + file.string() + "\n" +
                                              failure.code().message() + ".");
    }
}

}  // namespace tallybrook::keeper
