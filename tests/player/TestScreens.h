#pragma once

#include "runtime/EndProgram.h"
#include "shell/Screen.h"

#include <map>
#include <string>
#include <vector>

namespace tallybrook::test {

/// A screen with a control of each kind and in each state, and a button for all that a program can do.
class frmOne : public Screen {
public:
    explicit frmOne(Program& owner) : Screen(owner, "frmOne", "One") {
        cmdHidden.setVisible(false);
        mnuOff.setEnabled(false);
        fraOff.setEnabled(false);
        cmdOff.setEnabled(false);
        txtKeeper.onLostFocus = [this] {
            if (txtKeeper.text() != "free")
                txtKeeper.focus();
        };
        txtDeflector.onLostFocus = [this] { txtFirst.focus(); };
        txtClosing.onLostFocus = [this] { cmdVictim.setEnabled(false); };
        cmdTell.onClick = [this] { ask({.text = "First line\r\nin " + program().dataFolder.string()}); };
        cmdAsk.onClick = [this] { askTwice(); };
        cmdRetry.onClick = [this] {
            txtFirst.setText(ask({.text = "Again?", .title = "Retry", .buttons = Buttons::RetryCancel}) ==
                                     Answer::Retry
                                 ? "again"
                                 : "enough");
        };
        cmdInput.onClick = [this] {
            txtFirst.setText(
                program().display.inputBox({.text = "Your name?", .title = "Name"}).value_or("(cancelled)"));
        };
        cmdOpen.onClick = [this] { useDialog(FileDialog::Purpose::Open); };
        cmdSave.onClick = [this] { useDialog(FileDialog::Purpose::Save); };
        cmdOther.onClick = [this] {
            screens().hide(*this);
            screens().load("frmTwo");
        };
        cmdFail.onClick = [] { throw RunTimeError(error::kTypeMismatch); };
        cmdEnd.onClick = [] { throw EndProgram{}; };
        cmdAgain.onClick = [this] {
            const Handler step = handler("One, Again.", Retry::OnNoCurrentRow);
            step([] { throw RunTimeError(error::kNoCurrentRow, "No row."); });
        };
        cmdOutside.onClick = [this] { useOutside(); };
        cmdHelp.onClick = [this] {
            program().display.help(HelpTopic::Contents);
            program().display.help(HelpTopic::LineScoreEntry);
        };
        cmdTime.onClick = [this] {
            txtFirst.setText(program().clock.now() == makeDate(2027, 1, 2) ? "new" : "old");
        };
        mnuEntry.onClick = [this] { txtFirst.setText("entry"); };
        optA.onClick = [this] { lblSeen.setCaption("A"); };
        optB.onClick = [this] { lblSeen.setCaption("B"); };
        chkPlain.onClick = [this] { lblSeen.setCaption(chkPlain.value() ? "checked" : "unchecked"); };
        cmdDefault.onClick = [this] { txtFirst.setText("default"); };
        cmdCancel.onClick = [this] { txtFirst.setText("cancelled"); };
    }

    Menu mnuFile{*this, "mnuFile", "&Actions"};
    Menu mnuEntry{mnuFile, "mnuEntry", "&Entry", "F2"};
    Menu mnuOff{mnuFile, "mnuOff", "&Off"};

    TextBox txtFirst{*this, "txtFirst"};
    TextBox txtShort{*this, "txtShort", {.maxLength = 5}};
    TextBox txtLocked{*this, "txtLocked", {.readOnly = true}};
    TextBox txtNotes{*this, "txtNotes", {.multiline = true}};
    TextBox txtKeeper{*this, "txtKeeper"};
    TextBox txtDeflector{*this, "txtDeflector"};
    TextBox txtClosing{*this, "txtClosing"};
    OptionGroup group;
    OptionButton optA{*this, "opt(0)", group, "A"};
    OptionButton optB{*this, "opt(1)", group, "B"};
    CheckBox chkPlain{*this, "chkPlain", "&Check"};
    Label lblSeen{*this, "lblSeen", "nothing"};
    Frame fraOff{*this, "fraOff", "Off"};
    Button cmdInside{fraOff, "cmdInside", "Inside"};
    Button cmdOff{*this, "cmdOff", "Off"};
    Button cmdHidden{*this, "cmdHidden", "Hidden"};
    Button cmdVictim{*this, "cmdVictim", "Victim"};
    Button cmdTell{*this, "cmdTell", "&Tell"};
    Button cmdAsk{*this, "cmdAsk", "Ask"};
    Button cmdRetry{*this, "cmdRetry", "Retry"};
    Button cmdInput{*this, "cmdInput", "Input"};
    Button cmdOpen{*this, "cmdOpen", "Open"};
    Button cmdSave{*this, "cmdSave", "Save"};
    Button cmdOther{*this, "cmdOther", "Other"};
    Button cmdFail{*this, "cmdFail", "Fail"};
    Button cmdEnd{*this, "cmdEnd", "End"};
    Button cmdAgain{*this, "cmdAgain", "Again"};
    Button cmdOutside{*this, "cmdOutside", "Outside"};
    Button cmdHelp{*this, "cmdHelp", "Help"};
    Button cmdTime{*this, "cmdTime", "Time"};
    Button cmdDefault{*this, "cmdDefault", "Default", {.isDefault = true}};
    Button cmdCancel{*this, "cmdCancel", "Cancel", {.isCancel = true}};

    Layout layout() override {
        std::vector<Layout> parts;
        for (Control* const control : controls()) {
            if (control->kind() != Control::Kind::Menu && control->kind() != Control::Kind::Frame &&
                control != &cmdInside)
                parts.emplace_back(*control);
        }
        return layout::row({layout::table(4, std::move(parts)), layout::group(fraOff, cmdInside)});
    }
    void onLoad() override {
        screens().show(*this);
        txtFirst.focus();
    }
    void onClose() override { cmdTell.click(); }

private:
    void askTwice() {
        const Answer first = ask({.text = "Sure?",
                                  .title = "First",
                                  .buttons = Buttons::YesNo,
                                  .icon = Icon::Question,
                                  .preset = Answer::No});
        if (first == Answer::Yes)
            ask({.text = "Done.",
                 .title = "Second",
                 .buttons = Buttons::OKCancel,
                 .icon = Icon::Information});
    }

    void useDialog(FileDialog::Purpose purpose) {
        const auto file = program().display.fileDialog({.purpose = purpose,
                                                        .title = "Which File",
                                                        .folder = program().dataFolder.string(),
                                                        .filter = "All files (*.*)|*.*",
                                                        .name = "list.txt"});
        txtFirst.setText(file ? file->string() : "(cancelled)");
    }

    void useOutside() {
        Display& display = program().display;
        display.pointer(Pointer::Default);
        display.pointer(Pointer::Busy);
        display.pointer(Pointer::Busy);
        display.pointer(Pointer::Default);
        display.startViewer(program().dataFolder / "Report.txt");
    }
};

/// A second screen, from which there is a way back, without a control that can have the focus.
class frmTwo : public Screen {
public:
    explicit frmTwo(Program& owner) : Screen(owner, "frmTwo", "Two") {
        mnuBack.onClick = [this] { screens().goBackFrom(*this); };
    }

    Menu mnuTwo{*this, "mnuTwo", "T&wo"};
    Menu mnuBack{mnuTwo, "mnuBack", "&Back"};
    Label lblTwo{*this, "lblTwo", "Two"};

    Layout layout() override { return layout::column({lblTwo}); }
    void onLoad() override { screens().show(*this); }
    void onClose() override { mnuBack.click(); }
};

}  // namespace tallybrook::test
