#pragma once

#include "carry/Messages.h"
#include "runtime/Progress.h"
#include "runtime/RegularFile.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

#include <sys/types.h>

namespace tallybrook::carry {

/// How an old logbook is read.
struct ReadingRules {
    std::filesystem::path program = "/proc/self/exe";  // that becomes the process: by itself this one
    std::chrono::milliseconds longestSilence{20000};   // after which it is ended
};

/// The process broke off, or said what makes no sense, or nothing for too long.
class ReadingBroken : public std::runtime_error {
public:
    ReadingBroken() : std::runtime_error("The file is damaged, so that it could not be read to its end.") {}
};

/// A process that reads an old logbook; it ends with the object. So nothing that the file may do to its
/// reader is done to this process.
class ReadingProcess {
public:
    /// Lets it begin with a file of so many bytes; throws std::system_error.
    ReadingProcess(const RegularFile& file, std::uint64_t size, const ReadingRules& rules);
    ~ReadingProcess();
    ReadingProcess(const ReadingProcess&) = delete;
    ReadingProcess& operator=(const ReadingProcess&) = delete;

    /// Waits for what it says next, and lets `progress` be cancelled meanwhile, of which `done` steps are
    /// done. Throws ReadingBroken and Cancelled.
    Message next(Progress& progress, std::int64_t done);

private:
    void requireBytes(std::size_t count, Progress& progress, std::int64_t done);
    void waitForBytes(Progress& progress, std::int64_t done) const;
    void readBytes();

    pid_t process_ = -1;
    int output_ = -1;
    std::chrono::milliseconds longestSilence_;
    std::uint64_t bytesLeft_;  // that it may still say
    std::string bytes_;        // that it has said
    std::size_t taken_ = 0;    // of these
};

}  // namespace tallybrook::carry
