#pragma once

#include "carry/Figures.h"
#include "carry/ReadingProcess.h"
#include "runtime/Clock.h"
#include "runtime/Progress.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tallybrook::carry {

/// The old logbook cannot be carried over: it is damaged, or a file of another kind. what() is a text for
/// people that names the file and says what to do.
class OldLogbookRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// There is something in the place of the new logbook that must not go. what() is a text for people.
class PlaceTaken : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What is to be carried over, and how.
struct CarryOverJob {
    std::filesystem::path oldLogbook;
    std::filesystem::path logbook;  // where the new one goes; it may be the place of the old one
    ReadingRules reading = {};
};

/// What became of the rows of a table.
struct CarriedTable {
    std::string name;
    std::int64_t told = 0;     // as many as the old file says it has
    std::int64_t read = 0;     // as many as could be read
    std::int64_t carried = 0;  // as many as the new logbook has
};

/// What was carried over.
struct CarriedOver {
    std::vector<CarriedTable> tables;  // those of the logbook, in its order
    Figures figures;                   // of the new logbook, and of what was read for it
    std::vector<std::string> notes;    // what a person should know, one by one; the first of them
    std::int64_t furtherNotes = 0;     // how many more there would be
    /// Where the old logbook lies now, if it lay in the place of the new one.
    std::optional<std::filesystem::path> oldLogbookNow;
};

/// How many notes are kept at most.
inline constexpr std::size_t kMostNotes = 1000;

/// Whether a file begins as one that could be carried over, or as a relative of it: then carryOver() says
/// what can be done. False for what cannot be read.
bool looksLikeOldLogbook(const std::filesystem::path& file);

/// Makes a new logbook of an old one, a Jet 4 database with the tables of a logbook. The keys stay. The old
/// file is only read, in a process of its own; the new one is made under another name, checked and compared
/// with what was read, and takes its place whole. There must be nothing there, or a logbook without any row,
/// or the old logbook itself, which then gets another name. Nobody else may use the place meanwhile: its lock
/// is held. Throws OldLogbookRefused, PlaceTaken, Cancelled, std::system_error and SQLite::Exception; all is
/// then as it was.
CarriedOver carryOver(const CarryOverJob& job, const Clock& clock, Progress& progress);

}  // namespace tallybrook::carry
