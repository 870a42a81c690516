#pragma once

#include "Files.h"
#include "SourceFolder.h"
#include "readers/ReportText.h"

namespace tallybrook::test {

/// Where the program's own reports of a season stand.
inline QString goldenFile(const QString& name) {
    return QString(TALLYBROOK_SOURCE_DIR) + "/tests/reports/season/" + name;
}

/// The text of one of them as the viewer has it.
inline QString goldenReport(const QString& name) {
    return readReport(goldenFile(name)).text;
}

/// The report of one game as the program writes it.
inline const QString kGameReport =
    "Report Date: 11/14/2026 9:55:00 PM\n"
    "Event Information\n"
    "*****************\n"
    "Event Name: Season\n"
    "Center Name: \n"
    "Location: \n"
    "Date Bowled: 10/30/2024\n"
    "Comment: Line Score:\n"
    "----- Game Information (Game #2) -----\n"
    "Game: 2\tLane Pair: 27-28\tGame Score: 117\n"
    "Lane Condition: \n"
    "Comment: dry lanes\n"
    "----- Frame Information (Game #2) -----\n"
    "Frame: 1\tLane: 28\n"
    "Line Score:\n"
    "1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t\n"
    "81\t0/\t8/\t90\t9/\t80\t09\t90\tX\tX8/\t\n"
    "\n"
    "Tallybrook\n"
    "All Rights Reserved\n";

}  // namespace tallybrook::test
