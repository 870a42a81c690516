#include "player/Words.h"

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
    EXPECT_THROW(readWords("note \"open"), UnreadableWords);
    EXPECT_THROW(readWords("note \"open\\"), UnreadableWords);
    EXPECT_THROW(readWords("note \"open\\\""), UnreadableWords);
    EXPECT_THROW(readWords(R"(note "\x")"), UnreadableWords);
    EXPECT_THROW(readWords(R"(note "a"b)"), UnreadableWords);
}

TEST(Words, WhatIsQuotedReadsBack) {
    const std::string text = "a\"b\\c\r\nd\te \xC3\xA9";
    EXPECT_EQ(inQuotes(text), "\"a\\\"b\\\\c\\r\\nd\\te \xC3\xA9\"");
    EXPECT_EQ(readWords(inQuotes(text)), (Words{{text, true}}));
    EXPECT_EQ(inQuotes(""), "\"\"");
}

}  // namespace

}  // namespace tallybrook::test
