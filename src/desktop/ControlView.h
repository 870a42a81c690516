#pragma once

#include "controls/Grid.h"
#include "controls/Keyboard.h"
#include "controls/Lists.h"
#include "desktop/WindowMemory.h"

#include <QWidget>
#include <memory>

namespace tallybrook {

/// What a view tells the window of what its user does.
class ViewListener {
public:
    virtual ~ViewListener() = default;
    /// The widget of a button, option or check box was clicked.
    virtual void clicked(Control& control) = 0;
    /// The user has changed the text of a box.
    virtual void edited(TextBox& box, const QString& text) = 0;
    /// The user has selected all of the text of a box, or no longer all of it.
    virtual void selected(TextBox& box, bool all) = 0;
    /// The user has chosen an item of a list, from 0, or the folder in a row of a tree.
    virtual void picked(ItemList& list, int index) = 0;
    virtual void pickedFolder(FolderList& list, int row) = 0;
    /// The user wants to see what is in a folder of a tree, or no longer.
    virtual void toggledFolder(FolderList& list, int row) = 0;
    /// The user has clicked a row of a grid, from 1.
    virtual void clickedRow(Grid& grid, int row) = 0;
    /// The user has clicked an item of a list or grid twice, or pressed Return on it.
    virtual void activated(Control& control) = 0;
    /// A widget no longer shows what its control holds.
    virtual void disturbed() = 0;

    /// How the user has left the windows.
    virtual WindowMemory& memory() = 0;
};

/// One control as a widget. The control is the master: refresh() makes the widget show what it holds, and the
/// widget changes nothing by itself.
class ControlView {
public:
    explicit ControlView(Control& control) : control_(control) {}
    virtual ~ControlView() = default;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    [[nodiscard]] Control& control() const { return control_; }
    /// What has the focus and is used.
    [[nodiscard]] virtual QWidget& widget() const = 0;
    /// What stands in the layout: the widget, or more around it.
    [[nodiscard]] virtual QWidget& outerWidget() const { return widget(); }
    /// Whether the widget itself does something with a key that means nothing to the screen.
    [[nodiscard]] virtual bool takesKey(const person::Key& /*key*/) const { return false; }
    void refresh();

protected:
    /// Shows what the kind of control has besides being enabled, visible and tipped.
    virtual void refreshContent() = 0;
    /// Whether it is drawn, and told, as something that can be used.
    [[nodiscard]] virtual bool isShownAsOn() const { return control_.isEnabled(); }
    /// What is told beside the mouse.
    [[nodiscard]] virtual std::string shownTip() const { return control_.tip(); }

private:
    [[nodiscard]] const std::string& spokenDescription() const;

    Control& control_;
};

/// Makes the view of a control as a child of `parent`; nothing for a menu.
std::unique_ptr<ControlView> makeView(Control& control, QWidget& parent, ViewListener& listener);

}  // namespace tallybrook
