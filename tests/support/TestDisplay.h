#pragma once

#include "controls/Display.h"
#include "runtime/EndProgram.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// A box that a test expects, and the answer to it.
struct Expected {
    std::string title;
    Answer answer = Answer::OK;
    std::string text = {};                 // the whole text where it matters
    std::function<void()> meanwhile = {};  // what happens while it is up
};

/// A file dialog that a test expects, and the file chosen in it; nothing cancels it.
struct ExpectedDialog {
    std::string title;
    std::optional<std::filesystem::path> file;
};

/// A display that shows nothing: boxes are answered as the test has said in advance. A box that nobody
/// expected fails the test, and so does an expected one that does not come.
class TestDisplay : public Display {
public:
    ~TestDisplay() override { expectNothingLeft(); }

    void expect(Expected box) { expected_.push_back(std::move(box)); }
    /// Lets the viewer fail to start.
    void refuseViewer() { refusesViewer_ = true; }
    /// Lets a file dialog that comes up choose this file; dialogs and boxes are counted apart.
    void expectDialog(ExpectedDialog dialog) { expectedDialogs_.push_back(std::move(dialog)); }
    void expectNothingLeft() {
        for (const ExpectedDialog& dialog : expectedDialogs_)
            ADD_FAILURE() << "the dialog \"" << dialog.title << "\" did not come";
        expectedDialogs_.clear();
        for (const Expected& box : expected_)
            ADD_FAILURE() << "the box \"" << box.title << "\" did not come";
        expected_.clear();
    }

    /// The boxes that came, in their order.
    [[nodiscard]] const std::vector<MessageBox>& boxes() const { return boxes_; }
    /// The file dialogs that came, in their order.
    [[nodiscard]] const std::vector<FileDialog>& dialogs() const { return dialogs_; }
    /// "load frmX", "show frmX", "help 232", "end program" and the like, in their order.
    [[nodiscard]] const std::vector<std::string>& events() const { return events_; }
    void forgetEvents() { events_.clear(); }
    void forgetBoxes() { boxes_.clear(); }
    [[nodiscard]] int retries() const { return retries_; }
    /// How often it was told that something was saved.
    [[nodiscard]] int saves() const { return saves_; }
    /// Lets a retry without end give up after so many tries.
    static constexpr int kMostRetries = 20;
    std::string retrying_;

    Answer messageBox(const MessageBox& box) override {
        boxes_.push_back(box);
        if (expected_.empty()) {
            ADD_FAILURE() << "unexpected box \"" << box.title << "\": " << box.text;
            return box.defaultAnswer();
        }
        const Expected expected = expected_.front();
        expected_.pop_front();
        EXPECT_EQ(box.title, expected.title) << box.text;
        if (!expected.text.empty()) {
            EXPECT_EQ(box.text, expected.text);
        }
        const auto& offered = answersOf(box.buttons);
        EXPECT_NE(std::find(offered.begin(), offered.end(), expected.answer), offered.end())
            << "the box \"" << box.title << "\" has no such button";
        if (expected.meanwhile)
            expected.meanwhile();
        return expected.answer;
    }
    std::optional<std::string> inputBox(const InputBox& box) override {
        ADD_FAILURE() << "unexpected input box: " << box.text;
        return std::nullopt;
    }
    std::optional<std::filesystem::path> fileDialog(const FileDialog& dialog) override {
        dialogs_.push_back(dialog);
        if (expectedDialogs_.empty()) {
            ADD_FAILURE() << "unexpected file dialog: " << dialog.title;
            return std::nullopt;
        }
        const ExpectedDialog expected = expectedDialogs_.front();
        expectedDialogs_.pop_front();
        EXPECT_EQ(dialog.title, expected.title);
        return expected.file;
    }

    void loaded(Screen& screen) override;
    void shown(Screen& screen) override;
    void hidden(Screen& screen) override;
    void unloaded(Screen& screen) override;
    void raised(Screen& screen) override;
    void saved() override { ++saves_; }
    void pointer(Pointer pointer) override {
        events_.emplace_back(pointer == Pointer::Busy ? "busy" : "default");
    }
    void help(HelpTopic topic) override {
        events_.push_back("help " + std::to_string(static_cast<int>(topic)));
    }
    void startViewer(const std::filesystem::path& file) override {
        if (refusesViewer_)
            throw RunTimeError(error::kFileNotFound);
        events_.push_back("viewer " + file.string());
    }
    void retrying(std::string_view module, int tries) override {
        retrying_ = module;
        retries_ = tries;
        if (tries >= kMostRetries)
            throw EndHandler{};
    }
    void runTimeError(const RunTimeError& failure) override {
        events_.push_back("run-time error " + std::to_string(failure.number()));
    }
    void ended() override { events_.emplace_back("end program"); }

private:
    std::deque<Expected> expected_;
    std::deque<ExpectedDialog> expectedDialogs_;
    std::vector<FileDialog> dialogs_;
    std::vector<MessageBox> boxes_;
    std::vector<std::string> events_;
    int retries_ = 0;
    int saves_ = 0;
    bool refusesViewer_ = false;
};

}  // namespace tallybrook::test
