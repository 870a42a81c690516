#pragma once

#include "shell/Screen.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tallybrook::test {

/// A screen with a control of every kind, whose handlers write down that they ran.
class frmMain : public Screen {
public:
    explicit frmMain(Program& owner) : Screen(owner, "frmMain", "A Test <b>Screen</b>") {
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
    Frame fraAnswers{*this, "fraAnswers", "Answers"};
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
class frmOther : public Screen {
public:
    explicit frmOther(Program& owner) : Screen(owner, "frmOther", "Other") {
        cmdBack.onClick = [this] { screens().goBackFrom(*this); };
    }

    Button cmdBack{*this, "cmdBack", "&Back"};

    Layout layout() override { return cmdBack; }
    void onLoad() override { screens().show(*this); }
    void onClose() override { cmdBack.click(); }
};

}  // namespace tallybrook::test
