#include "readers/Printing.h"
#include "textview/TextLines.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

/// A text of letters, blanks, tabs, ends of lines, and characters of two units and of two marks.
QString someText() {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "a", "b", " ", "\t", "\n", "-", "\xF0\x9F\x8E\xB3", "e\xCC\x81", "\xD7\x90"));
    std::string text;
    for (const std::string& piece : pieces)
        text += piece;
    return QString::fromStdString(text);
}

/// The places that a reader comes to from one of them on, until they are led nowhere else.
template <typename Step>
std::vector<int> wayFrom(int place, Step step) {
    std::vector<int> way{place};
    for (int next = step(place); next != way.back(); next = step(next))
        way.push_back(next);
    return way;
}

std::string partOf(const TextLines& lines, TextSpan span) {
    return lines.part(span).toString().toStdString();
}

}  // namespace

TEST(TextLinesTest, TextIsSharedAndNotCopied) {
    const QString text = QString("line\n").repeated(1000);
    EXPECT_EQ(TextLines(text).text().constData(), text.constData());
}

TEST(TextLinesTest, FindsTheLineOfAPlace) {
    const TextLines lines("ab\n\nc");
    EXPECT_EQ(lines.count(), 3);
    EXPECT_EQ(lines.lineOf(0), 0);
    EXPECT_EQ(lines.lineOf(2), 0);  // what ends a line belongs to it
    EXPECT_EQ(lines.lineOf(3), 1);
    EXPECT_EQ(lines.lineOf(4), 2);
    EXPECT_EQ(lines.lineOf(5), 2);
    EXPECT_EQ(lines.span(0), (TextSpan{0, 2}));
    EXPECT_EQ(lines.span(1), (TextSpan{3, 3}));
    EXPECT_EQ(lines.line(2).toString(), "c");
}

TEST(TextLinesTest, EmptyTextIsALine) {
    const TextLines lines;
    EXPECT_EQ(lines.count(), 1);
    EXPECT_EQ(lines.span(0), TextSpan());
    EXPECT_EQ(lines.columns(), 0);
    EXPECT_EQ(lines.nextWord(0), 0);
    EXPECT_EQ(lines.previousCharacter(0), 0);
    EXPECT_EQ(lines.wordAt(0), TextSpan());
}

TEST(TextLinesTest, CountsTheColumnsOfTheWidestLine) {
    EXPECT_EQ(TextLines("abc\nab").columns(), 3);
    EXPECT_EQ(TextLines("ab\tc\nabcdefgh").columns(), 9);
    EXPECT_EQ(TextLines("abcdefgh\t").columns(), 16);
}

TEST(TextLinesTest, GoesFromWordToWord) {
    const TextLines lines("Game 12.5: it's\n\n--- open\n");
    const auto next = [&](int place) { return lines.nextWord(place); };
    const auto previous = [&](int place) { return lines.previousWord(place); };
    EXPECT_EQ(wayFrom(0, next), (std::vector{0, 5, 11, 15, 16, 17, 21, 25, 26}));
    EXPECT_EQ(wayFrom(26, previous), (std::vector{26, 25, 21, 17, 16, 15, 11, 5, 0}));
}

TEST(TextLinesTest, TellsTheWordAtAPlace) {
    const TextLines lines("foot-ball 12.5\n");
    EXPECT_EQ(partOf(lines, lines.wordAt(2)), "foot");
    EXPECT_EQ(partOf(lines, lines.wordAt(4)), "-");
    EXPECT_EQ(partOf(lines, lines.wordAt(12)), "12.5");
    EXPECT_EQ(partOf(lines, lines.wordAt(14)), "12.5");  // the end of the line is the word before
    EXPECT_EQ(partOf(lines, lines.wholeLineAt(3)), "foot-ball 12.5\n");
}

TEST(TextLinesTest, DoesNotPartACharacter) {
    const TextLines lines(
        QString::fromUtf8("\xF0\x9F\x8E\xB3"
                          "e\xCC\x81"
                          "x"));
    EXPECT_EQ(lines.nextCharacter(0), 2);
    EXPECT_EQ(lines.nextCharacter(2), 4);
    EXPECT_EQ(lines.previousCharacter(4), 2);
    EXPECT_EQ(lines.previousCharacter(2), 0);
}

RC_GTEST_PROP(TextLinesTest, LinesMakeTheText, ()) {
    const QString text = someText();
    const TextLines lines(text);
    QStringList all;
    for (int line = 0; line < lines.count(); ++line)
        all += lines.line(line).toString();
    RC_ASSERT(all == text.split('\n'));
}

RC_GTEST_PROP(TextLinesTest, EveryWayLeadsToTheEndAndBack, ()) {
    const TextLines lines(someText());
    const auto ends = [&](auto next, auto previous) {
        const std::vector<int> way = wayFrom(0, next);
        RC_ASSERT(way.back() == lines.length());
        RC_ASSERT(wayFrom(lines.length(), previous).back() == 0);
        RC_ASSERT(std::ranges::is_sorted(way));
    };
    ends([&](int place) { return lines.nextCharacter(place); },
         [&](int place) { return lines.previousCharacter(place); });
    ends([&](int place) { return lines.nextWord(place); },
         [&](int place) { return lines.previousWord(place); });
}

RC_GTEST_PROP(TextLinesTest, EveryPlaceIsInItsUnits, ()) {
    const TextLines lines(someText());
    const int place = *rc::gen::inRange(0, lines.length() + 1);
    for (const TextSpan unit : {lines.characterAt(place), lines.wordAt(place), lines.wholeLineAt(place)}) {
        RC_ASSERT(unit.begin <= place);
        RC_ASSERT(place <= unit.end);
        RC_ASSERT(unit.end <= lines.length());
    }
}

}  // namespace tallybrook::test
