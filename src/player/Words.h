#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

/// A word of a script's line: a bare one, or a text that stood in double quotes.
struct Word {
    std::string text;
    bool quoted = false;

    friend bool operator==(const Word&, const Word&) = default;
};

/// A line that does not fall into words; what() says why.
class UnreadableWords : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The words of a line. They are separated by blanks; a text in double quotes is one word, with \", \\, \n,
/// \r and \t inside. Throws UnreadableWords.
std::vector<Word> readWords(std::string_view line);

/// The text as a script and a transcript write it: in double quotes, on one line.
std::string inQuotes(std::string_view text);

}  // namespace tallybrook
