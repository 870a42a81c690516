#include "player/Player.h"

#include "player/PlayStopped.h"

#include <exception>
#include <optional>
#include <utility>

namespace tallybrook {

Player::Player(std::istream& script, std::ostream& transcript, Stage& stage, Places places, DateTime now)
    : script_(script),
      transcript_(transcript, std::move(places)),
      stage_(stage),
      clock_(now),
      answers_(script_, transcript_),
      display_(transcript_, answers_, stage_) {}

int Player::play(Program& program, const std::function<void()>& start, std::ostream& errors) {
    try {
        playLines(program, start);
        return status::kPlayed;
    } catch (const PlayStopped& stopped) {
        errors << stopped.message << '\n';
        return stopped.status;
    } catch (const std::exception& failure) {
        errors << "line " << script_.lineNumber() << ": " << failure.what() << '\n';
        return status::kNotCarriedOut;
    }
}

void Player::playLines(Program& program, const std::function<void()>& start) {
    stage_.attach(program);
    performer_.emplace(program, start, stage_, clock_, transcript_);
    display_.onReport = [this](const std::filesystem::path& report) { performer_->noteReport(report); };
    while (const std::optional<ScriptLine> line = script_.next())
        performer_->carryOut(*line);
}

}  // namespace tallybrook
