#pragma once

#include "controls/Screen.h"
#include "handheld/AddedRows.h"
#include "handheld/CdbFormat.h"
#include "handheld/FileHandle.h"
#include "handheld/SyncLog.h"
#include "runtime/TextFile.h"
#include "shell/Program.h"
#include "store/DataControl.h"
#include "store/RowInsert.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace tallybrook {

/// What the rows are added through: the screen's data control, by which events are looked for as well, and
/// whole rows of the other tables.
struct SyncControls {
    explicit SyncControls(Store& store);

    DataControl adoTBKEvent;
    RowInsert games;
    RowInsert frames;
};

/// One of the export files during a run.
struct SyncFile {
    const CdbFormat& format;
    FileHandle<TextReader> tmp;  // the copy that is read
    FileHandle<TextWriter> out;  // what is to take the file's place, if records are to be deleted
    bool isEmpty = false;        // whether a record count of 0 has ended its reading
};

/// One import from its first message to its last: what its procedures share, and the failure path that each
/// of them has.
class SyncRun {
public:
    /// Starts at this moment of the program's clock.
    SyncRun(Program& owner, Screen& screen, SyncControls& controls);

    Program& program;
    Screen& form;
    const std::string SyncStamp;
    bool DeleteFromPDA = false;
    SyncLog log;
    SyncFile event{.format = kEventFormat, .tmp = {}, .out = {}};
    SyncFile game{.format = kGameFormat, .tmp = {}, .out = {}};
    SyncFile frame{.format = kFrameFormat, .tmp = {}, .out = {}};
    AddedRows AddedEvents;
    AddedRows AddedGames;

    /// The export files in the order in which everything is done to them.
    [[nodiscard]] std::array<SyncFile*, 3> files() { return {&event, &game, &frame}; }
    /// The screen's controls; error 91 once it has been unloaded.
    [[nodiscard]] SyncControls& controls() const;

    // Where the files of the run lie.
    [[nodiscard]] std::filesystem::path workingFile(const SyncFile& file, std::string_view extension) const;
    [[nodiscard]] std::filesystem::path archiveFile(const SyncFile& file) const;
    [[nodiscard]] std::filesystem::path handheldFile(const SyncFile& file) const;
    [[nodiscard]] std::filesystem::path masterLogFile() const;
    [[nodiscard]] std::filesystem::path runLogFile() const;

    /// Takes the date and the time, and writes them to the run's log behind the first text and before the
    /// second.
    void logStamped(std::string_view before, std::string_view behind = {});

    /// Runs a procedure of the run: a failure takes the failure path and leaves the procedure, of which its
    /// caller learns nothing.
    template <typename Body>
    void procedure(std::string_view name, Body body) {
        try {
            withMemoryErrors(body);
        } catch (const RunTimeError& failure) {
            giveUp(failure, name);
        }
    }

    /// The failure path: tells the failure in a box and in the master log, and leaves for the main menu.
    /// Where the log is closed already it fails with error 52, before anything is left.
    void giveUp(const RunTimeError& failure, std::string_view procedure);

    /// Closes all files, unloads the screen and shows the main menu.
    void leaveForMain();

private:
    [[nodiscard]] std::filesystem::path workingFolder() const { return program.dataFolder / "TBRK"; }
    [[nodiscard]] std::filesystem::path archiveFolder() const { return workingFolder() / "PDA DB Archive"; }

    SyncControls& controls_;
};

}  // namespace tallybrook
