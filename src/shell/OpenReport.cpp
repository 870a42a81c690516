#include "shell/OpenReport.h"

#include "shell/Program.h"

#include <filesystem>
#include <optional>

namespace tallybrook {

namespace {

/// The file chosen; nothing if the user has given up.
std::optional<std::filesystem::path> choose(Program& program, FileDialog& dialog) {
    while (true) {
        if (auto file = program.display.fileDialog(dialog)) {
            dialog.name = file->string();
            return file;
        }
        const Answer answer = program.display.messageBox({.text = "No file was selected.",
                                                          .title = "Cancelled - Open File",
                                                          .buttons = Buttons::RetryCancel});
        if (answer == Answer::Cancel)
            return std::nullopt;
    }
}

}  // namespace

void openReport(Program& program, FileDialog& dialog, const std::string& module) {
    const Handler step(program.reporter, module);
    if (const auto file = choose(program, dialog))
        step([&] { program.display.startViewer(*file); });
}

}  // namespace tallybrook
