#include "textview/Matches.h"

#include <string>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

const QString kText = "Strike, spare, strike; STRIKE";  // at 0, 15 and 23

Matches strikes(Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive) {
    return {kText, "strike", sensitivity};
}

/// What was found as "index@place", with a "~" where the search has wrapped.
std::string told(const std::optional<Matches::Found>& found) {
    return found ? std::to_string(found->index) + "@" + std::to_string(found->place) +
                       (found->hasWrapped ? "~" : "")
                 : "none";
}

std::vector<int> within(const Matches& matches, int first, int end) {
    const std::span<const int> places = matches.within(first, end);
    return {places.begin(), places.end()};
}

}  // namespace

TEST(Matches, AreCounted) {
    EXPECT_EQ(strikes().count(), 3);
    EXPECT_EQ(strikes(Qt::CaseSensitive).count(), 1);
    EXPECT_EQ(strikes().length(), 6);
    EXPECT_EQ(Matches(kText, "gutter", Qt::CaseInsensitive).count(), 0);
    EXPECT_EQ(Matches("", "strike", Qt::CaseInsensitive).count(), 0);
    EXPECT_EQ(Matches(kText, "", Qt::CaseInsensitive).count(), 0);
    EXPECT_EQ(Matches().count(), 0);
}

TEST(Matches, DoNotOverlap) {
    const Matches matches("aaaaa", "aa", Qt::CaseSensitive);
    EXPECT_EQ(within(matches, 0, 5), (std::vector<int>{0, 2}));
}

TEST(Matches, KnowLettersBeyondAscii) {
    const Matches matches(QString::fromUtf8("MÜLLER müller"), QString::fromUtf8("Müller"),
                          Qt::CaseInsensitive);
    EXPECT_EQ(matches.count(), 2);
}

TEST(Matches, AreFoundForward) {
    EXPECT_EQ(told(strikes().from(0)), "0@0");
    EXPECT_EQ(told(strikes().from(1)), "1@15");
    EXPECT_EQ(told(strikes().from(15)), "1@15");
    EXPECT_EQ(told(strikes().from(23)), "2@23");
    EXPECT_EQ(told(strikes().from(24)), "0@0~");
    EXPECT_EQ(told(Matches().from(0)), "none");
}

TEST(Matches, AreFoundBackward) {
    EXPECT_EQ(told(strikes().before(29)), "2@23");
    EXPECT_EQ(told(strikes().before(23)), "1@15");
    EXPECT_EQ(told(strikes().before(1)), "0@0");
    EXPECT_EQ(told(strikes().before(0)), "2@23~");
    EXPECT_EQ(told(Matches().before(5)), "none");
}

TEST(Matches, OnlyOneIsFoundAgainAndAgain) {
    const Matches one("a spare", "spare", Qt::CaseSensitive);
    EXPECT_EQ(told(one.from(7)), "0@2~");
    EXPECT_EQ(told(one.before(2)), "0@2~");
}

TEST(Matches, AreGivenForAPartOfTheText) {
    EXPECT_EQ(within(strikes(), 0, 29), (std::vector<int>{0, 15, 23}));
    EXPECT_EQ(within(strikes(), 5, 16), (std::vector<int>{0, 15}));
    EXPECT_EQ(within(strikes(), 6, 15), std::vector<int>{});
    EXPECT_EQ(within(strikes(), 20, 21), std::vector<int>{15});
    EXPECT_EQ(within(strikes(), 29, 40), std::vector<int>{});
    EXPECT_EQ(within(strikes(), 6, 6), std::vector<int>{});
    EXPECT_EQ(within(Matches(), 0, 10), std::vector<int>{});
}

}  // namespace tallybrook::test
