#include "handheld/CdbReader.h"
#include "handheld/ReadCDB.h"
#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

// Fields of an event record.
constexpr int kEventId = 3;
constexpr int kEventName = 4;
constexpr int kDateBowled = 5;
constexpr int kEventType = 6;
constexpr int kCenterName = 7;
constexpr int kCenterLoc = 8;
constexpr int kComment = 9;
constexpr int kNumGames = 10;
constexpr int kSeriesAvg = 11;
constexpr int kSeriesTot = 12;

/// Whether the user wants the record beside the stored events with its record ID.
bool isWantedTwice(SyncRun& run, CommitAtEnd& rows, Recordset& duplicates, const CdbRecord& record) {
    std::string text = "Duplicate Event(s) Found:\r\n";
    for (duplicates.MoveFirst(); !duplicates.Eof(); duplicates.MoveNext())
        text += fmt::format("Event: {}\r\nDate Bowled: {}\r\n", toText(duplicates["fldEventName"]),
                            toText(duplicates["fldDateBowled"]));
    text += fmt::format("PDA Record\r\nEvent: {}\r\nDate: {}\r\nAdd record from PDA?",
                        record.text(kEventName), record.text(kDateBowled));
    bringToDisk(run, rows);
    return run.program.display.messageBox(question(text, "Duplicate Record ID", Icon::Warning)) ==
           Answer::Yes;
}

Int32 storeEvent(Recordset& events, const CdbRecord& record, DateTime dateBowled) {
    events.AddNew();
    events["fldEventName"] = record.value(kEventName);
    events["fldDateBowled"] = dateBowled;
    events["fldEventType"] = upperCase(record.text(kEventType));
    events["fldCenterName"] = record.value(kCenterName);
    events["fldCenterLoc"] = record.value(kCenterLoc);
    events["fldComment"] = record.value(kComment);
    events["fldNumGames"] = record.value(kNumGames);
    events["fldSeriesTot"] = record.value(kSeriesTot);
    events["fldSeriesAvg"] = record.value(kSeriesAvg);
    events["fldHHRecordID"] = record.id();
    events["fldGmsRecorded"] = valueOf(Int16{0});
    events.Update();
    return toInt32(events["fldSessionNum"]);
}

Outcome addEvent(SyncRun& run, CommitAtEnd& rows, CdbRecord& record) {
    record.cut(kEventId, kDateBowled);
    DataControl& adoTBKEvent = run.controls().adoTBKEvent;
    adoTBKEvent.setRecordSource(
        fmt::format("SELECT * FROM tblEventInfo WHERE fldHHRecordID = '{}'", record.id()));
    adoTBKEvent.Refresh();
    Recordset& events = adoTBKEvent.recordset();
    if (events.RecordCount() > 0 && !isWantedTwice(run, rows, events, record))
        return {.isAdded = false,
                .logLine = fmt::format("Conflicting record ID {} not processed.", record.id())};

    // A text that is no date fails here and ends the reading, so nobody is ever asked for a better one.
    const DateTime dateBowled = dateOnly(readDate(record.text(kDateBowled), run.program.clock.year()));
    record.cut(kEventType, kSeriesTot);
    const Int32 key = storeEvent(run.controls().adoTBKEvent.recordset(), record, dateBowled);
    run.AddedEvents.add(record.text(kEventId), key);
    return {.isAdded = true,
            .logLine = fmt::format("Event {} added to database. Key: {}", record.id(), key.value())};
}

}  // namespace

bool ReadCDBEvents(SyncRun& run) {
    run.procedure("ReadCDBEvents", [&] {
        CommitAtEnd rows(run.program.store());
        readExportFile(run, run.event, rows, [&](CdbRecord& record) { return addEvent(run, rows, record); });
    });
    return run.event.isEmpty;
}

}  // namespace tallybrook
