#pragma once

#include "controls/Control.h"
#include "controls/Display.h"
#include "controls/Layout.h"
#include "controls/Screens.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallybrook {

/// What became of a move of the focus.
enum class Arrival {
    Arrived,    // the focus is where it was to go, or was there already
    Kept,       // the control that was left has put the focus back on itself
    Elsewhere,  // the control that was left has put it on a third one
    Refused,    // it cannot go there: not focusable, disabled or not visible
};

/// One screen of the program: its controls, where they stand, and its handlers. It knows no toolkit.
class Screen {
public:
    Screen(Screens& screens, std::string name, std::string caption);
    virtual ~Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::string& caption() const { return caption_; }
    [[nodiscard]] bool isVisible() const { return visible_; }
    [[nodiscard]] bool isLoaded() const { return loaded_; }

    /// All controls in the order of declaration.
    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
    /// The control of that name; nullptr if there is none.
    [[nodiscard]] Control* find(std::string_view name) const;
    /// The menus of the menu bar.
    [[nodiscard]] std::vector<Menu*> menuBar() const;
    [[nodiscard]] virtual Layout layout() = 0;

    // The handlers of the screen's own events.

    /// Its set-up; ends by showing itself and giving the focus to its first input.
    virtual void onLoad() = 0;
    /// The title bar's close: the screen's way back.
    virtual void onClose() = 0;
    /// F1, where no entry of a menu has it.
    virtual void onHelp() {}
    /// Lets go of what is held outside the screen: its recordsets and data controls.
    virtual void onUnload() {}
    /// What it does once it is gone from the loaded screens.
    virtual void onUnloaded() {}

    /// What most come to the screen for: a button, or an entry of a menu; nullptr for nothing.
    [[nodiscard]] Control* primary() const { return primary_; }
    void setPrimary(Control& control) { primary_ = &control; }

    // The focus.

    /// The control that has the focus; nullptr for none.
    [[nodiscard]] Control* focused() const { return focused_; }
    /// Moves the focus, whether a person or code does it: the control left runs its leaving first.
    Arrival moveFocus(Control& target);
    /// The next control where Tab stops, `after` the one given (the first with nullptr); nullptr if none can
    /// take the focus.
    [[nodiscard]] Control* nextInTabOrder(const Control* after, bool backwards = false) const;
    /// The focusable controls in tab order, whatever their state.
    [[nodiscard]] std::vector<Control*> tabOrder() const;

    /// What an Alt letter has led to since the focus came where it is: a menu that it has opened, or the
    /// control that has the focus; nullptr for none. Where several have the letter, the others come next.
    [[nodiscard]] const Control* ledTo() const { return ledTo_; }
    void noteLedTo(const Control& target) { ledTo_ = &target; }

    /// To be called when a control may have lost its right to the focus.
    void reviewFocus();

    /// What has become of what was entered, to be read aloud with the control that has the focus, as long as
    /// it has it; empty for nothing.
    [[nodiscard]] const std::string& news() const { return news_; }

protected:
    /// Puts these controls first in the tab order.
    void setTabOrder(std::vector<Control*> first) { tabOrderFirst_ = std::move(first); }

    /// Tells news; to be called when the focus is where it will be.
    void tell(std::string news) { news_ = std::move(news); }

    [[nodiscard]] Screens& screens() const { return screens_; }

    /// Shows a box and returns the button pressed.
    Answer ask(const MessageBox& box) const { return screens_.display().messageBox(box); }

private:
    friend class Control;
    friend class Screens;
    void add(Control& control) { controls_.push_back(&control); }
    void place(Control& target);
    void runLeaving(Control& left);

    Screens& screens_;
    std::string name_;
    std::string caption_;
    std::vector<Control*> controls_;
    std::vector<Control*> tabOrderFirst_;
    bool visible_ = false;
    bool loaded_ = false;
    Control* focused_ = nullptr;
    const Control* ledTo_ = nullptr;
    std::string news_;
    Control* primary_ = nullptr;
    Control* redirected_ = nullptr;  // where a running leaving has put the focus
    bool leaving_ = false;
};

}  // namespace tallybrook
