#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook::test {

/// The run as it is told, step by step, over plain texts: a second telling to compare the program with. It
/// knows bytes for characters, and a logbook that is empty at the start.
class SyncModel {
public:
    /// The bytes of the three working files, the answer to the question whether to delete, and the answers to
    /// the questions about duplicates, in turn and over again.
    SyncModel(std::map<std::string, std::string> cdb, bool deleteFromPDA, std::vector<bool> takeDuplicates);

    void run();

    std::map<std::string, std::string> cdb;  // by base name
    std::vector<std::string>
        boxes;           // "5 ParseDBLine" for a failure, "Yes" for one about duplicates, or a title
    std::string runLog;  // from the reading of the events on
    std::vector<std::string> events, games, frames;  // rows, as rowText() writes them
    std::optional<int> uncaught;

private:
    struct Fault {
        int number;
    };
    struct Reading;

    template <typename Body>
    void procedure(const std::string& name, Body body);
    void fail(int number, const std::string& name);
    void write(const std::string& line);
    void writeOut(const std::string& file, const std::string& line);

    std::string ParseDBLine(int& start, int& end, const std::string& previous, char delimiter,
                            const std::string& line);
    bool ReadCDBEvents();
    bool ReadCDBGames();
    void ReadCDBFrames();
    void reconcile();
    void Sync_Cleanup();

    bool deleteFromPDA_;
    std::vector<bool> takeDuplicates_;
    std::size_t asked_ = 0;
    bool open_ = true;  // the files and the screen
    std::map<std::string, std::string> out_;
    struct Added {
        int key;
        std::string handheldId;
    };
    std::vector<Added> addedEvents_;
    std::vector<std::string> addedGames_;
    struct StoredEvent {
        std::string recordId, name, date;
    };
    std::vector<StoredEvent> stored_;
};

/// The parts of a row as one text.
std::string rowText(const std::vector<std::string>& values);

}  // namespace tallybrook::test
