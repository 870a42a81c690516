#pragma once

#include "browse/SearchCommands.h"
#include "browse/SearchForm.h"
#include "shell/ProgramScreen.h"
#include "store/DataControl.h"

#include <array>
#include <string>

namespace tallybrook {

/// Where a search for events is put together, in up to five rows of a field, an operator and a value.
class frmSearchEvents : public ProgramScreen {
public:
    explicit frmSearchEvents(Program& owner);

    static constexpr int kRows = 5;

    Picture imgLogo{*this, "imgLogo", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Search Events", LabelLook::Heading};
    Label lblSearchFor{*this, "lblSearchFor", "Search For:"};
    Label lblThat{*this, "lblThat", "That:"};
    Label lblValue{*this, "lblValue", "Value:"};

    ControlArray<ComboBox> cboListField;
    ControlArray<ComboBox> cboSearchOp;
    ControlArray<TextBox> txtSearchVal;
    ControlArray<CheckBox> chkCriteria;
    std::array<OptionGroup, kRows - 1> joins;
    ControlArray<OptionButton> optAnd;
    ControlArray<OptionButton> optOr;

    /// Its record source is the statement of the search, for the list of the hits.
    DataControl adoTBKEvent{store()};

    SearchForm form;
    SearchCommands commands{program(), *this, form};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    [[nodiscard]] SearchControls searchControls();
    void setTabOrderByRows();

    void txtSearchVal_LostFocus(int row);
    void takeEventType(int row);
    [[nodiscard]] std::string sqlValue(int row) const;
};

}  // namespace tallybrook
