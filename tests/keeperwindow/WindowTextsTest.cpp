#include "keeperwindow/WindowTexts.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

TEST(MomentText, TellsTheDayAndTheTimeAsAmericansDo) {
    const DateTime night = makeDate(2026, 1, 4);
    using std::chrono::hours;
    using std::chrono::minutes;
    using std::chrono::seconds;
    EXPECT_EQ(momentText(night), "Sunday, January 4, 2026, 12:00 AM");
    EXPECT_EQ(momentText(night + hours{9} + minutes{5} + seconds{59}), "Sunday, January 4, 2026, 9:05 AM");
    EXPECT_EQ(momentText(night + hours{12}), "Sunday, January 4, 2026, 12:00 PM");
    EXPECT_EQ(momentText(night + hours{23} + minutes{59}), "Sunday, January 4, 2026, 11:59 PM");
    EXPECT_EQ(momentText(makeDate(2026, 12, 31)), "Thursday, December 31, 2026, 12:00 AM");
}

TEST(MomentText, IsThatOfAmericansWhateverTheDesktopSpeaks) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(momentText(makeDate(2026, 1, 4)), "Sunday, January 4, 2026, 12:00 AM");
    EXPECT_EQ(contentsText({.size = 1'234'567}), "1.2 MB");
    QLocale::setDefault(before);
}

TEST(ContentsText, TellsAsMuchAsIsKnown) {
    BackupEntry entry{.size = 1'234'567};
    EXPECT_EQ(contentsText(entry), "1.2 MB");
    entry.summary = Summary{.counts = {.events = 1, .games = 3, .frames = 30}};
    EXPECT_EQ(contentsText(entry), "1 event, 3 games and 30 frames \u00b7 1.2 MB");
    entry.summary->lastNight = makeDate(2026, 11, 3);
    entry.size = 999;
    EXPECT_EQ(contentsText(entry),
              "1 event, 3 games and 30 frames \u00b7 last night bowled 11/3/2026 \u00b7 999 bytes");
}

TEST(Sentence, BeginsWithACapitalAndEndsWithAFullStop) {
    EXPECT_EQ(sentence("the same as today's logbook"), "The same as today's logbook.");
    EXPECT_EQ(sentence("2 events are not in it"), "2 events are not in it.");
    EXPECT_EQ(sentence("x"), "X.");
    EXPECT_EQ(sentence(""), "");
}

TEST(ShownText, HasTheWindowsLineEnds) {
    EXPECT_EQ(shown("one\r\ntwo\nthree"), "one\ntwo\nthree");
    EXPECT_EQ(shown("M\u00fcller"), QString::fromUtf8("M\u00fcller"));
}

TEST(TextInARow, HasAtMostSoManyCharacters) {
    QString most;
    std::string text;
    for (int character = 0; character < 2001; ++character) {
        text += "\u00fc";
        if (character < 2000)
            most += QChar(0xFC);
    }
    EXPECT_EQ(inRow(text), most);
    EXPECT_EQ(inRow("Thursday"), "Thursday");
}

}  // namespace

}  // namespace tallybrook::keeper
