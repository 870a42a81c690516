#pragma once

#include "player/CommandTable.h"
#include "player/Script.h"
#include "player/Stage.h"
#include "player/Transcript.h"
#include "runtime/Clock.h"
#include "shell/Program.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace tallybrook {

/// Carries out the commands of a script. Each stops the play where it cannot be carried out.
class Performer {
public:
    /// `start` starts the program.
    Performer(Program& program, std::function<void()> start, Stage& stage, SettableClock& clock,
              Transcript& transcript);

    /// Writes the line, does what it says, and writes where the focus has gone.
    void carryOut(const ScriptLine& line);

    // The commands, one for each entry of the table that is no answer.
    void start(const ScriptLine& line);
    void click(const ScriptLine& line);
    void type(const ScriptLine& line);
    void focus(const ScriptLine& line);
    void tab(const ScriptLine& line);
    void backtab(const ScriptLine& line);
    void press(const ScriptLine& line);
    void pick(const ScriptLine& line);
    void row(const ScriptLine& line);
    void close(const ScriptLine& line);
    void clock(const ScriptLine& line);
    void show(const ScriptLine& line);
    void screens(const ScriptLine& line);
    void rows(const ScriptLine& line);
    void put(const ScriptLine& line);
    void change(const ScriptLine& line);
    void write(const ScriptLine& line);
    void shot(const ScriptLine& line);
    void shotReport(const ScriptLine& line);
    void note(const ScriptLine& line);

    /// Tells which report was opened last.
    void noteReport(std::filesystem::path file) { report_ = std::move(file); }

private:
    [[nodiscard]] Screen& front(const ScriptLine& line) const;
    [[nodiscard]] Control& control(const ScriptLine& line, std::size_t argument = 1) const;
    void pickFolder(FolderList& list, const ScriptLine& line);
    void checkTime(const Command& command, const ScriptLine& line) const;

    /// Does something with a control, named by `word` in the script, and writes why it did not happen.
    void act(Control& target, const std::string& word, const std::function<Arrival()>& action);
    void moveOn(const ScriptLine& line, bool backwards);
    /// Writes which control has kept the focus of the screen of that name, if one has.
    void refuseKept(const std::string& name, Arrival arrival);

    Program& program_;
    std::function<void()> start_;
    Stage& stage_;
    SettableClock& clock_;
    Transcript& transcript_;
    bool started_ = false;
    std::optional<std::filesystem::path> report_;
};

}  // namespace tallybrook
