#include "player/Words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::string_view kBlanks = " \t";

/// What stands for itself nowhere in a quoted text, and the letter that stands for it after a backslash.
constexpr std::array<std::pair<char, char>, 5> kEscapes{
    {{'"', '"'}, {'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}}};

char unescaped(char letter) {
    const auto* const found = std::ranges::find(kEscapes, letter, &std::pair<char, char>::second);
    if (found == kEscapes.end())
        throw UnreadableWords(std::string("\\") + letter + " means nothing in a text");
    return found->first;
}

/// Takes a word off the front of the line.
Word takeBare(std::string_view& line) {
    const std::string_view word = line.substr(0, line.find_first_of(kBlanks));
    line.remove_prefix(word.size());
    return {.text = std::string(word)};
}

/// Takes a quoted text off the front of the line.
Word takeQuoted(std::string_view& line) {
    Word word{.text = {}, .quoted = true};
    for (std::size_t at = 1; at < line.size(); ++at) {
        if (line[at] == '"') {
            line.remove_prefix(at + 1);
            return word;
        }
        if (line[at] == '\\' && at + 1 < line.size())
            word.text += unescaped(line[++at]);
        else
            word.text += line[at];
    }
    throw UnreadableWords("a text has no closing quote");
}

void skipBlanks(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
}

}  // namespace

std::vector<Word> readWords(std::string_view line) {
    std::vector<Word> words;
    for (skipBlanks(line); !line.empty(); skipBlanks(line)) {
        words.push_back(line.front() == '"' ? takeQuoted(line) : takeBare(line));
        if (line.find_first_not_of(kBlanks) == 0)
            throw UnreadableWords("a text is followed by no blank");
    }
    return words;
}

std::string inQuotes(std::string_view text) {
    std::string written = "\"";
    for (const char letter : text) {
        const auto* const escape = std::ranges::find(kEscapes, letter, &std::pair<char, char>::first);
        if (escape == kEscapes.end())
            written += letter;
        else
            written.append({'\\', escape->second});
    }
    return written + '"';
}

}  // namespace tallybrook
