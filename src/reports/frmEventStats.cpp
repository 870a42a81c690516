#include "reports/frmEventStats.h"

#include "reports/modTBKReports.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"
#include "store/WalkRows.h"

#include <array>
#include <optional>

namespace tallybrook {

namespace {

struct EventTypeChoice {
    const char* caption;
    const char* type;
};

constexpr std::array<EventTypeChoice, 4> kEventTypes{{{"All E&vents", "All Events"},
                                                      {"&League", "League"},
                                                      {"Pr&actice", "Practice"},
                                                      {"To&urnament", "Tournament"}}};

constexpr std::array<const char*, 2> kYesNo{"Yes", "No"};

std::optional<DateTime> dateIn(const TextBox& box, int currentYear) {
    try {
        return dateOnly(readDate(box.text(), currentYear));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

MessageBox wrongDate(const char* title, const char* text) {
    return {.text = text, .title = title, .icon = Icon::Critical};
}

}  // namespace

frmEventStats::frmEventStats(Program& owner)
    : ProgramScreen(owner, "frmEventStats", "Event Statistics"),
      optEvType("optEvType", 0, 3,
                [this](int index, const std::string& name) {
                    return std::make_unique<OptionButton>(
                        fraSelEvent, name, eventTypes,
                        kEventTypes.at(static_cast<std::size_t>(index)).caption,
                        "Check this box to get statistics on all your events");
                }),
      optFilter("optFilter", 0, 1,
                [this](int index, const std::string& name) {
                    return std::make_unique<OptionButton>(fraFilterOpt, name, filterChoices,
                                                          kYesNo.at(static_cast<std::size_t>(index)));
                }),
      optSync("optSync", 0, 1, [this](int index, const std::string& name) {
          return std::make_unique<OptionButton>(fraSyncPDA, name, syncChoices,
                                                kYesNo.at(static_cast<std::size_t>(index)),
                                                "Check this box to get statistics on all your events");
      }) {
    adoTBKEvent.setRecordSource("SELECT DISTINCT fldEventName FROM tblEventInfo");
    lstEvent.setSpokenName("Event Names");

    for (int index = 0; index <= 3; ++index)
        optEvType(index).onClick = [this, index] { optEvType_Click(index); };
    for (int index = 0; index <= 1; ++index) {
        optFilter(index).onClick = [this, index] { optFilter_Click(index); };
        optSync(index).onClick = [this, index] { copiesToHandheld_ = index == 0; };
    }
    chkDate.onClick = [this] { chkDate_Click(); };
    chkEvent.onClick = [this] { chkEvent_Click(); };
    lstEvent.onClick = [this] { eventFilter_ = lstEvent.picked(); };

    setPrimary(cmdGenReport);
    cmdGenReport.onClick = [this] { cmdGenReport_Click(); };
    cmdReset.onClick = [this] {
        if (ask(question("Reset the form?", "Reset Form")) == Answer::Yes)
            Clear_Form();
    };
    cmdRpt.onClick = [this] { cmdRpt_Click(); };
}

Layout frmEventStats::layout() {
    const auto choices = [](GroupBox& frame, const ControlArray<OptionButton>& options) {
        std::vector<Layout> parts;
        for (const auto& option : options)
            parts.emplace_back(*option);
        return layout::group(frame, layout::row(std::move(parts)).atStart());
    };
    return layout::column(
        {lblTitle,
         layout::row(
             {layout::column(
                  {choices(fraSelEvent, optEvType), choices(fraFilterOpt, optFilter),
                   layout::group(
                       fraFilter,
                       layout::column({layout::row({chkDate, lblFrom, txtFrom, lblTo, txtTo}).atStart(),
                                       chkEvent, Layout(lstEvent).stretched()}))
                       .stretched(),
                   choices(fraSyncPDA, optSync)})
                  .stretched(),
              layout::buttons(
                  {cmdGenReport, cmdReset, cmdPrevious, cmdRpt, cmdMain, layout::space(), cmdExit})})
             .stretched()});
}

void frmEventStats::onLoad() {
    session().gMode = kReport;
    Clear_Form();
    screens().show(*this);
    optEvType(0).focus();
    optEvType(0).setValue(true);  // here the focus selects the option that it comes to
}

void frmEventStats::onClose() {
    cmdPrevious.click();
}

void frmEventStats::onUnload() {
    adoTBKEvent.drop();
}

void frmEventStats::Clear_Form() {
    fraSyncPDA.setVisible(true);
    fraSyncPDA.setEnabled(true);
    optSync(0).setValue(false);
    optSync(1).setValue(true);

    fraFilterOpt.setEnabled(true);
    optFilter(0).setValue(false);
    optFilter(1).setValue(true);

    fraFilter.setEnabled(false);
    chkDate.setValue(false);
    chkEvent.setValue(false);

    eventFilter_.clear();
    dateFrom_ = kZeroDate;
    dateTo_ = kZeroDate;
}

void frmEventStats::optEvType_Click(int index) {
    eventType_ = kEventTypes.at(static_cast<std::size_t>(index)).type;
    if (optFilter(0).value() && chkEvent.value())
        Get_Events();
}

void frmEventStats::optFilter_Click(int index) {
    const bool filters = index == 0;
    fraFilter.setEnabled(filters);
    chkDate.setValue(false);
    chkEvent.setValue(false);
    chkDate.setEnabled(filters);
    chkEvent.setEnabled(filters);
    if (!filters)
        lstEvent.clear();
    lstEvent.setEnabled(filters);
}

void frmEventStats::chkDate_Click() {
    const bool limits = chkDate.value();
    txtFrom.setEnabled(limits);
    txtTo.setEnabled(limits);
    txtFrom.setText("");
    txtTo.setText(limits ? shortDate(session().gToday) : "");
    if (limits) {
        txtFrom.focus();
    } else {
        dateFrom_ = kZeroDate;
        dateTo_ = kZeroDate;
    }
}

void frmEventStats::chkEvent_Click() {
    if (chkEvent.value()) {
        Get_Events();
    } else {
        lstEvent.clear();
        eventFilter_.clear();
    }
}

void frmEventStats::Get_Events() {
    const Handler step = handler("Event Statistics, Get_Events.");
    lstEvent.clear();
    eventFilter_.clear();
    const std::string condition =
        eventType_ == "All Events" ? "" : "WHERE fldEventType = '" + eventType_ + "' ";
    adoTBKEvent.setRecordSource("SELECT DISTINCT fldEventName FROM tblEventInfo " + condition +
                                "ORDER BY fldEventName");
    step([&] { adoTBKEvent.Refresh(); });
    if (step.test([&] { return adoTBKEvent.recordset().RecordCount() > 0; })) {
        addEventNames(step);
    } else {
        ask({.text = "No events in the database", .title = "No Events", .icon = Icon::Information});
    }
}

void frmEventStats::addEventNames(const Handler& step) {
    const auto rows = [this]() -> Recordset& { return adoTBKEvent.recordset(); };
    step([&] { rows().MoveFirst(); });
    walkRows(step, rows, [&] { step([&] { lstEvent.add(toText(rows()["fldEventName"])); }); });
}

void frmEventStats::cmdGenReport_Click() {
    if (chkDate.value() && !Validate_Dates())
        return;
    cdlEventStats.filter = "Text Files(*.txt) | *.txt";
    cdlEventStats.title = "Save Report";
    cdlEventStats.folder = program().dataFolder.string();
    const auto file = program().display.fileDialog(cdlEventStats);
    if (!file)
        return;
    cdlEventStats.name = file->string();
    writeReport();
}

void frmEventStats::writeReport() {
    const std::string& file = cdlEventStats.name;
    program().display.pointer(Pointer::Busy);
    Write_Report(program(), {.kind = "Statistics",
                             .evType = eventType_,
                             .filter = eventFilter_,
                             .dateFrom = dateFrom_,
                             .dateTo = dateTo_,
                             .file = file,
                             .copyToHandheld = copiesToHandheld_});
    program().display.pointer(Pointer::Default);
    ask({.text = lines({"The report is complete.", "The report is in the following file: " + file}),
         .title = "Report Complete",
         .icon = Icon::Information});
}

/// Whether both dates can be read and are in order; only then are they in force.
bool frmEventStats::Validate_Dates() {
    const int year = program().clock.year();
    const auto from = dateIn(txtFrom, year);
    if (!from)
        return refuseDate(wrongDate("Invalid Date Format", "Invalid date format in report starting date."),
                          txtFrom);
    const auto to = dateIn(txtTo, year);
    if (!to)
        return refuseDate(wrongDate("Invalid Date Format", "Invalid date format in report ending date."),
                          txtTo);
    if (*to < *from)
        return refuseDate(
            wrongDate("Invalid Start Date", "Starting date must be less than or equal to ending date."),
            txtFrom);
    dateFrom_ = *from;
    dateTo_ = *to;
    return true;
}

bool frmEventStats::refuseDate(const MessageBox& box, TextBox& wrong) {
    ask(box);
    wrong.focus();
    return false;
}

void frmEventStats::cmdRpt_Click() {
    if (ask(question("Return to reports menu?", "Return to Reports")) == Answer::Yes)
        screens().startAfresh("frmReports");
}

}  // namespace tallybrook
