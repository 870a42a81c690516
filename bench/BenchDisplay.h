#pragma once

#include "controls/QuietDisplay.h"

#include <filesystem>

namespace tallybrook::bench {

/// What a box is answered with: by its title. One that nobody reckons with ends the program with an
/// exception.
Answer answerTo(const MessageBox& box);

/// A display that shows nothing and answers at once: boxes by their title, file dialogs with the same file.
/// What nobody reckons with while measuring ends the program with an exception.
class BenchDisplay : public QuietDisplay {
public:
    /// What the next file dialogs choose.
    std::filesystem::path chosen;

    Answer messageBox(const MessageBox& box) override { return answerTo(box); }
    std::optional<std::string> inputBox(const InputBox& box) override;
    std::optional<std::filesystem::path> fileDialog(const FileDialog&) override { return chosen; }

    void retrying(std::string_view module, int tries) override;
    void runTimeError(const RunTimeError& failure) override;
};

}  // namespace tallybrook::bench
