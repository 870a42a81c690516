#pragma once

#include "bowling/Pins.h"

#include <array>
#include <string>

namespace tallybrook {

/// The balls of a frame; only a tenth frame has a fill ball.
enum class Ball { First, Second, Fill };

inline constexpr std::array<Ball, 3> kBalls{Ball::First, Ball::Second, Ball::Fill};

/// How one frame is entered ball by ball: each ball is asked about on a panel of its own, with Yes for a
/// strike or spare, or No, the pins left standing, and Done. Out of the answers come the pin string of each
/// ball and the frame's score cell. Nothing is guarded: the frame is checked when it is left.
class FrameEntry {
public:
    enum class Reply { None, Yes, No };

    /// What can be done on a panel, besides ticking pins.
    enum class PanelState {
        Closed,  // nothing
        Asking,  // an answer can be given
        Marked,  // the pins ticked can be taken by Done, or another answer be given
        Stored,  // Done alone
    };

    struct Panel {
        Reply reply = Reply::None;
        PanelState state = PanelState::Closed;
        Pins offered = {};        // those that can be ticked
        Pins standing = {};       // those ticked
        std::string result = {};  // the ball's pin string; empty before it is known

        [[nodiscard]] bool offersAnswers() const;
        [[nodiscard]] bool offersDone() const;
    };

    [[nodiscard]] const Panel& panel(Ball ball) const { return panels_[indexOf(ball)]; }
    [[nodiscard]] const std::string& result(Ball ball) const { return panel(ball).result; }
    [[nodiscard]] const std::string& cell() const { return cell_; }
    [[nodiscard]] bool isTenth() const;
    /// What Yes on the second panel stands for: a strike after a first one in the tenth frame, else a spare.
    [[nodiscard]] bool asksForSecondStrike() const { return asksForSecondStrike_; }

    // What leads to a frame.

    /// Goes over to frame `number` (from 1), whose cell holds a text. The panels stay as they are.
    void begin(int number, std::string cell);
    void setCell(std::string cell) { cell_ = std::move(cell); }
    void setResult(Ball ball, std::string result) { panelOf(ball).result = std::move(result); }
    void clearResults();
    /// The panels as they are before the first ball. Results and cell stay.
    void reset();
    /// Takes the answer of a panel back, and accepts none.
    void close(Ball ball);

    // What a bowler does.

    /// Gives an answer; false if that is the answer already.
    bool answer(Ball ball, Reply reply);
    void tick(Ball ball, int pin, bool isStanding);
    /// Takes the pins ticked as those that the ball has left.
    void done(Ball ball);
    /// Takes back No for the first and for the second ball.
    void takeBackNo();

    // How a stored frame is shown.

    /// The answer that the stored result of a ball was given by; none where there is no result.
    [[nodiscard]] Reply storedReply(Ball ball) const;
    /// Ticks the pins of a stored result that is no mark. Error 9 for a number outside 1 to 10; the pins
    /// before it are ticked.
    void tickStored(Ball ball);
    /// Accepts no answers and no pins.
    void lock();

private:
    enum class Event { Asked, Marked, Done, Locked };

    [[nodiscard]] static std::size_t indexOf(Ball ball) { return static_cast<std::size_t>(ball); }
    Panel& panelOf(Ball ball) { return panels_[indexOf(ball)]; }
    static void happen(Panel& panel, Event event);
    static void ask(Panel& panel);

    void takeYes(Ball ball);
    void takeNo(Ball ball);
    [[nodiscard]] std::string yesResult(Ball ball) const;
    [[nodiscard]] bool meetsFullRack(Ball ball) const;
    void askForSecond(bool strike);
    /// The pins that a ball knocked down of those that its mark counts from.
    [[nodiscard]] int fallen(Ball ball) const;

    std::array<Panel, kBalls.size()> panels_;
    std::string cell_;
    int number_ = 0;
    bool asksForSecondStrike_ = false;
};

}  // namespace tallybrook
