#pragma once

#include "reliability/Contents.h"
#include "reliability/Fault.h"
#include "reliability/Visit.h"

#include <filesystem>
#include <functional>
#include <ostream>
#include <vector>

namespace tallybrook::test {

/// Something that a person does and that stores rows, or writes files.
struct Operation {
    const char* name;
    std::vector<Device> devices;  // what can fail in it
    /// Makes the data folder that it starts from.
    std::function<void(const std::filesystem::path&)> makeLogbook;
    /// Starts the program, and does all that comes before.
    std::function<void(Visit&)> prepare;
    /// From the moment when the disk can fail, back to the main menu.
    std::function<void(Visit&)> act;
    /// Whether a data folder can hold that afterwards, whatever failed.
    std::function<bool(const SaveHistory& clean, const Contents& contents, const std::filesystem::path& data)>
        isLeft;
    bool mayEnd = false;     // whether a failure may end the program
    bool onlyReads = false;  // whether it leaves all files as they are

    friend std::ostream& operator<<(std::ostream& out, const Operation& operation) {
        return out << operation.name;
    }
};

const std::vector<Operation>& operations();

/// A day with the program, on the data folder that makeLogbookWithHandheld() makes: entry, an import, a check
/// and a deletion, in steps each of which stores something.
const std::vector<std::function<void(Visit&)>>& dayWithTheProgram();

/// A logbook of one game, and a handheld with something to import.
void makeLogbookWithHandheld(const std::filesystem::path& data);

/// Whether the handheld has all that it had.
bool isOnHandheld(const std::filesystem::path& data);

/// Whether the logbook has it.
bool isImported(const Contents& contents);

}  // namespace tallybrook::test
