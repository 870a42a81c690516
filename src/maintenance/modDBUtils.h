#pragma once

namespace tallybrook {

class Program;

/// Brings the tables into agreement: deletes games and frames without an event, puts score types and recorded
/// counts right, and appends to "DB_Report.txt" in the data folder what it changed. Ends with a box; failures
/// are told in boxes of their own.
void DB_Check(Program& program);

/// Asks whether to check the database, and does so on Yes: what the program does at its start.
void askForCheck(Program& program);

/// Counts the logbook's rows and tells them in a box, with the file's place, size and date.
void DB_Stats(Program& program);

}  // namespace tallybrook
