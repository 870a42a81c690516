// The states of one frame in pinfall mode, walked click by click. A state is written in one line:
//
//     first panel | second panel | fill panel | caption of the second question | score cell
//
// and a panel as "answers, pins, Done": the answers off, or on with the one that is selected; the enabled
// pins (a "+" behind a ticked one); whether Done is enabled.

#include "support/Play.h"

namespace tallybrook::test {

namespace {

std::string panelState(Play& play, const std::string& ball) {
    const bool on = play.enabled("opt" + ball + "Yes");
    EXPECT_EQ(on, play.enabled("opt" + ball + "No"));
    std::string state = on ? "on" : "off";
    state += play.value("opt" + ball + "Yes") ? " yes" : play.value("opt" + ball + "No") ? " no" : "";
    std::string pins;
    for (int pin = 1; pin <= 10; ++pin) {
        const std::string box = "chk" + ball + "Pinfall(" + std::to_string(pin) + ")";
        if (play.enabled(box))
            pins += (pins.empty() ? "" : " ") + std::to_string(pin) + (play.value(box) ? "+" : "");
        else
            EXPECT_FALSE(play.value(box)) << box;
    }
    if (pins == "1 2 3 4 5 6 7 8 9 10")
        pins = "all";
    return state + ", " + (pins.empty() ? "off" : pins) + ", " +
           (play.enabled("cmd" + ball + "Done") ? "on" : "off");
}

struct Step {
    std::string name;
    std::vector<std::string> clicks;
    std::string state;
};

class PinfallStates : public testing::Test {
protected:
    void openFrame(int frame) {
        play.insertEvent();
        play.insertGame();
        for (int earlier = 1; earlier < frame; ++earlier)
            play.insertFrame(earlier, "X", "X");
        play.load("frmFrame");
        for (int earlier = 1; earlier + 1 < frame; ++earlier)
            play.click("cmdNextFrame");
        if (frame > 1)
            play.click("cmdNextFrame", {{"Frame Input", Answer::Yes}});
        ASSERT_EQ(play.text("txtFrameNum"), std::to_string(frame));
    }

    std::string state(int frame) {
        return panelState(play, "First") + " | " + panelState(play, "Second") + " | " +
               panelState(play, "Fill") + " | " + play.control("lblSecond").caption() + " | " +
               play.text("txtCount(" + std::to_string(frame) + ")");
    }

    void walk(int frame, const std::vector<Step>& steps) {
        openFrame(frame);
        for (const Step& step : steps) {
            for (const std::string& click : step.clicks)
                play.click(click);
            EXPECT_EQ(state(frame), step.state) << "in state " << step.name;
        }
    }

    Play play;
};

const std::string kFillOff = "off, off, off";

TEST_F(PinfallStates, StrikeInAnEarlyFrame) {
    walk(1, {{"F1", {}, "on, off, off | off, off, off | " + kFillOff + " | Spare? | "},
             {"F2", {"optFirstYes"}, "on yes, off, off | off, off, off | " + kFillOff + " | Spare? | X"}});
}

TEST_F(PinfallStates, OpenFrame) {
    walk(1, {{"F3", {"optFirstNo"}, "on no, all, on | on, off, off | " + kFillOff + " | Spare? | "},
             {"F4",
              {"chkFirstPinfall(3)", "chkFirstPinfall(6)", "chkFirstPinfall(10)", "cmdFirstDone"},
              "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on, 3 6 10, off | " + kFillOff + " | Spare? | 7"},
             {"F6",
              {"optSecondNo"},
              "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on no, 3 6 10, on | " + kFillOff + " | Spare? | 7"},
             {"F7",
              {"chkSecondPinfall(10)", "cmdSecondDone"},
              "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on no, 3 6 10+, off | " + kFillOff + " | Spare? | 72"}});
}

TEST_F(PinfallStates, SpareMovesTheFocusToTheComment) {
    walk(1, {{"F4",
              {"optFirstNo", "chkFirstPinfall(7)", "cmdFirstDone"},
              "on no, 1 2 3 4 5 6 7+ 8 9 10, off | on, 7, off | " + kFillOff + " | Spare? | 9"},
             {"F5",
              {"optSecondYes"},
              "on no, 1 2 3 4 5 6 7+ 8 9 10, off | on yes, 7, off | " + kFillOff + " | Spare? | 9/"}});
    EXPECT_EQ(play.focus(), "txtComment");
}

TEST_F(PinfallStates, OpenThenStrikeLeavesThePinsEnabled) {
    walk(1, {{"F3", {"optFirstNo"}, "on no, all, on | on, off, off | " + kFillOff + " | Spare? | "},
             {"F2", {"optFirstYes"}, "on yes, all, on | on, off, off | " + kFillOff + " | Spare? | X"},
             {"Done after it",
              {"chkFirstPinfall(7)", "cmdFirstDone"},
              "on yes, 1 2 3 4 5 6 7+ 8 9 10, off | on, 7, off | " + kFillOff + " | Spare? | 9"}});
}

const std::string kStrike = "on yes, off, off | ";

TEST_F(PinfallStates, TenthFrameThreeStrikes) {
    walk(10, {{"T1", {"optFirstYes"}, kStrike + "on, off, off | off, off, off | Strike? | X"},
              {"T2", {"optSecondYes"}, kStrike + "on yes, off, off | on, off, off | Strike? | XX"},
              {"T5", {"optFillYes"}, kStrike + "on yes, off, off | on yes, off, off | Strike? | XXX"}});
    EXPECT_NE(play.focus(), "txtComment");
}

TEST_F(PinfallStates, TenthFrameTwoStrikesAndACount) {
    walk(10,
         {{"T2", {"optFirstYes", "optSecondYes"}, kStrike + "on yes, off, off | on, off, off | Strike? | XX"},
          {"T6", {"optFillNo"}, kStrike + "on yes, off, off | on no, all, on | Strike? | XX"},
          {"T7",
           {"chkFillPinfall(9)", "chkFillPinfall(10)", "cmdFillDone"},
           kStrike + "on yes, off, off | on no, 1 2 3 4 5 6 7 8 9+ 10+, off | Strike? | XX8"}});
}

TEST_F(PinfallStates, TenthFrameStrikeThenSpare) {
    walk(10, {{"T3", {"optFirstYes", "optSecondNo"}, kStrike + "on no, all, on | on, off, off | Strike? | X"},
              {"T4",
               {"chkSecondPinfall(3)", "chkSecondPinfall(6)", "chkSecondPinfall(10)", "cmdSecondDone"},
               kStrike + "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on, 3 6 10, off | Strike? | X7"},
              {"T8",
               {"optFillYes"},
               kStrike + "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on yes, 3 6 10, off | Strike? | X7/"}});
}

TEST_F(PinfallStates, TenthFrameStrikeThenOpen) {
    walk(10, {{"T4",
               {"optFirstYes", "optSecondNo", "chkSecondPinfall(3)", "chkSecondPinfall(6)",
                "chkSecondPinfall(10)", "cmdSecondDone"},
               kStrike + "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on, 3 6 10, off | Strike? | X7"},
              {"T9",
               {"optFillNo"},
               kStrike + "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on no, 3 6 10, on | Strike? | X7"},
              {"T10",
               {"chkFillPinfall(10)", "cmdFillDone"},
               kStrike + "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | on no, 3 6 10+, off | Strike? | X72"}});
}

const std::string kSeven = "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | ";
const std::vector<std::string> kLeave3610{"optFirstNo", "chkFirstPinfall(3)", "chkFirstPinfall(6)",
                                          "chkFirstPinfall(10)", "cmdFirstDone"};

TEST_F(PinfallStates, PinsSayWhetherTheyStand) {
    openFrame(1);
    Control& pin = play.control("chkFirstPinfall(7)");
    EXPECT_EQ(pin.spokenName(), "Pin 7");
    play.click("optFirstNo");
    EXPECT_EQ(pin.spokenName(), "Pin 7, knocked down");
    for (const char* const state : {"Pin 7, standing", "Pin 7, knocked down", "Pin 7, standing"}) {
        play.click("chkFirstPinfall(7)");
        EXPECT_EQ(pin.spokenName(), state);
    }
    EXPECT_EQ(play.control("chkFirstPinfall(8)").spokenName(), "Pin 8, knocked down");
}

TEST_F(PinfallStates, TenthFrameSpareThenStrike) {
    walk(10, {{"F3", {"optFirstNo"}, "on no, all, on | on, off, off | off, off, off | Spare? | "},
              {"U1",
               {"chkFirstPinfall(3)", "chkFirstPinfall(6)", "chkFirstPinfall(10)", "cmdFirstDone"},
               kSeven + "on, 3 6 10, off | off, off, off | Spare? | 7"},
              {"U2", {"optSecondYes"}, kSeven + "on yes, 3 6 10, off | on, off, off | Spare? | 7/"},
              {"U5", {"optFillYes"}, kSeven + "on yes, 3 6 10, off | on yes, off, off | Spare? | 7/X"}});
}

TEST_F(PinfallStates, SpareOfTheTenthFrameKeepsTheFocusForTheFillBall) {
    openFrame(10);
    for (const std::string& click : kLeave3610)
        play.click(click);
    play.click("optSecondYes");
    EXPECT_EQ(play.focus(), "optSecondYes");
}

TEST_F(PinfallStates, TenthFrameSpareThenAllPinsLeft) {
    walk(10, {{"U1", kLeave3610, kSeven + "on, 3 6 10, off | off, off, off | Spare? | 7"},
              {"U6",
               {"optSecondYes", "optFillNo"},
               kSeven + "on yes, 3 6 10, off | on no, all, on | Spare? | 7/"}});
    for (int pin = 1; pin <= 10; ++pin)
        play.click("chkFillPinfall(" + std::to_string(pin) + ")");
    play.click("cmdFillDone");
    EXPECT_EQ(state(10),
              kSeven + "on yes, 3 6 10, off | on no, 1+ 2+ 3+ 4+ 5+ 6+ 7+ 8+ 9+ 10+, off | Spare? | 7/0");
    play.click("cmdPrevious");
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes"}).back(),
              "3-6-10|/|1-2-3-4-5-6-7-8-9-10");
}

TEST_F(PinfallStates, TenthFrameOpenHasNoThirdBall) {
    walk(10, {{"U1", kLeave3610, kSeven + "on, 3 6 10, off | off, off, off | Spare? | 7"},
              {"U3", {"optSecondNo"}, kSeven + "on no, 3 6 10, on | off, off, off | Spare? | 7"},
              {"U4",
               {"chkSecondPinfall(10)", "cmdSecondDone"},
               kSeven + "on no, 3 6 10+, off | off, 10, off | Spare? | 72"}});
}

TEST_F(PinfallStates, StrikeAnswerOfTheTenthFrameAppends) {
    walk(10, {{"twice",
               {"optFirstYes", "optFirstNo", "optFirstYes"},
               "on yes, all, on | on, off, off | off, off, off | Strike? | XX"}});
}

}  // namespace

}  // namespace tallybrook::test
