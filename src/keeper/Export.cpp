#include "keeper/Export.h"

#include "backup/KeptFiles.h"
#include "keeper/ArchiveWriter.h"
#include "keeper/ExitStatus.h"
#include "runtime/UnfinishedFile.h"
#include "sheets/Workbook.h"

#include <system_error>

#include <fmt/format.h>
#include <unistd.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

void requireExportable(const fs::path& dataFolder, const fs::path& file) {
    const KeptFiles kept(dataFolder);
    if (kept.has(file) || kept.has(UnfinishedFile::nameFor(file)))
        throw Refused(ExitStatus::Failed,
                      "This file belongs to the logbook itself, and is not written over: " + file.string());
    const fs::path folder = fs::absolute(file).parent_path();
    if (!fs::is_directory(folder))
        throw Refused(ExitStatus::Failed, "There is no such folder: " + folder.string());
    if (fs::is_directory(file))
        throw Refused(ExitStatus::Failed, "This is a folder; please name a file: " + file.string());
    if (fs::exists(file) && !fs::is_regular_file(file))
        throw Refused(ExitStatus::Failed, "This is no file that can be written over: " + file.string());
    if (fs::exists(file) && access(file.c_str(), W_OK) != 0)
        throw Refused(ExitStatus::Failed, "This file is write-protected: " + file.string());
}

namespace {

/// Lets `write` carry the logbook out to a place, and says which place it was where that fails.
template <typename Write>
Exported carriedOut(const fs::path& dataFolder, const fs::path& place, const Clock& clock, Write write) {
    const ReadableLogbook logbook(dataFolder, clock);
    try {
        write(logbook.database());
        return {.counts = countsOf(logbook.database()), .note = logbook.note()};
    } catch (const std::system_error& failure) {
        throw Refused(ExitStatus::Failed,
                      "This cannot be written: " + place.string() + "\n" + failure.code().message() + ".");
    }
}

std::string cutTexts(std::int64_t count) {
    return count == 0 ? std::string()
                      : fmt::format("Texts that are longer than a cell can be, and were cut: {}.", count);
}

}  // namespace

Exported exportArchive(const fs::path& dataFolder, const fs::path& file, const Clock& clock,
                       Progress& progress) {
    requireExportable(dataFolder, file);
    return carriedOut(dataFolder, file, clock,
                      [&](const SQLite::Database& logbook) { writeArchive(logbook, file, progress); });
}

Exported exportCsv(const fs::path& dataFolder, const fs::path& folder, sheets::Formulas formulas,
                   const Clock& clock, Progress& progress) {
    if (!fs::is_directory(folder))
        throw Refused(ExitStatus::Failed, "There is no such folder: " + folder.string());
    for (const sheets::CsvFile& file : sheets::csvFiles())
        requireExportable(dataFolder, folder / file.name);
    return carriedOut(dataFolder, folder, clock, [&](const SQLite::Database& logbook) {
        sheets::writeCsv(logbook, folder, formulas, progress);
    });
}

Exported exportWorkbook(const fs::path& dataFolder, const fs::path& file, const Clock& clock,
                        Progress& progress) {
    requireExportable(dataFolder, file);
    std::int64_t cut = 0;
    Exported exported = carriedOut(dataFolder, file, clock, [&](const SQLite::Database& logbook) {
        cut = sheets::writeWorkbook(logbook, file, progress).cutTexts;
    });
    exported.note += (exported.note.empty() || cut == 0 ? "" : "\n") + cutTexts(cut);
    return exported;
}

}  // namespace tallybrook::keeper
