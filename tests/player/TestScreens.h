#pragma once

#include "controls/Grid.h"
#include "controls/Lists.h"
#include "runtime/EndProgram.h"
#include "runtime/MountedVolumes.h"
#include "shell/ProgramScreen.h"

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tallybrook::test {

/// A screen with a control of each kind and in each state, and a button for all that a program can do.
class frmOne : public ProgramScreen {
public:
    explicit frmOne(Program& owner) : ProgramScreen(owner, "frmOne", "One") {
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
    GroupBox fraOff{*this, "fraOff", "Off"};
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
            if (control->kind() != Control::Kind::Menu && control->kind() != Control::Kind::GroupBox &&
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
class frmTwo : public ProgramScreen {
public:
    explicit frmTwo(Program& owner) : ProgramScreen(owner, "frmTwo", "Two") {
        mnuBack.onClick = [this] { screens().goBackFrom(*this); };
    }

    Menu mnuTwo{*this, "mnuTwo", "T&wo"};
    Menu mnuBack{mnuTwo, "mnuBack", "&Back"};
    Label lblTwo{*this, "lblTwo", "Two"};

    Layout layout() override { return layout::column({lblTwo}); }
    void onLoad() override { screens().show(*this); }
    void onClose() override { mnuBack.click(); }
};

/// A screen with lists of every kind and a grid, whose clicks do all that a program can do meanwhile.
class frmLists : public ProgramScreen {
public:
    explicit frmLists(Program& owner) : ProgramScreen(owner, "frmLists", "Lists") {
        txtKeeper.onLostFocus = [this] {
            if (txtKeeper.text() != "free")
                txtKeeper.focus();
        };
        txtDeflector.onLostFocus = [this] { txtFirst.focus(); };
        txtFilling.onLostFocus = [this] { cboOp.fill({"late", "later"}); };
        txtClosing.onLostFocus = [this] { setUsable(false); };
        txtHiding.onLostFocus = [this] { goTo("frmTwo"); };
        cboField.onClick = [this] { chooseField(); };
        cboOp.onClick = [this] { txtFirst.focus(); };
        lstNames.onClick = [this] { lblSeen.setCaption("name " + lstNames.picked()); };
        cboDo.onClick = [this] { act(cboDo); };
        lstDo.onClick = [this] { act(lstDo); };
        drvDrive.onChange = [this] { lblSeen.setCaption("drive " + drvDrive.picked()); };
        dirFolder.onChange = [this] { lblSeen.setCaption("folder " + dirFolder.path()); };
        cmdFewer.onClick = [this] { open(" WHERE fldSessionNum > 8"); };
        cmdRestore.onClick = [this] { restore(); };
        mnuOther.onClick = [this] { goTo("frmTwo"); };
    }

    DataControl adoEvents{store()};

    Menu mnuMain{*this, "mnuMain", "&Menu"};
    Menu mnuOther{mnuMain, "mnuOther", "&Other", "F2"};

    TextBox txtFirst{*this, "txtFirst"};
    ComboBox cboField{*this, "cboField", {.width = 12}};
    Label lblField{*this, "lblField", "Fiel&d", cboField};
    ComboBox cboOp{*this, "cboOp", {.enabled = false}};
    ListBox lstNames{*this, "lstNames", {.lines = 3}};
    Grid dgdEvents{*this,
                   "dgdEvents",
                   "&Event List",
                   adoEvents,
                   {{.caption = "Event", .field = "fldSessionNum"},
                    {.caption = "Name", .field = "fldEventName"},
                    {.caption = "Average", .field = "fldSeriesAvg", .decimals = 2}}};
    DriveList drvDrive{*this, "drvDrive", mountedVolumes()};
    FolderList dirFolder{*this, "dirFolder"};
    TextBox txtKeeper{*this, "txtKeeper"};
    TextBox txtDeflector{*this, "txtDeflector"};
    TextBox txtFilling{*this, "txtFilling"};
    TextBox txtClosing{*this, "txtClosing"};
    TextBox txtHiding{*this, "txtHiding"};
    ComboBox cboDo{*this, "cboDo"};
    ListBox lstDo{*this, "lstDo"};
    Label lblSeen{*this, "lblSeen", "nothing"};
    Button cmdFewer{*this, "cmdFewer", "&Fewer"};
    Button cmdRestore{*this, "cmdRestore", "&Restore", {.isDefault = true}};

    /// What the items of cboDo and lstDo do.
    static inline const std::vector<std::string> kActions{
        "nothing", "box",   "boxes", "clear names", "refill",  "add", "off",  "hide",
        "focus",   "other", "grid",  "no grid",     "give up", "end", "fail", "unload"};

    Layout layout() override {
        std::vector<Layout> parts;
        for (Control* const control : controls()) {
            if (control->kind() != Control::Kind::Menu)
                parts.emplace_back(*control);
        }
        return layout::table(3, std::move(parts));
    }
    void onLoad() override {
        restore();
        screens().show(*this);
        txtFirst.focus();
    }
    void onClose() override { screens().goBackFrom(*this); }
    void onUnload() override { adoEvents.drop(); }

private:
    void restore() {
        setUsable(true);
        cboField.fill({"Center Name", "Comment", "Date Bowled", "Comment"});
        cboOp.clear();
        cboOp.setEnabled(false);
        lstNames.fill({"Ann", "Bob", "a \"b\"|c", "Carl", "carla", "\xC3\x89mile"});
        cboDo.fill(kActions);
        lstDo.fill(kActions);
        open("");
    }
    void open(const std::string& where) {
        adoEvents.setRecordSource("SELECT * FROM tblEventInfo" + where);
        adoEvents.Refresh();
    }
    void setUsable(bool usable) {
        for (Control* const control : std::initializer_list<Control*>{
                 &cboField, &lstNames, &dgdEvents, &drvDrive, &dirFolder, &cboDo, &lstDo}) {
            control->setEnabled(usable);
            control->setVisible(true);
        }
    }
    void goTo(const std::string& screen) {
        screens().hide(*this);
        screens().load(screen);
    }
    void chooseField() {
        cboOp.fill({"is", "contains " + cboField.picked()});
        cboOp.setEnabled(true);
        cboOp.focus();
    }
    void act(ItemList& list) {
        const std::string what = list.picked();
        lblSeen.setCaption("did " + what);
        if (what == "box" || what == "boxes")
            ask({.text = "One."});
        if (what == "boxes")
            ask({.text = "Two.", .buttons = Buttons::YesNo});
        if (what == "clear names")
            lstNames.clear();
        if (what == "refill")
            list.fill({"nothing", "refill", "off"});
        if (what == "add")
            list.add("nothing");
        if (what == "off")
            list.setEnabled(false);
        if (what == "hide")
            list.setVisible(false);
        if (what == "focus")
            txtFirst.focus();
        if (what == "other")
            goTo("frmTwo");
        if (what == "grid")
            open(" WHERE fldSessionNum < 4");
        if (what == "no grid")
            open(" WHERE fldSessionNum = 99");
        if (what == "give up")
            throw EndHandler{};
        if (what == "end")
            throw EndProgram{};
        if (what == "fail")
            throw RunTimeError(error::kTypeMismatch);
        if (what == "unload")
            screens().goBackFrom(*this);
    }
};

}  // namespace tallybrook::test
