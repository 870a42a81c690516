#pragma once

#include "controls/QuietDisplay.h"
#include "player/Stage.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tallybrook {

/// A display that shows nothing and gives the answers that were planned.
class PlannedDisplay : public QuietDisplay {
public:
    void plan(Planned answer) { planned_ = std::move(answer); }

    Answer messageBox(const MessageBox&) override { return std::get<Answer>(planned_); }
    std::optional<std::string> inputBox(const InputBox&) override { return std::get<Reply>(planned_).text; }
    std::optional<std::filesystem::path> fileDialog(const FileDialog&) override;

    void retrying(std::string_view, int) override {}
    void runTimeError(const RunTimeError&) override {}

private:
    Planned planned_ = Answer::OK;
};

}  // namespace tallybrook
