#include "sheets/CellText.h"

#include <gtest/gtest.h>

namespace tallybrook::sheets {

namespace {

std::string cell(std::string_view text, std::size_t most = 100) {
    return cellText(text, most).text;
}

TEST(CellText, IsTheTextItself) {
    EXPECT_EQ(cell(""), "");
    EXPECT_EQ(cell("=1+1"), "=1+1");
    EXPECT_EQ(cell("Z\u00fcrich \U0001F3B3"), "Z\u00fcrich \U0001F3B3");
    EXPECT_EQ(cell("snake_case_"), "snake_case_");
}

TEST(CellText, EndsLinesAsCellsDo) {
    EXPECT_EQ(cell("a\r\nb\rc\nd\r"), "a\nb\nc\nd\n");
}

TEST(CellText, HoldsNothingThatNoCellCanHold) {
    EXPECT_EQ(cell(std::string_view("a\0b", 3)), "a\uFFFDb");
    EXPECT_EQ(cell("\xFF\uFFFE\uFFFF"), "\uFFFD\uFFFD\uFFFD");
}

TEST(CellText, KeepsWhatLooksLikeTheNumberOfACharacter) {
    EXPECT_EQ(cell("_x0041_"), "_x005F_x0041_");
    EXPECT_EQ(cell("_x00g1_ _x004"), "_x00g1_ _x004");
    for (const char* const number : {"0000", "9999", "aaaa", "ffff", "AAAA", "FFFF", "1aF9"})
        EXPECT_EQ(cell(std::string("_x") + number + "_!"), std::string("_x005F_x") + number + "_!");
    for (const char* const none : {"_x000/_", "_x000:_", "_x000@_", "_x000G_", "_x000`_", "_x000g_",
                                   "_y0041_", "_x00411_", "_x004_1", "x0041_", "_x0041"})
        EXPECT_EQ(cell(none), none);
}

TEST(CellText, IsCutBetweenTwoCharacters) {
    EXPECT_EQ(cell("abcd", 4), "abcd");
    EXPECT_EQ(cell("abcde", 4), "abcd");
    EXPECT_EQ(cell("abc\U0001F3B3", 4), "abc");
    EXPECT_EQ(cell("_x0041_", 7), "_x005F_");
    EXPECT_FALSE(cellText("abcd", 4).isCut);
    EXPECT_TRUE(cellText("abc\U0001F3B3", 4).isCut);
}

}  // namespace

}  // namespace tallybrook::sheets
