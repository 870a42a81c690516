// The check of a frame, and the score of a game whose frames are all there.

#include "bowling/RunningScores.h"
#include "entry/FrameFailures.h"
#include "entry/frmFrame.h"
#include "entry/frmGame.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

Verdict frmFrame::Check_Frame() {
    FrameEntry& entry = balls.entry;
    if (recordsPinfall()) {
        const Verdict verdict = checkPinfall(frameNumber_.value(), entry.result(Ball::First),
                                             entry.result(Ball::Second), entry.result(Ball::Fill));
        if (verdict == Verdict::Good && !isTenth())
            entry.setResult(Ball::Fill, "");
        return verdict;
    }
    const CellCheck check = checkLineScore(frameNumber_.value(), sheet.cell(frameNumber_));
    cell().setText(check.cell);
    return check.verdict;
}

/// What is done about the verdict of the check: one box serves every fault.
bool frmFrame::isGood(Verdict verdict) {
    if (verdict == Verdict::Good)
        return true;
    ask({.text =
             lines({"Line score values were incomplete.", "Acceptable values are 0 - 9, X and /. Examples: ",
                    "9/, X, 80, 8/ are acceptable. Values such as /9, 9X are not."}),
         .title = "Invalid Line Score",
         .icon = Icon::Critical});
    cmdResetPinfall.focus();
    return false;
}

void frmFrame::Calc_Score() {
    const Handler step = frameHandler(program(), *this, "Calc_Score", "Calc_Score");
    const std::array<Int16, kFrames> scores = runningScores(sheet.cells());
    const Int16 score = scores.back();
    sheet.showScores(scores);

    if (score != gameScore_)
        return acceptScore(step, score);
    const Answer answer =
        ask({.text = lines(
                 {"Calculated score for this game is " + text(score) + ".",
                  "Click \"OK\" to return to the previous screen, click \"Cancel\" to stay at the frame "
                  "screen."}),
             .title = "Game Score",
             .buttons = Buttons::OKCancel,
             .icon = Icon::Information});
    if (answer == Answer::OK)
        screens().goBackFrom(*this);
}

void frmFrame::acceptScore(const Handler& step, Int16 score) {
    MessageBox mismatch =
        question(lines({"Based on the pinfall you entered, a score of " + text(score) +
                            " was calculated. This differs from the score of " + text(gameScore_) +
                            " that was recorded.",
                        "To accept the score of " + text(score) + " click the \"Yes\" button.",
                        "To keep the recorded score of " + text(gameScore_) + " click the \"No\"button."}),
                 "Score Mismatch", Icon::Warning);
    if (ask(mismatch) != Answer::Yes)
        return;
    step([&] { ++session().gScoreFixCount; });
    session().gScoreFixes.push_back({session().gSessionNum, session().gGameNum, score});
    if (Screen* const game = screens().find("frmGame"); game != nullptr)
        static_cast<frmGame&>(*game).txtGameScore.setText(text(score));
    gameScore_ = score;
    screens().goBackFrom(*this);
}

}  // namespace tallybrook
