#include "browse/frmEventList.h"

#include "browse/ListLeaving.h"
#include "browse/frmSearchEvents.h"
#include "reports/modTBKReports.h"
#include "runtime/TextForms.h"
#include "shell/ReportsFolder.h"
#include "shell/TBK_Globals.h"
#include "store/WalkRows.h"

#include <array>
#include <filesystem>
#include <memory>

namespace tallybrook {

namespace {

constexpr int kKeyColumn = 0;
constexpr int kNameColumn = 1;
constexpr int kDateColumn = 2;

std::vector<GridColumn> eventColumns() {
    return {{.caption = "Event", .field = "fldSessionNum", .width = 6},
            {.caption = "Event Name", .field = "fldEventName", .width = 28, .longest = 50},
            {.caption = "Date Bowled", .field = "fldDateBowled", .width = 12},
            {.caption = "Center Name", .field = "fldCenterName", .width = 20, .longest = 50},
            {.caption = "Games Bowled", .field = "fldNumGames", .width = 8},
            {.caption = "Series Total", .field = "fldSeriesTot", .width = 8},
            {.caption = "Series Avg.", .field = "fldSeriesAvg", .decimals = 2, .width = 8},
            {.caption = "Comment", .field = "fldComment", .width = 24, .takesRoom = true},
            {.caption = "Event Type", .field = "fldEventType", .width = 15},
            {.caption = "Games Recorded", .field = "fldGmsRecorded", .width = 8}};
}

constexpr std::array<const char*, 2> kReportTypes{"Full", "Summary"};
constexpr int kFull = 0;
constexpr std::array<const char*, 2> kSyncChoices{"Yes", "No"};
constexpr int kSync = 0;
constexpr int kNoSync = 1;

}  // namespace

frmEventList::frmEventList(Program& owner)
    : ProgramScreen(owner, "frmEventList", "Event Listing"),
      dgdEventList(*this, "dgdEventList", "Event List", adoTBKEvent, eventColumns()),
      optRpType("optRpType", 0, 1,
                [this](int index, const std::string& name) {
                    return std::make_unique<OptionButton>(fraType, name, reportTypes,
                                                          kReportTypes[static_cast<std::size_t>(index)]);
                }),
      optSyncPDA("optSyncPDA", 0, 1, [this](int index, const std::string& name) {
          return std::make_unique<OptionButton>(fraSyncHH, name, syncChoices,
                                                kSyncChoices[static_cast<std::size_t>(index)]);
      }) {
    adoTBKGame.setRecordSource("SELECT * FROM tblGameInfo");
    adoTBKFrame.setRecordSource("SELECT * FROM tblFrameInfo");
    for (int index = 0; index <= optRpType.lastIndex(); ++index)
        optRpType(index).onClick = [this, index] {
            reportType_ = kReportTypes[static_cast<std::size_t>(index)];
        };
    for (int index = 0; index <= optSyncPDA.lastIndex(); ++index)
        optSyncPDA(index).onClick = [this, index] { copiesToHandheld_ = index == kSync; };

    setPrimary(cmdGetRecord);
    cmdGetRecord.onClick = [this] { cmdGetRecord_Click(); };
    cmdDelRecord.onClick = [this] { cmdDelRecord_Click(); };
    cmdPrevious.onClick = [this] { leaveToPrevious(program(), *this); };
    cmdMain.onClick = [this] { leaveToMain(program(), *this); };
}

Layout frmEventList::layout() {
    return layout::column(
        {layout::row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
         layout::row(
             {layout::column(
                  {Layout(dgdEventList).stretched(),
                   layout::row({layout::group(fraType, layout::row({optRpType(0), optRpType(1)})),
                                layout::group(fraSyncHH, layout::row({optSyncPDA(0), optSyncPDA(1)})),
                                layout::space()})})
                  .stretched(),
              layout::buttons({cmdGetRecord, cmdPrevious, cmdMain, layout::space(), cmdDelRecord, cmdExit})})
             .stretched()});
}

void frmEventList::onLoad() {
    const Handler step = handler("frmEventList, Form Load.");
    const Int16 mode = session().gMode;
    cdlEventList.folder = reportsFolder() + static_cast<char>(std::filesystem::path::preferred_separator);
    fraType.setVisible(mode == kReport);
    fraSyncHH.setVisible(mode == kReport);
    if (mode == kEdit)
        offerEditing(step);
    else if (mode == kReport)
        offerReports(step);
    cmdDelRecord.setEnabled(mode == kEdit);
    mnuDelRecord.setEnabled(mode == kEdit);
    screens().show(*this);
    dgdEventList.focus();
}

void frmEventList::onClose() {
    cmdPrevious.click();
}

void frmEventList::onUnload() {
    for (DataControl* control : {&adoTBKEvent, &adoTBKGame, &adoTBKFrame})
        control->drop();
}

void frmEventList::offerEditing(const Handler& step) {
    adoTBKEvent.setRecordSource(
        "SELECT tblEventInfo.* FROM tblEventInfo ORDER by fldEventName,fldDateBowled");
    step([&] { adoTBKEvent.Refresh(); });
    step([&] {
        tellCount("There are ", " events available to edit.",
                  "To edit an event, highlight an event and click Retrieve Record.");
    });
}

void frmEventList::offerReports(const Handler& step) {
    optRpType(kFull).setValue(true);
    optSyncPDA(kNoSync).setValue(true);
    step([&] { adoTBKEvent.setRecordSource(searchStatement()); });
    step([&] { adoTBKEvent.Refresh(); });
    step([&] {
        tellCount("Based on your search criteria, ", " event(s) were found.",
                  "Highlight an event and click Retrieve Record to create a report.");
    });
}

const std::string& frmEventList::searchStatement() const {
    const Screen* const search = screens().find("frmSearchEvents");
    if (search == nullptr)
        throw RunTimeError(error::kObjectNotSet);
    return static_cast<const frmSearchEvents&>(*search).adoTBKEvent.RecordSource();
}

void frmEventList::tellCount(const std::string& before, const std::string& after, const std::string& hint) {
    const std::string count = std::to_string(adoTBKEvent.recordset().RecordCount());
    ask({.text = lines({before + count + after, hint}), .title = "Tallybrook - Search Results"});
}

void frmEventList::cmdGetRecord_Click() {
    session().gSessionNum = toInt32(leadingNumber(dgdEventList.text(kKeyColumn)));
    screens().hide(*this);
    if (session().gMode == kEdit)
        screens().load("frmEvent");
    else if (session().gMode == kReport)
        writeReport();
}

void frmEventList::writeReport() {
    const std::string name = dgdEventList.text(kNameColumn);
    cdlEventList.name = "Tallybrook - " + reportType_ + " Report";
    const std::string file = program().display.fileDialog(cdlEventList).value_or(cdlEventList.name).string();
    program().display.pointer(Pointer::Busy);
    Write_Report(program(), {.kind = reportType_,
                             .filter = name,
                             .eventKey = session().gSessionNum,
                             .file = file,
                             .copyToHandheld = copiesToHandheld_});
    program().display.pointer(Pointer::Default);
    ask({.text = lines({"The report is complete.", "The report is in the following file: " + file}),
         .title = "Report Complete",
         .icon = Icon::Information});
    screens().show(*this);
}

void frmEventList::cmdDelRecord_Click() {
    const Handler step = handler("frmEventList, cmdDelRecord.");
    std::string name;
    DateTime date = kZeroDate;
    if (!step([&] { session().gSessionNum = toInt32(leadingNumber(dgdEventList.text(kKeyColumn))); }))
        return;  // nothing may go on the key of another event
    step([&] { name = dgdEventList.text(kNameColumn); });
    step([&] { date = readDate(dgdEventList.text(kDateColumn), program().clock.year()); });
    if (ask(question(
            lines({"Are you sure you want to delete this event?", name + " bowled on " + dateText(date)}),
            "Confirm - Delete Record", Icon::None)) != Answer::Yes) {
        ask({.text = "Record not deleted.", .title = "Record Not Deleted"});
        return;
    }
    deleteEvent(step, name);
    ask({.text = name + " has been deleted from the database", .title = "Record Deleted"});
    screens().unload(*this);
    screens().load("frmEventList");
}

// Deepest first. What cannot be deleted is told and left behind, and the event goes all the same.
void frmEventList::deleteEvent(const Handler& step, const std::string& name) {
    Delete_Records(adoTBKFrame, "Frames", "fldSessionNum", "tblFrameInfo", name);
    Delete_Records(adoTBKGame, "Games", "fldSessionNum", "tblGameInfo", name);
    adoTBKEvent.setRecordSource("SELECT * FROM tblEventInfo WHERE fldSessionNum = " +
                                text(session().gSessionNum));
    step([&] { adoTBKEvent.Refresh(); });
    step([&] { adoTBKEvent.recordset().Delete(); });
}

void frmEventList::Delete_Records(DataControl& control, const std::string& label,
                                  const std::string& sortField, const std::string& table,
                                  const std::string& name) {
    const Handler step = handler("frmEventList, Delete_Records");
    control.setRecordSource("SELECT * FROM " + table + " WHERE fldSessionNum = " +
                            text(session().gSessionNum) + " ORDER BY " + sortField);
    step([&] { control.Refresh(); });
    if (step.test([&] { return control.recordset().RecordCount() == 0; })) {
        ask({.text = "No " + label + " recorded for " + name, .title = "No " + label + " Recorded"});
        return;
    }
    const auto rows = [&]() -> Recordset& { return control.recordset(); };
    step([&] { rows().MoveFirst(); });
    walkRows(step, rows, [&] { step([&] { rows().Delete(); }); });
}

}  // namespace tallybrook
