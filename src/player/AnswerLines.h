#pragma once

#include "controls/Display.h"
#include "player/Script.h"
#include "player/Transcript.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tallybrook {

/// Takes the answers to boxes, input boxes and dialogs from a script: the next line must be one that the box
/// has. It is written to the transcript; anything else stops the play.
class AnswerLines {
public:
    AnswerLines(Script& script, Transcript& transcript) : script_(script), transcript_(transcript) {}

    Answer answerTo(const MessageBox& box);
    /// The text replied; nothing where the input box is cancelled.
    std::optional<std::string> replyTo(const InputBox& box);
    /// The file chosen, a relative one below the folder that the play was started in; nothing where the
    /// dialog is cancelled.
    std::optional<std::filesystem::path> choiceFor(const FileDialog& dialog);

    /// The line that is being carried out, or that gave the last answer.
    [[nodiscard]] int lineNumber() const { return script_.lineNumber(); }

private:
    ScriptLine next(std::string_view title, std::initializer_list<std::string_view> commands);

    Script& script_;
    Transcript& transcript_;
    std::filesystem::path startFolder_ = std::filesystem::current_path();
};

}  // namespace tallybrook
