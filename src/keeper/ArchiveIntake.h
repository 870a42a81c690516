#pragma once

#include "keeper/Access.h"
#include "keeper/ArchiveReader.h"
#include "keeper/Summary.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook::keeper {

/// What is done with an event of an archive that is in the logbook already: by its name, its date and its
/// center.
enum class Same {
    Keep,  // the logbook's stays, the archive's is passed over
    Take,  // the archive's takes its place
    Both,  // the archive's is added beside it
};

/// What a person has chosen.
struct Choices {
    Same usual = Same::Keep;
    std::map<std::int64_t, Same> ofEvents = {};  // where it is another, by the event's key in the archive

    [[nodiscard]] Same of(std::int64_t key) const;
};

/// An event of an archive.
struct ArchivedEvent {
    std::int64_t key = 0;
    std::string name = {};
    std::string date = {};
    std::string center = {};
    std::optional<std::int64_t> present = {};  // the key of the logbook's event that is the same one
};

/// What an archive holds; all of it was checked.
struct ArchiveContents {
    Counts counts = {};
    std::vector<ArchivedEvent> events = {};
};

/// Reads and checks all of an archive, and looks which of its events are in a logbook already, if there is
/// one. Throws Refused and Cancelled.
ArchiveContents checkArchive(ArchiveReader& archive, const SQLite::Database* logbook, Progress& progress);

/// What came of the reading of an archive.
struct Intake {
    bool isNew = false;  // whether the logbook was made from it
    Counts added = {};
    std::int64_t replaced = 0;    // events of the logbook that gave way
    std::int64_t passedOver = 0;  // events that were in the logbook already
    std::int64_t strays = 0;      // rows without an event, which are not added to a logbook
};

/// Reads an archive into a logbook. Where there is none, or one without any row, it makes a new one just as
/// it was archived, keys included. Else it adds the events under new keys, as the choices say; the logbook is
/// backed up and proved first. All of it is done or nothing; the archive is checked wholly before. Throws
/// Refused, Cancelled, and what the engine and the file system report.
Intake takeInArchive(const HeldLogbook& held, ArchiveReader& archive, const Choices& choices,
                     const Clock& clock, Progress& progress);

}  // namespace tallybrook::keeper
