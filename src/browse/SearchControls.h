#pragma once

#include "controls/Control.h"
#include "controls/Lists.h"

#include <string>
#include <vector>

// The controls that a search screen is made of.
namespace tallybrook {

/// What stands between a row of a search and the next one.
struct JoinControls {
    CheckBox& more;
    OptionButton& optAnd;
    OptionButton& optOr;
};

/// Of each row the field, the operator and the value, and of each row but the last what joins it to the next.
struct SearchControls {
    ControlArray<ComboBox>& fields;
    ControlArray<ComboBox>& operators;
    ControlArray<TextBox>& values;
    std::vector<JoinControls> joins;
};

/// The lists of the fields, the lists of the operators and the boxes of the values, in rows from 0 to
/// `lastRow`.
ControlArray<ComboBox> fieldLists(Screen& screen, const std::string& name, int lastRow);
ControlArray<ComboBox> operatorLists(Screen& screen, int lastRow);
ControlArray<TextBox> valueBoxes(Screen& screen, int lastRow);

/// What a control of a row (from 0) is read aloud as.
std::string spokenInRow(const std::string& name, int row);

inline constexpr const char* kMoreCaption = "Add a row";
inline constexpr const char* kMoreTip = "Check this box if you want to add another search layer";
inline constexpr const char* kAndTip =
    "The \"And\" button will search for events that meet the previous criteria AND the criteria you enter "
    "here";
inline constexpr const char* kOrTip =
    "The \"OR\" button selects criteria that matches either this case or the previous case";

}  // namespace tallybrook
