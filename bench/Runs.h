#pragma once

#include "Place.h"

#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>

// How each work is done: by the program, from the click to the end of what it brings, and by its limit.
namespace tallybrook::bench {

using benchmark::State;

void statisticalReport(State& state, const Place& place);
void statisticalReportLimit(State& state, const Place& place);
void eventReport(State& state, const Place& place);
void eventReportLimit(State& state, const Place& place);

void peak(State& state, const Place& place);
void peakLimit(State& state, const Place& place);
/// Kibibytes by which the memory of this process grows at its peak, above what it needs idle, while a
/// statistical report is written. To be called in a process of its own.
long peakOfProgram(const std::filesystem::path& folder);
long peakOfLimit(const std::filesystem::path& folder);

void consistencyCheck(State& state, const Place& place);
void consistencyCheckLimit(State& state, const Place& place);
void importAll(State& state, const Place& place);
void importAllLimit(State& state, const Place& place);
/// Until the rows of the event are on the disk. What is counted goes on to the end of the check of the whole
/// logbook that ends every import.
void importOne(State& state, const Place& place);
inline constexpr const char* kMsToTheEnd = "ms, end";
void importOneLimit(State& state, const Place& place);

void eventList(State& state, const Place& place);
void eventListLimit(State& state, const Place& place);
void eventSearch(State& state, const Place& place);
void eventSearchLimit(State& state, const Place& place);
void gameList(State& state, const Place& place);
void gameListLimit(State& state, const Place& place);

void saveFrame(State& state, const Place& place);
void saveFrameLimit(State& state, const Place& place);
void addFrame(State& state, const Place& place);
void addFrameLimit(State& state, const Place& place);
void saveGame(State& state, const Place& place);
void saveGameLimit(State& state, const Place& place);
void saveEvent(State& state, const Place& place);
void saveEventLimit(State& state, const Place& place);

/// Right after the start, when the backup of the logbook has only begun: by the clock on the wall.
void saveFirst(State& state, const Place& place);
void saveFirstLimit(State& state, const Place& place);

/// The keeper's: the logbook as an archive, as CSV and as a workbook; a new logbook from an archive and from
/// an old logbook.
void archiveOut(State& state, const Place& place);
void csvOut(State& state, const Place& place);
void textOutLimit(State& state, const Place& place);
void workbookOut(State& state, const Place& place);
void workbookOutLimit(State& state, const Place& place);
void archiveIn(State& state, const Place& place);
void archiveInLimit(State& state, const Place& place);
void carryIn(State& state, const Place& place);
void carryInLimit(State& state, const Place& place);

/// A click or a key on the frame screen until all that it changes is painted, on the real windows; the one
/// of a hundred that takes longest.
void frameClicks(State& state, const Place& place);
void frameClicksLarge(State& state, const Place& place);
/// The milliseconds of that, on a window of a size such as "2560x1440", or of its usual size where that is
/// empty. To be called in a process of its own.
double slowestClicks(const std::filesystem::path& folder, const std::string& size);

/// Up to the main menu on the real windows; the limit is the toolkit with one line of text. What is counted
/// is the wall's time until the first window is painted.
void start(State& state, const Place& place);
inline constexpr const char* kMsToFirstPaint = "ms wall, first paint";
void startLimit(State& state, const Place& place);

}  // namespace tallybrook::bench
