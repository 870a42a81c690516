#pragma once

#include "runtime/TextFile.h"
#include "sample/Logbook.h"

#include <filesystem>

namespace tallybrook::sample {

/// The files that a handheld with the same content leaves at its synchronisation: tblEvent.cdb, tblGame.cdb
/// and tblFrame.cdb, in Windows-1252.
class ExportFiles {
public:
    /// Begins the files in a folder; what is there of these names is replaced. `counts` is what their headers
    /// say. Errors as TextWriter.
    ExportFiles(const std::filesystem::path& folder, const Counts& counts);

    /// Adds the records of an event with its games and frames.
    void add(const Event& event);
    /// Brings all to the files; errors as TextWriter.
    void finish();

private:
    void addGame(const Game& game);
    void addFrame(const Game& game, const Frame& frame);

    TextWriter events_;
    TextWriter games_;
    TextWriter frames_;
    Counts counts_;  // of what was added: the handheld's own identifiers
};

}  // namespace tallybrook::sample
