#pragma once

#include "runtime/DateTime.h"
#include "runtime/Integer.h"

#include <string>
#include <vector>

namespace tallybrook {

/// What the user came for: the values of SessionState::gMode.
inline constexpr Int16 kAdd = 1;
inline constexpr Int16 kEdit = 2;
inline constexpr Int16 kReport = 3;

/// A calculated score that the user accepted.
struct ScoreFix {
    Int32 eventKey;
    Int16 game;
    Int16 score;
};

/// The variables that the screens share. They live for the whole run and belong to no screen.
struct SessionState {
    DateTime gToday = kZeroDate;  // today without a time of day, taken once at the start
    Int16 gMode;                  // what the user came for: kAdd, kEdit, kReport
    Int32 gSessionNum;            // key of the current event, 0 on a blank new one
    Int16 gNumGames;              // games in the current event
    Int16 gGmsRecorded;           // games recorded so far for it
    Int16 gGameNum;               // number of the current game
    Int16 gFrmsRecorded;          // frames recorded so far for it
    Int16 gStartLane;             // its starting lane, as the frame screen read it
    std::string gScoreType;       // its score type as stored: "P", "L" or "N"
    bool gAltLanes = false;       // whether it alternates between the lanes of the pair
    Int16 gSeriesTot;             // series total of the current event
    double gSeriesAvg = 0;        // its series average
    Int32 gFrameKey;              // key of the frame saved last
    std::vector<ScoreFix> gScoreFixes;
    Int16 gScoreFixCount;
    std::string gHHType;     // handheld type: "Palm", "PPC" or empty
    std::string gHHSyncDir;  // handheld synchronisation directory
};

}  // namespace tallybrook
