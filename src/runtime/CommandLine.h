#pragma once

#include <functional>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace tallybrook {

/// A command line that a program does not take; what() says why.
class WrongUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The options that a program takes.
class CommandLine {
public:
    /// An option that stands alone.
    struct Flag {
        std::string name;
        std::function<void()> set;
    };
    /// An option that a value follows; `set` throws WrongUsage for one that it does not take.
    struct Option {
        std::string name;
        std::function<void(const std::string& value)> set;
    };

    CommandLine(std::initializer_list<Option> options, std::initializer_list<Flag> flags = {})
        : options_(options), flags_(flags) {}

    /// Takes what is no option and does not begin with "-"; without it nothing like that is taken.
    std::function<void(const std::string& word)> onWord;

    /// Reads the arguments, without the program's name, in their order. Throws WrongUsage.
    void read(std::span<const std::string> arguments) const;

private:
    bool setFlag(const std::string& name) const;
    bool takeWord(const std::string& word) const;
    [[nodiscard]] const Option& optionCalled(const std::string& name) const;

    std::vector<Option> options_;
    std::vector<Flag> flags_;
};

}  // namespace tallybrook
