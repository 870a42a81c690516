#include "entry/frmEvent.h"

#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"
#include "shell/UpdateCurrentEvent.h"
#include "store/CommitAtEnd.h"

#include <initializer_list>
#include <utility>

namespace tallybrook {

frmEvent::frmEvent(Program& owner) : ProgramScreen(owner, "frmEvent", "Event Information") {
    setPrimary(cmdUpdGames);
    optLeague.onClick = [this] { eventType_ = "LEAGUE"; };
    optTourn.onClick = [this] { eventType_ = "TOURNAMENT"; };
    optPractice.onClick = [this] { eventType_ = "PRACTICE"; };

    cmdNextEvent.onClick = [this] { cmdNextEvent_Click(); };
    cmdUpdGames.onClick = [this] { cmdUpdGames_Click(); };
    cmdReset.onClick = [this] { cmdReset_Click(); };
    cmdPrevious.onClick = [this] { cmdPrevious_Click(); };
    cmdMain.onClick = [this] { cmdMain_Click(); };
    cmdExit.onClick = [this] { cmdExit_Click(); };

    txtCenter.onLostFocus = [this] { txtCenter_LostFocus(); };
    txtNumGames.onLostFocus = [this] { txtNumGames_LostFocus(); };
}

Layout frmEvent::layout() {
    return layout::column(
        {layout::row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
         layout::row({layout::form({lblEvent, txtEvent, lblDateBowled, Layout(txtDateBowled).atStart(),
                                    lblCenter, txtCenter, lblLoc, txtLoc, lblType,
                                    layout::row({optLeague, optTourn, optPractice}).atStart(), lblNumGames,
                                    Layout(txtNumGames).atStart(), lblComment, txtComment})
                          .stretched(),
                      layout::buttons({cmdNextEvent, cmdUpdGames, cmdReset, cmdPrevious, cmdMain,
                                       layout::space(), cmdExit})}),
         layout::space()});
}

void frmEvent::onLoad() {
    if (eventRow_.State() == 1)
        eventRow_.Close();
    eventRow_.Open("SELECT * FROM tblEventInfo");
    if (session().gMode == kAdd)
        Add_Event();
    else if (session().gMode == kEdit)
        Load_Event();
    screens().show(*this);
    txtEvent.focus();
}

void frmEvent::onClose() {
    cmdPrevious.click();
}

void frmEvent::onUnload() {
    if (eventRow_.State() == 1)
        eventRow_.Close();
}

void frmEvent::Add_Event() {
    const Handler step = handler("Event Information, Add_Event.");
    step([&] { eventRow_.AddNew(); });
    session().gSessionNum = 0;
    session().gGameNum = 0;
    session().gGmsRecorded = 0;
    session().gSeriesTot = 0;
    session().gSeriesAvg = 0;
    for (TextBox* box : {&txtEvent, &txtCenter, &txtLoc, &txtComment})
        box->setText("");
    txtDateBowled.setText(shortDate(session().gToday));
    txtNumGames.setText("3");
    optLeague.setValue(true);
    mnuReset.setEnabled(true);
    cmdReset.setEnabled(true);
    handheldRecord_ = "NONE";
}

void frmEvent::Load_Event() {
    const Handler step = handler("Event Information, Load_Event.", Retry::OnNoCurrentRow);
    const auto fill = [&](TextBox& box, const char* field) {
        step([&] { box.setText(toText(eventRow_[field])); });
    };

    if (step.test([&] { return eventRow_.State() == 1; }))
        step([&] { eventRow_.Close(); });
    step([&] {
        eventRow_.Open("SELECT * FROM tblEventInfo WHERE fldSessionNum = " + text(session().gSessionNum));
    });

    fill(txtEvent, "fldEventName");
    fill(txtDateBowled, "fldDateBowled");
    fill(txtCenter, "fldCenterName");
    fill(txtLoc, "fldCenterLoc");
    step([&] { session().gNumGames = toInt16(eventRow_["fldNumGames"]); });
    txtNumGames.setText(text(session().gNumGames));
    fill(txtComment, "fldComment");

    step([&] { session().gGmsRecorded = toInt16(eventRow_["fldGmsRecorded"]); });
    step([&] { session().gSeriesTot = toInt16(eventRow_["fldSeriesTot"]); });
    step([&] { session().gSeriesAvg = toDouble(eventRow_["fldSeriesAvg"]); });
    step([&] { handheldRecord_ = toText(eventRow_["fldHHRecordID"]); });
    step([&] { session().gSessionNum = toInt32(eventRow_["fldSessionNum"]); });

    const auto isType = [&](const char* type) {
        return step.test([&] { return toText(eventRow_["fldEventType"]) == type; });
    };
    OptionButton& kind = isType("TOURNAMENT") ? optTourn : isType("LEAGUE") ? optLeague : optPractice;
    kind.setValue(true);

    step([&] { session().gGmsRecorded = toInt16(eventRow_["fldGmsRecorded"]); });
    mnuReset.setEnabled(false);
    cmdReset.setEnabled(false);
    warnIfIncomplete();
}

void frmEvent::warnIfIncomplete() {
    if (session().gGmsRecorded < session().gNumGames) {
        ask({.text = "Incomplete event record, only " + text(session().gGmsRecorded) + " of " +
                     text(session().gNumGames) + " entered.",
             .title = "Incomplete event.",
             .icon = Icon::Information});
    }
}

void frmEvent::Update_Event() {
    const Handler step = handler("Event Information, Update_Event.", Retry::OnNoCurrentRow);
    nameIsGiven();
    // The date alone decides: an event without a name is stored after the message if its date is good.
    if (!dateIsGood(step))
        return;
    writeEvent(step);
    storeAtOnce(store(), step, [&] {
        countGames(step);
        if (session().gGmsRecorded > 0)
            updateCurrentEvent(program());
    });
}

bool frmEvent::nameIsGiven() {
    if (!txtEvent.text().empty())
        return true;
    ask({.text = "Event name is required.",
         .title = "Required Field",
         .buttons = Buttons::OKCancel,
         .icon = Icon::Warning});
    txtEvent.focus();
    return false;
}

bool frmEvent::dateIsGood(const Handler& step) {
    DateTime date = kZeroDate;
    step([&] { date = dateOnly(readDate(txtDateBowled.text(), program().clock.year())); });
    if (date <= session().gToday)
        return true;
    ask({.text =
             lines({"Invalid date.", "Date must be of the format mm/dd/yyyy and cannot be in the future."}),
         .title = "Invalid Date",
         .icon = Icon::Warning});
    txtDateBowled.focus();
    return false;
}

void frmEvent::writeEvent(const Handler& step) {
    const auto write = [&](const char* field, const Value& value) {
        step([&] { eventRow_[field] = value; });
    };
    write("fldEventName", txtEvent.text());
    write("fldDateBowled", txtDateBowled.text());
    write("fldCenterName", txtCenter.text());
    write("fldCenterLoc", txtLoc.text());
    write("fldNumGames", txtNumGames.text());
    write("fldComment", txtComment.text());
    write("fldHHRecordID", handheldRecord_);
    if (eventType_.empty()) {
        optLeague.setValue(true);
        optTourn.setValue(false);
        optPractice.setValue(false);
        eventType_ = "LEAGUE";
    }
    write("fldEventType", eventType_);
    write("fldSeriesTot", valueOf(session().gSeriesTot));
    write("fldSeriesAvg", session().gSeriesAvg);
    write("fldGmsRecorded", valueOf(session().gGmsRecorded));
    step([&] {
        eventRow_.Update();
        program().display.saved();
    });
    step([&] { session().gSessionNum = toInt32(eventRow_["fldSessionNum"]); });
}

void frmEvent::countGames(const Handler& step) {
    Recordset games(store());
    step([&] {
        games.Open("SELECT * FROM tblGameInfo WHERE fldSessionNum = " + text(session().gSessionNum));
    });
    step([&] { session().gGmsRecorded = games.RecordCount(); });
    step([&] { games.Close(); });
    step([&] { eventRow_["fldGmsRecorded"] = valueOf(session().gGmsRecorded); });
    step([&] { eventRow_.Update(); });
}

void frmEvent::Save_Prompt() {
    if (ask(question("Save the current event?", "Save Event")) == Answer::Yes)
        return Update_Event();
    ask({.text = "Event not saved.", .title = "Action Cancelled", .icon = Icon::Warning});
    eventRow_.CancelUpdate();
}

void frmEvent::cmdNextEvent_Click() {
    Save_Prompt();
    if (ask(question("Add a new event?", "Add New Event")) != Answer::Yes)
        return;
    session().gMode = kAdd;
    Add_Event();
}

void frmEvent::cmdUpdGames_Click() {
    const Handler step = handler("Event Information, cmdUpdGames.");
    Update_Event();
    if (ask(question("Add or update games for this event?", "Update Games")) == Answer::Yes) {
        screens().hide(*this);
        step([&] { screens().load("frmGame"); });
    } else {
        ask({.text = "Game update cancelled, current event record was saved.",
             .title = "Game Update Cancelled.",
             .icon = Icon::Information});
    }
}

void frmEvent::cmdReset_Click() {
    if (Reset_Confirm(program()) != Answer::Yes)
        return;
    txtEvent.setText("");
    txtComment.setText("");
    txtDateBowled.setText(shortDate(session().gToday));
    txtNumGames.setText("3");
    optLeague.setValue(true);
    optPractice.setValue(false);
    optTourn.setValue(false);
    txtEvent.focus();
}

void frmEvent::cmdPrevious_Click() {
    Save_Prompt();
    if (ask(question("Return to previous screen?", "Previous Screen")) == Answer::Yes)
        screens().goBackFrom(*this);
}

void frmEvent::cmdMain_Click() {
    Save_Prompt();
    if (Main_Confirm(program()) == Answer::Yes)
        returnToMain(program());
}

void frmEvent::cmdExit_Click() {
    Save_Prompt();
    Exit_Confirm(program());
}

// No handler guards this look-up: a centre name with an apostrophe in it ends the program.
void frmEvent::txtCenter_LostFocus() {
    if (txtCenter.text().empty())
        return;
    Recordset places(store());
    places.Open("SELECT DISTINCT fldCenterLoc FROM tblEventInfo WHERE fldCenterName = '" + txtCenter.text() +
                "'");
    if (places.RecordCount() == 0) {
        txtLoc.setText("");
        txtLoc.focus();
    } else {
        txtLoc.setText(toText(places["fldCenterLoc"]));
        txtNumGames.focus();
    }
    places.Close();
}

void frmEvent::txtNumGames_LostFocus() {
    const double games = leadingNumber(txtNumGames.text());
    if (games < 1) {
        ask({.text = "Number of games must be greater than 0. Please re-enter.",
             .title = "Invalid Data",
             .icon = Icon::Warning});
        txtNumGames.focus();
        return;
    }
    session().gNumGames = toInt16(games);
}

}  // namespace tallybrook
