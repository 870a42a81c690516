// What each way of bowling a frame leaves in the logbook, entered click by click.

#include "store/file/Connection.h"
#include "support/Play.h"

namespace tallybrook::test {

namespace {

struct Bowled {
    int frame;
    std::vector<std::string> clicks;
    std::string stored;  // first, second, fill ball and line score
};

std::vector<std::string> pins(const std::string& ball, const std::vector<int>& left) {
    std::vector<std::string> clicks{"opt" + ball + "No"};
    for (const int pin : left)
        clicks.push_back("chk" + ball + "Pinfall(" + std::to_string(pin) + ")");
    clicks.push_back("cmd" + ball + "Done");
    return clicks;
}

std::vector<std::string> together(const std::vector<std::vector<std::string>>& parts) {
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<std::string> yes(const std::string& ball) {
    return {"opt" + ball + "Yes"};
}

/// Enters the frame in a game whose earlier frames are strikes, and saves it.
std::string storedBy(const Bowled& bowled) {
    Play play;
    play.insertEvent();
    play.insertGame();
    for (int frame = 1; frame < bowled.frame; ++frame)
        play.insertFrame(frame, "X", "X");
    play.load("frmFrame");
    for (int frame = 1; frame + 1 < bowled.frame; ++frame)
        play.click("cmdNextFrame");
    if (bowled.frame > 1)
        play.click("cmdNextFrame", {{"Frame Input", Answer::Yes}});
    for (const std::string& click : bowled.clicks)
        play.click(click);
    play.click("cmdPrevious");
    return play
        .rows("tblFrameInfo", {"fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes", "fldLineScore"})
        .back();
}

TEST(StoredBalls, AreAsTheyWereBowled) {
    const std::vector<int> three{3, 6, 10};
    const std::vector<Bowled> cases{
        {1, yes("First"), "X|||X"},
        {1, together({pins("First", three), yes("Second")}), "3-6-10|/||7/"},
        {1, together({pins("First", three), pins("Second", {10})}), "3-6-10|10||72"},
        {1, together({pins("First", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}), pins("Second", {1})}),
         "1-2-3-4-5-6-7-8-9-10|1||09"},
        {10, together({yes("First"), yes("Second"), yes("Fill")}), "X|X|X|XXX"},
        {10, together({yes("First"), yes("Second"), pins("Fill", {9, 10})}), "X|X|9-10|XX8"},
        {10, together({yes("First"), pins("Second", three), yes("Fill")}), "X|3-6-10|/|X7/"},
        {10, together({yes("First"), pins("Second", three), pins("Fill", {10})}), "X|3-6-10|10|X72"},
        {10, together({pins("First", three), yes("Second"), yes("Fill")}), "3-6-10|/|X|7/X"},
        {10, together({pins("First", three), yes("Second"), pins("Fill", {1, 2, 3, 4, 5})}),
         "3-6-10|/|1-2-3-4-5|7/5"},
        {10, together({pins("First", three), pins("Second", {10})}), "3-6-10|10||72"},
    };
    for (const Bowled& bowled : cases)
        EXPECT_EQ(storedBy(bowled), bowled.stored);
}

TEST(StoredBalls, ArriveWithTheFirstQuestionOpen) {
    Play play;
    play.insertEvent();
    play.insertGame();
    play.load("frmFrame");
    for (const std::string& click : together({pins("First", {7}), {"optSecondNo"}}))
        play.click(click);
    play.run([&] { person::arrive(play.control("optFirstYes")); });
    EXPECT_FALSE(play.value("optFirstNo") || play.value("optSecondNo") || play.value("optFirstYes"));
}

TEST(StoredBalls, LoseAnOldFillBallInAnEarlyFrame) {
    Play play;
    play.insertEvent();
    play.insertGame();
    play.insertFrame(1, "9/", "10", "/", "X");
    play.insertFrame(2, "X", "X");
    play.load("frmFrame");
    play.click("cmdNextFrame");
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldFillBallRes"})[0], "");
}

TEST(StoredEvent, IsTriedFieldByFieldWhenTheFileFails) {
    Play play;
    SQLite::Database& file = play.program().store().connection().database();
    file.exec("CREATE TRIGGER full BEFORE INSERT ON tblEventInfo BEGIN SELECT RAISE(ABORT, 'no room'); END");
    play.click("mnuAddFromForm");
    play.type("txtEvent", "Thursday League");
    const Expected failure{"Database Error", Answer::OK};
    play.click("cmdPrevious",
               {{"Save Event", Answer::Yes}, failure, failure, failure, {"Previous Screen", Answer::No}});
    EXPECT_TRUE(play.display.boxes()[1].text.starts_with("Error Number: -2147467259\r\nError: no room\r\n"));
    EXPECT_TRUE(play.rows("tblEventInfo", {"fldEventName"}).empty());

    file.exec("DROP TRIGGER full");
    play.click("cmdPrevious", {{"Save Event", Answer::Yes}, {"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName", "fldNumGames"}),
              std::vector<std::string>{"Thursday League|3"});
}

}  // namespace

}  // namespace tallybrook::test
