#include "maintenance/modDBUtils.h"

#include "maintenance/CheckRun.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"
#include "store/Recordset.h"
#include "store/Update_Series.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <vector>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// "11/14/2026, 9:55:00 PM": date and time of day, each in its short form.
std::string stampOf(const Program& program) {
    const DateTime now = withoutSeconds(program.clock.now());
    return shortDate(now) + ", " + timeText(now);
}

/// Whether there may be an event of that key, or a game of one.
bool isKeyInUse(Store& store, Int32 eventKey) {
    return std::ranges::any_of(std::array{"tblEventInfo", "tblGameInfo"}, [&](const char* table) {
        try {
            Recordset rows(store);
            rows.Open(
                fmt::format("SELECT fldSessionNum FROM {} WHERE fldSessionNum = {}", table, text(eventKey)));
            return rows.RecordCount() > 0;
        } catch (const std::exception&) {
            return true;
        }
    });
}

}  // namespace

void DB_Check(Program& program) {
    CheckRun run(program);
    const Handler step = run.handler("DB_Check");
    step([&] { run.createRecordsets(); });
    const std::string started = stampOf(program);
    step([&] { run.openReport(); });
    step([&] {
        run.print("***************************************************\r\nDatabase check started on " +
                  started);
    });
    DB_Integ(run);
    Check_ScType(run);
    Upd_Avg(run);
    step([&] { run.print("Database check completed on " + stampOf(program)); });
    step([&] { run.closeReport(); });
    run.releaseRecordsets();
    program.display.messageBox({.text = lines({"Database check is complete. ",
                                               "Results are logged to " + run.reportFile().string()}),
                                .title = "Check Complete",
                                .icon = Icon::Information});
}

void askForCheck(Program& program) {
    const Answer answer = program.display.messageBox(
        question(lines({"Check database consistency?",
                        "This could take a few minutes, depending on the size of your database."}),
                 "Database Check"));
    if (answer == Answer::Yes)
        DB_Check(program);
}

void Upd_Avg(CheckRun& run) {
    const Handler step = run.handler("Upd_Avg");
    step([&] { run.print("Updating event averages."); });
    step([&] { run.gDBRsEvent->Open("SELECT fldSessionNum FROM tblEventInfo"); });
    int count = 0;
    step([&] { count = run.gDBRsEvent->RecordCount(); });
    std::vector<Int32> eventKeys;
    step([&] {
        if (count < 1)
            throw RunTimeError(error::kSubscriptOutOfRange);
        eventKeys.resize(static_cast<std::size_t>(count));
    });
    if (count < 1) {
        run.program.display.messageBox({.text = "No events in the database to process.",
                                        .title = "No Events",
                                        .icon = Icon::Information});
    }
    step([&] { run.gDBRsEvent->Close(); });
    // Nothing puts the events' keys into the array, so no event is updated. The screens keep the totals.
    // Where no row has the key that all of them are, the first series comes to the same as each of the
    // others.
    if (eventKeys.size() > 1 && !isKeyInUse(run.program.store(), eventKeys.front()))
        eventKeys.resize(1);
    SessionState& session = run.program.session;
    for (const Int32 key : eventKeys)
        Update_Series(run.program.store(), run.program.reporter, key,
                      {session.gSeriesTot, session.gSeriesAvg, session.gGmsRecorded});
}

void DB_Stats(Program& program) {
    struct Count {
        RecordsetVariable CheckRun::*rows;
        const char* sql;
        Int16 rowCount;
    };
    std::array<Count, 6> counts{
        {{&CheckRun::gDBRsEvent, "SELECT * FROM tblEventInfo", {}},
         {&CheckRun::gDBRsEvent, "SELECT * FROM tblEventInfo WHERE fldEventType = 'PRACTICE'", {}},
         {&CheckRun::gDBRsEvent, "SELECT * FROM tblEventInfo WHERE fldEventType = 'LEAGUE'", {}},
         {&CheckRun::gDBRsEvent, "SELECT * FROM tblEventInfo WHERE fldEventType = 'TOURNAMENT'", {}},
         {&CheckRun::gDBRsGame, "SELECT * FROM tblGameInfo", {}},
         {&CheckRun::gDBRsFrame, "SELECT * FROM tblFrameInfo", {}}}};
    auto& [events, practice, league, tournament, games, frames] = counts;

    CheckRun run(program);
    const Handler step = run.handler("DB_Stats");
    step([&] { run.createRecordsets(); });
    for (Count& count : counts) {
        const RecordsetVariable& rows = run.*count.rows;
        step([&] { rows->Open(count.sql); });
        step([&] { count.rowCount = rows->RecordCount(); });
        step([&] { rows->Close(); });
    }

    const std::filesystem::path file = program.logbookFile();
    DateTime modified = kZeroDate;
    std::uintmax_t size = 0;
    step([&] { modified = fileDate(file); });
    step([&] { size = fileLength(file); });
    program.display.messageBox(
        {.text =
             lines({"Number of events: " + text(events.rowCount), "League Events: " + text(league.rowCount),
                    "Practice Events: " + text(practice.rowCount),
                    "Tournament Events: " + text(tournament.rowCount), "",
                    "Number of games: " + text(games.rowCount), "Number of frames: " + text(frames.rowCount),
                    "", "Database location: " + file.string(), fmt::format("Database size: {}", size),
                    "Last modified: " + dateText(modified)}),
         .title = "Database Statistics"});
}

}  // namespace tallybrook
