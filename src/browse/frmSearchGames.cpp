#include "browse/frmSearchGames.h"

#include "bowling/LanePair.h"
#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

namespace {

constexpr int kLastRow = 1;

Search gameSearch() {
    return {.table = "tblGameInfo",
            .fields = {{"Game Score", "fldGameScore", FieldKind::Number},
                       {"Lane Pair", "fldLanePair", FieldKind::LanePair}},
            .listScreen = "frmGameList",
            .noHitsTitle = "Tallybrook - Event Search",  // the other search's, as people know it
            .module = "frmSearch Games, cmdSearch.",
            .debugModule = "Game List, Write_Report"};
}

}  // namespace

frmSearchGames::frmSearchGames(Program& owner)
    : ProgramScreen(owner, "frmSearchGames", "Game Search"),
      cboSearchFld(fieldLists(*this, "cboSearchFld", kLastRow)),
      cboSearchOp(operatorLists(*this, kLastRow)),
      txtSearchVal(valueBoxes(*this, kLastRow)),
      optAnd(*this, "optAnd", join, "And", kAndTip),
      optOr(*this, "optOr", join, "Or", kOrTip),
      form(owner, *this, gameSearch(),
           {cboSearchFld, cboSearchOp, txtSearchVal, {{chkCriteria, optAnd, optOr}}}, adoTBKGame) {
    chkCriteria.setTip(kMoreTip);
    chkCriteria.onClick = [this] { chkCriteria_Click(); };
    for (int row = 0; row <= kLastRow; ++row)
        txtSearchVal(row).onLostFocus = [this, row] { txtSearchVal_LostFocus(row); };
    setTabOrder({&cboSearchFld(0), &cboSearchOp(0), &txtSearchVal(0), &chkCriteria, &optAnd, &optOr,
                 &cboSearchFld(1), &cboSearchOp(1), &txtSearchVal(1)});
}

Layout frmSearchGames::layout() {
    Layout rows =
        layout::table(4, {lblSearchFor, lblThat, lblValue, layout::space(), cboSearchFld(0), cboSearchOp(0),
                          txtSearchVal(0), layout::row({chkCriteria, optAnd, optOr}), cboSearchFld(1),
                          cboSearchOp(1), txtSearchVal(1), layout::space()});
    return layout::column(
        {layout::row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
         layout::row({layout::column({std::move(rows), layout::space()}).stretched(), commands.layout()}),
         layout::space()});
}

void frmSearchGames::onLoad() {
    session().gMode = kReport;
    form.reset();
    screens().show(*this);
    cboSearchFld(0).focus();
}

void frmSearchGames::onClose() {
    commands.cmdPrevious.click();
}

void frmSearchGames::onUnload() {
    adoTBKGame.drop();
}

// The join emptied with the second row is the one behind it, which no search uses. The one between the rows
// survives, and the next search ends its condition with it.
void frmSearchGames::chkCriteria_Click() {
    constexpr int kUnusedJoin = 1;
    if (chkCriteria.value())
        form.addRow(0);
    else
        form.removeRow(0, kUnusedJoin);
}

void frmSearchGames::txtSearchVal_LostFocus(int row) {
    TextBox& box = txtSearchVal(row);
    if (form.kind(row) != FieldKind::LanePair) {
        form.setValue(row, plainDecimal(leadingNumber(box.text())));
    } else if (isLanePair(box.text())) {
        form.setValue(row, "'" + box.text() + "'");
    } else {
        ask({.text =
                 lines({"Invalid lane pair. Enter a valid lane pair as L-R (e.g. 5-6).", "Please re-enter."}),
             .title = "Tallybrook - Invalid Data"});
        return box.focus();
    }
    form.countCriterion();
    chkCriteria.setEnabled(true);
}

}  // namespace tallybrook
