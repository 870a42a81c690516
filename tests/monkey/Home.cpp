#include "monkey/Home.h"

#include "sample/Dice.h"
#include "sample/Sample.h"

#include <fstream>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

// Rows as no screen makes them.
constexpr const char* kOddities[] = {
    "UPDATE tblEventInfo SET fldEventName = '<b>x</b> %s%n ''; DROP TABLE tblEventInfo; --' WHERE "
    "fldSessionNum = 1",
    "UPDATE tblEventInfo SET fldCenterName = 'O''Malley''s', fldCenterLoc = NULL WHERE fldSessionNum = 1",
    "UPDATE tblEventInfo SET fldDateBowled = NULL WHERE fldSessionNum = 2",
    "UPDATE tblEventInfo SET fldDateBowled = '2026-11-04T10:00' WHERE fldSessionNum = 2",
    "UPDATE tblEventInfo SET fldNumGames = 'three', fldSeriesAvg = 'high' WHERE fldSessionNum = 2",
    "UPDATE tblEventInfo SET fldNumGames = 99999, fldSeriesTot = -1 WHERE fldSessionNum = 1",
    "UPDATE tblEventInfo SET fldEventType = 'SOMETHING', fldComment = 7 WHERE fldSessionNum = 1",
    "UPDATE tblEventInfo SET fldEventName = hex(zeroblob(3000)) WHERE fldSessionNum = 2",
    "UPDATE tblEventInfo SET fldHHRecordID = NULL",
    "UPDATE tblGameInfo SET fldScoreType = 'Q' WHERE fldGameKey % 3 = 0",
    "UPDATE tblGameInfo SET fldScoreType = NULL, fldBowlHand = NULL WHERE fldGameKey % 4 = 1",
    "UPDATE tblGameInfo SET fldScoreType = 'L' WHERE fldGameKey % 2 = 1",
    "UPDATE tblGameInfo SET fldGameScore = 301, fldStartLane = 0 WHERE fldGameKey % 3 = 1",
    "UPDATE tblGameInfo SET fldGameNum = 1 WHERE fldSessionNum = 1",
    "UPDATE tblGameInfo SET fldLanePair = 'x', fldLeftLane = NULL, fldRightLane = 'r' WHERE fldGameKey % 5 = "
    "1",
    "DELETE FROM tblGameInfo WHERE fldGameKey % 5 = 2",
    "UPDATE tblFrameInfo SET fldLineScore = '?/X9' WHERE fldFrameKey % 7 = 0",
    "UPDATE tblFrameInfo SET fldLineScore = NULL, fldFirstBallRes = NULL WHERE fldFrameKey % 11 = 0",
    "UPDATE tblFrameInfo SET fldFirstBallRes = '1-2-3-4-5-6-7-8-9-10-11' WHERE fldFrameKey % 5 = 0",
    "UPDATE tblFrameInfo SET fldSecondBallRes = '--', fldFillBallRes = '0' WHERE fldFrameKey % 6 = 0",
    "UPDATE tblFrameInfo SET fldFrameNum = 11 WHERE fldFrameNum = 10",
    "UPDATE tblFrameInfo SET fldFrameNum = 0 WHERE fldFrameKey % 13 = 0",
    "UPDATE tblFrameInfo SET fldLaneBowled = -5, fldBallUsed = NULL WHERE fldFrameKey % 9 = 0",
    "DELETE FROM tblFrameInfo WHERE fldFrameKey % 8 = 3",
    "DELETE FROM tblEventInfo WHERE fldSessionNum = 3",
    "DELETE FROM tblFrameInfo",
};

constexpr int kOddityChance = 120;  // in a thousand, for each of them

void makeOdd(const fs::path& logbook, sample::Dice& dice) {
    SQLite::Database database(logbook.string(), SQLite::OPEN_READWRITE);
    for (const char* const oddity : kOddities)
        if (dice.happens(kOddityChance))
            database.exec(oddity);
}

void leaveHandheldFiles(const fs::path& data) {
    for (const char* const name : {"tblEvent.cdb", "tblGame.cdb", "tblFrame.cdb"}) {
        fs::copy_file(data / name, data / "TBRK" / name);
        fs::rename(data / name, data / "Hand" / name);
    }
}

}  // namespace

void makeHome(std::uint64_t seed, const fs::path& data) {
    sample::Dice dice(seed);
    fs::create_directories(data / "Reports");
    fs::create_directories(data / "Hand");
    sample::makeSample({.events = dice.between(1, 4), .seed = seed, .data = data, .cdb = true});
    leaveHandheldFiles(data);
    makeOdd(data / "Tallybrook_DB.mdb", dice);
    if (dice.happens(750))
        std::ofstream(data / "tbrkcfg.conf") << "HHTYPE=\"" << (dice.happens(500) ? "Palm" : "PPC")
                                             << "\"\nHHSYNCDIR=\"" << (data / "Hand").string() << "\"\n";
}

}  // namespace tallybrook::test
