#include "ReportPlay.h"
#include "store/file/Connection.h"

#include <tuple>

#include <sqlite3.h>

namespace tallybrook::test {

namespace {

class EventReport : public testing::Test {
protected:
    static bool contains(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }
    /// The lines after the scoring modes, up to the block on strikes and spares.
    static std::string body(const std::string& report) {
        const std::size_t begin = report.find("\r\nEvent Summary: ");
        return report.substr(begin, report.find("\r\nStrike / Spare Summary") - begin);
    }
    static std::string matrix(const std::string& report) {
        return report.substr(report.find("-----\t\t\t--------"));
    }

    /// The steps that the engine takes for a report on the first event.
    int steps() {
        int count = 0;
        const auto take = [](void* steps) { return ++*static_cast<int*>(steps), 0; };
        sqlite3* const engine = play.program().store().connection().database().getHandle();
        sqlite3_progress_handler(engine, 1, take, &count);
        play.eventReport("Full");
        sqlite3_progress_handler(engine, 0, nullptr, nullptr);
        return count;
    }

    ReportPlay play;
};

TEST_F(EventReport, CostsNoMoreInALargerLogbook) {
    play.addEvent({});
    play.addGame("P");
    play.addFrame("X", "X");
    for (int event = 0; event < 5; ++event)
        play.addEvent({});
    const int inSmall = steps();
    EXPECT_GT(inSmall, 0);
    for (int event = 0; event < 100; ++event)
        play.addEvent({});
    EXPECT_LE(steps(), inSmall);
}

TEST_F(EventReport, OfAnEventWithoutGamesHasNoGameSummary) {
    play.addEvent({.average = 200.0});
    const std::string report = play.eventReport("Full");
    EXPECT_TRUE(isSameText(body(report),
                           "\r\nEvent Summary: \r\nGames Bowled: 3   Pinfall: 0   Event Average: 200.00\r\n"
                           "Event Comments: \r\n"));
    EXPECT_TRUE(isSameText(
        report.substr(report.find("\r\nStrike / Spare Summary")),
        withLineEnds({"",
                      "Strike / Spare Summary Statistics",
                      "---------------------------------",
                      "(Based on 0 games recorded in 'Pinfall' mode, 0 games recorded in 'Line Score' mode)",
                      "",
                      "Strikes: 0\tStrike Percentage: 0%\tAvg / Game: 0",
                      "",
                      "Spares: 0\tSpare Percentage: 0%\t\tAvg / Game: 0",
                      "",
                      "Open Frames: 0\tAvg / Game: 0",
                      "",
                      "Single Pin Spares",
                      "-----------------",
                      "Attempts: 0\t\tConversions: 0\tPercentage: 0%\tAvg / game: 0",
                      "",
                      "First Ball Average: 0",
                      "",
                      "Spare Statistics (based on 0 games in 'Pinfall' mode):",
                      std::string(75, '-'),
                      "",
                      "     \t\t\t        \t           \tConversion",
                      "Spare\t\t\tAttempts\tConversions\tPercentage\tAvg / Game",
                      "-----\t\t\t--------\t-----------\t----------\t----------"})));
}

TEST_F(EventReport, StopsTheMarksOfABrokenOffGame) {
    play.addEvent({});
    play.addGame("L");
    for (int frame = 1; frame <= 7; ++frame)
        play.addFrame("9/");
    const std::string report = play.eventReport("Summary");
    EXPECT_TRUE(contains(report, "\t8\t9\t10\r\n9/\t9/\t9/\t9/\t9/\t9/\t9/\r\n\r\n"));
    EXPECT_FALSE(contains(report, "Frame Summary"));
}

TEST_F(EventReport, BeginsTheMarksOfALateFirstFrameWithATab) {
    play.addEvent({});
    play.addGame("P");
    play.nextFrameIs(3);
    play.addFrame("X", "X");
    play.addFrame("81", "10", "10");
    EXPECT_TRUE(contains(play.eventReport("Summary"), "\t9\t10\r\n\tX\t81\r\n\r\n"));
}

TEST_F(EventReport, PrintsNoFramesForAGameThatHasNone) {
    play.addEvent({});
    play.addGame("P", std::int64_t{150});
    EXPECT_TRUE(isSameText(
        body(play.eventReport("Full")),
        "\r\nEvent Summary: \r\nGames Bowled: 3   Pinfall: 0   Event Average: 0.00\r\nEvent Comments: \r\n"
        "\r\nGame Summary:\r\n\r\nGame 1   Game Score: 150   Lane Pair:    Starting Lane: 0\r\n"
        "Lane Condition: \r\nComment: \r\n"));
}

TEST_F(EventReport, NotesAGameOfAnyOtherScoreType) {
    play.addEvent({});
    play.addGame("N");
    play.addGame("");
    play.addGame(Null{});
    play.addGame("p");
    const std::string report = play.eventReport("Full");
    EXPECT_TRUE(
        contains(report, "Pinfall Mode: 0 games,   Line Score: 0 games,   Game Score only: 4 games."));
    std::size_t notes = 0;
    for (std::size_t at = report.find("Game score only was"); at != std::string::npos;
         at = report.find("Game score only was", at + 1))
        ++notes;
    EXPECT_EQ(notes, 4U);
    EXPECT_TRUE(contains(report, "\r\nStrikes: 0\tStrike Percentage: 0%\tAvg / Game: 0\r\n"));
    EXPECT_TRUE(contains(report, "\r\nOpen Frames: 0\tAvg / Game: 0\r\n"));
}

TEST_F(EventReport, CountsTheFramesOfAScoreOnlyGameAllTheSame) {
    play.addEvent({});
    play.addGame("N");
    play.addFrame("X", "X");
    const std::string report = play.eventReport("Full");
    EXPECT_TRUE(contains(report, "\r\nStrikes: 1\tStrike Percentage: 100%\tAvg / Game: 0\r\n"));
    EXPECT_TRUE(contains(report, "\r\nFirst Ball Average: 0\r\n"));
    EXPECT_TRUE(contains(report, "No frames recorded for this game."));
}

TEST_F(EventReport, GroupsTheThousandsOfTheAverage) {
    play.addEvent({.average = 1234.565});
    EXPECT_TRUE(contains(play.eventReport("Summary"), "Event Average: 1,234.57\r\n"));
}

TEST_F(EventReport, HasARowForAnEmptyLeave) {
    play.addEvent({});
    play.addGame("P");
    play.addFrame("9/", "", "/");
    EXPECT_TRUE(contains(matrix(play.eventReport("Summary")), "\r\n" + std::string(24, ' ') + " 1 " +
                                                                  std::string(15, ' ') + " 1 " +
                                                                  std::string(14, ' ') + "100.00%\t1.0\r\n"));
}

TEST_F(EventReport, PadsTheRowOfALeave) {
    play.addEvent({});
    for (int game = 1; game <= 15; ++game) {
        play.addGame("P");
        if (game <= 12)
            play.addFrame(game <= 9 ? "9/" : "9-", "7", game <= 9 ? "/" : "7");
    }
    EXPECT_TRUE(isSameText(matrix(play.eventReport("Summary")),
                           "-----\t\t\t--------\t-----------\t----------\t----------\r\n7" +
                               std::string(23, ' ') + " 12 " + std::string(14, ' ') + " 9 " +
                               std::string(14, ' ') + "75.00%\t0.8\r\n"));
}

TEST_F(EventReport, HasOneRowForALeaveThatIsMetAgain) {
    play.addEvent({});
    play.addGame("P");
    play.nextFrameIs(3);
    play.addFrame("9/", "10", "/");
    const std::string once = "\r\n10" + std::string(22, ' ') + " 1 " + std::string(15, ' ') + " 1 " +
                             std::string(14, ' ') + "100.00%\t1.0\r\n";
    EXPECT_TRUE(matrix(play.eventReport("Summary")).ends_with(once));
    play.nextFrameIs(5);
    play.addFrame("9-", "10", "10");
    const std::string twice = "----------\r\n10" + std::string(22, ' ') + " 2 " + std::string(15, ' ') +
                              " 1 " + std::string(14, ' ') + "50.00%\t2.0\r\n";
    EXPECT_TRUE(matrix(play.eventReport("Summary")).ends_with(twice));
}

TEST_F(EventReport, ShowsTheFillBallFromTheTenthFrameOn) {
    play.addEvent({});
    play.addGame("P");
    play.nextFrameIs(9);
    for (int frame = 9; frame <= 11; ++frame)
        play.addFrame("XXX", "X", "X", "X");
    const std::string report = play.eventReport("Full");
    const std::string balls = "\r\nFirst Ball: X   Second Ball: X";
    std::vector<bool> hasFill;
    for (std::size_t at = report.find(balls); at != std::string::npos; at = report.find(balls, at + 1))
        hasFill.push_back(report.substr(at + balls.size()).starts_with("   Fill Ball: X\r\n"));
    EXPECT_EQ(hasFill, (std::vector<bool>{false, true, true}));
}

TEST_F(EventReport, WritesNullsAsNothing) {
    play.insert("tblEventInfo", {{"fldDateBowled", Null{}},
                                 {"fldNumGames", Null{}},
                                 {"fldSeriesTot", Null{}},
                                 {"fldComment", Null{}}});
    play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                                {"fldGameNum", std::int64_t{1}},
                                {"fldScoreType", "P"},
                                {"fldGameScore", Null{}},
                                {"fldLanePair", Null{}},
                                {"fldStartLane", Null{}},
                                {"fldLaneCond", Null{}},
                                {"fldComment", Null{}}});
    play.insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                 {"fldGameNum", std::int64_t{1}},
                                 {"fldFrameNum", std::int64_t{10}},
                                 {"fldLineScore", Null{}},
                                 {"fldLaneBowled", Null{}},
                                 {"fldBallUsed", Null{}},
                                 {"fldFootPos", Null{}},
                                 {"fldLaneTgt", Null{}},
                                 {"fldFirstBallRes", Null{}},
                                 {"fldSecondBallRes", Null{}},
                                 {"fldFillBallRes", Null{}},
                                 {"fldComment", Null{}}});
    const std::string report = play.eventReport("Full");
    EXPECT_TRUE(contains(report, "\r\nEvent Date: \r\n"));
    EXPECT_TRUE(
        isSameText(body(report), withLineEnds({"",
                                               "Event Summary: ",
                                               "Games Bowled:    Pinfall:    Event Average: 0.00",
                                               "Event Comments: ",
                                               "",
                                               "Game Summary:",
                                               "",
                                               "Game 1   Game Score:    Lane Pair:    Starting Lane: ",
                                               "Lane Condition: ",
                                               "Comment: ",
                                               "",
                                               "Line Score:",
                                               "-----------",
                                               "1\t2\t3\t4\t5\t6\t7\t8\t9\t10",
                                               "\t",
                                               "",
                                               "Frame Summary",
                                               "-------------",
                                               "Frame 10   Lane Bowled: ",
                                               "Ball Used: ",
                                               "Foot Position:    Lane Target: ",
                                               "First Ball:    Second Ball:    Fill Ball: ",
                                               "Comment: ",
                                               "--------------------"})));
}

TEST_F(EventReport, DoesNotPadALeaveThatIsTooLong) {
    const std::string leave = "1-2-3-4-5-6-7-8-9-10-11-12";
    play.addEvent({});
    play.addGame("P");
    play.addFrame("-/", leave, "/");
    EXPECT_TRUE(contains(matrix(play.eventReport("Summary")), "\r\n" + leave + " 1 "));
}

TEST_F(EventReport, PadsALeaveByItsCharacters) {
    play.addEvent({});
    play.addGame("P");
    play.addFrame("8/", "7\u201310", "/");
    EXPECT_TRUE(contains(matrix(play.eventReport("Summary")),
                         "\r\n7\u201310" + std::string(20, ' ') + " 1 " + std::string(15, ' ') + " 1 "));
}

TEST_F(EventReport, GoesByTheNumbersOfGamesAndFrames) {
    play.addEvent({});
    play.addGame("L", std::int64_t{202}, {{"fldGameNum", std::int64_t{2}}});
    play.addGame("L", std::int64_t{101}, {{"fldGameNum", std::int64_t{1}}});
    for (const int frame : {3, 1, 2}) {
        play.insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                     {"fldGameNum", std::int64_t{1}},
                                     {"fldFrameNum", std::int64_t{frame}},
                                     {"fldLineScore", std::to_string(frame) + "-"}});
    }
    const std::string report = play.eventReport("Full");
    EXPECT_LT(report.find("Game 1   Game Score: 101"), report.find("Game 2   Game Score: 202"));
    EXPECT_TRUE(contains(report, "\t9\t10\r\n1-\t2-\t3-\r\n\r\n"));
}

TEST_F(EventReport, LeavesAnOpenTenthFrameOutOfTheMatrix) {
    play.addEvent({});
    play.addGame("P");
    play.nextFrameIs(4);
    play.addFrame("9-", "10", "10");
    play.nextFrameIs(10);
    play.addFrame("9-", "10", "10");
    play.addFrame("9/X", "7", "/", "X");  // an eleventh frame counts as a tenth
    const std::string report = play.eventReport("Summary");
    EXPECT_TRUE(
        contains(matrix(report), "\r\n10" + std::string(22, ' ') + " 1 " + std::string(15, ' ') + " 0 "));
    EXPECT_TRUE(
        contains(matrix(report), "\r\n7" + std::string(23, ' ') + " 1 " + std::string(15, ' ') + " 1 "));
    // First balls: 1 + 0 + 2 with 9 + 0 + 19 pins; a first ball of 9 in the tenth is no single pin.
    EXPECT_TRUE(contains(report, "\r\nFirst Ball Average: 9\r\n"));
    EXPECT_TRUE(contains(report, "Attempts: 1\t\tConversions: 0\tPercentage: 0%\tAvg / game: 1\r\n"));
    EXPECT_TRUE(contains(report, "\r\nOpen Frames: 2\tAvg / Game: 2\r\n"));
}

TEST_F(EventReport, CountsTheStrikesOfAnEleventhFrameLikeThoseOfATenth) {
    play.addEvent({});
    play.addGame("P");
    play.nextFrameIs(11);
    play.addFrame("XXX", "X", "X", "X");
    EXPECT_TRUE(
        contains(play.eventReport("Summary"), "\r\nStrikes: 3\tStrike Percentage: 100%\tAvg / Game: 3\r\n"));
}

TEST_F(EventReport, RoundsTheFirstBallAverageToTheEvenNeighbour) {
    const auto average = [](std::initializer_list<const char*> firstMarks) {
        ReportPlay night;
        night.addEvent({});
        night.addGame("L");
        for (const char* mark : firstMarks)
            night.addFrame(mark);
        const std::string report = night.eventReport("Summary");
        return report.substr(report.find("First Ball Average: ") + 20, 2);
    };
    EXPECT_EQ(average({"9-", "8-"}), "8\r");
    ReportPlay night;
    night.addEvent({});
    night.addGame("P");
    night.addFrame("9/", "10", "/");
    night.addFrame("X", "X");
    EXPECT_TRUE(contains(night.eventReport("Summary"), "First Ball Average: 10\r\n"));  // 9.5
}

TEST_F(EventReport, CountsThePinsOfFillBallsOnNewRacks) {
    play.addEvent({});
    for (const auto& [marks, first, second] : {std::tuple{"XX7", "X", "X"}, std::tuple{"9/7", "10", "/"}}) {
        play.addGame("P");
        play.nextFrameIs(10);
        play.addFrame(marks, first, second, "1-2-4");
    }
    // 27 pins on three first balls, and 16 on two.
    EXPECT_TRUE(contains(play.eventReport("Summary"), "\r\nFirst Ball Average: 9\r\n"));
}

TEST_F(EventReport, OfOnlyLineScoreGamesHasAnEmptyMatrix) {
    play.addEvent({});
    play.addGame("L");
    play.addFrame("9/");
    play.addFrame("9-");
    const std::string report = play.eventReport("Summary");
    EXPECT_TRUE(contains(report, "Spare Statistics (based on 0 games in 'Pinfall' mode):"));
    EXPECT_TRUE(contains(report, "Attempts: 2\t\tConversions: 1\tPercentage: 50%\tAvg / game: 2"));
    EXPECT_TRUE(isSameText(matrix(report), "-----\t\t\t--------\t-----------\t----------\t----------\r\n"));
}

TEST_F(EventReport, OfTwelveStrikes) {
    play.addEvent({});
    play.addGame("P", std::int64_t{300});
    for (int frame = 1; frame <= 9; ++frame)
        play.addFrame("X", "X");
    play.addFrame("XXX", "X", "X", "X");
    const std::string report = play.eventReport("Summary");
    EXPECT_TRUE(contains(report, "\r\nStrikes: 12\tStrike Percentage: 100%\tAvg / Game: 12\r\n"));
    EXPECT_TRUE(contains(report, "\r\nSpares: 0\tSpare Percentage: 0%\t\tAvg / Game: 12\r\n"));
    EXPECT_TRUE(contains(report, "\r\nFirst Ball Average: 10\r\n"));
}

TEST_F(EventReport, WritesWhatPeopleTypeAsItStands) {
    play.addEvent({.comment = "50% \"off\" {} 'K\u00f6ln' $(x)"});
    EXPECT_TRUE(contains(play.eventReport("Summary"), "Event Comments: 50% \"off\" {} 'K\u00f6ln' $(x)\r\n"));
}

TEST_F(EventReport, ReplacesTheFileThatIsThere) {
    play.addEvent({});
    const std::string full = play.eventReport("Full");
    EXPECT_EQ(play.eventReport("Full"), full);
}

}  // namespace

}  // namespace tallybrook::test
