#pragma once

#include "controls/Grid.h"
#include "controls/Lists.h"
#include "runtime/MountedVolumes.h"
#include "shell/ProgramScreen.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tallybrook::test {

/// A screen with a control of every kind, whose handlers write down that they ran.
class frmMain : public ProgramScreen {
public:
    explicit frmMain(Program& owner) : ProgramScreen(owner, "frmMain", "A Test <b>Screen</b>") {
        for (Control* const control : controls()) {
            const std::string& name = control->name();
            control->onClick = [this, &name] { log.push_back("click " + name); };
            control->onGotFocus = [this, &name] { log.push_back("got " + name); };
            control->onLostFocus = [this, &name] { log.push_back("lost " + name); };
        }
    }

    std::vector<std::string> log;
    std::function<void()> closed = [this] { log.emplace_back("close"); };

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuHelp{mnuFile, "mnuHelp", "&Help", "F1"};
    Menu mnuMore{mnuFile, "mnuMore", "&More"};
    Menu mnuInner{mnuMore, "mnuInner", "&Inner"};

    Picture imgLogo{*this, "imgLogo", "logo.svg", 40};
    Label lblTitle{*this, "lblTitle", "Bowling & <b>more</b>", LabelLook::Heading};
    TextBox txtName{*this, "txtName", {.tip = "Say \"Hello\""}};
    Label lblName{*this, "lblName", " &Name", txtName};
    TextBox txtShort{
        *this, "txtShort", {.tip = "Three at most", .maxLength = 3, .width = 4, .centred = true}};
    TextBox txtShown{*this, "txtShown", {.readOnly = true, .tabStop = false}};
    TextBox txtLines{*this, "txtLines", {.multiline = true}};

    OptionGroup answers;
    GroupBox fraAnswers{*this, "fraAnswers", "Answers"};
    OptionButton optYes{fraAnswers, "optYes", answers, "&Yes"};
    OptionButton optNo{fraAnswers, "optNo", answers, "No"};

    CheckBox chkPlain{*this, "chkPlain", "&Plain"};
    CheckBox chkPin{*this, "chkPin", "7", CheckBoxLook::Pin};
    CheckBox chkOther{*this, "chkOther", "10", CheckBoxLook::Pin};

    Button cmdGo{*this, "cmdGo", "&Go", {.isDefault = true}};
    Button cmdStop{*this, "cmdStop", "&Stop", {.tip = "<b>Ends</b> it", .isCancel = true}};
    Button cmdOff{*this, "cmdOff", "&Off", {.enabled = false}};
    TextBox txtNowhere{*this, "txtNowhere", {.tabStop = false}};  // is not in the layout

    Layout layout() override {
        using namespace layout;
        return column({row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
                       row({form({lblName, txtName, lblShown, txtShown}), buttons({cmdGo, cmdStop, cmdOff})}),
                       txtLines, row({group(fraAnswers, row({optYes, optNo, space()})), chkPlain}),
                       row({chkPin, chkOther}).centred(),
                       table(3, {Layout(lblCell).centred(), space(), Layout(txtShort).centred(), cellOne,
                                 cellTwo, cellThree})});
    }
    void onLoad() override {
        screens().show(*this);
        txtName.focus();
        log.clear();
    }
    void onClose() override { closed(); }

    Label lblShown{*this, "lblShown", "Shown"};
    Label lblCell{*this, "lblCell", "Cell"};
    TextBox cellOne{*this, "cellOne", {.width = 3, .centred = true, .tabStop = false, .enabled = false}};
    TextBox cellTwo{*this, "cellTwo", {.width = 3, .centred = true, .tabStop = false, .enabled = false}};
    TextBox cellThree{*this, "cellThree", {.width = 6, .centred = true, .tabStop = false, .enabled = false}};
};

/// A screen whose layout is a single control.
class frmOther : public ProgramScreen {
public:
    explicit frmOther(Program& owner) : ProgramScreen(owner, "frmOther", "Other") {
        cmdBack.onClick = [this] { screens().goBackFrom(*this); };
    }

    Button cmdBack{*this, "cmdBack", "&Back"};

    Layout layout() override { return cmdBack; }
    void onLoad() override { screens().show(*this); }
    void onClose() override { cmdBack.click(); }
};

/// A screen with lists of every kind and a grid, whose handlers write down that they ran.
class frmLists : public ProgramScreen {
public:
    explicit frmLists(Program& owner) : ProgramScreen(owner, "frmLists", "Lists") {
        cboKind.fill({"Center Name", "Comment", "Date Bowled"});
        lstNames.fill({"Ann", "Bob", "Emil", "Ben"});
        for (Control* const control : controls()) {
            const std::string& name = control->name();
            control->onClick = [this, &name] { log.push_back("click " + name); };
            control->onGotFocus = [this, &name] { log.push_back("got " + name); };
            control->onLostFocus = [this, &name] {
                log.push_back("lost " + name);
                if (leaving)
                    leaving();
            };
        }
        drvDrive.onChange = [this] { log.emplace_back("change drvDrive"); };
        dirFolder.onChange = [this] { log.emplace_back("change dirFolder"); };
    }

    std::vector<std::string> log;
    std::function<void()> leaving;

    DataControl adoEvents{store()};

    TextBox txtName{*this, "txtName"};
    ComboBox cboKind{*this, "cboKind", {.width = 18}};
    Label lblKind{*this, "lblKind", "&Kind", cboKind};
    ComboBox cboEmpty{*this, "cboEmpty", {.tip = "Nothing <b>yet</b>"}};
    ListBox lstNames{*this, "lstNames", {.width = 20, .lines = 4}};
    Label lblNames{*this, "lblNames", "Na&mes", lstNames};
    DriveList drvDrive{*this, "drvDrive", mountedVolumes()};
    FolderList dirFolder{*this, "dirFolder", {.lines = 5}};
    Label lblFolder{*this, "lblFolder", "&Folder", dirFolder};
    Grid dgdEvents{*this,
                   "dgdEvents",
                   "Event List",
                   adoEvents,
                   {{.caption = "Event", .field = "fldSessionNum", .width = 6},
                    {.caption = "Event Name", .field = "fldEventName", .width = 24},
                    {.caption = "Date Bowled", .field = "fldDateBowled", .width = 4},
                    {.caption = "Series Avg.", .field = "fldSeriesAvg", .decimals = 2},
                    {.caption = "Comment", .field = "fldComment", .width = 60}}};
    Button cmdGo{*this, "cmdGo", "&Go", {.isDefault = true}};

    Layout layout() override {
        using namespace layout;
        return column(
            {row({form({lblKind, cboKind, lblNames, Layout(lstNames).stretched(), space(), cboEmpty}),
                  column({txtName, drvDrive, lblFolder, Layout(dirFolder).stretched()}), buttons({cmdGo})})
                 .stretched(),
             Layout(dgdEvents).stretched()});
    }
    void onLoad() override {
        screens().show(*this);
        txtName.focus();
        log.clear();
    }
    void onClose() override {}
    void onUnload() override { adoEvents.drop(); }
};

}  // namespace tallybrook::test
