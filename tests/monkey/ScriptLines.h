#pragma once

#include <functional>
#include <optional>
#include <streambuf>
#include <string>

namespace tallybrook::test {

/// A script whose lines are thought up one by one, when the player asks for the next; for a std::istream.
class ScriptLines : public std::streambuf {
public:
    /// `next` gives the next line without its end; nothing at the end of the script.
    explicit ScriptLines(std::function<std::optional<std::string>()> next) : next_(std::move(next)) {}

private:
    int_type underflow() override {
        const std::optional<std::string> line = next_();
        if (!line)
            return traits_type::eof();
        line_ = *line + "\n";
        setg(line_.data(), line_.data(), line_.data() + line_.size());
        return traits_type::to_int_type(line_.front());
    }

    std::function<std::optional<std::string>()> next_;
    std::string line_;
};

}  // namespace tallybrook::test
