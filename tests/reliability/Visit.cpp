#include "reliability/Visit.h"

#include "controls/Person.h"
#include "runtime/EndProgram.h"
#include "shell/TBK_Globals.h"

#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

constexpr int kPatience = 20;  // tries until a person closes the screen

/// The ways back to the main menu, as the screens call them.
constexpr const char* kWaysToMain[] = {"cmdRetMain", "cmdMain"};

constexpr const char* kFailureLines[] = {
    "Error Number: ", "Error: ", "Module: ", "If this persists, please send email to "};

/// The lines of the boxes that tell of a failure; those of the import have no address.
void expectShapeOfFailure(const MessageBox& box) {
    const bool isOfImport = box.text.find("Module: Sync PDA, ") != std::string::npos;
    std::istringstream lines(box.text);
    for (const std::string beginning : kFailureLines) {
        if (isOfImport && beginning == kFailureLines[3])
            break;
        std::string line;
        std::getline(lines, line);
        EXPECT_TRUE(line.starts_with(beginning)) << box.text;
        EXPECT_GT(line.size(), beginning.size()) << box.text;
    }
    EXPECT_EQ(lines.peek(), std::char_traits<char>::eof()) << box.text;
    EXPECT_EQ(box.icon, Icon::Critical) << box.text;
    EXPECT_EQ(box.buttons, Buttons::OK) << box.text;
}

}  // namespace

GoingOnDisplay::GoingOnDisplay()
    : AnsweringDisplay([this](const MessageBox& box) { return answerTo(box); }),
      answers{{"Database Check", Answer::No}, {"Confirm - Exit", Answer::No}} {}

Answer GoingOnDisplay::answerTo(const MessageBox& box) {
    EXPECT_FALSE(box.title.empty());
    EXPECT_FALSE(box.text.empty()) << box.title;
    if (box.buttons == Buttons::RetryCancel) {
        ++failuresTold;
        return Answer::Cancel;
    }
    if (box.title == "Database Error") {
        ++failuresTold;
        expectShapeOfFailure(box);
    } else if (box.icon == Icon::Critical || (box.icon == Icon::Warning && box.title == kProductName)) {
        ++failuresTold;
    }
    const auto found = answers.find(box.title);
    return found != answers.end() ? found->second : answersOf(box.buttons).front();
}

void GoingOnDisplay::retrying(std::string_view, int tries) {
    if (tries < kPatience)
        return;
    ++failuresTold;
    throw EndHandler{};
}

void GoingOnDisplay::runTimeError(const RunTimeError& failure) {
    ++failuresTold;
    AnsweringDisplay::runTimeError(failure);
}

SettableClock Visit::clock() {
    return SettableClock{makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55} +
                         std::chrono::seconds{32}};
}

std::string Visit::front() {
    const Screen* const screen = program().screens.front();
    return screen == nullptr ? "" : screen->name();
}

Control* Visit::find(const std::string& name) {
    Screen* const screen = program().screens.front();
    return screen == nullptr ? nullptr : screen->find(name);
}

void Visit::click(const std::string& name) {
    if (Control* const control = find(name))
        program().perform([&] { person::click(*control); });
}

void Visit::type(const std::string& name, const std::string& text) {
    if (Control* const control = find(name))
        program().perform([&] { person::type(dynamic_cast<TextBox&>(*control), text); });
}

void Visit::pick(const std::string& name, const std::string& words) {
    auto* const list = dynamic_cast<ComboBox*>(find(name));
    if (list == nullptr)
        return;
    const auto found = std::ranges::find(list->items(), words);
    ASSERT_NE(found, list->items().end()) << name << " does not offer " << words;
    program().perform([&] { person::pick(*list, static_cast<int>(found - list->items().begin())); });
}

void Visit::row(int number) {
    auto* const grid = dynamic_cast<Grid*>(find("dgdEventList"));
    if (grid != nullptr && number <= grid->rowCount())
        program().perform([&] { person::selectRow(*grid, number); });
}

void Visit::returnToMain() {
    for (const char* const way : kWaysToMain) {
        if (front() != "frmMain")
            click(way);
    }
}

void Visit::goToMain() {
    program().perform([this] { tallybrook::returnToMain(program()); });
}

void Visit::finishBackup() {
    program().perform([this] { program().backups().finish(); });
}

}  // namespace tallybrook::test
