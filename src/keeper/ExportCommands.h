#pragma once

namespace tallybrook::keeper {

struct Errand;

// The commands that carry a logbook out.

/// Writes the logbook into an archive.
void writeArchiveFile(const Errand& errand);
/// Writes the logbook as CSV.
void writeCsvFiles(const Errand& errand);
/// Writes the logbook as a workbook.
void writeWorkbookFile(const Errand& errand);

}  // namespace tallybrook::keeper
