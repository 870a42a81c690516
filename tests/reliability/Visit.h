#pragma once

#include "app/Application.h"
#include "controls/Screen.h"
#include "handheld/AnsweringDisplay.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook::test {

/// The hand of a person who wants to get on: answers every box, and gives a procedure up that
/// tries a statement without end. Boxes that tell of a failure are looked at: they have a title, an icon and
/// the lines that belong to them.
class GoingOnDisplay : public AnsweringDisplay {
public:
    GoingOnDisplay();

    /// The answer to boxes of a title, where it is not the one that lets things happen.
    std::map<std::string, Answer> answers;
    /// The file that is chosen in every dialog.
    std::filesystem::path chosen;
    /// What a person was told of failures: boxes, the notice of a waiting program, the end of the program.
    int failuresTold = 0;

    std::optional<std::filesystem::path> fileDialog(const FileDialog&) override { return chosen; }
    void retrying(std::string_view module, int tries) override;
    void runTimeError(const RunTimeError& failure) override;

private:
    Answer answerTo(const MessageBox& box);
};

/// The program on a data folder, and a person who uses it and gets on as far as the screens let them: what is
/// not there, or off, is passed over.
class Visit {
public:
    /// Touches nothing yet.
    explicit Visit(const std::filesystem::path& data) : application_(display, clock_, data) {}

    void start() { application_.start(); }

    GoingOnDisplay display;

    [[nodiscard]] Program& program() { return application_.program(); }
    [[nodiscard]] bool hasEnded() { return program().hasEnded(); }
    /// The name of the screen in front; empty where there is none.
    [[nodiscard]] std::string front();
    /// The control of the screen in front; nullptr where it has none of that name.
    [[nodiscard]] Control* find(const std::string& name);

    void click(const std::string& name);
    void type(const std::string& name, const std::string& text);
    /// Picks the item of a list that has these words.
    void pick(const std::string& name, const std::string& words);
    /// Makes a row of the event list, from 1, the current one.
    void row(int number);
    /// Goes back to the main menu by the buttons of the screens, which save on the way.
    void returnToMain();
    /// Goes there at once, and saves nothing.
    void goToMain();
    /// Lets a backup on its way come to its end.
    void finishBackup();

    /// The time that every visit sees.
    static SettableClock clock();

private:
    const SettableClock clock_ = clock();
    Application application_;
};

}  // namespace tallybrook::test
