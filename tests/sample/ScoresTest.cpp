#include "Made.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace tallybrook::test {

namespace {

using Pins = std::set<int>;

const Made& scoreSample() {
    static const Made kMade(1200, 5);
    return kMade;
}

/// The pins of a text such as "3-6-10", which must be in ascending order.
Pins pinsIn(const std::string& text) {
    Pins pins;
    std::istringstream numbers(text);
    for (std::string number; std::getline(numbers, number, '-');) {
        const int pin = std::stoi(number);
        EXPECT_GE(pin, 1);
        EXPECT_LE(pin, 10);
        EXPECT_TRUE(pins.empty() || *pins.rbegin() < pin) << text;
        pins.insert(pin);
    }
    EXPECT_FALSE(pins.empty());
    return pins;
}

/// The balls of a game, each by the pins that it took, from the marks of its frames.
std::vector<int> ballsOf(const std::vector<std::string>& cells) {
    std::vector<int> balls;
    for (const std::string& cell : cells) {
        int standing = 10;
        for (const char mark : cell) {
            const int taken = mark == 'X' || mark == '/' ? standing : mark - '0';
            balls.push_back(taken);
            standing = taken == standing ? 10 : standing - taken;
        }
    }
    return balls;
}

/// The score of a whole game by the rules of the game: a strike counts the next two balls, a spare the next
/// one.
int scoreOf(const std::vector<int>& balls) {
    int score = 0;
    std::size_t ball = 0;
    for (int frame = 1; frame <= 10; ++frame) {
        const bool strike = balls.at(ball) == 10;
        const bool spare = !strike && balls.at(ball) + balls.at(ball + 1) == 10;
        score += balls.at(ball) + balls.at(ball + 1) + (strike || spare ? balls.at(ball + 2) : 0);
        ball += strike ? 1 : 2;
    }
    return score;
}

struct Frame {
    int number;
    std::string first;
    std::string second;
    std::string fill;
    std::string marks;
};

std::vector<Frame> framesOf(const std::string& where) {
    std::vector<Frame> frames;
    for (const Row& row : scoreSample().query(
             "SELECT fldFrameNum, fldFirstBallRes, fldSecondBallRes, fldFillBallRes, fldLineScore "
             "FROM tblFrameInfo JOIN tblGameInfo USING (fldSessionNum, fldGameNum) WHERE " +
             where))
        frames.push_back({std::stoi(row[0]), row[1], row[2], row[3], row[4]});
    return frames;
}

/// The racks of a frame, ball by ball, as the frame screen takes them down: the pins left, the mark.
class Racks {
public:
    std::string mark(const std::string& result) {
        if (result == "X" || result == "/") {
            EXPECT_EQ(result == "X", isFresh_);
            *this = {};
            return result;
        }
        const Pins left = pinsIn(result);
        EXPECT_TRUE(std::ranges::includes(standing_, left)) << "no pin stands up again";
        const std::size_t taken = standing_.size() - left.size();
        standing_ = left;
        isFresh_ = false;
        return std::to_string(taken);
    }

private:
    Pins standing_{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    bool isFresh_ = true;  // no ball was thrown at it
};

TEST(Scores, AreWhatTheMarksComeTo) {
    std::map<std::pair<std::string, std::string>, std::vector<std::string>> games;
    for (const Row& row : scoreSample().query(
             "SELECT fldSessionNum, fldGameNum, fldLineScore FROM tblFrameInfo ORDER BY 1, 2, fldFrameNum"))
        games[{row[0], row[1]}].push_back(row[2]);
    int whole = 0;
    for (const Row& row :
         scoreSample().query("SELECT fldSessionNum, fldGameNum, fldGameScore FROM tblGameInfo "
                             "WHERE fldScoreType <> 'N'")) {
        const std::vector<std::string>& cells = games.at({row[0], row[1]});
        const bool isWhole = cells.size() == 10;
        ASSERT_EQ(row[2], std::to_string(isWhole ? scoreOf(ballsOf(cells)) : 0));
        whole += isWhole ? 1 : 0;
    }
    EXPECT_GT(whole, 3000);
    EXPECT_EQ(scoreSample().number("SELECT count(*) FROM tblGameInfo WHERE fldScoreType = 'N' AND "
                                   "fldGameScore NOT BETWEEN 50 AND 300"),
              0);
}

TEST(Scores, MarksFollowFromThePins) {
    for (const Frame& frame : framesOf("fldScoreType = 'P'")) {
        Racks racks;
        std::string marks = racks.mark(frame.first);
        for (const std::string& result : {frame.second, frame.fill}) {
            if (!result.empty())
                marks += racks.mark(result);
        }
        ASSERT_EQ(marks, frame.marks) << frame.number;
    }
}

TEST(Scores, FramesHaveTheirBallsAndNoOthers) {
    for (const Frame& frame : framesOf("fldScoreType = 'P'")) {
        const bool strike = frame.first == "X";
        if (frame.number < 10) {
            ASSERT_EQ(frame.second.empty(), strike);
            ASSERT_EQ(frame.fill, "");
        } else {
            ASSERT_NE(frame.second, "");
            ASSERT_EQ(frame.fill.empty(), !strike && frame.second != "/");
        }
    }
    for (const Frame& frame : framesOf("fldScoreType = 'L'"))
        ASSERT_EQ(frame.first + frame.second + frame.fill, "");
}

/// How many in a hundred of the leaves were spared.
int sparedInHundred(const std::string& leaves) {
    const std::string met =
        "FROM tblFrameInfo WHERE fldFrameNum < 10 AND fldFirstBallRes IN (" + leaves + ")";
    return 100 * scoreSample().number("SELECT count(*) " + met + " AND fldSecondBallRes = '/'") /
           scoreSample().number("SELECT count(*) " + met);
}

TEST(Scores, SinglePinsAreMostlySparedAndSplitsRarely) {
    const int single = sparedInHundred("'1', '2', '3', '4', '5', '6', '7', '8', '9', '10'");
    const int many = sparedInHundred("'6-10', '4-7', '3-6-10', '2-4-5', '2-8'");
    const int split = sparedInHundred("'4-9', '6-8', '6-7-10', '4-7-10', '4-10', '5-7', '5-10'");
    EXPECT_GT(single, 75);
    EXPECT_LT(single, 95);
    EXPECT_GT(many, 45);
    EXPECT_LT(many, single);
    EXPECT_GT(split, 2);
    EXPECT_LT(split, 25);
    EXPECT_LT(sparedInHundred("'7-10', '4-6-7-10'"), 4);
}

}  // namespace

}  // namespace tallybrook::test
