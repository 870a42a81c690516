#pragma once

#include <stdexcept>
#include <string>

namespace tallybrook::keeper {

/// How a command ends, for scripts: the exit status of the program.
enum class ExitStatus {
    Done = 0,
    Failed = 1,      // it could not be done; everything is as it was
    WrongUsage = 2,  // the command line is not understood
    Busy = 3,        // Tallybrook or another keeper is using the logbook
    BadInput = 4,    // a file that was to be read is damaged, or of another kind
    Cancelled = 5,   // somebody gave it up; everything is as it was
};

/// A command that cannot be carried out. what() is a text for people that says what is wrong and what can be
/// done.
class Refused : public std::runtime_error {
public:
    Refused(ExitStatus status, const std::string& why) : std::runtime_error(why), status_(status) {}

    [[nodiscard]] ExitStatus status() const { return status_; }

private:
    ExitStatus status_;
};

}  // namespace tallybrook::keeper
