#include "ReportPlay.h"

namespace tallybrook::test {

namespace {

// A league night of three games, worked out on paper.
//
// Game 1, pinfall: the marks, the pins left by each ball, and what they count.
//
//   frame  marks  first     second  FB  strike  chance  spare  open   pins  leave counted
//     1    X      X                  1    1                            10
//     2    9/     10        /        1            1       1             9   10       met 1, spared 1
//     3    81     2-8       8        1            1              1      8   2-8      met 1
//     4    X      X                  1    1                            10
//     5    7/     3-6-10    /        1            1       1             7   3-6-10   met 1, spared 1
//     6    9-     10        10       1            1              1      9   10       met 2, spared 1
//     7    X      X                  1    1                            10
//     8    X      X                  1    1                            10
//     9    62     1-2-4-7   1-2      1            1              1      6   1-2-4-7  met 1
//    10    X9/    X         7  /     2    1       1       1           10+9  7        met 1, spared 1
//                                   11    5       6       3      3     98
//
// Game 2, line score 9/ X 72 8/ 9- X 53 9/ X XXX: without pin strings each of the frames 1 to 9 is an open
// frame, and the tenth three strikes; the marks give 9+0+7+8+9+0+5+9+0 pins on 9 first balls, and 30 on 3.
//                                   12    3       9              9     77
//
// Game 3 is known by its score alone.
//
//   First balls 23, strikes 8 = 34.8 %, 8 / 2 games = 4. Chances 15, spares 3 = 20 %. Open 12, 12 / 2 games
//   = 6. Single pins: frames 2 and 6 of game 1, frames 1, 5 and 8 of game 2: 5, of which 1 + 2 = 3 spared, 60
//   %; 5 / 2 games = 2.5, which is 2. First ball average 175 / 23 = 7.6, which is 8.
class Night : public testing::Test {
protected:
    Night() {
        play.addEvent({.total = std::int64_t{524}, .average = 174.67, .comment = "Slow lanes"});
        play.addGame("P", std::int64_t{163},
                     {{"fldLanePair", "13-14"},
                      {"fldStartLane", std::int64_t{13}},
                      {"fldLaneCond", "dry"},
                      {"fldComment", "left it late"}});
        play.addFrame("X", "X", "", "",
                      {{"fldLaneBowled", std::int64_t{13}},
                       {"fldBallUsed", "Blue 15"},
                       {"fldFootPos", "20"},
                       {"fldLaneTgt", "2nd arrow"},
                       {"fldComment", "flush"}});
        play.addFrame("9/", "10", "/");
        play.addFrame("81", "2-8", "8");
        play.addFrame("X", "X");
        play.addFrame("7/", "3-6-10", "/");
        play.addFrame("9-", "10", "10");
        play.addFrame("X", "X");
        play.addFrame("X", "X");
        play.addFrame("62", "1-2-4-7", "1-2", "a third ball that no ninth frame has");
        play.addFrame("X9/", "X", "7", "/", {{"fldLaneBowled", std::int64_t{14}}});
        play.addGame("L", std::int64_t{190}, {{"fldLanePair", "13-14"}, {"fldStartLane", std::int64_t{14}}});
        for (const char* marks : {"9/", "X", "72", "8/", "9-", "X", "53", "9/", "X", "XXX"})
            play.addFrame(marks);
        play.addGame("N", std::int64_t{171});
    }

    static std::vector<std::string> header(const std::string& kind) {
        return {"                       Tallybrook 2.0",
                "                       Event Report - " + kind,
                "",
                "Report Date: 11/14/2026, 9:55:00 PM",
                "Event: Thursday League",
                "Event Date: 11/12/2026",
                "",
                "Scoring Mode Summary: ",
                "Pinfall Mode: 1 games,   Line Score: 1 games,   Game Score only: 1 games.",
                "",
                "Event Summary: ",
                "Games Bowled: 3   Pinfall: 524   Event Average: 174.67",
                "Event Comments: Slow lanes",
                "",
                "Game Summary:",
                "",
                "Game 1   Game Score: 163   Lane Pair: 13-14   Starting Lane: 13",
                "Lane Condition: dry",
                "Comment: left it late",
                "",
                "Line Score:",
                "-----------",
                "1\t2\t3\t4\t5\t6\t7\t8\t9\t10",
                "X\t9/\t81\tX\t7/\t9-\tX\tX\t62\tX9/",
                ""};
    }
    static std::vector<std::string> secondGame() {
        return {"",
                "Game 2   Game Score: 190   Lane Pair: 13-14   Starting Lane: 14",
                "Lane Condition: ",
                "Comment: ",
                "",
                "Line Score:",
                "-----------",
                "1\t2\t3\t4\t5\t6\t7\t8\t9\t10",
                "9/\tX\t72\t8/\t9-\tX\t53\t9/\tX\tXXX",
                ""};
    }
    static std::vector<std::string> ending() {
        return {"",
                "Game 3   Game Score: 171   Lane Pair:    Starting Lane: 0",
                "Lane Condition: ",
                "Comment: ",
                "Game score only was recorded. No frames recorded for this game.",
                "",
                "Strike / Spare Summary Statistics",
                "---------------------------------",
                "(Based on 1 games recorded in 'Pinfall' mode, 1 games recorded in 'Line Score' mode)",
                "",
                "Strikes: 8\tStrike Percentage: 34.8%\tAvg / Game: 4",
                "",
                "Spares: 3\tSpare Percentage: 20%\t\tAvg / Game: 4",
                "",
                "Open Frames: 12\tAvg / Game: 6",
                "",
                "Single Pin Spares",
                "-----------------",
                "Attempts: 5\t\tConversions: 3\tPercentage: 60%\tAvg / game: 2",
                "",
                "First Ball Average: 8",
                "",
                "Spare Statistics (based on 1 games in 'Pinfall' mode):",
                "---------------------------------------------------------------------------",
                "",
                "     \t\t\t        \t           \tConversion",
                "Spare\t\t\tAttempts\tConversions\tPercentage\tAvg / Game",
                "-----\t\t\t--------\t-----------\t----------\t----------",
                "10                       2                 1               50.00%\t2.0",
                "2-8                      1                 0               0.00%\t1.0",
                "3-6-10                   1                 1               100.00%\t1.0",
                "1-2-4-7                  1                 0               0.00%\t1.0",
                "7                        1                 1               100.00%\t1.0"};
    }
    static std::vector<std::string> frame(int number, const std::string& lane, const std::string& first,
                                          const std::string& second) {
        return {"Frame " + std::to_string(number) + "   Lane Bowled: " + lane,
                "Ball Used: ",
                "Foot Position:    Lane Target: ",
                "First Ball: " + first + "   Second Ball: " + second,
                "Comment: ",
                "--------------------"};
    }

    ReportPlay play;
};

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> parts) {
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST_F(Night, IsSummarized) {
    EXPECT_TRUE(isSameText(play.eventReport("Summary"),
                           withLineEnds(joined({header("Summary"), secondGame(), ending()}))));
}

TEST_F(Night, IsToldInFull) {
    const std::vector<std::string> heading{"Frame Summary", "-------------"};
    const std::vector<std::string> firstFrame{
        "Frame 1   Lane Bowled: 13",     "Ball Used: Blue 15", "Foot Position: 20   Lane Target: 2nd arrow",
        "First Ball: X   Second Ball: ", "Comment: flush",     "--------------------"};
    auto tenthFrame = frame(10, "14", "X", "7");
    tenthFrame[3] += "   Fill Ball: /";
    auto lineScoreTenth = frame(10, "0", "", "");
    lineScoreTenth[3] += "   Fill Ball: ";
    auto lineScoreFrames = heading;
    for (int number = 1; number <= 9; ++number)
        lineScoreFrames = joined({lineScoreFrames, frame(number, "0", "", "")});
    EXPECT_TRUE(isSameText(
        play.eventReport("Full"),
        withLineEnds(
            joined({header("Full"), heading, firstFrame, frame(2, "0", "10", "/"), frame(3, "0", "2-8", "8"),
                    frame(4, "0", "X", ""), frame(5, "0", "3-6-10", "/"), frame(6, "0", "10", "10"),
                    frame(7, "0", "X", ""), frame(8, "0", "X", ""), frame(9, "0", "1-2-4-7", "1-2"),
                    tenthFrame, secondGame(), lineScoreFrames, lineScoreTenth, ending()}))));
}

// Two further events. The totals are those of the event rows: 3 + 2 + 1 games and 524 + 375 + 0 pins, 149.83
// a game. In the order of the table the games are 163, 190, 171, 285, 90: 163 and 190 and 285 set the high,
// 171 and then 90 the low; 285 is in no bin. The listing goes by date.
TEST_F(Night, CountsAmongOthers) {
    play.addEvent({.name = "Open Night",
                   .date = makeDate(2026, 10, 1),
                   .type = "PRACTICE",
                   .games = std::int64_t{2},
                   .total = std::int64_t{375},
                   .average = 187.5});
    play.addGame("N", std::int64_t{285});
    play.addGame("N", std::int64_t{90});
    play.addEvent({.name = "O'Hara's Cup",
                   .date = makeDate(2026, 12, 1),
                   .type = "TOURNAMENT",
                   .games = std::int64_t{1},
                   .comment = "not bowled yet"});
    std::vector<std::string> spares = ending();
    spares.erase(spares.begin(), spares.begin() + 5);
    EXPECT_TRUE(isSameText(
        play.statistics(),
        withLineEnds(joined({{"                       Tallybrook 2.0",
                              "                       Statistical Report",
                              "",
                              "Report Date: 11/14/2026, 9:55:00 PM",
                              "Report Type: All Events",
                              "",
                              "Found 3 matching events.",
                              "",
                              "Scoring Mode Summary: ",
                              "Pinfall Mode: 1 games,   Line Score: 1 games,   Game Score only: 3 games.",
                              "",
                              "Event Summary",
                              "-------------",
                              "Total Games: 6\t\tTotal Pinfall: 899\tAverage: 149.83",
                              "",
                              "Event Listing (3 events found):",
                              "-----------------------------------------------------------",
                              "Event: Open Night\t\tDate Bowled: 10/1/2026",
                              "Event Type: PRACTICE",
                              "Games Bowled: 2\t\tPinfall: 375\tEvent Average: 187.5",
                              "Comment: ",
                              "",
                              "Event: Thursday League\t\tDate Bowled: 11/12/2026",
                              "Event Type: LEAGUE",
                              "Games Bowled: 3\t\tPinfall: 524\tEvent Average: 174.67",
                              "Comment: Slow lanes",
                              "",
                              "Event: O'Hara's Cup\t\tDate Bowled: 12/1/2026",
                              "Event Type: TOURNAMENT",
                              "Games Bowled: 1\t\tPinfall: 0\tEvent Average: 0",
                              "Comment: not bowled yet",
                              "",
                              "Game Statistics",
                              "---------------",
                              "Games under 100: 1",
                              "100 - 119: 0",
                              "120 - 139: 0",
                              "140 - 159: 0",
                              "160 - 179: 2",
                              "180 - 199: 1",
                              "200 - 219: 0",
                              "220 - 239: 0",
                              "240 - 259: 0",
                              "260 - 279: 0",
                              "280 - 297: 0",
                              "298 Games: 0",
                              "299 Games: 0",
                              "300 Games: 0",
                              "",
                              "High Game: 285\tDate Bowled: 10/1/2026",
                              "Low Game: 90\tDate Bowled: 10/1/2026",
                              "",
                              "Series Summary",
                              "--------------",
                              "High Series (1 games): 0",
                              "Date Bowled: 12/1/2026",
                              "Low Series (1 games): 0",
                              "Date Bowled: 12/1/2026",
                              "High Series (2 games): 375",
                              "Date Bowled: 10/1/2026",
                              "Low Series (2 games): 375",
                              "Date Bowled: 10/1/2026",
                              "High Series (3 games): 524",
                              "Date Bowled: 11/12/2026",
                              "Low Series (3 games): 524",
                              "Date Bowled: 11/12/2026"},
                             spares}))));
}

}  // namespace

}  // namespace tallybrook::test
