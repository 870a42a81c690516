#pragma once

#include "controls/Screen.h"
#include "runtime/Handler.h"
#include "shell/Program.h"

#include <string>

namespace tallybrook {

/// A screen of the program, with all that its handlers reach: the shared variables, the logbook, and the
/// handlers of failures.
class ProgramScreen : public Screen {
public:
    ProgramScreen(Program& program, std::string name, std::string caption);

protected:
    [[nodiscard]] Program& program() const { return program_; }
    [[nodiscard]] SessionState& session() const { return program_.session; }
    /// Error 91 before the start procedure has opened the logbook.
    [[nodiscard]] Store& store() const { return program_.store(); }

    /// A handler of this screen's procedures, with the general box of the database failures.
    [[nodiscard]] Handler handler(std::string module, Retry retry = Retry::Never);

private:
    /// Tells the program which screen waits while one of its statements is tried again.
    class Reporter : public FailureReporter {
    public:
        explicit Reporter(ProgramScreen& screen) : screen_(screen) {}
        void databaseError(const RunTimeError& failure, std::string_view module) override;
        void retrying(std::string_view module, int tries) override;

    private:
        ProgramScreen& screen_;
    };

    Program& program_;
    Reporter reporter_{*this};
};

}  // namespace tallybrook
