#include "keeper/ArchiveIntake.h"

#include "backup/Backups.h"
#include "keeper/EventRows.h"
#include "keeper/ExitStatus.h"
#include "runtime/UnfinishedFile.h"
#include "store/file/Journal.h"
#include "store/file/UnlockedFile.h"

#include <algorithm>
#include <unordered_map>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

namespace {

// The indexes of the kinds of rows.
constexpr std::size_t kEventKind = 0;
constexpr std::size_t kGameKind = 1;

constexpr std::size_t kEventOfRow = 1;  // where games and frames have the key of their event

/// By what an event is told to be in the logbook already.
const std::vector<std::string>& identity() {
    static const std::vector<std::string> kColumns{"fldEventName", "fldDateBowled", "fldCenterName"};
    return kColumns;
}

/// Where the columns by which events are told apart stand among those of an archive or a table.
std::vector<std::size_t> identityIn(const std::vector<const Column*>& columns) {
    std::vector<std::size_t> places;
    for (const std::string& name : identity()) {
        const auto column = std::ranges::find(columns, name, &Column::name);
        if (column == columns.end())
            throw Refused(ExitStatus::BadInput, "The archive has no column " + name + ".");
        places.push_back(static_cast<std::size_t>(column - columns.begin()));
    }
    return places;
}

/// The events of a logbook that have not found their like yet, by what they are told by.
class PresentEvents {
public:
    explicit PresentEvents(const SQLite::Database* logbook) {
        if (logbook == nullptr)
            return;
        const Table& table = *findTable(kRowKinds[kEventKind].table);
        const std::vector<const Column*> columns = columnsOf(table);
        const std::vector<std::size_t> places = identityIn(columns);
        RowReader rows(*logbook, columns,
                       fmt::format("FROM {} ORDER BY {} DESC", table.name, table.key().name));
        while (rows.next())
            keys_[textOf(rows.row(), places)].push_back(std::get<std::int64_t>(rows.row().front()));
    }

    /// The key of an event that is told by the same; it is not found again.
    std::optional<std::int64_t> take(const StoredRow& row, const std::vector<std::size_t>& places) {
        const auto found = keys_.find(textOf(row, places));
        if (found == keys_.end() || found->second.empty())
            return std::nullopt;
        const std::int64_t key = found->second.back();
        found->second.pop_back();
        return key;
    }

private:
    static std::string textOf(const StoredRow& row, const std::vector<std::size_t>& places) {
        std::string text;
        for (const std::size_t place : places)
            text += shownText(row[place]) + '\n';
        return text;
    }

    std::unordered_map<std::string, std::vector<std::int64_t>> keys_;  // the lowest last
};

/// The key of the event that a game or a frame names; nothing where it is no number.
std::optional<std::int64_t> eventOf(const StoredRow& row) {
    const auto* const key = row.size() > kEventOfRow ? std::get_if<std::int64_t>(&row[kEventOfRow]) : nullptr;
    return key != nullptr ? std::optional(*key) : std::nullopt;
}

const ArchivedEvent* findEvent(const ArchiveContents& contents, std::optional<std::int64_t> key) {
    if (!key)
        return nullptr;
    const auto found = std::ranges::lower_bound(contents.events, *key, {}, &ArchivedEvent::key);
    return found != contents.events.end() && found->key == *key ? &*found : nullptr;
}

/// Whether a logbook has no row at all.
bool isEmpty(const SQLite::Database& logbook) {
    return countsOf(logbook).all() == 0;
}

/// Notes the highest keys that there have ever been, so that none is given a second time.
void keepLastKeys(const SQLite::Database& logbook, const ArchiveHead& head) {
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
        if (head.lastKeys[kind] == 0)
            continue;
        const std::string table(kRowKinds[kind].table);
        SQLite::Statement forget(logbook, "DELETE FROM sqlite_sequence WHERE name = ?");
        forget.bind(1, table);
        forget.exec();
        SQLite::Statement note(logbook, "INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)");
        note.bind(1, table);
        note.bind(2, head.lastKeys[kind]);
        note.exec();
    }
}

/// Fills an empty database with all that an archive holds.
void fill(SQLite::Database& logbook, ArchiveReader& archive, Progress& progress) {
    logbook.exec("PRAGMA journal_mode = OFF");  // what is cut off is worth nothing anyway
    logbook.exec("PRAGMA synchronous = OFF");   // it is brought to the disk as a whole
    SQLite::Transaction transaction(logbook);
    for (const std::string& statement : schemaStatements())
        logbook.exec(statement);
    std::vector<RowInserter> inserters;
    inserters.reserve(kKinds);
    for (std::size_t kind = 0; kind < kKinds; ++kind)
        inserters.emplace_back(logbook, *findTable(kRowKinds[kind].table), archive.head().columns[kind]);
    archive.read("Storing the rows", progress,
                 [&](std::size_t kind, const StoredRow& row) { inserters[kind].insert(row); });
    keepLastKeys(logbook, archive.head());
    transaction.commit();
}

/// Makes a logbook from an archive under another name, and puts it in its place when it is whole.
Intake makeLogbook(const HeldLogbook& held, ArchiveReader& archive, const ArchiveContents& contents,
                   Progress& progress) {
    const fs::path place = fs::weakly_canonical(held.file());
    const UnfinishedFile made(place);
    {
        SQLite::Database logbook(made.path().string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        fill(logbook, archive, progress);
    }
    progress.begin("Checking the logbook");
    const SQLite::Database logbook = openCopy(made.path());
    if (!isSound(logbook, progress) || countsOf(logbook) != contents.counts)
        throw Refused(ExitStatus::Failed, "The new logbook is not like the archive. Please check the disk.");
    progress.begin("Putting the logbook in place");
    for (const fs::path& companion : companionsOf(place))
        fs::remove(companion);
    made.putInPlace();
    return {.isNew = true, .added = contents.counts};
}

/// Adds the events of an archive to a logbook, within somebody else's transaction.
class Adding {
public:
    Adding(const SQLite::Database& logbook, const ArchiveContents& contents, const ArchiveHead& head,
           const Choices& choices)
        : logbook_(logbook),
          contents_(contents),
          choices_(choices),
          adder_(logbook, {head.columns[0], head.columns[1], head.columns[2]}) {}

    void take(std::size_t kind, const StoredRow& row) {
        if (kind == kEventKind)
            return takeEvent(row);
        const auto event = eventOf(row);
        if (findEvent(contents_, event) == nullptr) {
            ++intake_.strays;
            return;
        }
        const auto place = newKeys_.find(*event);
        if (place == newKeys_.end())
            return;  // its event is passed over
        if (kind == kGameKind)
            adder_.addGame(row, place->second);
        else
            adder_.addFrame(row, place->second);
    }

    [[nodiscard]] Intake intake() const {
        Intake done = intake_;
        done.added = adder_.added();
        return done;
    }

private:
    void takeEvent(const StoredRow& row) {
        const auto key = std::get<std::int64_t>(row.front());
        const ArchivedEvent* const event = findEvent(contents_, key);
        if (event == nullptr)
            throw Refused(ExitStatus::BadInput, "The archive was changed while it was read.");
        const Same choice = event->present ? choices_.of(key) : Same::Both;
        if (choice == Same::Keep) {
            ++intake_.passedOver;
        } else if (choice == Same::Both) {
            newKeys_[key] = adder_.addEvent(row);
        } else {
            deleteEvent(logbook_, *event->present);
            adder_.addEvent(row, *event->present);
            newKeys_[key] = *event->present;
            ++intake_.replaced;
        }
    }

    const SQLite::Database& logbook_;
    const ArchiveContents& contents_;
    const Choices& choices_;
    EventAdder adder_;
    std::unordered_map<std::int64_t, std::int64_t> newKeys_;  // by those in the archive
    Intake intake_;
};

void requireChosenEvents(const ArchiveContents& contents, const Choices& choices) {
    for (const auto& [key, choice] : choices.ofEvents) {
        if (findEvent(contents, key) == nullptr)
            throw Refused(ExitStatus::BadInput, fmt::format("The archive has no event {}.", key));
    }
}

Intake addTo(Connection& connection, const HeldLogbook& held, ArchiveReader& archive,
             const ArchiveContents& contents, const Choices& choices, const Clock& clock,
             Progress& progress) {
    progress.begin("Backing up the present logbook");
    backUpNow(held.file(), clock);
    SQLite::Transaction transaction(connection.database());
    Adding adding(connection.database(), contents, archive.head(), choices);
    archive.read("Storing the rows", progress,
                 [&](std::size_t kind, const StoredRow& row) { adding.take(kind, row); });
    transaction.commit();
    return adding.intake();
}

}  // namespace

Same Choices::of(std::int64_t key) const {
    const auto found = ofEvents.find(key);
    return found == ofEvents.end() ? usual : found->second;
}

ArchiveContents checkArchive(ArchiveReader& archive, const SQLite::Database* logbook, Progress& progress) {
    ArchiveContents contents{.counts = archive.head().counts};
    const std::vector<std::size_t> places = identityIn(archive.head().columns[kEventKind]);
    PresentEvents present(logbook);
    archive.read("Checking the archive", progress, [&](std::size_t kind, const StoredRow& row) {
        if (kind == kEventKind)
            contents.events.push_back({.key = std::get<std::int64_t>(row.front()),
                                       .name = shownText(row[places[0]]),
                                       .date = shownText(row[places[1]]),
                                       .center = shownText(row[places[2]]),
                                       .present = present.take(row, places)});
    });
    return contents;
}

Intake takeInArchive(const HeldLogbook& held, ArchiveReader& archive, const Choices& choices,
                     const Clock& clock, Progress& progress) {
    if (held.exists()) {
        const std::unique_ptr<Connection> connection = held.open(clock);
        if (!isEmpty(connection->database())) {
            const ArchiveContents contents = checkArchive(archive, &connection->database(), progress);
            requireChosenEvents(contents, choices);
            return addTo(*connection, held, archive, contents, choices, clock, progress);
        }
    }
    const ArchiveContents contents = checkArchive(archive, nullptr, progress);
    return makeLogbook(held, archive, contents, progress);
}

}  // namespace tallybrook::keeper
