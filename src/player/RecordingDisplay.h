#pragma once

#include "controls/Display.h"
#include "player/AnswerLines.h"
#include "player/Stage.h"
#include "player/Transcript.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tallybrook {

/// Stands between the program and the display of a stage: all that the program shows is written to the
/// transcript and passed on; what it asks is answered from the script, through the stage.
class RecordingDisplay : public Display {
public:
    /// How often a statement is tried before it is taken to be tried without end.
    static constexpr int kMostTries = 1000;

    RecordingDisplay(Transcript& transcript, AnswerLines& answers, Stage& stage)
        : transcript_(transcript), answers_(answers), stage_(stage) {}

    Answer messageBox(const MessageBox& box) override;
    std::optional<std::string> inputBox(const InputBox& box) override;
    std::optional<std::filesystem::path> fileDialog(const FileDialog& dialog) override;

    void loaded(Screen& screen) override;
    void shown(Screen& screen) override;
    void hidden(Screen& screen) override;
    void unloaded(Screen& screen) override;
    void raised(Screen& screen) override;

    void saved() override;
    void pointer(Pointer pointer) override;
    void help(HelpTopic topic) override;
    /// Written only: a play leaves no process behind.
    void startViewer(const std::filesystem::path& file) override;
    /// Not passed on, since nothing changes while a play waits. Stops the play where there is no end to it.
    void retrying(std::string_view module, int tries) override;
    /// Written only: nobody is there to put the failure's box away.
    void runTimeError(const RunTimeError& failure) override;
    void ended() override;

    /// Called with each report that the viewer is started on.
    std::function<void(const std::filesystem::path& report)> onReport;

private:
    Transcript& transcript_;
    AnswerLines& answers_;
    Stage& stage_;
    Pointer pointer_ = Pointer::Default;
};

}  // namespace tallybrook
