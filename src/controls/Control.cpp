#include "controls/Control.h"

#include "controls/Screen.h"
#include "runtime/Ascii.h"
#include "runtime/TextCompare.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

Place::Place(Control& above) : screen_(above.screen()), above_(&above) {}

Control::Control(Kind kind, Place place, std::string name, std::string caption)
    : kind_(kind),
      screen_(place.screen()),
      above_(place.above()),
      name_(std::move(name)),
      caption_(std::move(caption)) {
    screen_.add(*this);
}

void Control::setEnabled(bool enabled) {
    enabled_ = enabled;
    screen_.reviewFocus();
}

void Control::setVisible(bool visible) {
    visible_ = visible;
    screen_.reviewFocus();
}

bool Control::isEnabled() const {
    return enabled_ && (above_ == nullptr || above_->isEnabled());
}

bool Control::isVisible() const {
    return visible_ && (above_ == nullptr || above_->isVisible());
}

bool Control::standsIn(const Control& outer) const {
    return above_ != nullptr && (above_ == &outer || above_->standsIn(outer));
}

bool Control::isFocusable() const {
    return kind_ == Kind::TextBox || kind_ == Kind::Button || kind_ == Kind::OptionButton ||
           kind_ == Kind::CheckBox || kind_ == Kind::Grid || isList();
}

bool Control::hasFocus() const {
    return screen_.focused() == this;
}

void Control::focus() {
    if (screen_.isVisible())
        screen_.moveFocus(*this);
}

TextBox::TextBox(Place place, std::string name, const Options& options)
    : Control(Kind::TextBox, place, std::move(name)), options_(options) {
    setTip(options.tip);
    setTabStop(options.tabStop);
    setEnabled(options.enabled);
}

void TextBox::setText(std::string text) {
    if (text == text_)
        return;
    text_ = std::move(text);
    ++changes_;
    caret_ = text_.size();
    if (onChange)
        onChange();
}

namespace {

/// What is pasted into a box of one line: the ends of its lines become blanks, and go where nothing follows.
std::string onOneLine(std::string_view text) {
    std::string line(text.substr(0, text.find_last_not_of("\r\n") + 1));
    std::erase(line, '\r');
    std::ranges::replace(line, '\n', ' ');
    return line;
}

/// The text with its lines ended by line feeds.
std::string withLineFeeds(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    for (const char character : text) {
        if (character != '\n' || !lines.ends_with('\r'))
            lines += character;
        else
            lines.back() = '\n';
    }
    std::ranges::replace(lines, '\r', '\n');
    return lines;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// What stands in the new text between the beginning and the end that it has in common with the old one.
std::string_view newPartOf(std::string_view text, std::string_view old) {
    auto begin = static_cast<std::size_t>(std::ranges::mismatch(text, old).in1 - text.begin());
    while (begin > 0 && begin < text.size() && isContinuation(text[begin]))
        --begin;
    const std::string_view rest = text.substr(begin);
    const std::string_view oldRest = old.substr(std::min(begin, old.size()));
    const auto [end, oldEnd] = std::mismatch(rest.rbegin(), rest.rend(), oldRest.rbegin(), oldRest.rend());
    auto size = static_cast<std::size_t>(rest.rend() - end);
    while (size < rest.size() && isContinuation(rest[size]))
        ++size;
    return rest.substr(0, size);
}

}  // namespace

std::string TextBox::linesOf(std::string_view text) const {
    return options_.multiline ? withLineFeeds(text) : onOneLine(text);
}

std::string TextBox::typable(std::string_view text) const {
    return asWritten(linesOf(text), options_.multiline ? "\n\t" : "");
}

// What code has put there may be longer than the limit, and hold what cannot be typed. To take some of it out
// is no typing, and cuts no more.
void TextBox::enter(std::string_view text) {
    if (options_.readOnly)
        return;
    std::string taken = linesOf(text);
    const std::string_view part = newPartOf(taken, allSelected_ ? std::string() : linesOf(text_));
    const std::string typed = typable(part);
    if (typed.empty() && !part.empty())
        return;
    allSelected_ = false;
    taken.replace(static_cast<std::size_t>(part.data() - taken.data()), part.size(), typed);
    const auto limit = static_cast<std::size_t>(options_.maxLength);
    if (limit != 0 && !typed.empty())
        taken.resize(firstCharacters(taken, limit).size());
    setText(std::move(taken));
}

Button::Button(Place place, std::string name, std::string caption, const ButtonOptions& options)
    : Control(Kind::Button, place, std::move(name), std::move(caption)), options_(options) {
    setTip(options.tip);
    setEnabled(options.enabled);
}

OptionButton::OptionButton(Place place, std::string name, OptionGroup& group, std::string caption,
                           std::string tip)
    : Control(Kind::OptionButton, place, std::move(name), std::move(caption)), group_(group) {
    setTip(std::move(tip));
    group_.options_.push_back(this);
}

void OptionButton::setValue(bool value) {
    if (value == value_)
        return;
    if (value) {
        for (OptionButton* other : group_.options_)
            other->value_ = false;
    }
    value_ = value;
    if (value)
        click();
}

CheckBox::CheckBox(Place place, std::string name, std::string caption, CheckBoxLook look)
    : Control(Kind::CheckBox, place, std::move(name), std::move(caption)), look_(look) {}

void CheckBox::setValue(bool value) {
    if (value == value_)
        return;
    value_ = value;
    click();
}

Label::Label(Place place, std::string name, std::string caption, LabelLook look)
    : Control(Kind::Label, place, std::move(name), std::move(caption)), look_(look) {}

Label::Label(Place place, std::string name, std::string caption, Control& names)
    : Control(Kind::Label, place, std::move(name), std::move(caption)), names_(&names) {}

GroupBox::GroupBox(Place place, std::string name, std::string caption, const std::string& tip)
    : Control(Kind::GroupBox, place, std::move(name), std::move(caption)) {
    setTip(tip);
}

Menu::Menu(Place place, std::string name, std::string caption, std::string shortcut)
    : Control(Kind::Menu, place, std::move(name), std::move(caption)), shortcut_(std::move(shortcut)) {
    if (above() != nullptr && above()->kind() == Kind::Menu)
        static_cast<Menu*>(above())->entries_.push_back(this);
}

Menu::Menu(Place place, std::string name, std::string caption, const Control& runs)
    : Menu(place, std::move(name), std::move(caption)) {
    runs_ = &runs;
    onClick = [&runs] { runs.click(); };
}

bool isPressable(const Control& control) {
    return control.kind() == Control::Kind::Button || control.kind() == Control::Kind::OptionButton ||
           control.kind() == Control::Kind::CheckBox;
}

std::optional<char> accessLetter(const Control& control) {
    const std::string& caption = control.caption();
    for (std::size_t at = caption.find('&'); at != std::string::npos && at + 1 < caption.size();
         at = caption.find('&', at + 2)) {
        if (caption[at + 1] != '&')
            return toUpper(caption[at + 1]);
    }
    return std::nullopt;
}

}  // namespace tallybrook
