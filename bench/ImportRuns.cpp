#include "CommitWatch.h"
#include "Limits.h"
#include "Measure.h"
#include "Runs.h"
#include "sample/Career.h"
#include "sample/ExportFiles.h"

#include <stdexcept>
#include <utility>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

/// Lets the program read the handheld's files in a folder.
void attachHandheld(Session& session, const fs::path& folder) {
    session.state().gHHType = "Palm";
    session.state().gHHSyncDir = folder.string();
    session.handOverTo("frmSyncPDA");
}

/// A new folder, removed with what was made in it.
class NewFolder {
public:
    explicit NewFolder(fs::path path) : path_(std::move(path)) {
        fs::remove_all(path_);
        fs::create_directories(path_);
    }
    ~NewFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

/// Imports. The time is that until the rows are on the disk; the check at the end of every run has a work of
/// its own, and comes in the time to the end.
void takeTimes(State& state, Session& session) {
    const CommitWatch watch(session.connection());
    session.measuredClick("cmdAddPDA");
    state.SetIterationTime(watch.secondsUntilStored());
    state.counters[kMsToTheEnd] = watch.seconds() * 1000;
}

void requireEvents(const fs::path& logbook, int events) {
    PlainDatabase database(logbook);
    if (lastEvent(database) != events)
        throw std::runtime_error("not all events were imported");
}

/// Makes the files of a handheld that holds one event with three games and thirty frames, each time another
/// one.
class OneEvent {
public:
    explicit OneEvent(fs::path folder) : folder_(std::move(folder)) { fs::create_directories(folder_); }

    void make() {
        sample::Counts counts;
        do {
            counts = sample::countCareer(1, ++seed());
        } while (counts.games != 3 || counts.frames != 30);
        sample::ExportFiles files(folder_, counts);
        files.add(sample::Career(1, seed()).next());
        files.finish();
    }
    [[nodiscard]] const fs::path& folder() const { return folder_; }

private:
    /// Each event has a record ID of its own in the whole run. The logbooks were made from the first seed.
    static std::uint64_t& seed() {
        static std::uint64_t seed = 1;
        return seed;
    }

    fs::path folder_;
};

}  // namespace

void consistencyCheck(State& state, const Place& place) {
    Session session(place.folder);
    session.handOverTo("frmDBTools");
    measure(state, [&] { session.measuredClick("cmdDBCheck"); });
}

void consistencyCheckLimit(State& state, const Place& place) {
    PlainDatabase logbook(place.logbook());
    measure(state, [&] {
        if (checkLogbook(logbook) != 0)
            throw std::runtime_error("the logbook is not sound");
    });
}

void importAll(State& state, const Place& place) {
    const NewFolder folder(place.beside("import"));
    {
        Session session(folder.path());
        attachHandheld(session, place.folder);
        for (auto round : state) {
            static_cast<void>(round);
            takeTimes(state, session);
        }
    }
    requireEvents(folder.path() / "Tallybrook_DB.mdb", place.events);
}

void importAllLimit(State& state, const Place& place) {
    const NewFolder folder(place.beside("import"));
    { const Session session(folder.path()); }  // makes the empty logbook
    PlainDatabase logbook(folder.path() / "Tallybrook_DB.mdb");
    measure(state, [&] { importFiles(logbook, place.folder, 0); });
}

void importOne(State& state, const Place& place) {
    OneEvent event(place.beside("handheld"));
    Session session(place.folder);
    for (auto round : state) {
        static_cast<void>(round);
        event.make();
        attachHandheld(session, event.folder());
        takeTimes(state, session);
        session.returnToMain();
    }
}

void importOneLimit(State& state, const Place& place) {
    OneEvent event(place.beside("handheld"));
    PlainDatabase logbook(place.logbook());
    int shift = 0;
    measure(
        state, [&] { importFiles(logbook, event.folder(), shift); },
        [&] {
            event.make();
            shift = lastEvent(logbook);
        });
}

}  // namespace tallybrook::bench
