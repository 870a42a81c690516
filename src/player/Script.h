#pragma once

#include "player/Words.h"

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// A command of a script, as it stands there.
struct ScriptLine {
    int number = 0;  // from 1
    std::string text;
    std::vector<Word> words;  // the first one names the command

    [[nodiscard]] const std::string& command() const { return words.front().text; }
    /// An argument, counted from 1.
    [[nodiscard]] const std::string& argument(std::size_t which) const { return words.at(which).text; }

    /// Stops the play at this line.
    [[noreturn]] void fail(const std::string& message) const;
};

/// A script, read line by line. Blank lines and lines starting with "#" are passed over.
class Script {
public:
    explicit Script(std::istream& in) : in_(in) {}

    /// The next command; nothing at the end. Stops the play at a line that does not fall into words.
    std::optional<ScriptLine> next();
    /// The number of the line read last that holds a command; 0 before the first one.
    [[nodiscard]] int lineNumber() const { return lastCommand_; }

private:
    std::istream& in_;
    int read_ = 0;
    int lastCommand_ = 0;
};

}  // namespace tallybrook
