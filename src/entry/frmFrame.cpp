#include "entry/frmFrame.h"

#include "entry/FrameFailures.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"
#include "shell/UpdateCurrentEvent.h"

#include <initializer_list>

namespace tallybrook {

frmFrame::frmFrame(Program& owner) : ProgramScreen(owner, "frmFrame", "Frame Information") {
    BallPanel& firstBall = balls.panel(Ball::First);
    setTabOrder({&txtLaneNum, &txtBallUsed, &txtFootPos, &txtLaneTgt, &firstBall.optYes, &firstBall.optNo,
                 &txtComment, &cmdNextFrame, &cmdPrevFrame, &cmdReset, &cmdPrevious, &cmdRetMain, &cmdExit});

    txtNumGames.setSpokenName("Number of Games");  // its label, "of", goes on from the number before it
    setPrimary(cmdNextFrame);
    connect();
}

void frmFrame::connect() {
    cmdNextFrame.onClick = [this] {
        const Int16 left = frameNumber_;
        cmdNextFrame_Click();
        tellNextFrame(left);
    };
    cmdPrevFrame.onClick = [this] { cmdPrevFrame_Click(); };
    cmdReset.onClick = [this] { cmdReset_Click(); };
    cmdResetPinfall.onClick = [this] { cmdResetPinfall_Click(); };
    cmdPinfallHelp.onClick = [this] {
        program().display.help(recordsPinfall() ? HelpTopic::PinfallEntry : HelpTopic::LineScoreEntry);
    };
    cmdPrevious.onClick = [this] { cmdPrevious_Click(); };
    cmdRetMain.onClick = [this] { cmdRetMain_Click(); };
    cmdExit.onClick = [this] { cmdExit_Click(); };

    txtFrameNum.onChange = [this] { sheet.markFrame(txtFrameNum.text()); };
    txtLaneNum.onLostFocus = [this] { txtLaneNum_LostFocus(); };
    txtBallUsed.onLostFocus = [this] { ballUsed_ = txtBallUsed.text(); };
    txtFootPos.onLostFocus = [this] { footPosition_ = txtFootPos.text(); };
    txtLaneTgt.onLostFocus = [this] {
        laneTarget_ = txtLaneTgt.text();
        if (session().gScoreType == "L")
            cell().focus();
    };
    // The marks of the panels are added to what stands in the cell, whoever wrote it.
    sheet.onCell = [this](int frame) {
        if (frameNumber_ == frame)
            balls.entry.setCell(sheet.cell(frameNumber_));
    };
    balls.onCell = [this] {
        showCell();
        tellFrame();
    };
    balls.onSpare = [this] {
        txtComment.focus();
        tellFrame();
    };
}

Layout frmFrame::layout() {
    return layout::column(
        {layout::row({layout::row({lblEventName, Layout(txtEventName).stretched()}).stretched(),
                      layout::row({lblDateBowled, txtDateBowled, lblGameNum, txtGameNum, lblNumGames,
                                   txtNumGames, lblLanePair, txtLanePair})
                          .atStart()}),
         layout::row({layout::column(
                          {layout::form({lblFrameNum, layout::row({txtFrameNum, lblOfTen, layout::space()}),
                                         lblLaneNum, Layout(txtLaneNum).atStart(), lblBallUsed, txtBallUsed,
                                         lblFootPos, txtFootPos, lblLaneTgt, txtLaneTgt}),
                           lblComment, Layout(txtComment).stretched()})
                          .stretched(),
                      layout::column(
                          {balls.layout(), layout::row({layout::space(), cmdResetPinfall, cmdPinfallHelp})}),
                      layout::buttons({cmdNextFrame, cmdPrevFrame, cmdReset, cmdPrevious, cmdRetMain,
                                       layout::space(), cmdExit})})
             .stretched(),
         sheet.layout()});
}

void frmFrame::onClose() {
    cmdPrevious.click();
}

void frmFrame::onUnload() {
    for (DataControl* control : {&adoTBKEvent, &adoTBKGame, &adoTBKFrame})
        control->drop();
}

// Opening.

void frmFrame::onLoad() {
    const Handler step = loadingHandler(program(), *this);
    footPosition_.clear();
    laneTarget_.clear();
    ballUsed_.clear();
    sheet.clear();
    loadHeader(step);
    loadFrames(step);
    screens().show(*this);
    txtFrameNum.setText(text(frameNumber_));
    txtLaneNum.focus();
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
    step([&] { lanes_.pair.left = toInt16(game("fldLeftLane")); });
    step([&] { lanes_.pair.right = toInt16(game("fldRightLane")); });
    step([&] { session().gStartLane = toInt16(game("fldStartLane")); });
    step([&] { session().gScoreType = toText(game("fldScoreType")); });
    step([&] { gameScore_ = toInt16(game("fldGameScore")); });
}

void frmFrame::loadFrames(const Handler& step) {
    adoTBKFrame.setRecordSource(
        "SELECT * from tblFrameInfo WHERE fldSessionNum = " + text(session().gSessionNum) +
        " AND fldGameNum = " + text(session().gGameNum) + " ORDER BY fldFrameNum");
    step([&] { adoTBKFrame.Refresh(); });
    step([&] { session().gFrmsRecorded = adoTBKFrame.recordset().RecordCount(); });
    if (session().gFrmsRecorded < 1) {
        session().gMode = kAdd;
        frameNumber_ = 0;
        session().gFrmsRecorded = 0;
        Add_Frame();
    } else {
        step([&] { adoTBKFrame.recordset().MoveFirst(); });
        step([&] { frameNumber_ = toInt16(adoTBKFrame.recordset()["fldFrameNum"]); });
        session().gMode = kEdit;
        Load_Frame();
    }
}

// The frame rows.

void frmFrame::setPreviousFrameEnabled(bool enabled) {
    cmdPrevFrame.setEnabled(enabled);
    mnuPrevFrame.setEnabled(enabled);
}

void frmFrame::Load_Frame() {
    const Handler step = frameHandler(program(), *this, "Load_Frame", "Load_Record");
    readFrame(step);
    showBalls(step);
    step([&] {
        balls.entry.setCell(toText(adoTBKFrame.recordset()["fldLineScore"]));
        showCell();
    });
    balls.entry.lock();
    balls.show();
    setPreviousFrameEnabled(true);
}

void frmFrame::readFrame(const Handler& step) {
    const auto field = [this](const char* name) { return adoTBKFrame.recordset()[name].value(); };
    const auto fill = [&](TextBox& box, const char* name) {
        step([&] { box.setText(toText(field(name))); });
    };
    const auto read = [&](Ball ball, const char* name) {
        step([&] { balls.entry.setResult(ball, toText(field(name))); });
    };

    clearEntry();
    for (TextBox* box : {&txtFrameNum, &txtLaneNum, &txtBallUsed, &txtFootPos, &txtLaneTgt, &txtComment})
        box->setText("");

    step([&] { frameNumber_ = toInt16(field("fldFrameNum")); });
    beginEntry();
    fill(txtFrameNum, "fldFrameNum");
    step([&] { lanes_.current = toInt16(field("fldLaneBowled")); });
    fill(txtLaneNum, "fldLaneBowled");
    fill(txtBallUsed, "fldBallUsed");
    fill(txtFootPos, "fldFootPos");
    fill(txtLaneTgt, "fldLaneTgt");
    fill(txtComment, "fldComment");
    read(Ball::First, "fldFirstBallRes");
    read(Ball::Second, "fldSecondBallRes");
    read(Ball::Fill, "fldFillBallRes");
}

void frmFrame::showBalls(const Handler& step) {
    if (!recordsPinfall()) {
        step([&] { cell().setEnabled(true); });
        return;
    }
    for (const Ball ball : kBalls) {
        step([&] { balls.showStored(ball); });
        balls.show();
    }
}

/// Goes over to the frame frameNumber_, with what its cell holds.
void frmFrame::beginEntry() {
    balls.entry.begin(frameNumber_.value(),
                      ScoreSheet::has(frameNumber_) ? sheet.cell(frameNumber_) : std::string{});
}

/// As if no ball had been entered; the cell stays as it is.
void frmFrame::clearEntry() {
    balls.entry.clearResults();
    balls.entry.reset();
    balls.show();
}

void frmFrame::Add_Frame() {
    if (session().gFrmsRecorded >= kFrames)
        return leaveFullGame();
    const Handler step = frameHandler(program(), *this, "Add_Frame", "Add_Frame");
    step([&] { ++frameNumber_; });
    step([&] { cell().setText(""); });
    beginEntry();
    clearEntry();
    txtBallUsed.setText(ballUsed_);
    txtFootPos.setText(footPosition_);
    txtLaneTgt.setText(laneTarget_);
    txtComment.setText("");
    txtLaneNum.setText(text(frameNumber_ == 1 ? session().gStartLane : lanes_.next));
    lanes_.current = lanes_.next;
    step([&] { adoTBKFrame.recordset().AddNew(); });
    txtFrameNum.setText(text(frameNumber_));
    prepareEntry(step);
    setPreviousFrameEnabled(false);
}

void frmFrame::prepareEntry(const Handler& step) {
    if (recordsPinfall()) {
        step([&] { cell().setEnabled(false); });
        return;
    }
    step([&] { cell().setEnabled(true); });
    if (frameNumber_ > 1)
        step([&] { sheet.txtCount(frameNumber_ - 1).setEnabled(false); });
    balls.entry.close(Ball::First);
    balls.show();
}

void frmFrame::leaveFullGame() {
    ask(question(
        lines({"All frames for this game have been added.", "Click \"OK\" to return to the game screen."}),
        "All Frames Added"));
    Calc_Score();
    screens().goBackFrom(*this);
}

void frmFrame::Save_Frame() {
    const Handler step = frameHandler(program(), *this, "Save_Frame", "Save_Frame");
    lanes_.workOutNext(session().gStartLane, session().gAltLanes, isTenth());
    writeFrame(step);
    step([&] {
        adoTBKFrame.recordset().Update();
        program().display.saved();
    });
    step([&] { adoTBKFrame.recordset().Resync(); });
    step([&] { session().gFrameKey = toInt32(adoTBKFrame.recordset()["fldFrameKey"]); });
    if (session().gMode == kAdd)
        step([&] { ++session().gFrmsRecorded; });
}

// Every field is written, also of a row that was only looked at.
void frmFrame::writeFrame(const Handler& step) {
    const auto write = [&](const char* field, const Value& value) {
        step([&] { adoTBKFrame.recordset()[field] = value; });
    };
    write("fldFrameNum", valueOf(frameNumber_));
    write("fldGameNum", valueOf(session().gGameNum));
    write("fldSessionNum", valueOf(session().gSessionNum));
    step([&] { adoTBKFrame.recordset()["fldLaneBowled"] = leadingNumber(txtLaneNum.text()); });
    write("fldBallUsed", txtBallUsed.text());
    write("fldFootPos", txtFootPos.text());
    write("fldLaneTgt", txtLaneTgt.text());
    write("fldFirstBallRes", balls.entry.result(Ball::First));
    write("fldSecondBallRes", balls.entry.result(Ball::Second));
    write("fldFillBallRes", balls.entry.result(Ball::Fill));
    write("fldComment", txtComment.text());
    step([&] { adoTBKFrame.recordset()["fldLineScore"] = sheet.cell(frameNumber_); });
    write("fldHHRecordID", "NONE");
}

/// What has become of the frame that was left, and which one is next; of a game that is complete its score.
void frmFrame::tellNextFrame(Int16 left) {
    if (frameNumber_ != left)
        tell((ScoreSheet::has(left) ? "Frame " + text(left) + ": " + inWords(sheet.cell(left)) + ". " : "") +
             "Frame " + text(frameNumber_) + " is next, lane " + txtLaneNum.text() + ".");
    else if (!sheet.txtTotScore.text().empty())
        tell("Score " + sheet.txtTotScore.text());
}

// The ways on and out.

void frmFrame::cmdNextFrame_Click() {
    const Handler step = handler("frmFrame, cmdNextFrame.");
    Verdict verdict = Verdict::Unchecked;
    step([&] { verdict = Check_Frame(); });
    if (!isGood(verdict))
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
            sheet.txtCount(frame).setEnabled(false);
    }
    Calc_Score();
}

void frmFrame::cmdPrevFrame_Click() {
    const Handler step = handler("Frame Information, cmdPrevFrame.");
    const auto leaveBehind = [&](auto frame) {
        step([&] { sheet.txtCount(frame).setEnabled(false); });
        step([&] { sheet.txtCount(frame).setText(""); });
        step([&] { sheet.txtScore(frame).setText(""); });
    };
    Save_Frame();
    step([&] { adoTBKFrame.recordset().MovePrevious(); });
    if (step.test([&] { return adoTBKFrame.recordset().Bof(); })) {
        ask({.text = "This is the first frame in this game.", .title = "Frame Input"});
        step([&] { adoTBKFrame.recordset().MoveFirst(); });
        for (int frame = kFrames; frame >= 2; --frame)
            leaveBehind(frame);
    } else {
        leaveBehind(frameNumber_);
    }
    sheet.txtTotScore.setText("");
    Load_Frame();
}

void frmFrame::cmdReset_Click() {
    if (ask(question(lines({"This will reset the form but NOT affect the current record.",
                            "Do you want to continue?"}),
                     "Reset Form")) != Answer::Yes)
        return;
    for (TextBox* box : {&txtLaneNum, &txtBallUsed, &txtFootPos, &txtLaneTgt, &txtComment})
        box->setText("");
    clearEntry();
    txtLaneNum.focus();
}

// The results stay until the balls are entered anew.
void frmFrame::cmdResetPinfall_Click() {
    if (ask(question(lines({"This will erase the pinfall for this frame.", "Do you want to continue?"}),
                     "Reset Pinfall")) != Answer::Yes)
        return;
    balls.entry.reset();
    balls.entry.setCell("");
    balls.show();
    showCell();
    sheet.clearScores();
    if (recordsPinfall()) {
        balls.panel(Ball::First).optYes.focus();
    } else {
        balls.entry.close(Ball::First);
        balls.show();
        cell().focus();
    }
}

void frmFrame::cmdPrevious_Click() {
    if (!isGood(Check_Frame()))
        return;
    Save_Frame();
    updateCurrentEvent(program());
    screens().goBackFrom(*this);
}

void frmFrame::cmdRetMain_Click() {
    Save_Frame();
    updateCurrentEvent(program());
    returnToMain(program());
}

void frmFrame::cmdExit_Click() {
    Save_Frame();
    updateCurrentEvent(program());
    Exit_Confirm(program());
}

void frmFrame::txtLaneNum_LostFocus() {
    if (lanes_.enter(leadingNumber(txtLaneNum.text())))
        return;
    ask({.text = lines({"Invalid lane number.", "Please enter either " + text(lanes_.pair.left) + " or " +
                                                    text(lanes_.pair.right) + "."})});
    txtLaneNum.focus();
}

}  // namespace tallybrook
