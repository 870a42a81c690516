#include "handheld/CdbReader.h"
#include "handheld/ReadCDB.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

// Fields of a game record.
constexpr int kGameId = 3;
constexpr int kEventId = 4;
constexpr int kGameNum = 5;
constexpr int kGameScore = 6;
constexpr int kLeftLane = 8;
constexpr int kRightLane = 9;
constexpr int kStartLane = 10;
constexpr int kLanePair = 11;
constexpr int kScoreType = 12;
constexpr int kLaneCond = 13;
constexpr int kComment = 14;

Int32 storeGame(RowInsert& games, const CdbRecord& record, Int32 eventKey) {
    const auto value = [&](int field) -> const Value& { return record.value(field); };
    return games.add(valueOf(eventKey), value(kGameNum), value(kLanePair), value(kLeftLane),
                     value(kRightLane), value(kStartLane), value(kGameScore), value(kLaneCond),
                     value(kComment), value(kScoreType), Value{record.id()}, Value{"N"}, valueOf(Int16{0}));
}

Outcome addGame(SyncRun& run, CdbRecord& record) {
    const auto eventKey = run.AddedEvents.find(record.text(kEventId));
    if (!eventKey)
        return {.isAdded = false,
                .logLine = fmt::format("No event found for record ID {}. Event ID: {}", record.id(),
                                       record.text(kEventId))};
    record.cut(kGameNum, kComment);
    run.AddedGames.add(record.text(kGameId), storeGame(run.controls().games, record, *eventKey));
    return {.isAdded = true,
            .logLine = fmt::format("Record ID: {} added to database, Event key: {}, Game number: {}",
                                   record.id(), eventKey->value(), toText(record.value(kGameNum)))};
}

}  // namespace

bool ReadCDBGames(SyncRun& run) {
    run.procedure("ReadCDBGames", [&] {
        CommitAtEnd rows(run.program.store());
        readExportFile(run, run.game, rows, [&run](CdbRecord& record) { return addGame(run, record); });
    });
    return run.game.isEmpty;
}

}  // namespace tallybrook
