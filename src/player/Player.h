#pragma once

#include "player/AnswerLines.h"
#include "player/Performer.h"
#include "player/Places.h"
#include "player/RecordingDisplay.h"
#include "player/Script.h"
#include "player/Stage.h"
#include "player/Transcript.h"
#include "runtime/Clock.h"
#include "shell/Program.h"

#include <functional>
#include <istream>
#include <optional>
#include <ostream>

namespace tallybrook {

/// Plays a script on a stage. The program that is played is made by the caller, over display() and clock().
class Player {
public:
    /// `now` is the time until the script sets it. All that is passed by reference must outlive the player.
    Player(std::istream& script, std::ostream& transcript, Stage& stage, Places places, DateTime now);

    [[nodiscard]] Display& display() { return display_; }
    [[nodiscard]] const Clock& clock() const { return clock_; }

    /// Plays the script to its end, or to where it stops, with a message on `errors`; returns the exit
    /// status. `start` starts the program when the script says so.
    int play(Program& program, const std::function<void()>& start, std::ostream& errors);

private:
    void playLines(Program& program, const std::function<void()>& start);

    Script script_;
    Transcript transcript_;
    Stage& stage_;
    SettableClock clock_;
    AnswerLines answers_;
    RecordingDisplay display_;
    std::optional<Performer> performer_;
};

}  // namespace tallybrook
