#include "ReportPlay.h"

namespace tallybrook::test {

namespace {

class StatisticalReport : public testing::Test {
protected:
    /// The lines from the first one that begins so up to the next empty one.
    std::string block(const std::string& firstLine) {
        const std::string report = play.statistics();
        const std::size_t begin = report.find("\r\n" + firstLine) + 2;
        return report.substr(begin, report.find("\r\n\r\n", begin) + 2 - begin);
    }

    ReportPlay play;
};

TEST_F(StatisticalReport, OfOneGameHasNoLow) {
    play.addEvent({});
    play.addGame("N", std::int64_t{212});
    EXPECT_TRUE(isSameText(block("High Game: "),
                           "High Game: 212\tDate Bowled: 11/12/2026\r\n"
                           "Low Game: 301\tDate Bowled: 12:00:00 AM\r\n"));
}

TEST_F(StatisticalReport, KeepsTheFirstOfEqualSeriesInTheOrderOfTheTable) {
    play.addEvent({.date = makeDate(2026, 11, 12), .total = std::int64_t{600}});
    play.addEvent({.date = makeDate(2026, 11, 5), .total = std::int64_t{600}});
    EXPECT_TRUE(isSameText(
        block("Series Summary"),
        withLineEnds({"Series Summary", "--------------", "High Series (3 games): 600",
                      "Date Bowled: 11/12/2026", "Low Series (3 games): 600", "Date Bowled: 11/12/2026"})));
}

TEST_F(StatisticalReport, LeavesOutTheLengthsThatNoSeriesHas) {
    play.addEvent({.games = std::int64_t{4}, .total = std::int64_t{810}});
    play.addEvent({.games = std::int64_t{0}});
    play.addGame("N", std::int64_t{105});  // counts for the games all the same
    play.addEvent({.date = makeDate(2026, 11, 14), .total = std::int64_t{500}});
    play.addEvent({.date = makeDate(2026, 11, 15), .total = std::int64_t{600}});
    EXPECT_TRUE(isSameText(
        block("Series Summary"),
        withLineEnds({"Series Summary", "--------------", "High Series (3 games): 600",
                      "Date Bowled: 11/15/2026", "Low Series (3 games): 500", "Date Bowled: 11/14/2026",
                      "High Series (4 games): 810", "Date Bowled: 11/12/2026", "Low Series (4 games): 810",
                      "Date Bowled: 11/12/2026"})));
    EXPECT_NE(block("Game Statistics").find("\r\n100 - 119: 1\r\n"), std::string::npos);
}

TEST_F(StatisticalReport, CountsAGameThatWasAddedToAnEarlierEvent) {
    play.addEvent({});
    play.addGame("N", std::int64_t{150});
    play.addEvent({});
    play.addGame("N", std::int64_t{201});
    play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                                {"fldGameNum", std::int64_t{2}},
                                {"fldScoreType", "N"},
                                {"fldGameScore", std::int64_t{165}}});
    const std::string games = block("Game Statistics");
    for (const char* const bin : {"140 - 159: 1", "160 - 179: 1", "200 - 219: 1"})
        EXPECT_NE(games.find("\r\n" + std::string(bin) + "\r\n"), std::string::npos) << bin;
    EXPECT_NE(block("Scoring Mode Summary").find("Game Score only: 3 games."), std::string::npos);
}

// A series above what its games can come to leaves the low as it began, in the place of the date too.
TEST_F(StatisticalReport, HasNoLowSeriesBeyondTheHighestThatThereCanBe) {
    play.addEvent({.games = std::int64_t{1}, .total = std::int64_t{301}});
    EXPECT_TRUE(isSameText(
        block("Series Summary"),
        withLineEnds({"Series Summary", "--------------", "High Series (1 games): 301",
                      "Date Bowled: 11/12/2026", "Low Series (1 games): 301", "Date Bowled: 301"})));
}

}  // namespace

}  // namespace tallybrook::test
