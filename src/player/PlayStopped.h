#pragma once

#include <string>

namespace tallybrook {

/// How a play ends; also the exit status of the player.
namespace status {
inline constexpr int kPlayed = 0;         // the script ran to its end
inline constexpr int kNotCarriedOut = 1;  // a line could not be carried out, or a box was left unanswered
inline constexpr int kWrongUsage = 2;
inline constexpr int kRetrying = 3;  // the program tries a statement again without end
}  // namespace status

/// Ends the play before its script does. It passes through the program's own code when a box is left
/// unanswered, and is deliberately no std::exception: nothing on the way takes it for a failure of its own.
struct PlayStopped {
    int status = status::kNotCarriedOut;
    std::string message;  // for standard error, with the number of the line
};

/// Stops the play at a line of its script, counted from 1.
[[noreturn]] inline void stopAt(int line, const std::string& message,
                                int exitStatus = status::kNotCarriedOut) {
    throw PlayStopped{.status = exitStatus, .message = "line " + std::to_string(line) + ": " + message};
}

}  // namespace tallybrook
