#include "desktop/ControlView.h"

#include "controls/Screen.h"
#include "desktop/FolderTreeView.h"
#include "desktop/GridView.h"
#include "desktop/ListViews.h"
#include "desktop/PressedViews.h"
#include "desktop/QtText.h"
#include "desktop/Spoken.h"
#include "desktop/StillViews.h"
#include "desktop/TextViews.h"

#include <array>

namespace tallybrook {

namespace {

using Made = std::unique_ptr<ControlView>;

Made makeNothing(Control& /*control*/, QWidget& /*parent*/, ViewListener& /*listener*/) {
    return nullptr;
}

struct KindOfView {
    Control::Kind kind;
    Made (*make)(Control& control, QWidget& parent, ViewListener& listener);
};

constexpr std::array<KindOfView, 13> kKinds{{
    {Control::Kind::TextBox, makeTextBoxView},
    {Control::Kind::Button, makeButtonView},
    {Control::Kind::OptionButton, makeOptionView},
    {Control::Kind::CheckBox, makeCheckBoxView},
    {Control::Kind::ComboBox, makeComboView},
    {Control::Kind::DriveList, makeComboView},
    {Control::Kind::ListBox, makeListBoxView},
    {Control::Kind::FolderList, makeFolderTreeView},
    {Control::Kind::Grid, makeGridView},
    {Control::Kind::Label, makeLabelView},
    {Control::Kind::GroupBox, makeGroupBoxView},
    {Control::Kind::Picture, makePictureView},
    {Control::Kind::Menu, makeNothing},
}};

}  // namespace

void ControlView::refresh() {
    refreshContent();
    QWidget& shown = outerWidget();
    shown.setEnabled(isShownAsOn());
    shown.setVisible(control_.isVisible());
    if (const QString tip = asTip(shownTip()); tip != shown.toolTip())
        shown.setToolTip(tip);
    tellDescription(widget(), toQt(spokenDescription()));
}

/// News of the screen come with what has the focus. A list that opens is called by what is chosen in it, so
/// what it is for comes here.
const std::string& ControlView::spokenDescription() const {
    const std::string& news = control_.screen().news();
    if (control_.hasFocus() && !news.empty())
        return news;
    const bool isChosenFrom = control_.kind() == Control::Kind::ComboBox &&
                              static_cast<const ItemList&>(control_).pickedIndex().has_value();
    return isChosenFrom && control_.tip().empty() ? control_.spokenName() : control_.tip();
}

std::unique_ptr<ControlView> makeView(Control& control, QWidget& parent, ViewListener& listener) {
    for (const KindOfView& kind : kKinds) {
        if (kind.kind == control.kind())
            return kind.make(control, parent, listener);
    }
    return nullptr;
}

}  // namespace tallybrook
