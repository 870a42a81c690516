#include "handheld/CdbReader.h"
#include "handheld/ReadCDB.h"

#include <fmt/format.h>

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

void storeFrame(DataControl& adoTBKFrame, const CdbRecord& record, Int32 eventKey) {
    adoTBKFrame.Refresh();
    Recordset& frames = adoTBKFrame.recordset();
    frames.AddNew();
    frames["fldSessionNum"] = valueOf(eventKey);
    frames["fldGameNum"] = record.value(kGameNum);  // whatever the number of the game found
    frames["fldFrameNum"] = record.value(kFrameNum);
    frames["fldLaneBowled"] = record.value(kLaneBowled);
    frames["fldBallUsed"] = record.value(kBallUsed);
    frames["fldFootPos"] = record.value(kFootPos);
    frames["fldLaneTgt"] = record.value(kLaneTgt);
    frames["fldFirstBallRes"] = record.value(kFirstBall);
    frames["fldSecondBallRes"] = record.value(kSecondBall);
    frames["fldFillBallRes"] = record.value(kFillBall);
    frames["fldComment"] = record.value(kComment);
    frames["fldLineScore"] = record.value(kLineScore);
    frames["fldHHRecordID"] = record.id();
    frames.Update();
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
    storeFrame(run.controls().adoTBKFrame, record, *eventKey);
    return {.isAdded = true,
            .logLine = fmt::format(
                "Record ID: {} added to database, Event key: {}, Game number: {}, Frame number: {}",
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
