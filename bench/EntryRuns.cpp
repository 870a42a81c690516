#include "CommitWatch.h"
#include "Measure.h"
#include "Plain.h"
#include "Runs.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

/// A comment that no row has yet: what stays as it is would not be written.
std::string newComment() {
    static int count = 0;
    return "Seen " + std::to_string(++count) + " times";
}

/// Measures one click of a button, with the commits that it brings, on a screen that is opened for it and on
/// which something was typed.
void saveBy(State& state, const Place& place, const std::string& button,
            const std::function<void(Session&)>& open) {
    Session session(place.folder);
    NextNight next(place);
    int mostCommits = 0;
    for (auto round : state) {
        static_cast<void>(round);
        session.state().gMode = kEdit;
        session.state().gSessionNum = next();
        open(session);
        session.type("txtComment", newComment());
        const CommitWatch commits(session.connection());
        const Stopwatch watch;
        session.measuredClick(button);
        state.SetIterationTime(watch.seconds());
        mostCommits = std::max(mostCommits, commits.commits());
        session.returnToMain();
    }
    state.counters["commits"] = mostCommits;
}

/// Runs a statement of a comment and an event's key, which is a commit of its own.
void saveComment(PlainStatement& statement, int event) {
    const std::string comment = newComment();
    statement.bind(1, std::string_view(comment));
    statement.bind(2, std::int64_t{event});
    statement.run();
}

void saveLimit(State& state, const Place& place, const char* sql) {
    PlainDatabase logbook(place.logbook());
    PlainStatement statement(logbook, sql);
    NextNight next(place);
    measure(state, [&] { saveComment(statement, next()); });
    state.counters["commits"] = 1;
}

constexpr const char* kSaveEvent = "UPDATE tblEventInfo SET fldComment = ? WHERE fldSessionNum = ?";

}  // namespace

void saveFrame(State& state, const Place& place) {
    saveBy(state, place, "cmdNextFrame", [](Session& session) {
        session.handOverTo("frmGame");
        session.click("cmdUpdFrame");
    });
}

void saveFrameLimit(State& state, const Place& place) {
    saveLimit(state, place,
              "UPDATE tblFrameInfo SET fldComment = ? WHERE fldSessionNum = ? AND fldGameNum = 1 AND "
              "fldFrameNum = 1");
}

void addFrame(State& state, const Place& place) {
    saveBy(state, place, "cmdNextFrame", [](Session& session) {
        session.click("mnuAddFromForm");
        session.type("txtEvent", "Thursday League");
        session.click("cmdUpdGames");
        session.type("txtStartLane", "13");
        session.click("cmdUpdFrame");
        session.click("optFirstYes");
    });
}

void addFrameLimit(State& state, const Place& place) {
    saveLimit(state, place,
              "INSERT INTO tblFrameInfo (fldComment, fldSessionNum, fldGameNum, fldFrameNum, fldLaneBowled, "
              "fldFirstBallRes, fldLineScore) VALUES (?, ?, 1, 11, 13, 'X', 'X')");
}

void saveGame(State& state, const Place& place) {
    saveBy(state, place, "cmdNextGame", [](Session& session) { session.handOverTo("frmGame"); });
}

void saveGameLimit(State& state, const Place& place) {
    saveLimit(state, place,
              "UPDATE tblGameInfo SET fldComment = ? WHERE fldSessionNum = ? AND fldGameNum = 1");
}

void saveEvent(State& state, const Place& place) {
    saveBy(state, place, "cmdNextEvent", [](Session& session) { session.handOverTo("frmEvent"); });
}

void saveEventLimit(State& state, const Place& place) {
    saveLimit(state, place, kSaveEvent);
}

void saveFirst(State& state, const Place& place) {
    for (auto round : state) {
        static_cast<void>(round);
        Session session(place.folder, AtStart::GoOn);
        session.state().gMode = kEdit;
        session.state().gSessionNum = place.nights.front();
        session.handOverTo("frmEvent");
        session.type("txtComment", newComment());
        const Stopwatch watch(Time::Wall);
        session.measuredClick("cmdNextEvent");
        state.SetIterationTime(watch.seconds());
    }
}

void saveFirstLimit(State& state, const Place& place) {
    for (auto round : state) {
        static_cast<void>(round);
        const fs::path copy = place.beside("copy.mdb");
        fs::remove(copy);
        PlainDatabase logbook(place.logbook());
        PlainStatement statement(logbook, kSaveEvent);
        const Stopwatch watch(Time::Wall);
        logbook.copyTo(copy);
        saveComment(statement, place.nights.front());
        state.SetIterationTime(watch.seconds());
    }
}

}  // namespace tallybrook::bench
