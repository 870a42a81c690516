#pragma once

#include "shell/ProgramScreen.h"

namespace tallybrook {

/// The about box. It does not block the screen that opened it.
class frmAbout : public ProgramScreen {
public:
    explicit frmAbout(Program& owner);

    Picture Image1{*this, "Image1", "logo.svg", 96};
    Label lblProduct{*this, "lblProduct", "Tallybrook", LabelLook::Heading};
    Label lblVersion{*this, "lblVersion", ""};
    Label lblMaker{*this, "lblMaker", "The Tallybrook team"};
    Label lblMail{*this, "lblMail", "support@tallybrook.example"};
    TextBox Text1{*this, "Text1", {.width = 72, .readOnly = true, .multiline = true}};
    Button cmdAboutOK{*this, "cmdAboutOK", "OK", {.isDefault = true, .isCancel = true}};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
};

}  // namespace tallybrook
