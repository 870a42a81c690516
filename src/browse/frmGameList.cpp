#include "browse/frmGameList.h"

#include "browse/GameReport.h"
#include "browse/ListLeaving.h"
#include "browse/NoCurrentRow.h"
#include "browse/frmSearchGames.h"
#include "runtime/EndProgram.h"
#include "runtime/TextForms.h"
#include "shell/ReportsFolder.h"
#include "shell/TBK_Globals.h"

#include <filesystem>

namespace tallybrook {

namespace {

constexpr int kEventColumn = 0;
constexpr int kGameColumn = 1;

std::vector<GridColumn> gameColumns() {
    return {{.caption = "Event", .field = "fldSessionNum", .width = 6},
            {.caption = "Game Number", .field = "fldGameNum", .width = 8},
            {.caption = "Lane Pair", .field = "fldLanePair", .width = 8},
            {.caption = "Left Lane", .field = "fldLeftLane", .width = 8},
            {.caption = "Right Lane", .field = "fldRightLane", .width = 8},
            {.caption = "Lane Condition", .field = "fldLaneCond", .width = 20, .longest = 50},
            {.caption = "Game Score", .field = "fldGameScore", .width = 8},
            {.caption = "Comment", .field = "fldComment", .width = 24, .takesRoom = true},
            {.caption = "Bowling Hand", .field = "fldBowlHand", .width = 8},
            {.caption = "Frames Recorded", .field = "fldFrmsRecorded", .width = 8}};
}

}  // namespace

frmGameList::frmGameList(Program& owner)
    : ProgramScreen(owner, "frmGameList", "Game Listing"),
      dgdEventList(*this, "dgdEventList", "Game Search Results", adoTBKGame, gameColumns()) {
    adoTBKEvent.setRecordSource("SELECT * FROM tblEventInfo");
    adoTBKGame.setRecordSource("SELECT * FROM tblGameInfo");
    adoTBKFrame.setRecordSource("SELECT * FROM tblFrameInfo");

    setPrimary(cmdGetRecord);
    cmdGetRecord.onClick = [this] { cmdGetRecord_Click(); };
    cmdPrevious.onClick = [this] { leaveToPrevious(program(), *this); };
    cmdMain.onClick = [this] { leaveToMain(program(), *this); };
}

Layout frmGameList::layout() {
    return layout::column(
        {layout::row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
         layout::row({Layout(dgdEventList).stretched(),
                      layout::buttons({cmdGetRecord, cmdPrevious, cmdMain, layout::space(), cmdExit})})
             .stretched()});
}

void frmGameList::onLoad() {
    const Handler step = loadHandler();
    cdlGameList.folder = reportsFolder() + static_cast<char>(std::filesystem::path::preferred_separator);
    step([&] { adoTBKGame.setRecordSource(searchStatement()); });
    step([&] { adoTBKGame.Refresh(); });
    step([&] { tellCount(); });
    screens().show(*this);
    dgdEventList.focus();
}

void frmGameList::onClose() {
    cmdPrevious.click();
}

void frmGameList::onUnload() {
    for (DataControl* control : {&adoTBKEvent, &adoTBKGame, &adoTBKFrame})
        control->drop();
}

Handler frmGameList::loadHandler() {
    return Handler([this](const RunTimeError& failure, int) {
        if (failure.number() == error::kNoCurrentRow)
            offerToReload();
        program().reporter.databaseError(failure, "frmGameList, Form Load");
        return Recovery::GoOn;
    });
}

void frmGameList::offerToReload() {
    const Answer answer =
        ask({.text = lines({"New record could not be added or updated.",
                            "This could be due to timing. Click Retry to attempt to add the record again.",
                            "Click Cancel to return to the previous screen.",
                            debugInformation("Game List, Form Load")}),
             .title = "Database Error",
             .buttons = Buttons::RetryCancel});
    if (answer == Answer::Retry)
        loadAnew();
    else
        screens().goBackFrom(*this);
    throw EndHandler{};
}

void frmGameList::loadAnew() {
    screens().unload(*this);
    screens().load("frmGameList");
}

const std::string& frmGameList::searchStatement() const {
    const Screen* const search = screens().find("frmSearchGames");
    if (search == nullptr)
        throw RunTimeError(error::kObjectNotSet);
    return static_cast<const frmSearchGames&>(*search).adoTBKGame.RecordSource();
}

void frmGameList::tellCount() {
    const std::string count = std::to_string(adoTBKGame.recordset().RecordCount());
    ask({.text = lines({"Based on your search criteria, " + count + " games(s) were found.",
                        "Highlight a game and click Retrieve Record to create a report."}),
         .title = "Tallybrook - Search Results"});
}

void frmGameList::cmdGetRecord_Click() {
    session().gSessionNum = toInt32(leadingNumber(dgdEventList.text(kEventColumn)));
    session().gGameNum = toInt16(leadingNumber(dgdEventList.text(kGameColumn)));
    screens().hide(*this);
    Write_Report();
}

void frmGameList::Write_Report() {
    const Handler step = reportHandler();
    GameReport report(program(), step, {adoTBKEvent, adoTBKGame, adoTBKFrame});
    std::string file;
    step([&] { file = chooseFile(); });
    program().display.pointer(Pointer::Busy);
    report.open(file);
    report.write();
    report.close();
    program().display.pointer(Pointer::Default);
    ask({.text = lines({"The game report is ready.", "Location: " + file}), .title = "Report Ready"});
    loadAnew();
}

Handler frmGameList::reportHandler() {
    return Handler([this](const RunTimeError& failure, int) {
        if (failure.number() == error::kDialogCancelled)
            giveUpReport();
        if (failure.number() == error::kNoCurrentRow)
            leaveWithoutRecord(program(), *this, "Game List, Write_Report");
        program().reporter.databaseError(failure, "frmGameList, Write_Report.");
        return Recovery::GoOn;
    });
}

// Whatever the answer: the report is never begun again.
void frmGameList::giveUpReport() {
    ask({.text = lines({"No file name was specified for the report.",
                        "Continue? (Clicking Cancel will return to the event list)"}),
         .title = "Report",
         .buttons = Buttons::OKCancel});
    screens().goBackFrom(*this);
    throw EndHandler{};
}

std::string frmGameList::chooseFile() const {
    const auto file = program().display.fileDialog(cdlGameList);
    if (!file)
        throw RunTimeError(error::kDialogCancelled);
    return file->string();
}

}  // namespace tallybrook
