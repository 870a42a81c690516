#include "shell/TBK_Globals.h"

#include "controls/Screen.h"
#include "runtime/EndProgram.h"
#include "shell/Program.h"

#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kSupportAddress = "support@tallybrook.example";

}  // namespace

std::string lines(std::initializer_list<std::string_view> parts) {
    return fmt::format("{}", fmt::join(parts, kLineBreak));
}

std::string failureText(const RunTimeError& failure, std::string_view module) {
    return lines({fmt::format("Error Number: {}", failure.number()),
                  fmt::format("Error: {}", failure.description()), fmt::format("Module: {}", module)});
}

MessageBox databaseErrorBox(const RunTimeError& failure, std::string_view module) {
    return {
        .text = lines({failureText(failure, module),
                       fmt::format("If this persists, please send email to {} with this error information.",
                                   kSupportAddress)}),
        .title = "Database Error",
        .icon = Icon::Critical};
}

MessageBox question(std::string text, std::string title, Icon icon) {
    return {.text = std::move(text), .title = std::move(title), .buttons = Buttons::YesNo, .icon = icon};
}

void Exit_Confirm(Program& program) {
    MessageBox box = question("Exit Tallybrook?", "Confirm - Exit");
    box.preset = Answer::No;
    if (program.display.messageBox(box) == Answer::Yes)
        throw EndProgram{};
}

Answer Reset_Confirm(Program& program) {
    return program.display.messageBox(question(
        lines({"Resetting the form will erase the data in the form", "Continue?"}), "Confirm - Form Reset"));
}

void showAbout(Program& program) {
    program.screens.load("frmAbout");
    program.screens.show(*program.screens.find("frmAbout"));
}

Answer Main_Confirm(Program& program) {
    return program.display.messageBox(question("Return to main menu?", "Return to Main"));
}

void returnToMain(Program& program) {
    program.screens.startAfresh("frmMain");
}

}  // namespace tallybrook
