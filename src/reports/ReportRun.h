#pragma once

#include "bowling/TenthFrame.h"
#include "reports/modTBKReports.h"
#include "runtime/TextFile.h"
#include "shell/Program.h"
#include "shell/SharedFile.h"
#include "store/EventRows.h"
#include "store/RecordsetVariable.h"
#include "store/RowStream.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace tallybrook {

/// One report on its way: what its procedures share, and the handler that each of them has.
class ReportRun {
public:
    explicit ReportRun(Program& owner) : program(owner) {}

    Program& program;
    RecordsetVariable gRsEvent;
    RecordsetVariable gRsGame;   // games of one event
    RecordsetVariable gRsFrame;  // frames of one game
    std::string gReportSQL;      // selects the events
    Int32 gReportCount;          // how many events it finds

    /// Creates or replaces the report's file; errors as openSharedFile() raises them.
    void openFile(const std::string& file) { gReportFile_ = openSharedFile(program, file); }
    void closeFile();
    /// Writes one line; error 52 when the file is closed.
    void print(std::string_view line);

    /// Runs a procedure of the report under its handler: a failure is told in a box with the procedure's
    /// name, closes the file, clears the recordsets and leaves the procedure; the report then goes on with
    /// the next one.
    template <typename Body>
    void procedure(std::string_view name, Body body) {
        try {
            withMemoryErrors(body);
        } catch (const RunTimeError& failure) {
            giveUp(failure, name);
        }
    }

    void createRecordsets();
    void clearRecordsets();
    /// Error 91 once they have been cleared.
    void requireRecordsets() const { static_cast<void>(*gRsEvent); }

    /// The events that gReportSQL selects, with these fields. Errors as requireRecordsets() and those of
    /// RowStream.
    [[nodiscard]] RowStream events(std::initializer_list<std::string_view> fields) const;

private:
    void giveUp(const RunTimeError& failure, std::string_view procedure);

    std::optional<TextWriter> gReportFile_;
};

/// Selects the games of the event with this key, in the order of their numbers.
std::string gamesOf(Int32 eventKey);

/// Selects the frames of a game, in the order of their numbers.
std::string framesOf(Int32 eventKey, Int16 game);

/// What a tenth frame's row tells of its kind.
TenthFrameValues tenthFrameIn(const StoredFrame& frame);

/// The number passed through the number format with `decimals` places and read back.
double roundedTo(double number, int decimals);

}  // namespace tallybrook
