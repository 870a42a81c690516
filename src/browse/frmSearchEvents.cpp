#include "browse/frmSearchEvents.h"

#include "runtime/Ascii.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

#include <algorithm>
#include <initializer_list>
#include <memory>

namespace tallybrook {

namespace {

constexpr int kLastRow = frmSearchEvents::kRows - 1;
constexpr int kLastJoin = kLastRow - 1;

Search eventSearch() {
    return {.table = "tblEventInfo",
            .fields = {{"Center Name", "fldCenterName", FieldKind::Text},
                       {"Comment", "fldComment", FieldKind::FreeText},
                       {"Date Bowled", "fldDateBowled", FieldKind::Date},
                       {"Event Name", "fldEventName", FieldKind::Text},
                       {"Event Type", "fldEventType", FieldKind::EventType},
                       {"Number of Games", "fldNumGames", FieldKind::Number},
                       {"Series Average", "fldSeriesAvg", FieldKind::Number},
                       {"Series Total", "fldSeriesTot", FieldKind::Number}},
            .listScreen = "frmEventList",
            .noHitsTitle = "Tallybrook - Event Search",
            .module = "Search Events, cmdSearch.",
            .debugModule = "Search Events, cmdSearch"};
}

constexpr std::array<std::string_view, 3> kEventTypes{"PRACTICE", "TOURNAMENT", "LEAGUE"};

std::string upperCase(std::string text) {
    std::ranges::transform(text, text.begin(), toUpper);
    return text;
}

}  // namespace

frmSearchEvents::frmSearchEvents(Program& owner)
    : ProgramScreen(owner, "frmSearchEvents", "Search Events"),
      cboListField(fieldLists(*this, "cboListField", kLastRow)),
      cboSearchOp(operatorLists(*this, kLastRow)),
      txtSearchVal(valueBoxes(*this, kLastRow)),
      chkCriteria("chkCriteria", 0, kLastJoin,
                  [this](int, const std::string& name) {
                      auto box = std::make_unique<CheckBox>(*this, name, kMoreCaption);
                      box->setTip(kMoreTip);
                      return box;
                  }),
      optAnd("optAnd", 0, kLastJoin,
             [this](int row, const std::string& name) {
                 return std::make_unique<OptionButton>(*this, name, joins[static_cast<std::size_t>(row)],
                                                       "And", kAndTip);
             }),
      optOr("optOr", 0, kLastJoin,
            [this](int row, const std::string& name) {
                return std::make_unique<OptionButton>(*this, name, joins[static_cast<std::size_t>(row)], "Or",
                                                      kOrTip);
            }),
      form(owner, *this, eventSearch(), searchControls(), adoTBKEvent) {
    for (int row = 0; row <= kLastRow; ++row)
        txtSearchVal(row).onLostFocus = [this, row] { txtSearchVal_LostFocus(row); };
    for (int row = 0; row <= kLastJoin; ++row) {
        chkCriteria(row).onClick = [this, row] {
            if (chkCriteria(row).value())
                form.addRow(row);
            else
                form.removeRow(row, row);
        };
        for (Control* const control :
             std::initializer_list<Control*>{&chkCriteria(row), &optAnd(row), &optOr(row)})
            control->setSpokenName(spokenInRow(control->caption(), row));
    }
    setTabOrderByRows();
}

SearchControls frmSearchEvents::searchControls() {
    SearchControls controls{cboListField, cboSearchOp, txtSearchVal, {}};
    for (int row = 0; row <= kLastJoin; ++row)
        controls.joins.push_back({chkCriteria(row), optAnd(row), optOr(row)});
    return controls;
}

void frmSearchEvents::setTabOrderByRows() {
    std::vector<Control*> order;
    for (int row = 0; row <= kLastRow; ++row) {
        order.insert(order.end(), {&cboListField(row), &cboSearchOp(row), &txtSearchVal(row)});
        if (row <= kLastJoin)
            order.insert(order.end(), {&chkCriteria(row), &optAnd(row), &optOr(row)});
    }
    setTabOrder(std::move(order));
}

Layout frmSearchEvents::layout() {
    std::vector<Layout> cells{lblSearchFor, lblThat, lblValue, layout::space()};
    for (int row = 0; row <= kLastRow; ++row) {
        cells.insert(cells.end(), {cboListField(row), cboSearchOp(row), txtSearchVal(row)});
        cells.push_back(row <= kLastJoin ? layout::row({chkCriteria(row), optAnd(row), optOr(row)})
                                         : layout::space());
    }
    return layout::column(
        {layout::row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
         layout::row({layout::column({layout::table(4, std::move(cells)), layout::space()}).stretched(),
                      commands.layout()}),
         layout::space()});
}

void frmSearchEvents::onLoad() {
    session().gMode = kReport;
    form.reset();
    screens().show(*this);
    cboListField(0).focus();
}

void frmSearchEvents::onClose() {
    commands.cmdPrevious.click();
}

void frmSearchEvents::onUnload() {
    adoTBKEvent.drop();
}

void frmSearchEvents::txtSearchVal_LostFocus(int row) {
    if (form.kind(row) == FieldKind::EventType)
        takeEventType(row);
    else
        form.setValue(row, sqlValue(row));
    form.countCriterion();
    chkCriteria(row).setEnabled(true);  // fails for the last row, which has no box
}

void frmSearchEvents::takeEventType(int row) {
    TextBox& box = txtSearchVal(row);
    const std::string type = upperCase(box.text());
    if (std::ranges::find(kEventTypes, type) != kEventTypes.end())
        return form.setValue(row, "'" + type + "'");
    ask({.text = "Invalid search parameter for Event Type.", .title = "Search Parameter Error"});
    box.setText("");
    box.focus();
}

std::string frmSearchEvents::sqlValue(int row) const {
    const std::string& text = txtSearchVal(row).text();
    switch (form.kind(row)) {
        case FieldKind::Number:
            return plainDecimal(leadingNumber(text));
        case FieldKind::Date:
            return "#" + shortDate(readDate(text, program().clock.year())) + "#";
        default:
            return form.sqlOperator(row) == "LIKE" ? "'%" + text + "%'" : "'" + text + "'";
    }
}

}  // namespace tallybrook
