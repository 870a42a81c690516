#pragma once

#include "runtime/TextFile.h"
#include "shell/Program.h"
#include "store/RecordsetVariable.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallybrook {

/// One check of the database: the recordsets and the report file that its procedures share.
class CheckRun {
public:
    explicit CheckRun(Program& owner) : program(owner) {}

    Program& program;
    RecordsetVariable gDBRsEvent;
    RecordsetVariable gDBRsGame;
    RecordsetVariable gDBRsFrame;

    /// Where the report is kept.
    [[nodiscard]] std::filesystem::path reportFile() const { return program.dataFolder / "DB_Report.txt"; }
    /// Opens the report to append to it; errors as openSharedFile() raises them.
    void openReport();
    void closeReport();
    /// Writes one line; error 52 when the file is closed.
    void print(std::string_view line);

    void createRecordsets();
    void releaseRecordsets();

    /// The handler of one of the check's procedures.
    [[nodiscard]] Handler handler(const std::string& procedure) const {
        return {program.reporter, "DB_Utils, " + procedure + "."};
    }

private:
    std::optional<TextWriter> gDBLogFile_;
};

/// Deletes the frames and games that belong to no event.
void DB_Integ(CheckRun& run);

/// Puts right the score type and the count of frames of each game, and the count of games of each event.
void Check_ScType(CheckRun& run);

/// The step for the events' averages. It changes no event.
void Upd_Avg(CheckRun& run);

}  // namespace tallybrook
