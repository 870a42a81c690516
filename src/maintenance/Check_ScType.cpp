#include "maintenance/CheckRun.h"
#include "runtime/TextForms.h"
#include "store/AtOneLook.h"
#include "store/CommitAtEnd.h"
#include "store/WalkRows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// How a game was recorded, by the first ball of its lowest frame alone, if it has one. A Null is not empty.
std::string scoreTypeOf(const std::optional<Value>& firstBall) {
    if (!firstBall)
        return "N";
    return isText(*firstBall, "") ? "L" : "P";
}

/// A Null is neither equal nor different, here and below.
bool differs(const Value& stored, const std::string& wanted) {
    return !isNull(stored) && !isText(stored, wanted);
}
bool differs(const Value& stored, int count) {
    return !isNull(stored) && toDouble(stored) != count;
}

/// Whether there is nothing to tell of a game and nothing to change. Of anything unusual the walk decides.
bool isInOrder(const GameOverview& game) {
    const auto* const number = std::get_if<std::int64_t>(&game.number);
    const bool isCounted =
        isNull(game.framesRecorded) || game.framesRecorded == Value{std::int64_t{game.frames}};
    return number != nullptr && std::in_range<std::int16_t>(*number) && isCounted &&
           !differs(game.scoreType, scoreTypeOf(game.firstBall));
}

using Overviews = std::vector<GameOverview>;

/// The walk over events, games and frames. What cannot be read keeps its value from the row before.
class ScoreTypeCheck {
public:
    ScoreTypeCheck(CheckRun& run, const Handler& step) : run_(run), step_(step) {}

    void checkEvents() {
        step_([&] { events_->Open("SELECT * FROM tblEventInfo"); });
        walk(events_, [this] { checkEvent(); });
        step_([&] { events_->Close(); });
    }

private:
    template <typename Visit>
    void walk(const RecordsetVariable& rows, Visit visit) {
        step_([&] { rows->MoveFirst(); });
        walkRows(
            step_, [&]() -> Recordset& { return *rows; }, visit);
    }

    void checkEvent() {
        step_([&] { eventKey_ = toInt32(events_->Fields("fldSessionNum")); });
        step_([&] { eventName_ = toText(events_->Fields("fldEventName")); });
        step_([&] { dateBowled_ = toDate(events_->Fields("fldDateBowled"), run_.program.clock.year()); });
        if (!passGamesInOrder())
            checkGames();
        correctCount(events_, "fldGmsRecorded", gameCount_, eventLabel() + ", games recorded changed to ");
    }

    /// Where one look shows that there is nothing to tell of the event's games and nothing to change, all is
    /// as a walk over them would have left it.
    bool passGamesInOrder() {
        seen_.clear();
        walked_ = 0;
        step_([&] { seen_ = gamesAtOneLook(run_.program.store(), eventKey_).value_or(Overviews{}); });
        if (seen_.empty() || !std::ranges::all_of(seen_, isInOrder))
            return false;
        gameNumber_ = std::get<std::int64_t>(seen_.back().number);
        gameCount_ = static_cast<int>(seen_.size());
        return true;
    }

    void checkGames() {
        step_([&] {
            games_->Open("SELECT * FROM tblGameInfo WHERE fldSessionNum = " + text(eventKey_) +
                         " ORDER BY fldGameNum");
        });
        step_([&] { gameCount_ = games_->RecordCount(); });
        walk(games_, [this] { checkGame(); });
        step_([&] { games_->Close(); });
    }

    void checkGame() {
        step_([&] { gameNumber_ = toInt16(games_->Fields("fldGameNum")); });
        const std::string scoreType = concludeType();
        const std::string label = "Game number: " + text(gameNumber_) + ", " + eventLabel();
        if (step_.test([&] { return differs(games_->Fields("fldScoreType"), scoreType); }))
            change(games_, "fldScoreType", scoreType, label + ", score type changed to " + scoreType);
        correctCount(games_, "fldFrmsRecorded", frameCount_, label + ", frames recorded changed to ");
    }

    /// The look has shown the frames of the game, if it was one and has shown this game.
    std::string concludeType() {
        const GameOverview* const game = walked_ < seen_.size() ? &seen_[walked_++] : nullptr;
        if (game == nullptr || game->number != Value{std::int64_t{gameNumber_.value()}})
            return concludeTypeFromFrames();
        frameCount_ = game->frames;
        return scoreTypeOf(game->firstBall);
    }

    std::string concludeTypeFromFrames() {
        std::string scoreType = scoreTypeOf({});
        step_([&] {
            frames_->Open(
                fmt::format("SELECT * FROM tblFrameInfo WHERE fldSessionNum = {} AND fldGameNum = {} ORDER "
                            "BY fldFrameNum",
                            text(eventKey_), text(gameNumber_)));
        });
        step_([&] { frameCount_ = frames_->RecordCount(); });
        if (frameCount_ > 0) {
            step_([&] { frames_->MoveFirst(); });
            // A failed look at the first ball ends like an empty one.
            scoreType = "L";
            step_([&] { scoreType = scoreTypeOf(frames_->Fields("fldFirstBallRes").value()); });
        }
        step_([&] { frames_->Close(); });
        return scoreType;
    }

    void correctCount(const RecordsetVariable& rows, const char* field, int count, const std::string& line) {
        if (step_.test([&] { return differs(rows->Fields(field), count); }))
            change(rows, field, std::int64_t{count}, line + std::to_string(count));
    }

    void change(const RecordsetVariable& rows, const char* field, const Value& value,
                const std::string& line) {
        step_([&] { rows->Fields(field) = value; });
        step_([&] { run_.print(line); });
        step_([&] { rows->Update(); });
    }

    [[nodiscard]] std::string eventLabel() const {
        return "Event: " + eventName_ + ", Date: " + dateText(dateBowled_);
    }

    CheckRun& run_;
    const Handler& step_;
    const RecordsetVariable& events_ = run_.gDBRsEvent;
    const RecordsetVariable& games_ = run_.gDBRsGame;
    const RecordsetVariable& frames_ = run_.gDBRsFrame;
    Int32 eventKey_;
    std::string eventName_;
    DateTime dateBowled_ = kZeroDate;
    Overviews seen_;  // the games of the event, as one look shows them
    std::size_t walked_ = 0;
    Int16 gameNumber_;
    int gameCount_ = 0;
    int frameCount_ = 0;
};

}  // namespace

void Check_ScType(CheckRun& run) {
    const Handler step = run.handler("Check_ScType");
    storeAtOnce(run.program.store(), step, [&] {
        step([&] { run.print("Checking game score types."); });
        ScoreTypeCheck(run, step).checkEvents();
        step([&] { run.print("Game score type check complete."); });
    });
}

}  // namespace tallybrook
