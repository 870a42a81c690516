#include "player/KeyNames.h"
#include "player/Words.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

using Words = std::vector<Word>;

TEST(Words, AreSeparatedByBlanks) {
    EXPECT_EQ(readWords("show  txtEvent\ttxtCount(10) "), (Words{{"show"}, {"txtEvent"}, {"txtCount(10)"}}));
    EXPECT_EQ(readWords("   start"), (Words{{"start"}}));
    EXPECT_EQ(readWords(""), Words{});
    EXPECT_EQ(readWords(" \t "), Words{});
}

TEST(Words, ATextInQuotesIsOneWord) {
    EXPECT_EQ(readWords(R"(type txtEvent "Thursday  League")"),
              (Words{{"type"}, {"txtEvent"}, {"Thursday  League", true}}));
    EXPECT_EQ(readWords(R"(note "")"), (Words{{"note"}, {"", true}}));
}

TEST(Words, ATextHoldsEscapes) {
    EXPECT_EQ(readWords(R"("a\"b\\c\nd\re\tf")"), (Words{{"a\"b\\c\nd\re\tf", true}}));
}

TEST(Words, AQuoteInsideABareWordIsALetter) {
    EXPECT_EQ(readWords("a\"b"), (Words{{"a\"b"}}));
}

TEST(Words, ABrokenTextIsNotRead) {
    const std::vector<std::pair<std::string, std::string>> broken{
        {"note \"open", "a text has no closing quote"},
        {"note \"open\\", "a text has no closing quote"},
        {"note \"open\\\"", "a text has no closing quote"},
        {R"(note "\x")", R"(\x means nothing in a text)"},
        {R"(note "a"b)", "a text is followed by no blank"}};
    for (const auto& [line, why] : broken) {
        try {
            readWords(line);
            ADD_FAILURE() << line;
        } catch (const UnreadableWords& unreadable) {
            EXPECT_EQ(unreadable.what(), why) << line;
        }
    }
}

TEST(Words, WhatIsQuotedReadsBack) {
    const std::string text = "a\"b\\c\r\nd\te \xC3\xA9";
    EXPECT_EQ(inQuotes(text), "\"a\\\"b\\\\c\\r\\nd\\te \xC3\xA9\"");
    EXPECT_EQ(readWords(inQuotes(text)), (Words{{text, true}}));
    EXPECT_EQ(inQuotes(""), "\"\"");
}

TEST(KeyNames, AreThoseOnTheKeys) {
    const std::vector<std::pair<std::string, Qt::Key>> keys{
        {"Tab", Qt::Key_Tab},          {"Return", Qt::Key_Return}, {"Enter", Qt::Key_Enter},
        {"Escape", Qt::Key_Escape},    {"Space", Qt::Key_Space},   {"Backspace", Qt::Key_Backspace},
        {"Delete", Qt::Key_Delete},    {"Insert", Qt::Key_Insert}, {"Up", Qt::Key_Up},
        {"Down", Qt::Key_Down},        {"Left", Qt::Key_Left},     {"Right", Qt::Key_Right},
        {"Home", Qt::Key_Home},        {"End", Qt::Key_End},       {"PageUp", Qt::Key_PageUp},
        {"PageDown", Qt::Key_PageDown}};
    for (const auto& [name, key] : keys)
        EXPECT_EQ(keyNamed(name), key) << name;
    for (int number = 1; number <= 12; ++number)
        EXPECT_EQ(keyNamed("F" + std::to_string(number)), static_cast<Qt::Key>(Qt::Key_F1 + number - 1));
    EXPECT_EQ(keyNamed("F13"), std::nullopt);
    EXPECT_TRUE(isKey("Shift+Tab") && isKey("Alt+N") && isKey("x"));
    EXPECT_FALSE(isKey("xy") || isKey("") || isKey("Alt+Nothing"));
}

}  // namespace

}  // namespace tallybrook::test
