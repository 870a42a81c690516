#include "Made.h"
#include "runtime/TextForms.h"
#include "sample/Career.h"

#include <map>
#include <numeric>

namespace tallybrook::test {

namespace {

/// A logbook for all tests that only look at it.
const Made& rowSample() {
    static const Made kMade(1500, 11);
    return kMade;
}

/// One of many years.
const Made& longSample() {
    static const Made kMade(5000);
    return kMade;
}

TEST(Rows, AreAsManyAsWereAskedFor) {
    for (const int events : {1, 2, 3, 7, 100}) {
        const Made made(events);
        EXPECT_EQ(made.number("SELECT count(*) FROM tblEventInfo"), events);
        const sample::Counts counts = sample::countCareer(events, 1);
        EXPECT_EQ(counts.events, events);
        EXPECT_EQ(made.number("SELECT count(*) FROM tblGameInfo"), counts.games);
        EXPECT_EQ(made.number("SELECT count(*) FROM tblFrameInfo"), counts.frames);
    }
}

/// What is rare too: words, names, lanes and dates of a long career, which were looked at once.
TEST(Rows, AreThoseOfALongCareer) {
    EXPECT_EQ(digest(rowSample().everything()), 14198329716807227548U);
}

TEST(Rows, ComeToThreeGamesAnEventAndTenFramesAGame) {
    EXPECT_NEAR(rowSample().number("SELECT count(*) FROM tblGameInfo"), 3 * 1500, 150);
    EXPECT_NEAR(rowSample().number("SELECT count(*) FROM tblFrameInfo"), 30 * 1500, 3000);
}

TEST(Rows, BelongToOneAnother) {
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblGameInfo WHERE fldSessionNum NOT IN "
                                 "(SELECT fldSessionNum FROM tblEventInfo)"),
              0);
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblFrameInfo AS frame WHERE NOT EXISTS "
                                 "(SELECT 1 FROM tblGameInfo AS game WHERE game.fldSessionNum = "
                                 "frame.fldSessionNum AND game.fldGameNum = frame.fldGameNum)"),
              0);
}

TEST(Rows, AreNumberedWithoutGaps) {
    for (const char* key : {"fldSessionNum FROM tblEventInfo", "fldGameKey FROM tblGameInfo",
                            "fldFrameKey FROM tblFrameInfo"}) {
        int expected = 0;
        for (const Row& row : rowSample().query(std::string("SELECT ") + key + " ORDER BY 1"))
            ASSERT_EQ(row[0], std::to_string(++expected));
    }
    EXPECT_EQ(
        rowSample().number("SELECT count(*) FROM (SELECT max(fldGameNum) AS last, count(*) AS games, "
                           "count(DISTINCT fldGameNum) AS numbers FROM tblGameInfo GROUP BY fldSessionNum) "
                           "WHERE last <> games OR last <> numbers"),
        0);
    EXPECT_EQ(
        rowSample().number("SELECT count(*) FROM (SELECT max(fldFrameNum) AS last, count(*) AS frames, "
                           "count(DISTINCT fldFrameNum) AS numbers FROM tblFrameInfo "
                           "GROUP BY fldSessionNum, fldGameNum) WHERE last <> frames OR last <> numbers"),
        0);
}

TEST(Rows, HaveNoNullAndNoQuote) {
    for (const Row& row : rowSample().everything()) {
        for (const std::string& value : row) {
            ASSERT_NE(value, "null");
            ASSERT_EQ(value.find_first_of("'\""), std::string::npos) << value;
        }
    }
}

TEST(Rows, CountWhatIsRecorded) {
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblEventInfo AS event WHERE fldGmsRecorded <> "
                                 "(SELECT count(*) FROM tblGameInfo AS game WHERE game.fldSessionNum = "
                                 "event.fldSessionNum)"),
              0);
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblGameInfo AS game WHERE fldFrmsRecorded <> "
                                 "(SELECT count(*) FROM tblFrameInfo AS frame WHERE frame.fldSessionNum = "
                                 "game.fldSessionNum AND frame.fldGameNum = game.fldGameNum)"),
              0);
}

TEST(Rows, AddUpTheSeries) {
    std::map<std::string, std::vector<int>> scores;
    for (const Row& row : rowSample().query("SELECT fldSessionNum, fldGameScore FROM tblGameInfo"))
        scores[row[0]].push_back(std::stoi(row[1]));
    for (const Row& row :
         rowSample().query("SELECT fldSessionNum, fldSeriesTot, fldSeriesAvg FROM tblEventInfo")) {
        const std::vector<int>& games = scores[row[0]];
        const int total = std::accumulate(games.begin(), games.end(), 0);
        EXPECT_EQ(row[1], std::to_string(total));
        EXPECT_NEAR(std::stod(row[2]), static_cast<double>(total) / static_cast<double>(games.size()),
                    0.005001);
    }
}

TEST(Rows, LieInThePastInTheOrderOfTheirDates) {
    std::string last = "1996-06-30";
    for (const Row& row : longSample().query("SELECT fldDateBowled FROM tblEventInfo ORDER BY 1")) {
        ASSERT_LE(last, row[0]);
        last = row[0];
    }
    EXPECT_LE(last, "2026-05-31");
    EXPECT_GE(last, "2026-05-20");
    EXPECT_EQ(rowSample().query("SELECT fldDateBowled FROM tblEventInfo ORDER BY fldSessionNum"),
              rowSample().query("SELECT fldDateBowled FROM tblEventInfo ORDER BY fldDateBowled"));
}

TEST(Rows, HoldAllKindsOfEventsAndGames) {
    using Rows = std::vector<Row>;
    EXPECT_EQ(rowSample().query("SELECT DISTINCT fldEventType FROM tblEventInfo ORDER BY 1"),
              (Rows{{"LEAGUE"}, {"PRACTICE"}, {"TOURNAMENT"}}));
    EXPECT_EQ(rowSample().query("SELECT DISTINCT fldScoreType FROM tblGameInfo ORDER BY 1"),
              (Rows{{"L"}, {"N"}, {"P"}}));
    EXPECT_GT(rowSample().number("SELECT count(*) FROM tblEventInfo WHERE fldGmsRecorded < fldNumGames"), 2);
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblEventInfo WHERE fldGmsRecorded > fldNumGames "
                                 "OR fldGmsRecorded < 1"),
              0);
    EXPECT_GT(rowSample().number("SELECT count(*) FROM tblGameInfo WHERE fldFrmsRecorded BETWEEN 2 AND 9"),
              2);
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblGameInfo WHERE fldFrmsRecorded = 1"), 0);
    EXPECT_EQ(rowSample().number("SELECT count(*) FROM tblGameInfo WHERE (fldFrmsRecorded = 0) <> "
                                 "(fldScoreType = 'N')"),
              0);
}

TEST(Rows, KnowWhoWasAtTheLanesWithAHandheld) {
    const Made& years = longSample();
    EXPECT_EQ(years.number("SELECT count(*) FROM tblEventInfo WHERE (fldHHRecordID <> 'NONE') <> "
                           "(fldDateBowled BETWEEN '2002-01-01' AND '2010-12-31')"),
              0);
    EXPECT_GT(years.number("SELECT count(*) FROM tblEventInfo WHERE fldHHRecordID <> 'NONE'"), 1000);
    for (const char* table : {"tblEventInfo", "tblGameInfo", "tblFrameInfo"}) {
        const std::string of = std::string(" FROM ") + table + " WHERE fldHHRecordID <> 'NONE'";
        EXPECT_EQ(years.number("SELECT count(*) - count(DISTINCT fldHHRecordID)" + of), 0);
        EXPECT_EQ(years.number("SELECT count(*)" + of + " AND length(fldHHRecordID) <> 10"), 0);
    }
}

TEST(Rows, KeepToTheLanesOfThePair) {
    EXPECT_EQ(
        rowSample().number("SELECT count(*) FROM tblGameInfo WHERE fldLeftLane % 2 <> 1 OR fldRightLane <> "
                           "fldLeftLane + 1 OR fldStartLane NOT IN (fldLeftLane, fldRightLane) OR "
                           "fldLanePair <> fldLeftLane || '-' || fldRightLane"),
        0);
    const std::string withGames =
        "SELECT count(*) FROM tblFrameInfo AS frame JOIN tblGameInfo AS game USING (fldSessionNum, "
        "fldGameNum) JOIN tblEventInfo AS event USING (fldSessionNum) WHERE ";
    EXPECT_EQ(rowSample().number(withGames + "fldFrameNum % 2 = 1 AND fldLaneBowled <> fldStartLane"), 0);
    EXPECT_EQ(rowSample().number(withGames + "fldFrameNum % 2 = 0 AND fldEventType = 'PRACTICE' AND "
                                             "fldLaneBowled <> fldStartLane"),
              0);
    EXPECT_EQ(rowSample().number(withGames + "fldFrameNum % 2 = 0 AND fldEventType <> 'PRACTICE' AND "
                                             "fldLaneBowled <> fldLeftLane + fldRightLane - fldStartLane"),
              0);
}

/// The average of the years from one to another.
double average(const Made& made, const std::string& from, const std::string& to) {
    return std::stod(
        made.query("SELECT avg(fldGameScore) FROM tblGameInfo JOIN tblEventInfo USING "
                   "(fldSessionNum) WHERE fldGameScore > 0 AND fldDateBowled BETWEEN '" +
                   from + "' AND '" + to + "'")[0][0]);
}

TEST(Rows, ShowABowlerWhoGetsBetterAndOlder) {
    const Made& years = longSample();
    const double young = average(years, "1996", "2000");
    const double best = average(years, "2012", "2016");
    const double old = average(years, "2024", "2027");
    EXPECT_GT(young, 130);
    EXPECT_LT(best, 200);
    EXPECT_GT(best, young + 20);
    EXPECT_LT(old, best - 8);
}

}  // namespace

}  // namespace tallybrook::test
