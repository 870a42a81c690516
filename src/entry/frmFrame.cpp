#include "entry/frmFrame.h"

#include "entry/frmGame.h"
#include "runtime/EndProgram.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"
#include "shell/UpdateSeries.h"

#include <memory>

namespace tallybrook {

namespace {

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

MessageBox noCurrentRowBox(const std::string& debugName) {
    return {.text = lines({"New record could not be added or updated.",
                           "This could be due to timing. Click Retry to attempt to add the record again.",
                           "Click Cancel to return to the previous screen.",
                           "Debug Information: Module - Frame Information, " + debugName}),
            .title = "Database Error",
            .buttons = Buttons::RetryCancel};
}

}  // namespace

frmFrame::frmFrame(Program& owner)
    : ProgramScreen(owner, "frmFrame", "Frame Information"),
      lblFraNum("lblFraNum", 0, kFrames,
                [this](int index, const std::string& name) {
                    return std::make_unique<Label>(fraLineScore, name,
                                                   index == 0 ? "Total Score" : std::to_string(index));
                }),
      txtCount(
          "txtCount", 1, kFrames,
          [this](int index, const std::string& name) {
              return std::make_unique<TextBox>(
                  fraLineScore, name,
                  TextBoxOptions{
                      .maxLength = index == kFrames ? 3 : 2, .width = 4, .centred = true, .enabled = false});
          }),
      txtScore(
          "txtScore", 1, kFrames,
          [this](int index, const std::string& name) {
              return std::make_unique<TextBox>(
                  fraLineScore, name,
                  TextBoxOptions{
                      .maxLength = 3, .width = 4, .readOnly = true, .centred = true, .enabled = index <= 2});
          }),
      firstBall(*this, kFirstBall),
      secondBall(*this, kSecondBall),
      fillBall(*this, kFillBall) {
    setTabOrder({&txtLaneNum, &txtBallUsed, &txtFootPos, &txtLaneTgt, &firstBall.optYes, &firstBall.optNo,
                 &txtComment, &cmdNextFrame, &cmdPrevFrame, &cmdReset, &cmdPrevious, &cmdRetMain, &cmdExit});

    fraLineScore.setSpokenName("Score sheet");
    txtTotScore.setSpokenName("Total Score");
    for (int frame = 1; frame <= kFrames; ++frame) {
        txtCount(frame).setSpokenName("Frame " + std::to_string(frame) + ", pins");
        txtScore(frame).setSpokenName("Frame " + std::to_string(frame) + ", score");
    }

    cmdNextFrame.onClick = [this] { cmdNextFrame_Click(); };
    cmdPrevFrame.onClick = [this] { cmdPrevFrame_Click(); };
    cmdReset.onClick = [this] { cmdReset_Click(); };
    cmdPrevious.onClick = [this] { cmdPrevious_Click(); };
    cmdRetMain.onClick = [this] { cmdRetMain_Click(); };
    cmdExit.onClick = [this] { cmdExit_Click(); };
    mnuTBKHelp.onClick = [this] { program().display.help(HelpTopic::Contents); };
    mnuAbout.onClick = [this] { showAbout(program()); };

    txtFrameNum.onChange = [this] { markFrame(); };
    txtLaneNum.onLostFocus = [this] { txtLaneNum_LostFocus(); };
    txtBallUsed.onLostFocus = [this] { mBallUsed = txtBallUsed.text(); };
    txtFootPos.onLostFocus = [this] { mFootPos = txtFootPos.text(); };
    txtLaneTgt.onLostFocus = [this] {
        mLaneTgt = txtLaneTgt.text();
        if (session().gScoreType == "L")
            cell().focus();
    };
    connectPanels();
}

Layout frmFrame::layout() {
    std::vector<Layout> sheet;
    for (int frame = 1; frame <= kFrames; ++frame)
        sheet.emplace_back(Layout(lblFraNum(frame)).centred());
    sheet.emplace_back(Layout(lblFraNum(0)).centred());
    for (const auto& count : txtCount)
        sheet.emplace_back(*count);
    sheet.emplace_back(layout::space());
    for (const auto& score : txtScore)
        sheet.emplace_back(*score);
    sheet.emplace_back(txtTotScore);

    return layout::column(
        {layout::row({lblEventName, Layout(txtEventName).stretched(), lblDateBowled, txtDateBowled,
                      lblGameNum, txtGameNum, lblNumGames, txtNumGames, lblLanePair, txtLanePair}),
         layout::row(
             {layout::column(
                  {layout::form({lblFrameNum, layout::row({txtFrameNum, lblOfTen, layout::space()}),
                                 lblLaneNum, Layout(txtLaneNum).atStart(), lblBallUsed, txtBallUsed,
                                 lblFootPos, txtFootPos, lblLaneTgt, txtLaneTgt}),
                   lblComment, Layout(txtComment).stretched()})
                  .stretched(),
              layout::column({layout::row({firstBall.layout(), secondBall.layout(), fillBall.layout()}),
                              layout::row({layout::space(), cmdResetPinfall, cmdPinfallHelp})}),
              layout::buttons({cmdNextFrame, cmdPrevFrame, cmdReset, cmdPrevious, cmdRetMain, cmdExit})})
             .stretched(),
         layout::group(fraLineScore, layout::table(kFrames + 1, std::move(sheet)))});
}

void frmFrame::onClose() {
    cmdPrevious.click();
}

void frmFrame::onUnload() {
    for (DataControl* control : {&adoTBKEvent, &adoTBKGame, &adoTBKFrame})
        control->drop();
}

// --- Opening -----------------------------------------------------------------------------------------------

void frmFrame::onLoad() {
    const Handler step = loadHandler();
    mFootPos.clear();
    mLaneTgt.clear();
    mBallUsed.clear();
    Clear_Cells();
    loadHeader(step);
    loadFrames(step);
    screens().show(*this);
    txtFrameNum.setText(text(mFrameNum));
    txtLaneNum.focus();
}

void frmFrame::Clear_Cells() {
    for (int frame = 1; frame <= kFrames; ++frame) {
        txtCount(frame).setText("");
        txtScore(frame).setText("");
    }
}

void frmFrame::loadHeader(const Handler& step) {
    const std::string key = text(session().gSessionNum);
    const auto event = [this](const char* field) { return adoTBKEvent.recordset()[field].value(); };
    const auto game = [this](const char* field) { return adoTBKGame.recordset()[field].value(); };

    adoTBKEvent.setRecordSource("SELECT tblEventInfo.* FROM tblEventInfo WHERE fldSessionNum = " + key);
    step([&] { adoTBKEvent.Refresh(); });
    step([&] { txtEventName.setText(toText(event("fldEventName"))); });
    step([&] { txtDateBowled.setText(toText(event("fldDateBowled"))); });
    step([&] { txtNumGames.setText(toText(event("fldNumGames"))); });

    adoTBKGame.setRecordSource("SELECT tblGameInfo.* FROM tblGameInfo WHERE fldSessionNum = " + key +
                               " AND fldGameNum = " + text(session().gGameNum) + " ORDER BY fldGameNum");
    step([&] { adoTBKGame.Refresh(); });
    txtGameNum.setText(text(session().gGameNum));
    step([&] { txtLanePair.setText(toText(game("fldLanePair"))); });
    step([&] { mLeftLane = toInt16(game("fldLeftLane")); });
    step([&] { mRightLane = toInt16(game("fldRightLane")); });
    step([&] { session().gStartLane = toInt16(game("fldStartLane")); });
    step([&] { session().gScoreType = toText(game("fldScoreType")); });
    step([&] { mGameScore = toInt16(game("fldGameScore")); });
}

void frmFrame::loadFrames(const Handler& step) {
    adoTBKFrame.setRecordSource(
        "SELECT * from tblFrameInfo WHERE fldSessionNum = " + text(session().gSessionNum) +
        " AND fldGameNum = " + text(session().gGameNum) + " ORDER BY fldFrameNum");
    step([&] { adoTBKFrame.Refresh(); });
    step([&] { session().gFrmsRecorded = adoTBKFrame.recordset().RecordCount(); });
    if (session().gFrmsRecorded < 1) {
        session().gMode = kAdd;
        mFrameNum = 0;
        session().gFrmsRecorded = 0;
        Add_Frame();
    } else {
        step([&] { adoTBKFrame.recordset().MoveFirst(); });
        step([&] { mFrameNum = toInt16(adoTBKFrame.recordset()["fldFrameNum"]); });
        session().gMode = kEdit;
        Load_Frame();
    }
}

// --- Handlers of failures
// ------------------------------------------------------------------------------------

Handler frmFrame::frameHandler(const std::string& procedure, const std::string& debugName) {
    return Handler([=, this](const RunTimeError& failure, int) {
        if (failure.number() != error::kNoCurrentRow) {
            program().reporter.databaseError(failure, "Frame Information, " + procedure + ".");
            return Recovery::GoOn;
        }
        if (ask(noCurrentRowBox(debugName)) == Answer::Retry) {
            screens().unload(*this);
            screens().load(name());
            screens().show(*screens().find(name()));
        } else {
            screens().goBackFrom(*this);
        }
        throw EndHandler{};
    });
}

Handler frmFrame::loadHandler() {
    return Handler([this](const RunTimeError& failure, int) {
        if (failure.number() == error::kNoCurrentRow)
            return offerRetryOfLoading(failure);
        program().reporter.databaseError(failure, "Frame Information, Form Load.");
        return Recovery::GoOn;
    });
}

Recovery frmFrame::offerRetryOfLoading(const RunTimeError& failure) {
    ask({.text = lines(
             {"Error Number: " + std::to_string(failure.number()), "Error: " + failure.description()})});
    if (ask(noCurrentRowBox("Form Load")) == Answer::Retry)
        return Recovery::TryAgain;
    screens().goBackFrom(*this);
    throw EndHandler{};
}

// --- The frame rows
// ------------------------------------------------------------------------------------------

void frmFrame::setPreviousFrameEnabled(bool enabled) {
    cmdPrevFrame.setEnabled(enabled);
    mnuPrevFrame.setEnabled(enabled);
}

void frmFrame::Load_Frame() {
    const Handler step = frameHandler("Load_Frame", "Load_Record");
    readFrame(step);
    showPins(step);
    step([&] { cell().setText(toText(adoTBKFrame.recordset()["fldLineScore"])); });
    for (BallPanel* ball : {&firstBall, &secondBall, &fillBall}) {
        ball->setAnswersEnabled(false);
        ball->setPinsEnabled(false);
    }
    setPreviousFrameEnabled(true);
}

void frmFrame::readFrame(const Handler& step) {
    const auto field = [this](const char* name) { return adoTBKFrame.recordset()[name].value(); };
    const auto fill = [&](TextBox& box, const char* name) {
        step([&] { box.setText(toText(field(name))); });
    };
    const auto read = [&](std::string& result, const char* name) {
        step([&] { result = toText(field(name)); });
    };

    mFirstRes.clear();
    mSecondRes.clear();
    mFillRes.clear();
    resetBalls();
    for (TextBox* box : {&txtFrameNum, &txtLaneNum, &txtBallUsed, &txtFootPos, &txtLaneTgt, &txtComment})
        box->setText("");

    step([&] { mFrameNum = toInt16(field("fldFrameNum")); });
    fill(txtFrameNum, "fldFrameNum");
    step([&] { mCurLane = toInt16(field("fldLaneBowled")); });
    fill(txtLaneNum, "fldLaneBowled");
    fill(txtBallUsed, "fldBallUsed");
    fill(txtFootPos, "fldFootPos");
    fill(txtLaneTgt, "fldLaneTgt");
    fill(txtComment, "fldComment");
    read(mFirstRes, "fldFirstBallRes");
    read(mSecondRes, "fldSecondBallRes");
    read(mFillRes, "fldFillBallRes");
}

/// Shows on the score sheet which frame is being entered.
void frmFrame::markFrame() {
    for (int frame = 1; frame <= kFrames; ++frame) {
        const bool isCurrent = txtFrameNum.text() == std::to_string(frame);
        lblFraNum(frame).setLook(isCurrent ? LabelLook::Current : LabelLook::Plain);
    }
}

void frmFrame::showPins(const Handler& step) {
    PinFlags pins;
    const auto load = [&](BallPanel& ball, const std::string& result) {
        step([&] { Load_Ball(ball, result, pins); });
    };
    load(firstBall, mFirstRes);
    if (!recordsPinfall()) {
        step([&] { cell().setEnabled(true); });
        return;
    }
    firstBall.tickPins(pins);
    load(secondBall, mSecondRes);
    secondBall.tickPins(pins);
    load(fillBall, mFillRes);
    fillBall.tickPins(pins);
}

void frmFrame::Add_Frame() {
    if (session().gFrmsRecorded >= kFrames)
        return leaveFullGame();
    const Handler step = frameHandler("Add_Frame", "Add_Frame");
    mFirstRes.clear();
    mSecondRes.clear();
    mFillRes.clear();
    step([&] { ++mFrameNum; });
    step([&] { cell().setText(""); });
    resetBalls();
    txtBallUsed.setText(mBallUsed);
    txtFootPos.setText(mFootPos);
    txtLaneTgt.setText(mLaneTgt);
    txtComment.setText("");
    txtLaneNum.setText(text(mFrameNum == 1 ? session().gStartLane : mNextLane));
    mCurLane = mNextLane;
    step([&] { adoTBKFrame.recordset().AddNew(); });
    txtFrameNum.setText(text(mFrameNum));
    prepareEntry(step);
    setPreviousFrameEnabled(false);
}

void frmFrame::prepareEntry(const Handler& step) {
    if (recordsPinfall()) {
        firstBall.frame.setEnabled(true);
        firstBall.offerAnswers();
        step([&] { cell().setEnabled(false); });
        return;
    }
    step([&] { cell().setEnabled(true); });
    if (mFrameNum > 1)
        step([&] { txtCount(mFrameNum - 1).setEnabled(false); });
    firstBall.setAnswersEnabled(false);
    firstBall.optYes.setValue(false);
    firstBall.optNo.setValue(false);
}

void frmFrame::leaveFullGame() {
    ask(question(
        lines({"All frames for this game have been added.", "Click \"OK\" to return to the game screen."}),
        "All Frames Added"));
    Calc_Score();
    screens().goBackFrom(*this);
}

void frmFrame::Save_Frame() {
    const Handler step = frameHandler("Save_Frame", "Save_Frame");
    workOutNextLane();
    writeFrame(step);
    step([&] { adoTBKFrame.recordset().Update(); });
    step([&] { adoTBKFrame.recordset().Resync(); });
    step([&] { session().gFrameKey = toInt32(adoTBKFrame.recordset()["fldFrameKey"]); });
    if (session().gMode == kAdd)
        step([&] { ++session().gFrmsRecorded; });
}

void frmFrame::workOutNextLane() {
    if (!session().gAltLanes)
        mNextLane = session().gStartLane;
    else if (isTenth())
        mNextLane = mCurLane;
    else if (mCurLane == mLeftLane)
        mNextLane = mRightLane;
    else if (mCurLane == mRightLane)
        mNextLane = mLeftLane;
}

// Every field is written, also of a row that was only looked at.
void frmFrame::writeFrame(const Handler& step) {
    const auto write = [&](const char* field, const Value& value) {
        step([&] { adoTBKFrame.recordset()[field] = value; });
    };
    write("fldFrameNum", valueOf(mFrameNum));
    write("fldGameNum", valueOf(session().gGameNum));
    write("fldSessionNum", valueOf(session().gSessionNum));
    step([&] { adoTBKFrame.recordset()["fldLaneBowled"] = leadingNumber(txtLaneNum.text()); });
    write("fldBallUsed", txtBallUsed.text());
    write("fldFootPos", txtFootPos.text());
    write("fldLaneTgt", txtLaneTgt.text());
    write("fldFirstBallRes", mFirstRes);
    write("fldSecondBallRes", mSecondRes);
    write("fldFillBallRes", mFillRes);
    write("fldComment", txtComment.text());
    step([&] { adoTBKFrame.recordset()["fldLineScore"] = cell().text(); });
    write("fldHHRecordID", "NONE");
}

// --- The ways on and out
// -------------------------------------------------------------------------------------

void frmFrame::cmdNextFrame_Click() {
    const Handler step = handler("frmFrame, cmdNextFrame.");
    std::string result;
    step([&] { result = Check_Frame(); });
    if (!isGood(result))
        return;
    Save_Frame();
    if (session().gMode == kAdd)
        return Add_Frame();
    step([&] { adoTBKFrame.recordset().MoveNext(); });
    if (step.test([&] { return !adoTBKFrame.recordset().Eof(); })) {
        step([&] { cell().setEnabled(false); });
        Load_Frame();
    } else {
        moveBeyondLastFrame(step);
    }
}

void frmFrame::moveBeyondLastFrame(const Handler& step) {
    if (session().gFrmsRecorded < kFrames) {
        if (ask(question(
                lines({"There are less than 10 frames for this game.", "Do you want to add another frame?"}),
                "Frame Input", Icon::None)) == Answer::Yes) {
            session().gMode = kAdd;
            Add_Frame();
        }
        return;
    }
    ask({.text = "This is the last frame for this game.", .title = "Frame Input"});
    step([&] { adoTBKFrame.recordset().MoveLast(); });
    if (session().gScoreType == "L") {
        for (int frame = 1; frame < kFrames; ++frame)
            txtCount(frame).setEnabled(false);
    }
    Calc_Score();
}

void frmFrame::cmdPrevFrame_Click() {
    const Handler step = handler("Frame Information, cmdPrevFrame.");
    const auto leaveBehind = [&](auto frame) {
        step([&] { txtCount(frame).setEnabled(false); });
        step([&] { txtCount(frame).setText(""); });
        step([&] { txtScore(frame).setText(""); });
    };
    Save_Frame();
    step([&] { adoTBKFrame.recordset().MovePrevious(); });
    if (step.test([&] { return adoTBKFrame.recordset().Bof(); })) {
        ask({.text = "This is the first frame in this game.", .title = "Frame Input"});
        step([&] { adoTBKFrame.recordset().MoveFirst(); });
        for (int frame = kFrames; frame >= 2; --frame)
            leaveBehind(frame);
    } else {
        leaveBehind(mFrameNum);
    }
    txtTotScore.setText("");
    Load_Frame();
}

void frmFrame::cmdReset_Click() {
    if (ask(question(lines({"This will reset the form but NOT affect the current record.",
                            "Do you want to continue?"}),
                     "Reset Form")) != Answer::Yes)
        return;
    for (TextBox* box : {&txtLaneNum, &txtBallUsed, &txtFootPos, &txtLaneTgt, &txtComment})
        box->setText("");
    mFirstRes.clear();
    mSecondRes.clear();
    mFillRes.clear();
    resetBalls();
    txtLaneNum.focus();
}

void frmFrame::cmdPrevious_Click() {
    if (!isGood(Check_Frame()))
        return;
    Save_Frame();
    updateSeries(program());
    screens().goBackFrom(*this);
}

void frmFrame::cmdRetMain_Click() {
    Save_Frame();
    updateSeries(program());
    returnToMain(program());
}

void frmFrame::cmdExit_Click() {
    Save_Frame();
    updateSeries(program());
    Exit_Confirm(program());
}

void frmFrame::txtLaneNum_LostFocus() {
    const double lane = leadingNumber(txtLaneNum.text());
    if (lane == mLeftLane.value()) {
        mCurLane = mLeftLane;
    } else if (lane == mRightLane.value()) {
        mCurLane = mRightLane;
    } else {
        ask({.text = lines({"Invalid lane number.",
                            "Please enter either " + text(mLeftLane) + " or " + text(mRightLane) + "."})});
        txtLaneNum.focus();
    }
}

// --- The check and the score
// ---------------------------------------------------------------------------------

std::string frmFrame::Check_Frame() {
    if (recordsPinfall()) {
        std::string result = checkPinfall(mFrameNum.value(), mFirstRes, mSecondRes, mFillRes);
        if (result == "Good" && !isTenth())
            mFillRes.clear();
        return result;
    }
    const CellCheck check = checkLineScore(mFrameNum.value(), cell().text());
    cell().setText(check.cell);
    return check.result;
}

/// What is done about the result of the check: one box serves every fault.
bool frmFrame::isGood(const std::string& result) {
    if (result == "Good")
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
    const Handler step = frameHandler("Calc_Score", "Calc_Score");
    std::array<std::string, kFrames> cells;
    for (int frame = 1; frame <= kFrames; ++frame)
        cells[static_cast<std::size_t>(frame - 1)] = txtCount(frame).text();
    const std::array<Int16, kFrames> scores = runningScores(cells);
    for (int frame = 1; frame <= kFrames; ++frame)
        txtScore(frame).setText(text(scores[static_cast<std::size_t>(frame - 1)]));
    const Int16 score = scores.back();
    txtTotScore.setText(text(score));

    if (score != mGameScore)
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
                            " was calculated. This differs from the score of " + text(mGameScore) +
                            " that was recorded.",
                        "To accept the score of " + text(score) + " click the \"Yes\" button.",
                        "To keep the recorded score of " + text(mGameScore) + " click the \"No\"button."}),
                 "Score Mismatch", Icon::Warning);
    if (ask(mismatch) != Answer::Yes)
        return;
    step([&] { ++session().gScoreFixCount; });
    session().gScoreFixes.push_back({session().gSessionNum, session().gGameNum, score});
    if (Screen* const game = screens().find("frmGame"); game != nullptr)
        static_cast<frmGame&>(*game).txtGameScore.setText(text(score));
    mGameScore = score;
    screens().goBackFrom(*this);
}

}  // namespace tallybrook
