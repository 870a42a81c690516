#pragma once

#include "shell/Program.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallybrook::test {

/// What must hold whenever a person has done something, and all boxes are answered. Each gives what is wrong;
/// nothing where all is well.
class Invariants {
public:
    /// To be made when the program has been started.
    explicit Invariants(Program& program);

    std::optional<std::string> broken();

private:
    std::optional<std::string> brokenScreen() const;
    std::optional<std::string> brokenRows();

    Program& program_;
    int strays_;       // values of another type than their column's, which another program has put in
    int changes_ = 0;  // of rows since the logbook was opened, when they were last looked at
};

/// What is wrong with a line of the transcript: a box without a title, or a run-time error that the screens
/// are not known for. `where` is the screen that was in front.
std::optional<std::string> wrongInTranscript(std::string_view line, std::string_view where);

}  // namespace tallybrook::test
