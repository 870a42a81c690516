#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace tallybrook {

/// Characters of a text that follow one another, from `begin` until before `end`.
struct TextSpan {
    int begin = 0;
    int end = 0;

    [[nodiscard]] bool isEmpty() const { return begin == end; }
    [[nodiscard]] int length() const { return end - begin; }
    /// Whether a character is one of them.
    [[nodiscard]] bool holds(int place) const { return begin <= place && place < end; }
    bool operator==(const TextSpan&) const = default;
};

/// A text and where its lines begin, so that any line of a long text is found at once. What ends a line is
/// "\n"; behind the last one is a line too, which may be empty. A place is the number of the character behind
/// it, from 0 to the length of the text; lines count from 0.
class TextLines {
public:
    /// One empty line.
    TextLines() : TextLines(QString()) {}
    /// The text is shared and not copied.
    explicit TextLines(QString text);

    [[nodiscard]] const QString& text() const { return text_; }
    [[nodiscard]] int length() const { return static_cast<int>(text_.size()); }
    [[nodiscard]] int count() const { return static_cast<int>(begins_.size()); }
    /// The columns of the widest line, with tabs to every eighth column and one for any other character.
    [[nodiscard]] int columns() const { return columns_; }

    /// The line of a place. What ends a line belongs to it.
    [[nodiscard]] int lineOf(int place) const;
    /// The characters of a line without what ends it.
    [[nodiscard]] TextSpan span(int line) const;
    [[nodiscard]] QStringView line(int line) const { return part(span(line)); }
    [[nodiscard]] QStringView part(TextSpan span) const;

    // Places that a reader goes to. At either end of the text it is the place itself.
    [[nodiscard]] int nextCharacter(int place) const;
    [[nodiscard]] int previousCharacter(int place) const;
    /// Where the next word begins, or the end of the line, or behind that the next line.
    [[nodiscard]] int nextWord(int place) const;
    /// Where the word begins that a place is in or behind, or the end of the line before.
    [[nodiscard]] int previousWord(int place) const;

    /// The character, the word or the line with its end at a place.
    [[nodiscard]] TextSpan characterAt(int place) const;
    [[nodiscard]] TextSpan wordAt(int place) const;
    [[nodiscard]] TextSpan wholeLineAt(int place) const;

private:
    QString text_;
    std::vector<int> begins_;
    int columns_ = 0;
};

}  // namespace tallybrook
