#pragma once

#include "shell/Display.h"

#include <filesystem>

namespace tallybrook::bench {

/// A display that shows nothing and answers at once: boxes by their title, file dialogs with the same file.
/// What nobody reckons with while measuring ends the program with an exception.
class BenchDisplay : public Display {
public:
    /// What the next file dialogs choose.
    std::filesystem::path chosen;

    Answer messageBox(const MessageBox& box) override;
    std::optional<std::string> inputBox(const InputBox& box) override;
    std::optional<std::filesystem::path> fileDialog(const FileDialog&) override { return chosen; }

    void loaded(Screen&) override {}
    void shown(Screen&) override {}
    void hidden(Screen&) override {}
    void unloaded(Screen&) override {}
    void raised(Screen&) override {}
    void pointer(Pointer) override {}
    void help(HelpTopic) override {}
    void startViewer(const std::filesystem::path&) override {}
    void retrying(std::string_view module, int tries) override;
    void runTimeError(const RunTimeError& failure) override;
    void ended() override {}
};

}  // namespace tallybrook::bench
