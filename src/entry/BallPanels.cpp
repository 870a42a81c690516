#include "entry/BallPanels.h"

namespace tallybrook {

namespace {

using Reply = FrameEntry::Reply;

const BallPanelTexts kFirstBall{
    .ball = "First",
    .caption = "Pinfall - 1st Ball",
    .question = "Strike?",
    .yesTip = "Click this button if your first ball was a strike",
    .noTip =
        "Click this button if your first ball was not a strike and then click the boxes that correspond to "
        "what you left"};
const BallPanelTexts kSecondBall{
    .ball = "Second",
    .caption = "Pinfall - 2nd Ball",
    .question = "Spare?",
    .yesTip =
        "Click this button if you converted the spare (or got a strike on the second ball in the 10th)"};
const BallPanelTexts kFillBall{
    .ball = "Fill",
    .caption = "Pinfall - Fill Ball",
    .question = "Strike?",
    .tip = "If you are in the 10th frame then you use this to enter the pinfall for your fill ball",
    .yesTip = "Click this button if your fill ball was a strike (or spare)"};

}  // namespace

BallPanels::BallPanels(Screen& screen)
    : first_(screen, kFirstBall), second_(screen, kSecondBall), fill_(screen, kFillBall) {
    for (const Ball ball : kBalls)
        connect(ball);
    first_.optYes.onGotFocus = [this] {
        entry.takeBackNo();
        show();
    };
}

void BallPanels::connect(Ball ball) {
    BallPanel& shown = panel(ball);
    shown.optYes.onClick = [this, ball] { answered(ball, Reply::Yes); };
    shown.optNo.onClick = [this, ball] { answered(ball, Reply::No); };
    for (int pin = 1; pin <= kPins; ++pin) {
        CheckBox& box = shown.pins(pin);
        box.onClick = [this, ball, pin, &box] {
            entry.tick(ball, pin, box.value());
            panel(ball).namePins(entry.panel(ball));
        };
    }
    shown.cmdDone.onClick = [this, ball] {
        entry.done(ball);
        show();
        onCell();
    };
}

void BallPanels::answered(Ball ball, Reply reply) {
    if (!entry.answer(ball, reply))
        return;
    show();
    if (reply == Reply::No)
        return;
    onCell();
    if (ball == Ball::Second && !entry.isTenth())
        onSpare();
}

// What is offered is enabled on all panels before anything is disabled: a control that loses the focus by
// that hands it to the next one as they will all be.
void BallPanels::show() {
    second_.question.setCaption(entry.asksForSecondStrike() ? "Strike?" : "Spare?");
    for (const Ball ball : kBalls)
        panel(ball).open(entry.panel(ball));
    for (const Ball ball : kBalls)
        panel(ball).close(entry.panel(ball));
}

void BallPanels::showStored(Ball ball) {
    const Reply reply = entry.storedReply(ball);
    if (reply == Reply::None)
        return;
    answered(ball, reply);
    entry.tickStored(ball);
}

BallPanel& BallPanels::panel(Ball ball) {
    switch (ball) {
        case Ball::First:
            return first_;
        case Ball::Second:
            return second_;
        case Ball::Fill:
            break;
    }
    return fill_;
}

Layout BallPanels::layout() {
    return layout::row({first_.layout(), second_.layout(), fill_.layout()});
}

}  // namespace tallybrook
