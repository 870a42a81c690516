#include "entry/frmGame.h"

#include "runtime/EndProgram.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

#include <array>
#include <memory>

namespace tallybrook {

namespace {

struct ScoringMethod {
    const char* type;
    const char* caption;
    const char* tip;
};

constexpr std::array<ScoringMethod, 3> kScoringMethods{{
    {"P", "Pinfall", "Select \"Pinfall\" if you record your full pinfall, e.g. 2-4-5, etc."},
    {"L", "Line Score",
     "Select \"Line Score\" if you are simply recording from your scoresheet, e.g. 9/,X,80 etc."},
    {"N", "Game Score (No frames recorded)",
     "Select \"Game Score\" if you are only recording your game scores without recording frames."},
}};

constexpr std::array<const char*, 2> kYesNo{"Yes", "No"};
constexpr int kAlternates = 0;
constexpr int kStays = 1;

const ScoringMethod& scoringMethod(int index) {
    return kScoringMethods[static_cast<std::size_t>(index)];
}

/// The option that stands for a stored score type: the last one for all that is neither "P" nor "L".
int scoringIndex(const std::string& type) {
    return type == "P" ? 0 : type == "L" ? 1 : 2;
}

}  // namespace

frmGame::frmGame(Program& owner)
    : ProgramScreen(owner, "frmGame", "Game Information"),
      optAltLanes("optAltLanes", 0, 1,
                  [this](int index, const std::string& name) {
                      return std::make_unique<OptionButton>(fraAltLanes, name, altLanes,
                                                            kYesNo[static_cast<std::size_t>(index)]);
                  }),
      optScType("optScType", 0, 2, [this](int index, const std::string& name) {
          return std::make_unique<OptionButton>(fraScoreType, name, scoreTypes, scoringMethod(index).caption,
                                                scoringMethod(index).tip);
      }) {
    optAltLanes(kAlternates).onClick = [this] { session().gAltLanes = true; };
    optAltLanes(kStays).onClick = [this] { session().gAltLanes = false; };
    for (int index = 0; index <= optScType.lastIndex(); ++index)
        optScType(index).onClick = [this, index] { scoreType_ = scoringMethod(index).type; };

    setPrimary(cmdUpdFrame);
    cmdNextGame.onClick = [this] { cmdNextGame_Click(); };
    cmdPrevGame.onClick = [this] { cmdPrevGame_Click(); };
    cmdUpdFrame.onClick = [this] { cmdUpdFrame_Click(); };
    cmdReset.onClick = [this] { cmdReset_Click(); };
    cmdPrevious.onClick = [this] { cmdPrevious_Click(); };
    cmdMain.onClick = [this] { cmdMain_Click(); };
    cmdExit.onClick = [this] { cmdExit_Click(); };

    const auto bind = [this](const char* field, TextBox& box) {
        adoTBKGame.bind(field, [&box](const std::string& shown) { box.setText(shown); });
    };
    bind("fldGameScore", txtGameNum);
    bind("fldLeftLane", txtStartLane);
    bind("fldGameScore", txtGameScore);
    bind("fldLaneCond", txtLaneCond);
    bind("fldComment", txtComment);
}

Layout frmGame::layout() {
    return layout::column(
        {layout::row({Layout(imgTbrk).atStart(), Layout(lblTitle).stretched()}),
         layout::row(
             {layout::column(
                  {layout::form({lblEvent, txtEventName, lblEventDate, Layout(txtDateBowled).atStart(),
                                 lblGameLabel, Layout(txtGameNum).atStart(), lblLanePair,
                                 Layout(txtStartLane).atStart(), lblGameScore, Layout(txtGameScore).atStart(),
                                 lblLaneCond, txtLaneCond, lblComment, txtComment}),
                   layout::row({layout::group(fraAltLanes, layout::column({optAltLanes(0), optAltLanes(1),
                                                                           layout::space()})),
                                layout::group(fraScoreType,
                                              layout::column({optScType(0), optScType(1), optScType(2)}))
                                    .stretched()})})
                  .stretched(),
              layout::buttons({cmdNextGame, cmdPrevGame, cmdUpdFrame, cmdReset, cmdPrevious, cmdMain,
                               layout::space(), cmdExit})}),
         layout::space()});
}

void frmGame::onLoad() {
    const Handler step = handler("Game Information, Form Load.", Retry::OnNoCurrentRow);
    const std::string key = text(session().gSessionNum);
    Clear_Game();

    adoTBKEvent.setRecordSource("SELECT * FROM tblEventInfo where fldSessionNum = " + key);
    step([&] { adoTBKEvent.Refresh(); });
    step([&] { txtEventName.setText(toText(adoTBKEvent.recordset()["fldEventName"])); });
    step([&] { txtDateBowled.setText(toText(adoTBKEvent.recordset()["fldDateBowled"])); });
    step([&] { session().gNumGames = toInt16(adoTBKEvent.recordset()["fldNumGames"]); });

    adoTBKGame.setRecordSource("SELECT * FROM tblGameInfo WHERE fldSessionNum = " + key +
                               " ORDER BY fldGameNum");
    step([&] { adoTBKGame.Refresh(); });
    step([&] { session().gGmsRecorded = adoTBKGame.recordset().RecordCount(); });
    if (session().gGmsRecorded > 0) {
        step([&] { adoTBKGame.recordset().MoveFirst(); });
        Load_Game();
    } else {
        session().gGameNum = 0;
        gameScore_ = startLane_ = 0;
        lanes_ = {};
        session().gMode = kAdd;
        Add_Game();
    }
    screens().show(*this);
    txtStartLane.focus();
}

void frmGame::onClose() {
    cmdPrevious.click();
}

void frmGame::onUnload() {
    for (DataControl* control : {&adoTBKEvent, &adoTBKGame, &adoTBKFrame})
        control->drop();
}

void frmGame::Clear_Game() {
    for (TextBox* box :
         {&txtEventName, &txtDateBowled, &txtGameNum, &txtStartLane, &txtLaneCond, &txtComment})
        box->setText("");
    for (const auto& option : optAltLanes)
        option->setValue(false);
    for (const auto& option : optScType)
        option->setValue(false);
}

void frmGame::showGameNumber() {
    txtGameNum.setText(text(session().gGameNum) + " of " + text(session().gNumGames));
}

void frmGame::Add_Game() {
    const Handler step = handler("Game Information, Add_Game.", Retry::OnNoCurrentRow);
    // Inequality on purpose: an event with more games than planned takes further ones without a question.
    if (session().gGmsRecorded != session().gNumGames)
        beginNewGame(step);
    else
        offerToEdit();
}

void frmGame::beginNewGame(const Handler& step) {
    step([&] { adoTBKGame.recordset().AddNew(); });
    step([&] { ++session().gGmsRecorded; });
    session().gFrmsRecorded = 0;
    step([&] { ++session().gGameNum; });
    showGameNumber();
    gameScore_ = 0;
    txtGameScore.setText(text(gameScore_));
    txtStartLane.setText("");
    cmdPrevGame.setEnabled(false);
    mnuPrevGame.setEnabled(false);
    handheldRecord_ = "NONE";
    bowlingHand_ = "N";
    framesRecorded_ = 0;
    optAltLanes(kAlternates).setValue(true);
    optScType(0).setValue(true);
}

void frmGame::offerToEdit() {
    if (ask(question(lines({"All games for this event have been added.", "Do you wish to edit these games?"}),
                     "Game Information")) == Answer::Yes) {
        session().gMode = kEdit;
        cmdReset.setEnabled(true);
        cmdPrevGame.setEnabled(true);
    } else {
        screens().goBackFrom(*this);
    }
}

bool frmGame::Check_Lane() {
    const double lane = leadingNumber(txtStartLane.text());
    if (lane < 1) {
        ask({.text = "Invalid starting lane. Starting lane must be 1 or greater.",
             .title = "Invalid Start Lane",
             .icon = Icon::Critical});
        txtStartLane.focus();
        return false;
    }
    startLane_ = toInt16(lane);
    lanes_ = pairOf(startLane_);
    return true;
}

void frmGame::Update_Game() {
    const Handler step = handler("Game Information, Update_Game.", Retry::OnNoCurrentRow);
    bool laneIsGood = false;
    step([&] { laneIsGood = Check_Lane(); });
    if (!laneIsGood)
        return;
    step([&] { gameScore_ = toInt16(leadingNumber(txtGameScore.text())); });
    writeGame(step);
    step([&] {
        adoTBKGame.recordset().Update();
        program().display.saved();
    });
}

void frmGame::writeGame(const Handler& step) {
    const auto write = [&](const char* field, const Value& value) {
        step([&] { adoTBKGame.recordset()[field] = value; });
    };
    write("fldSessionNum", valueOf(session().gSessionNum));
    write("fldGameNum", valueOf(session().gGameNum));
    write("fldStartLane", valueOf(startLane_));
    write("fldLeftLane", valueOf(lanes_.left));
    write("fldRightLane", valueOf(lanes_.right));
    write("fldLanePair", text(lanes_));
    write("fldGameScore", valueOf(gameScore_));
    write("fldLaneCond", txtLaneCond.text());
    write("fldComment", txtComment.text());
    write("fldFrmsRecorded", valueOf(framesRecorded_));
    write("fldHHRecordID", handheldRecord_);
    write("fldBowlHand", bowlingHand_);
}

void frmGame::Load_Game() {
    const Handler step = handler("Game Information, Load_Game.", Retry::OnNoCurrentRow);
    readGame(step);
    if (scoreType_ == "N") {
        framesRecorded_ = 0;
    } else {
        step([&] { Get_Lanes(); });
        optAltLanes(session().gAltLanes ? kAlternates : kStays).setValue(true);
    }
}

void frmGame::readGame(const Handler& step) {
    const auto field = [this](const char* name) { return adoTBKGame.recordset()[name].value(); };
    step([&] { session().gGameNum = toInt16(field("fldGameNum")); });
    showGameNumber();
    step([&] { startLane_ = toInt16(field("fldStartLane")); });
    step([&] { lanes_.left = toInt16(field("fldLeftLane")); });
    step([&] { lanes_.right = toInt16(field("fldRightLane")); });
    txtStartLane.setText(text(startLane_));
    step([&] { scoreType_ = toText(field("fldScoreType")); });
    step([&] { bowlingHand_ = toText(field("fldBowlHand")); });
    step([&] { handheldRecord_ = toText(field("fldHHRecordID")); });
    optScType(scoringIndex(scoreType_)).setValue(true);
    step([&] { txtComment.setText(toText(field("fldComment"))); });
    step([&] { txtLaneCond.setText(toText(field("fldLaneCond"))); });
}

// Unguarded: with fewer than two frames it fails into its caller, which tries it again.
void frmGame::Get_Lanes() {
    adoTBKFrame.setRecordSource(
        "SELECT * FROM tblFrameInfo WHERE fldSessionNum = " + text(session().gSessionNum) +
        " AND fldGameNum = " + text(session().gGameNum) + " ORDER BY fldFrameNum");
    adoTBKFrame.Refresh();
    Recordset& frames = adoTBKFrame.recordset();
    framesRecorded_ = frames.RecordCount();
    frames.MoveFirst();
    const Int16 firstLane = toInt16(frames["fldLaneBowled"]);
    frames.MoveNext();
    const Int16 secondLane = toInt16(frames["fldLaneBowled"]);
    session().gAltLanes = firstLane != secondLane;
    frames.Close();
}

void frmGame::cmdNextGame_Click() {
    const Handler step = handler("Game Information, cmdNextGame.", Retry::OnNoCurrentRow);
    Update_Game();
    if (session().gMode == kAdd)
        return Add_Game();
    step([&] { adoTBKGame.recordset().MoveNext(); });
    if (step.test([&] { return !adoTBKGame.recordset().Eof(); }))
        Load_Game();
    else
        moveBeyondLastGame(step);
}

void frmGame::moveBeyondLastGame(const Handler& step) {
    if (session().gGmsRecorded >= session().gNumGames) {
        ask({.text = "This is the last game in this record.", .title = "Game Input"});
        step([&] { adoTBKGame.recordset().MoveLast(); });
        return Load_Game();
    }
    if (ask(question(lines({"There are less than " + text(session().gNumGames) + " games for this event.",
                            "Do you want to add another game?"}),
                     "Game Input", Icon::None)) != Answer::Yes)
        return;
    session().gMode = kAdd;
    gameScore_ = 0;
    Add_Game();
}

void frmGame::cmdPrevGame_Click() {
    const Handler step = handler("Game Information, cmdPrevGame.", Retry::OnNoCurrentRow);
    Update_Game();
    step([&] { adoTBKGame.recordset().MovePrevious(); });
    if (step.test([&] { return adoTBKGame.recordset().Bof(); })) {
        ask({.text = "This is the first game in the record.", .title = "First Game"});
        step([&] { adoTBKGame.recordset().MoveFirst(); });
    }
    Load_Game();
}

void frmGame::cmdUpdFrame_Click() {
    if (ask(question("Update frames for this game?", "Update Frames")) != Answer::Yes)
        return;
    Update_Game();
    screens().hide(*this);
    screens().load("frmFrame");
}

void frmGame::cmdReset_Click() {
    MessageBox box =
        question(lines({"This will cancel any changes you have made to the current game.", "Continue?"}),
                 "Reset Form");
    box.preset = Answer::No;
    if (ask(box) != Answer::Yes)
        return;
    Clear_Game();
    if (session().gMode != kAdd)
        return Load_Game();
    adoTBKGame.recordset().CancelUpdate();
    Add_Game();  // counts the new game once more
}

void frmGame::cmdPrevious_Click() {
    const Handler step = handler("Game Information, cmdPrevious.");
    if (ask(question("Return to the previous screen?", "Previous Screen", Icon::None)) != Answer::Yes)
        return;
    Update_Game();
    step([&] { screens().goBackFrom(*this); });
}

void frmGame::cmdMain_Click() {
    if (Main_Confirm(program()) != Answer::Yes)
        return;
    Update_Game();
    returnToMain(program());
}

void frmGame::cmdExit_Click() {
    if (ask(question("Exit Tallybrook?", "Exit Application")) != Answer::Yes)
        return;
    Update_Game();
    throw EndProgram{};
}

}  // namespace tallybrook
