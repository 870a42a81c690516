// The ball-by-ball dialogue of the frame screen: each answer and each Done turns into a pin string and into
// marks of the frame's score cell. Nothing is guarded here; the frame is checked when it is left.

#include "entry/frmFrame.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

namespace {

bool isMark(const std::string& result) {
    return result == "X" || result == "/";
}

}  // namespace

void frmFrame::connectPanels() {
    firstBall.optYes.onClick = [this] { optFirstYes_Click(); };
    firstBall.optNo.onClick = [this] { optFirstNo_Click(); };
    firstBall.cmdDone.onClick = [this] { cmdFirstDone_Click(); };
    secondBall.optYes.onClick = [this] { optSecondYes_Click(); };
    secondBall.optNo.onClick = [this] { optSecondNo_Click(); };
    secondBall.cmdDone.onClick = [this] { cmdSecondDone_Click(); };
    fillBall.optYes.onClick = [this] { optFillYes_Click(); };
    fillBall.optNo.onClick = [this] { optFillNo_Click(); };
    fillBall.cmdDone.onClick = [this] { cmdFillDone_Click(); };
    cmdResetPinfall.onClick = [this] { cmdResetPinfall_Click(); };
    cmdPinfallHelp.onClick = [this] { cmdPinfallHelp_Click(); };
    firstBall.optYes.onGotFocus = [this] {
        firstBall.optNo.setValue(false);
        secondBall.optNo.setValue(false);
    };
}

void frmFrame::Reset_Ball(BallPanel& ball) {
    ball.reset(&ball == &firstBall);
}

void frmFrame::resetBalls() {
    for (BallPanel* ball : {&firstBall, &secondBall, &fillBall})
        Reset_Ball(*ball);
}

void frmFrame::Load_Ball(BallPanel& ball, const std::string& result, PinFlags& pins) {
    if (!recordsPinfall() || result.empty())
        return;
    if (isMark(result)) {
        ball.optYes.setValue(true);
        ball.optNo.setValue(false);
        return;
    }
    ball.optYes.setValue(false);
    ball.optNo.setValue(true);
    markPins(result, pins);
}

void frmFrame::appendToCell(const std::string& mark) {
    cell().setText(cell().text() + mark);
}

void frmFrame::optFirstYes_Click() {
    mFirstRes = "X";
    if (isTenth()) {
        secondBall.offerAnswers();
        secondBall.question.setCaption("Strike?");
        appendToCell("X");
    } else {
        secondBall.question.setCaption("Spare?");
        cell().setText("X");
    }
}

void frmFrame::optFirstNo_Click() {
    firstBall.setPinsEnabled(true);
    firstBall.cmdDone.setEnabled(true);
    secondBall.offerAnswers();
    secondBall.question.setCaption("Spare?");
}

void frmFrame::cmdFirstDone_Click() {
    mFirstRes.clear();
    secondBall.question.setCaption("Spare?");
    secondBall.offerAnswers();
    const PinFlags standing = firstBall.standing();
    secondBall.enablePins(standing);
    cell().setText(std::to_string(kPins - standing.count()));
    mFirstRes = pinString(standing);
    firstBall.cmdDone.setEnabled(false);
}

void frmFrame::optSecondYes_Click() {
    mSecondRes = isTenth() && mFirstRes == "X" ? "X" : "/";
    appendToCell(mSecondRes);
    if (isTenth())
        fillBall.offerAnswers();
    else
        txtComment.focus();
}

void frmFrame::optSecondNo_Click() {
    if (isTenth() && mFirstRes == "X") {
        secondBall.setPinsEnabled(true);
        fillBall.offerAnswers();
    }
    secondBall.cmdDone.setEnabled(true);
}

void frmFrame::cmdSecondDone_Click() {
    mSecondRes.clear();
    const PinFlags standing = secondBall.standing();
    if (isTenth())
        fillBall.enablePins(standing);
    mSecondRes = pinString(standing);
    appendToCell(std::to_string(kPins - countOf(ball(cell().text(), 1)) - standing.count()));
    secondBall.cmdDone.setEnabled(false);
}

void frmFrame::optFillYes_Click() {
    mFillRes = isMark(mSecondRes) ? "X" : "/";
    appendToCell(mFillRes);
}

void frmFrame::optFillNo_Click() {
    if (isMark(mSecondRes))
        fillBall.setPinsEnabled(true);
    fillBall.cmdDone.setEnabled(true);
}

void frmFrame::cmdFillDone_Click() {
    mFillRes.clear();
    const PinFlags standing = fillBall.standing();
    mFillRes = pinString(standing);
    appendToCell(std::to_string(kPins - countOf(ball(cell().text(), 2)) - standing.count()));
    fillBall.cmdDone.setEnabled(false);
}

void frmFrame::cmdResetPinfall_Click() {
    if (ask(question(lines({"This will erase the pinfall for this frame.", "Do you want to continue?"}),
                     "Reset Pinfall")) != Answer::Yes)
        return;
    resetBalls();
    cell().setText("");
    for (const auto& score : txtScore)
        score->setText("");
    txtTotScore.setText("");
    firstBall.frame.setEnabled(true);
    if (recordsPinfall()) {
        firstBall.optYes.focus();
        firstBall.optYes.setValue(false);
        firstBall.optNo.setValue(false);
    } else {
        firstBall.optYes.setValue(false);
        firstBall.optNo.setValue(false);
        firstBall.setAnswersEnabled(false);
        cell().focus();
    }
}

void frmFrame::cmdPinfallHelp_Click() {
    program().display.help(recordsPinfall() ? HelpTopic::PinfallEntry : HelpTopic::LineScoreEntry);
}

}  // namespace tallybrook
