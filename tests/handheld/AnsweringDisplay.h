#pragma once

#include "controls/QuietDisplay.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tallybrook::test {

/// A display that answers every box by a rule and keeps a record of what came.
class AnsweringDisplay : public QuietDisplay {
public:
    explicit AnsweringDisplay(std::function<Answer(const MessageBox&)> answer) : answer_(std::move(answer)) {}

    std::vector<MessageBox> boxes;
    std::optional<int> uncaught;  // the number of the failure that ended the program
    bool asked = false;           // whether an input box or a dialog came up

    Answer messageBox(const MessageBox& box) override {
        boxes.push_back(box);
        return answer_(box);
    }
    std::optional<std::string> inputBox(const InputBox&) override {
        asked = true;
        return std::nullopt;
    }
    std::optional<std::filesystem::path> fileDialog(const FileDialog&) override {
        asked = true;
        return std::nullopt;
    }
    void retrying(std::string_view, int) override {}
    void runTimeError(const RunTimeError& failure) override { uncaught = failure.number(); }

private:
    std::function<Answer(const MessageBox&)> answer_;
};

}  // namespace tallybrook::test
