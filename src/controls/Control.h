#pragma once

#include "runtime/Integer.h"
#include "runtime/RunTimeError.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

class Control;
class Screen;

/// What a control stands in: the screen itself, or a group box or menu on it.
class Place {
public:
    Place(Screen& screen) : screen_(screen) {}
    Place(Control& above);

    [[nodiscard]] Screen& screen() const { return screen_; }
    [[nodiscard]] Control* above() const { return above_; }

private:
    Screen& screen_;
    Control* above_ = nullptr;
};

/// One control of a screen: a name, what it shows, whether it is on and seen, and what happens when it is
/// used. Handlers are set by the screen that owns it. A control registers itself with its screen in the order
/// of declaration, which is the tab order unless the screen says otherwise.
class Control {
public:
    enum class Kind {
        TextBox,
        Button,
        OptionButton,
        CheckBox,
        ComboBox,
        ListBox,
        DriveList,
        FolderList,
        Grid,
        Label,
        GroupBox,
        Menu,
        Picture
    };

    Control(Kind kind, Place place, std::string name, std::string caption = {});
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    [[nodiscard]] Kind kind() const { return kind_; }
    /// As in the program; an element of an array with its index, as in "txtCount(10)".
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] Screen& screen() const { return screen_; }
    /// The group box or menu that it stands in, if any.
    [[nodiscard]] Control* above() const { return above_; }

    /// Whether it stands in another control, be it through others in between.
    [[nodiscard]] bool standsIn(const Control& outer) const;

    /// The caption; "&" stands before the letter that reaches the control with Alt.
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption) { caption_ = std::move(caption); }
    [[nodiscard]] const std::string& tip() const { return tip_; }
    void setTip(std::string tip) { tip_ = std::move(tip); }

    /// What it is called when it is read aloud, where its caption, label or tip does not tell all of it.
    [[nodiscard]] const std::string& spokenName() const { return spokenName_; }
    void setSpokenName(std::string name) { spokenName_ = std::move(name); }

    /// Its own state, whatever stands above it. Disabling or hiding the control that has the focus hands the
    /// focus to the next one in the tab order, without the control being left.
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    /// Whether it and all above it are enabled (visible).
    [[nodiscard]] bool isEnabled() const;
    [[nodiscard]] bool isVisible() const;

    /// Whether the focus can rest on a control of its kind, and whether it can go there now.
    [[nodiscard]] bool isFocusable() const;
    [[nodiscard]] bool canTakeFocus() const { return isFocusable() && isEnabled() && isVisible(); }
    [[nodiscard]] bool hasFocus() const;
    /// Whether Tab stops here.
    [[nodiscard]] bool isTabStop() const { return tabStop_; }
    void setTabStop(bool tabStop) { tabStop_ = tabStop; }

    /// Moves the focus here, from code: the control left runs its leaving. Does nothing where the focus
    /// cannot go, or while the screen is not shown.
    void focus();

    /// Whether it is a list of items of which one can be picked.
    [[nodiscard]] bool isList() const {
        return kind_ == Kind::ComboBox || kind_ == Kind::ListBox || kind_ == Kind::DriveList ||
               kind_ == Kind::FolderList;
    }

    /// Whether it holds items or rows, of which one is chosen by a click on it.
    [[nodiscard]] bool hasRows() const { return isList() || kind_ == Kind::Grid; }

    /// Runs its click, as the program's own code does.
    void click() const {
        if (onClick)
            onClick();
    }

    std::function<void()> onClick;
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

private:
    Kind kind_;
    Screen& screen_;
    Control* above_;
    std::string name_;
    std::string caption_;
    std::string tip_;
    std::string spokenName_;
    bool enabled_ = true;
    bool visible_ = true;
    bool tabStop_ = true;
};

/// Whether the control answers a click with more than taking the focus: a button, an option or a check box.
bool isPressable(const Control& control);

/// The letter, in upper case, that reaches a control with Alt; nothing if its caption marks none.
std::optional<char> accessLetter(const Control& control);

/// How a text box differs from a plain one.
struct TextBoxOptions {
    std::string tip = {};
    int maxLength = 0;  // in characters, for typing alone; 0 for no limit
    int width = 0;      // in characters, a hint for drawing; 0 for as wide as there is room
    bool readOnly = false;
    bool centred = false;
    bool multiline = false;
    bool tabStop = true;
    bool enabled = true;
};

class TextBox : public Control {
public:
    using Options = TextBoxOptions;
    TextBox(Place place, std::string name, const Options& options = {});

    [[nodiscard]] const std::string& text() const { return text_; }
    /// How often the text has changed.
    [[nodiscard]] std::uint64_t changes() const { return changes_; }
    /// Sets the text from code, however long; runs onChange if it differs.
    void setText(std::string text);
    /// What of a text can be typed or pasted: of one line where the box has one, and nothing that no key
    /// writes.
    [[nodiscard]] std::string typable(std::string_view text) const;
    /// Takes what a person has made of the text: of what was typed or pasted, what is typable, cut at the
    /// box's limit. Runs onChange if it differs. Nothing is taken by a read-only box, or where nothing is
    /// typable.
    void enter(std::string_view text);

    [[nodiscard]] const Options& options() const { return options_; }
    /// Whether all of the text is selected, so that typing replaces it.
    [[nodiscard]] bool isAllSelected() const { return allSelected_; }
    void selectAll() { allSelected_ = true; }
    void dropSelection() { allSelected_ = false; }
    /// Where typing goes, in bytes from the beginning of the text: behind it, once the text has changed.
    [[nodiscard]] std::size_t caret() const { return caret_; }
    /// Moves the caret, which leaves nothing selected.
    void moveCaret(std::size_t position) {
        dropSelection();
        caret_ = position;
    }

    std::function<void()> onChange;

private:
    [[nodiscard]] std::string linesOf(std::string_view text) const;

    Options options_;
    std::string text_;
    std::uint64_t changes_ = 0;
    bool allSelected_ = false;
    std::size_t caret_ = 0;
};

struct ButtonOptions {
    std::string tip = {};
    bool isDefault = false;  // pressed by Return where no button has the focus
    bool isCancel = false;   // pressed by Escape
    bool enabled = true;
};

class Button : public Control {
public:
    Button(Place place, std::string name, std::string caption, const ButtonOptions& options = {});
    [[nodiscard]] const ButtonOptions& options() const { return options_; }

private:
    ButtonOptions options_;
};

class OptionButton;

/// Options that exclude each other. All of them can be off.
class OptionGroup {
public:
    OptionGroup() = default;
    /// Options that answer what a label or the title of a box asks.
    explicit OptionGroup(const Control& question) : question_(&question) {}

    [[nodiscard]] const std::vector<OptionButton*>& options() const { return options_; }
    /// What asks for one of them; nullptr where the options say it all.
    [[nodiscard]] const Control* question() const { return question_; }

private:
    friend class OptionButton;
    std::vector<OptionButton*> options_;
    const Control* question_ = nullptr;
};

class OptionButton : public Control {
public:
    OptionButton(Place place, std::string name, OptionGroup& group, std::string caption,
                 std::string tip = {});

    [[nodiscard]] bool value() const { return value_; }
    /// Turning it on turns the others of its group off and runs its click, unless it is on already.
    void setValue(bool value);
    [[nodiscard]] const OptionGroup& group() const { return group_; }

private:
    OptionGroup& group_;
    bool value_ = false;
};

/// How a check box is drawn: as a plain box, or as a pin of the rack.
enum class CheckBoxLook { Plain, Pin };

class CheckBox : public Control {
public:
    CheckBox(Place place, std::string name, std::string caption, CheckBoxLook look = CheckBoxLook::Plain);

    [[nodiscard]] bool value() const { return value_; }
    /// Runs its click if the value changes.
    void setValue(bool value);
    [[nodiscard]] CheckBoxLook look() const { return look_; }

private:
    CheckBoxLook look_;
    bool value_ = false;
};

/// Of several labels beside each other the current one names what is being worked on.
enum class LabelLook { Plain, Heading, Strong, Current };

class Label : public Control {
public:
    Label(Place place, std::string name, std::string caption, LabelLook look = LabelLook::Plain);
    /// A label that names a control, which its Alt letter reaches.
    Label(Place place, std::string name, std::string caption, Control& names);

    [[nodiscard]] LabelLook look() const { return look_; }
    void setLook(LabelLook look) { look_ = look; }
    [[nodiscard]] Control* names() const { return names_; }

private:
    LabelLook look_ = LabelLook::Plain;
    Control* names_ = nullptr;
};

/// A titled border around other controls. Disabling it disables them without changing their own state.
class GroupBox : public Control {
public:
    GroupBox(Place place, std::string name, std::string caption = {}, const std::string& tip = {});
};

/// A menu of the bar, a submenu, or an entry that is clicked.
class Menu : public Control {
public:
    Menu(Place place, std::string name, std::string caption, std::string shortcut = {});
    /// An entry that runs the click of a button, and bears its caption where it has none of its own.
    Menu(Place place, std::string name, const Control& runs)
        : Menu(place, std::move(name), runs.caption(), runs) {}
    Menu(Place place, std::string name, std::string caption, const Control& runs);

    [[nodiscard]] const std::string& shortcut() const { return shortcut_; }
    /// The button whose click the entry runs; nullptr if it has one of its own.
    [[nodiscard]] const Control* runs() const { return runs_; }
    [[nodiscard]] const std::vector<Menu*>& entries() const { return entries_; }
    [[nodiscard]] bool isEntry() const { return entries_.empty(); }

private:
    std::string shortcut_;
    const Control* runs_ = nullptr;
    std::vector<Menu*> entries_;
};

/// A picture, drawn from the file of its name among the program's own pictures.
class Picture : public Control {
public:
    /// A picture `size` pixels wide and high.
    Picture(Place place, std::string name, std::string file, int size = 40)
        : Control(Kind::Picture, place, std::move(name)), file_(std::move(file)), size_(size) {}
    [[nodiscard]] const std::string& file() const { return file_; }
    [[nodiscard]] int size() const { return size_; }

private:
    std::string file_;
    int size_;
};

/// Controls of one name, told apart by an index.
template <typename Element>
class ControlArray {
public:
    /// Elements with the indices `first` to `last`, each made by `make(index, name)`.
    template <typename Make>
    ControlArray(std::string name, int first, int last, Make make) : name_(std::move(name)), first_(first) {
        for (int index = first; index <= last; ++index)
            elements_.push_back(make(index, name_ + "(" + std::to_string(index) + ")"));
    }

    /// The element; error 340 where there is none of that index.
    [[nodiscard]] Element& operator()(int index) const {
        if (index < first_ || index > lastIndex())
            throw RunTimeError(error::kNoControlArrayElement,
                               "Control array element '" + std::to_string(index) + "' doesn't exist");
        return *elements_[static_cast<std::size_t>(index - first_)];
    }
    [[nodiscard]] Element& operator()(Int16 index) const { return (*this)(int{index.value()}); }

    [[nodiscard]] int lastIndex() const { return first_ + static_cast<int>(elements_.size()) - 1; }
    [[nodiscard]] auto begin() const { return elements_.begin(); }
    [[nodiscard]] auto end() const { return elements_.end(); }

private:
    std::string name_;
    int first_;
    std::vector<std::unique_ptr<Element>> elements_;
};

}  // namespace tallybrook
