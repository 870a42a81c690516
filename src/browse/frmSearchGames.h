#pragma once

#include "browse/SearchCommands.h"
#include "browse/SearchForm.h"
#include "shell/ProgramScreen.h"
#include "store/DataControl.h"

namespace tallybrook {

/// Where a search for games is put together, in one or two rows of a field, an operator and a value.
class frmSearchGames : public ProgramScreen {
public:
    explicit frmSearchGames(Program& owner);

    Picture imgLogo{*this, "imgLogo", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Game Search", LabelLook::Heading};
    Label lblSearchFor{*this, "lblSearchFor", "Search For:"};
    Label lblThat{*this, "lblThat", "That:"};
    Label lblValue{*this, "lblValue", "Value:"};

    ControlArray<ComboBox> cboSearchFld;
    ControlArray<ComboBox> cboSearchOp;
    ControlArray<TextBox> txtSearchVal;
    CheckBox chkCriteria{*this, "chkCriteria", kMoreCaption};
    OptionGroup join;
    OptionButton optAnd;
    OptionButton optOr;

    /// Its record source is the statement of the search, for the list of the hits.
    DataControl adoTBKGame{store()};

    SearchForm form;
    SearchCommands commands{program(), *this, form};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    void chkCriteria_Click();
    void txtSearchVal_LostFocus(int row);
};

}  // namespace tallybrook
