#include "runtime/TextCompare.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

TEST(TextCompare, KnowsNoCase) {
    EXPECT_EQ(compareText("Brook Lanes", "BROOK lanes"), 0);
    EXPECT_EQ(compareText("M\u00dcNCHEN", "m\u00fcnchen"), 0);
    EXPECT_EQ(compareText("\u0416", "\u0436"), 0);
    EXPECT_EQ(compareText("Stra\u00dfe", "STRASSE"), 0);
    EXPECT_LT(compareText("a", "B"), 0);
    EXPECT_GT(compareText("b", "A"), 0);
    EXPECT_LT(compareText("a", "ab"), 0);
    EXPECT_LT(compareText("_", "A"), 0) << "small letters are what is compared";
    EXPECT_NE(compareText("\xff", "\xfe"), 0);
}

TEST(TextCompare, IsAnOrder) {
    EXPECT_TRUE(rc::check([](const std::string& a, const std::string& b, const std::string& c) {
        RC_ASSERT(compareText(a, b) == -compareText(b, a));
        if (compareText(a, b) <= 0 && compareText(b, c) <= 0)
            RC_ASSERT(compareText(a, c) <= 0);
        RC_ASSERT((compareText(a, b) == 0) == (foldCase(a) == foldCase(b)));
    }));
}

bool plainLike(std::string_view text, std::string_view pattern) {
    if (pattern.empty())
        return text.empty();
    if (pattern[0] == '%')
        return plainLike(text, pattern.substr(1)) || (!text.empty() && plainLike(text.substr(1), pattern));
    return !text.empty() && (pattern[0] == '_' || pattern[0] == text[0]) &&
           plainLike(text.substr(1), pattern.substr(1));
}

TEST(Like, AgreesWithThePlainRule) {
    EXPECT_TRUE(rc::check([] {
        const auto text = (*rc::gen::container<std::string>(rc::gen::element('a', 'b', 'c'))).substr(0, 12);
        const auto pattern =
            (*rc::gen::container<std::string>(rc::gen::element('a', 'b', '%', '_'))).substr(0, 8);
        RC_ASSERT(likeText(text, pattern) == plainLike(text, pattern));
    }));
    EXPECT_TRUE(likeText("Z\u00dcRICH Lanes", "%\u00fcr_ch%"));
    EXPECT_TRUE(likeText("Lanes", "lanes%%"));
    EXPECT_TRUE(likeText("", "%%"));
    EXPECT_FALSE(likeText(std::string(5000, 'a'), "%a%a%a%a%a%a%a%a%b"));
}

TEST(UpperCase, WritesEveryLetterInCapitals) {
    EXPECT_EQ(upperCase("League 7, \u00fcbung \u03b4"), "LEAGUE 7, \u00dcBUNG \u0394");
    EXPECT_EQ(upperCase("\xff"
                        "a"),
              "\xff"
              "A");
    EXPECT_EQ(upperCase(""), "");
}

TEST(Characters, AreWrittenByKeysOrNot) {
    EXPECT_EQ(asWritten("a\tb\n\x01\x7f\u0085"), "ab");
    EXPECT_EQ(asWritten("a\tb\n\x01", "\t\n"), "a\tb\n");
    EXPECT_EQ(asWritten("\u0378\uffff\u2028\u2029\xff\xed\xa0\x80"), "");
    EXPECT_EQ(asWritten("\u00e4\u200d\U0001F3B3\ue000 \ufeff"), "\u00e4\u200d\U0001F3B3\ue000 \ufeff");
}

TEST(Characters, AreCountedAndCut) {
    EXPECT_EQ(characterCount("\u00e4\u00f6x"), 3U);
    EXPECT_EQ(firstCharacters("\u00e4\u00f6x", 2), "\u00e4\u00f6");
    EXPECT_EQ(firstCharacters("ab", 5), "ab");
    EXPECT_EQ(firstCharacters("", 5), "");
    EXPECT_EQ(characterCount("\xff\xff"), 2U);
}

}  // namespace

}  // namespace tallybrook
