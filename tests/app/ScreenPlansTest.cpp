// What stands where on each screen as it comes up, in which order Tab goes through it, and how each control
// differs from a plain one. Plans are written anew, to be read before they are kept, with
// TALLYBROOK_WRITE_EXPECTED.

#include "support/Play.h"
#include "support/WrittenDown.h"

#include <array>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

using Kind = Control::Kind;

constexpr std::array kKinds{"text box", "button", "option", "check box", "combo box", "list",   "drives",
                            "folders",  "grid",   "label",  "group",     "menu",      "picture"};
constexpr std::array kLayouts{"item", "row", "column", "form", "table", "group", "buttons", "space"};
constexpr std::array kAligns{"", ", centred", ", at the start"};
constexpr std::array kLooks{"plain", "heading", "strong", "current"};

const char* nameOf(const auto& names, auto number) {
    return names.at(static_cast<std::size_t>(number));
}

/// A remark where it is true.
std::string where(bool is, const std::string& remark) {
    return is ? ", " + remark : "";
}

std::string remarksOn(const TextBox& box) {
    const TextBoxOptions& is = box.options();
    return where(is.width != 0, fmt::format("width {}", is.width)) +
           where(is.maxLength != 0, fmt::format("at most {}", is.maxLength)) +
           where(is.readOnly, "read-only") + where(is.centred, "centred") + where(is.multiline, "multiline");
}

std::string remarksOn(const Button& button) {
    return where(button.options().isDefault, "default") + where(button.options().isCancel, "cancel");
}

std::string remarksOn(const OptionButton& option) {
    const Control* const question = option.group().question();
    return where(question != nullptr, "answers " + (question == nullptr ? "" : question->name()));
}

std::string remarksOn(const Label& label) {
    return where(label.look() != LabelLook::Plain, nameOf(kLooks, label.look())) +
           where(label.names() != nullptr,
                 "names " + (label.names() == nullptr ? "" : label.names()->name()));
}

std::string remarksOn(const Menu& menu) {
    return where(!menu.shortcut().empty(), menu.shortcut()) +
           where(menu.runs() != nullptr, "runs " + (menu.runs() == nullptr ? "" : menu.runs()->name()));
}

std::string remarksOfKind(const Control& control) {
    switch (control.kind()) {
        case Kind::TextBox:
            return remarksOn(dynamic_cast<const TextBox&>(control));
        case Kind::Button:
            return remarksOn(dynamic_cast<const Button&>(control));
        case Kind::OptionButton:
            return remarksOn(dynamic_cast<const OptionButton&>(control));
        case Kind::Label:
            return remarksOn(dynamic_cast<const Label&>(control));
        case Kind::Menu:
            return remarksOn(dynamic_cast<const Menu&>(control));
        case Kind::CheckBox:
            return where(dynamic_cast<const CheckBox&>(control).look() == CheckBoxLook::Pin, "a pin");
        case Kind::Picture: {
            const auto& picture = dynamic_cast<const Picture&>(control);
            return fmt::format(", {} of {} pixels", picture.file(), picture.size());
        }
        default:
            return "";
    }
}

std::string planOf(const Control& control) {
    const Control* const above = control.above();
    return fmt::format("  {} {}, \"{}\", \"{}\"", nameOf(kKinds, control.kind()), control.name(),
                       control.caption(), control.tip()) +
           where(above != nullptr, "in " + (above == nullptr ? "" : above->name())) + remarksOfKind(control) +
           where(!control.spokenName().empty(), "read as \"" + control.spokenName() + "\"") +
           where(!control.isTabStop(), "no tab stop") + where(!control.isEnabled(), "off") +
           where(!control.isVisible(), "hidden") + "\n";
}

std::string planOf(const Layout& layout, int depth) {
    std::string plan(static_cast<std::size_t>(depth) * 2, ' ');
    plan += nameOf(kLayouts, layout.kind);
    if (layout.control != nullptr)
        plan += " " + layout.control->name();
    plan += where(layout.columns != 0, fmt::format("{} columns", layout.columns)) +
            nameOf(kAligns, layout.align) +
            where(layout.stretch != 0, fmt::format("stretched {}", layout.stretch)) + "\n";
    for (const Layout& part : layout.parts)
        plan += planOf(part, depth + 1);
    return plan;
}

std::string planOf(Screen& screen) {
    std::string plan = screen.name() + ": " + screen.caption() +
                       "\nprimary: " + (screen.primary() == nullptr ? "none" : screen.primary()->name()) +
                       "\nfocus: " + (screen.focused() == nullptr ? "none" : screen.focused()->name()) +
                       "\ntab:";
    for (const Control* const control : screen.tabOrder())
        plan += " " + control->name();
    plan += "\ncontrols:\n";
    for (const Control* const control : screen.controls())
        plan += planOf(*control);
    return plan + "layout:\n" + planOf(screen.layout(), 1);
}

class ScreenPlans : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Of, ScreenPlans,
                         testing::Values("frmMain", "frmAbout", "frmHHSetup", "frmEvent", "frmGame",
                                         "frmFrame", "frmEventList", "frmSearchEvents", "frmSearchGames",
                                         "frmGameList", "frmSyncPDA", "frmDBTools", "frmReports",
                                         "frmEventStats"),
                         [](const auto& screen) { return screen.param; });

TEST_P(ScreenPlans, AreAsTheyWereWanted) {
    Play play;
    play.insertEvent();
    play.insertGame();
    std::vector<Expected> boxes;
    if (GetParam() == std::string("frmGameList"))  // which has no search behind it here
        boxes = {{"Database Error", Answer::OK}, {"Tallybrook - Search Results", Answer::OK}};
    play.load(GetParam(), boxes);
    Screen* const screen = play.program().screens.find(GetParam());
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(isAsWrittenDown(planOf(*screen), std::string("app/plans/") + GetParam() + ".txt"));
}

}  // namespace

}  // namespace tallybrook::test
