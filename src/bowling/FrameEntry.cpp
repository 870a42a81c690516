#include "bowling/FrameEntry.h"

#include "bowling/Marks.h"

#include <utility>

namespace tallybrook {

namespace {

using PanelState = FrameEntry::PanelState;

/// What a panel offers in each of its states, and the state that follows when its question is put, No is
/// answered, the pins are taken by Done, and the panel is locked.
struct Row {
    bool answers;
    bool done;
    std::array<PanelState, 4> next;
};

constexpr std::array<Row, 4> kPanelStates{{
    /* Closed */ {
        false, false, {PanelState::Asking, PanelState::Stored, PanelState::Closed, PanelState::Closed}},
    /* Asking */
    {true, false, {PanelState::Asking, PanelState::Marked, PanelState::Asking, PanelState::Closed}},
    /* Marked */
    {true, true, {PanelState::Marked, PanelState::Marked, PanelState::Asking, PanelState::Stored}},
    /* Stored */
    {false, true, {PanelState::Marked, PanelState::Stored, PanelState::Closed, PanelState::Stored}},
}};

const Row& rowOf(PanelState state) {
    return kPanelStates.at(static_cast<std::size_t>(state));
}

}  // namespace

bool FrameEntry::Panel::offersAnswers() const {
    return rowOf(state).answers;
}

bool FrameEntry::Panel::offersDone() const {
    return rowOf(state).done;
}

bool FrameEntry::isTenth() const {
    return number_ == kFrames;
}

void FrameEntry::begin(int number, std::string cell) {
    number_ = number;
    cell_ = std::move(cell);
}

void FrameEntry::clearResults() {
    for (Panel& panel : panels_)
        panel.result.clear();
}

void FrameEntry::reset() {
    for (Panel& panel : panels_)
        panel = {.result = std::move(panel.result)};
    ask(panelOf(Ball::First));
}

void FrameEntry::close(Ball ball) {
    panelOf(ball).reply = Reply::None;
    happen(panelOf(ball), Event::Locked);
}

bool FrameEntry::answer(Ball ball, Reply reply) {
    if (std::exchange(panelOf(ball).reply, reply) == reply)
        return false;
    if (reply == Reply::Yes)
        takeYes(ball);
    else
        takeNo(ball);
    return true;
}

void FrameEntry::tick(Ball ball, int pin, bool isStanding) {
    Pins& standing = panelOf(ball).standing;
    if (isStanding)
        standing.add(pin);
    else
        standing.remove(pin);
}

void FrameEntry::done(Ball ball) {
    Panel& panel = panelOf(ball);
    const std::string count = std::to_string(fallen(ball));
    panel.result = pinString(panel.standing);
    happen(panel, Event::Done);
    switch (ball) {
        case Ball::First:
            askForSecond(false);
            panelOf(Ball::Second).offered |= panel.standing;
            cell_ = count;
            return;
        case Ball::Second:
            if (isTenth())
                panelOf(Ball::Fill).offered |= panel.standing;
            [[fallthrough]];
        case Ball::Fill:
            cell_ += count;
    }
}

void FrameEntry::takeBackNo() {
    for (const Ball ball : {Ball::First, Ball::Second}) {
        if (panelOf(ball).reply == Reply::No)
            panelOf(ball).reply = Reply::None;
    }
}

FrameEntry::Reply FrameEntry::storedReply(Ball ball) const {
    if (result(ball).empty())
        return Reply::None;
    return isMark(result(ball)) ? Reply::Yes : Reply::No;
}

void FrameEntry::tickStored(Ball ball) {
    if (storedReply(ball) == Reply::No)
        addNamedPins(result(ball), panelOf(ball).standing);
}

void FrameEntry::lock() {
    for (Panel& panel : panels_) {
        happen(panel, Event::Locked);
        panel.offered = {};
    }
}

void FrameEntry::happen(Panel& panel, Event event) {
    panel.state = rowOf(panel.state).next.at(static_cast<std::size_t>(event));
}

void FrameEntry::ask(Panel& panel) {
    panel.reply = Reply::None;
    happen(panel, Event::Asked);
}

void FrameEntry::takeYes(Ball ball) {
    panelOf(ball).result = yesResult(ball);
    if (ball == Ball::First && !isTenth()) {
        asksForSecondStrike_ = false;
        cell_ = result(ball);
        return;
    }
    cell_ += result(ball);
    if (ball == Ball::First)
        askForSecond(true);
    else if (ball == Ball::Second && isTenth())
        ask(panelOf(Ball::Fill));
}

void FrameEntry::takeNo(Ball ball) {
    Panel& panel = panelOf(ball);
    happen(panel, Event::Marked);
    if (meetsFullRack(ball))
        panel.offered = Pins::all();
    if (ball == Ball::First)
        askForSecond(false);
    else if (ball == Ball::Second && meetsFullRack(ball))
        ask(panelOf(Ball::Fill));
}

std::string FrameEntry::yesResult(Ball ball) const {
    return meetsFullRack(ball) ? "X" : "/";
}

bool FrameEntry::meetsFullRack(Ball ball) const {
    switch (ball) {
        case Ball::First:
            return true;
        case Ball::Second:
            return isTenth() && isStrike(result(Ball::First));
        case Ball::Fill:
            return isMark(result(Ball::Second));
    }
    return false;
}

void FrameEntry::askForSecond(bool strike) {
    asksForSecondStrike_ = strike;
    ask(panelOf(Ball::Second));
}

int FrameEntry::fallen(Ball ball) const {
    const std::size_t before =
        indexOf(ball);  // the number of the mark before this ball's; none before the first
    const int counted = before == 0 ? 0 : countOf(markOf(cell_, before));
    return kPins - counted - panel(ball).standing.count();
}

}  // namespace tallybrook
