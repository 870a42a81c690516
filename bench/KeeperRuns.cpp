#include "JetSample.h"
#include "KeeperLimits.h"
#include "Measure.h"
#include "Processes.h"
#include "Runs.h"
#include "keeper/Access.h"
#include "keeper/ArchiveIntake.h"
#include "keeper/ArchiveReader.h"
#include "keeper/ArchiveWriter.h"
#include "runtime/Progress.h"
#include "sheets/Csv.h"
#include "sheets/Workbook.h"
#include "store/Store.h"

#include <stdexcept>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

SystemClock& clock() {
    static SystemClock clock;
    return clock;
}

/// A folder beside the logbook, empty each time it is asked for.
fs::path emptyFolder(const Place& place) {
    fs::path folder = place.beside("keeper");
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

/// What the keeper reads, until the work is done.
class Logbook {
public:
    explicit Logbook(const Place& place) : logbook_(place.folder, clock()) {}
    [[nodiscard]] const SQLite::Database& operator*() const { return logbook_.database(); }

private:
    keeper::ReadableLogbook logbook_;
};

/// Measures what writes the logbook into something in an empty folder.
template <typename Write>
void writeOut(State& state, const Place& place, Write write) {
    const Logbook logbook(place);
    NoProgress nobodyWaits;
    fs::path folder;
    measure(
        state, [&] { write(*logbook, folder, nobodyWaits); }, [&] { folder = emptyFolder(place); });
}

/// The same by the limit.
template <typename Write>
void writeOutLimit(State& state, const Place& place, Write write) {
    PlainDatabase logbook(place.logbook());
    fs::path folder;
    measure(
        state, [&] { write(logbook, folder); }, [&] { folder = emptyFolder(place); });
}

/// A new logbook without any row.
fs::path emptyLogbook(const fs::path& folder) {
    fs::path file = folder / "Tallybrook_DB.mdb";
    const Store made(file, clock());
    return file;
}

/// Measures what makes a new logbook, which must then have all frames.
void takeIn(State& state, const Place& place, const std::function<void(const fs::path& folder)>& prepare,
            const std::function<void(const fs::path& folder)>& act) {
    fs::path folder;
    measure(
        state, [&] { act(folder); },
        [&] {
            folder = emptyFolder(place);
            prepare(folder);
        },
        [&] {
            PlainDatabase made(folder / "Tallybrook_DB.mdb");
            PlainDatabase sample(place.logbook());
            if (frameCount(made) != frameCount(sample))
                throw std::runtime_error("not all frames were taken in");
        });
}

}  // namespace

void archiveOut(State& state, const Place& place) {
    writeOut(state, place, [](const SQLite::Database& logbook, const fs::path& folder, Progress& progress) {
        keeper::writeArchive(logbook, folder / "archive", progress);
    });
}

void csvOut(State& state, const Place& place) {
    writeOut(state, place, [](const SQLite::Database& logbook, const fs::path& folder, Progress& progress) {
        sheets::writeCsv(logbook, folder, sheets::Formulas::Guarded, progress);
    });
}

void workbookOut(State& state, const Place& place) {
    writeOut(state, place, [](const SQLite::Database& logbook, const fs::path& folder, Progress& progress) {
        sheets::writeWorkbook(logbook, folder / "logbook.xlsx", progress);
    });
}

void textOutLimit(State& state, const Place& place) {
    writeOutLimit(state, place, [](PlainDatabase& logbook, const fs::path& folder) {
        writePlainText(logbook, folder / "text");
    });
}

void workbookOutLimit(State& state, const Place& place) {
    writeOutLimit(state, place, [](PlainDatabase& logbook, const fs::path& folder) {
        writePlainWorkbook(logbook, folder / "logbook.xlsx");
    });
}

void archiveIn(State& state, const Place& place) {
    const auto write = [&](const fs::path& folder) {
        NoProgress nobodyWaits;
        keeper::writeArchive(*Logbook(place), folder / "archive", nobodyWaits);
    };
    takeIn(state, place, write, [](const fs::path& folder) {
        NoProgress nobodyWaits;
        const keeper::HeldLogbook held(folder);
        keeper::ArchiveReader archive(folder / "archive");
        keeper::takeInArchive(held, archive, {}, clock(), nobodyWaits);
    });
}

void archiveInLimit(State& state, const Place& place) {
    const auto write = [&](const fs::path& folder) {
        emptyLogbook(folder);
        PlainDatabase sample(place.logbook());
        writePlainText(sample, folder / "text");
    };
    takeIn(state, place, write, [](const fs::path& folder) {
        PlainDatabase logbook(folder / "Tallybrook_DB.mdb");
        readPlainText(folder / "text", logbook);
    });
}

void carryIn(State& state, const Place& place) {
    // The old file is read in a process of its own, so the clock is that of all of them.
    for (auto round : state) {
        static_cast<void>(round);
        const fs::path folder = emptyFolder(place);
        writeJetSample(place.logbook(), folder / "old.mdb");
        state.SetIterationTime(processorTimeOf(
            {TALLYBROOK_KEEPER, "carry-over", (folder / "old.mdb").string(), "--data", folder.string()}));
    }
}

void carryInLimit(State& state, const Place& place) {
    const auto write = [&](const fs::path& folder) {
        emptyLogbook(folder);
        writeJetSample(place.logbook(), folder / "old.mdb");
    };
    takeIn(state, place, write, [](const fs::path& folder) {
        PlainDatabase logbook(folder / "Tallybrook_DB.mdb");
        readPlainJet(folder / "old.mdb", logbook);
    });
}

}  // namespace tallybrook::bench
