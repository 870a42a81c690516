#pragma once

#include "sample/Logbook.h"

#include <filesystem>
#include <stdexcept>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::sample {

/// The folder holds a logbook already; what() says so.
class LogbookExists : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A logbook's file on its way, as the program makes one: nothing is there of it until it is finished.
class LogbookFile {
public:
    /// Begins a logbook in a folder, which it makes, with those of the handheld's files, where there is none.
    /// Throws LogbookExists, and what the store, the engine and the file system report.
    explicit LogbookFile(const std::filesystem::path& folder);
    ~LogbookFile();
    LogbookFile(const LogbookFile&) = delete;
    LogbookFile& operator=(const LogbookFile&) = delete;

    /// Adds an event with its games and frames.
    void add(const Event& event);
    /// Puts the logbook in its place.
    void finish();

private:
    void addGame(const Event& event, const Game& game);
    void addFrame(const Event& event, const Game& game, const Frame& frame);

    struct Unfinished {
        std::filesystem::path file;
        ~Unfinished();
    };

    std::filesystem::path file_;
    Unfinished unfinished_;
    SQLite::Database database_;
    SQLite::Transaction transaction_;
    SQLite::Statement insertEvent_;
    SQLite::Statement insertGame_;
    SQLite::Statement insertFrame_;
    Counts counts_;  // of what was added: the last keys
};

}  // namespace tallybrook::sample
