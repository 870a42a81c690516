#include "handheld/CdbReader.h"
#include "handheld/ReadCDB.h"

#include <fmt/compile.h>

namespace tallybrook {

namespace {

// Fields of a frame record.
constexpr int kEventId = 4;
constexpr int kGameId = 5;
constexpr int kFrameNum = 6;
constexpr int kGameNum = 7;
constexpr int kLaneBowled = 8;
constexpr int kBallUsed = 9;
constexpr int kFootPos = 10;
constexpr int kLaneTgt = 11;
constexpr int kFirstBall = 12;
constexpr int kSecondBall = 13;
constexpr int kFillBall = 14;
constexpr int kLineScore = 15;
constexpr int kComment = 16;

/// Under the game number that the record itself tells, whatever that of the game found.
void storeFrame(RowInsert& frames, const CdbRecord& record, Int32 eventKey) {
    const auto value = [&](int field) -> const Value& { return record.value(field); };
    frames.add(valueOf(eventKey), value(kGameNum), value(kFrameNum), value(kLaneBowled), value(kBallUsed),
               value(kFootPos), value(kLaneTgt), value(kFirstBall), value(kSecondBall), value(kFillBall),
               value(kComment), value(kLineScore), Value{record.id()});
}

Outcome addFrame(SyncRun& run, CdbRecord& record) {
    const std::string frameNum = toText(record.value(kFrameNum));
    const std::string gameNum = toText(record.value(kGameNum));
    const auto eventKey = run.AddedEvents.find(record.text(kEventId));
    if (!run.AddedGames.find(record.text(kGameId)) || !eventKey)
        return {.isAdded = false,
                .logLine = fmt::format("No event or game found for Record ID {}, will not be added. Frame "
                                       "number: {}, Game number: {}",
                                       record.id(), frameNum, gameNum)};
    record.cut(kLaneBowled, kComment);
    storeFrame(run.controls().frames, record, *eventKey);
    return {.isAdded = true,
            .logLine = fmt::format(FMT_COMPILE("Record ID: {} added to database, Event key: {}, Game number: "
                                               "{}, Frame number: {}"),
                                   record.id(), eventKey->value(), gameNum, frameNum)};
}

}  // namespace

void ReadCDBFrames(SyncRun& run) {
    run.procedure("ReadCDBFrames", [&] {
        CommitAtEnd rows(run.program.store());
        readExportFile(run, run.frame, rows, [&run](CdbRecord& record) { return addFrame(run, record); });
    });
}

}  // namespace tallybrook
