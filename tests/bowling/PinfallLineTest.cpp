#include "bowling/Cell_Count.h"
#include "bowling/PinfallLine.h"

#include <functional>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

std::string counted(const std::string& pins, const std::string& ball, const std::string& before = "5") {
    std::string result = before;
    Cell_Count(pins, result, ball);
    return result;
}

TEST(CellCount, TurnsAPinStringIntoANumber) {
    EXPECT_EQ(counted("7-10", "First"), "8");
    EXPECT_EQ(counted("7", "Second"), "1");
    EXPECT_EQ(counted("7-10", "Second"), "2");
    EXPECT_EQ(counted("1-2-3-4-5-6-7-8-9-10", "First"), "0");
    EXPECT_EQ(counted("3-6-10", "Fill"), "3");
    for (const char* ball : {"First", "Second"}) {
        EXPECT_EQ(counted("X", ball), "X");
        EXPECT_EQ(counted("/", ball), "/");
        EXPECT_EQ(counted("", ball), "5");
        EXPECT_EQ(counted("", ball, ""), "");
    }
}

/// The pin strings of one frame.
struct FrameBalls {
    std::string first = {};
    std::string second = {};
    std::string fill = {};
};

void add(PinfallLine& line, int frame, const FrameBalls& balls) {
    line.addFirst(frame, balls.first);
    line.addSecond(frame, balls.first, balls.second);
    line.addFill(frame, balls.second, balls.fill);
}

/// The cells of these frames, with "|" between them.
std::string cellsOf(const std::vector<FrameBalls>& frames) {
    PinfallLine line;
    for (int frame = 1; const FrameBalls& balls : frames)
        add(line, frame++, balls);
    std::string cells;
    for (int frame = 1; frame <= static_cast<int>(frames.size()); ++frame)
        cells += (frame == 1 ? "" : "|") + line.cell(frame);
    return cells;
}

std::string tenth(const FrameBalls& balls) {
    PinfallLine line;
    add(line, 10, balls);
    return line.cell(10);
}

TEST(PinfallLine, CountsTheBallsOfAFrame) {
    EXPECT_EQ(cellsOf({{.first = "7-10", .second = "10"},
                       {.first = "X"},
                       {.first = "3", .second = "/"},
                       {.first = "1-2-3-4-5-6-7-8-9-10", .second = "1"},
                       {.first = "4-7", .second = "4-7"},
                       {.first = "10"}}),
              "81|X|9/|09|80|9");
}

TEST(PinfallLine, CountsTheFillBallInTheTenthFrameAlone) {
    EXPECT_EQ(tenth({"X", "X", "X"}), "XXX");
    EXPECT_EQ(tenth({"X", "3-6", "/"}), "X8/");
    EXPECT_EQ(tenth({"X", "3-6", "6"}), "X81");
    EXPECT_EQ(tenth({"X", "X", "7-10"}), "XX8");
    EXPECT_EQ(tenth({"7-10", "/", "X"}), "8/X");
    EXPECT_EQ(tenth({"7-10", "/", "4"}), "8/9");
    EXPECT_EQ(tenth({"7-10", "10", ""}), "81");
    EXPECT_EQ(tenth({"", "", ""}), "");
    EXPECT_EQ(cellsOf({{"X", "X", "X"}}), "XX");
}

TEST(PinfallLine, LeavesAFrameWithoutPinStringsEmpty) {
    EXPECT_EQ(cellsOf({{}, {}, {.first = "7"}}), "||9");
    EXPECT_EQ(cellsOf({{.second = "7"}}), "9");  // of ten, since nothing says that fewer stood
}

TEST(PinfallLine, CountsTheRestAfterAStrikeFromTheFrameBefore) {
    EXPECT_EQ(cellsOf({{.first = "X", .second = "7"}}), "X-1");
    EXPECT_EQ(cellsOf({{.first = "3-6-10", .second = "3"}, {.first = "X", .second = "7"}}), "72|X2");
    EXPECT_EQ(tenth({"X", "", "7"}), "X-1");
}

int faultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
    return 0;
}

TEST(PinfallLine, HasNoEleventhFrame) {
    PinfallLine line;
    for (const int frame : {0, 11}) {
        for (const char* const first : {"X", "7-10", ""})
            EXPECT_EQ(faultOf([&] { line.addFirst(frame, first); }), error::kSubscriptOutOfRange);
        EXPECT_EQ(faultOf([&] { line.addSecond(frame, "7-10", "10"); }), error::kSubscriptOutOfRange);
        EXPECT_EQ(faultOf([&] { line.addSecond(frame, "X", ""); }), 0);
        EXPECT_EQ(faultOf([&] { line.addFill(frame, "/", "X"); }), 0);
        EXPECT_THROW((void)line.cell(frame), RunTimeError);
    }
}

}  // namespace

}  // namespace tallybrook::test
