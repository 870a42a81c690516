#include "store/file/Connection.h"
#include "support/Play.h"

#include <sqlite3.h>

namespace tallybrook::test {

namespace {

const Expected kSave{"Save Event", Answer::Yes};
const Expected kDoNotSave{"Save Event", Answer::No};
const Expected kNotSaved{"Action Cancelled", Answer::OK, "Event not saved."};
const Expected kBack{"Previous Screen", Answer::Yes};
const Expected kStay{"Previous Screen", Answer::No};

class EventScreen : public testing::Test {
protected:
    void addEvent() { play.click("mnuAddFromForm"); }
    void editEvent(const std::vector<Expected>& boxes = {}) {
        play.session().gMode = kEdit;
        play.load("frmEvent", boxes);
    }
    std::vector<std::string> events() {
        return play.rows("tblEventInfo", {"fldSessionNum", "fldEventName", "fldDateBowled", "fldCenterName",
                                          "fldCenterLoc", "fldEventType", "fldNumGames", "fldGmsRecorded",
                                          "fldSeriesTot", "fldSeriesAvg", "fldComment", "fldHHRecordID"});
    }
    Play play;
};

TEST_F(EventScreen, OffersAFreshEvent) {
    addEvent();
    EXPECT_EQ(play.focus(), "txtEvent");
    EXPECT_EQ(play.text("txtDateBowled"), "11/14/2026");
    EXPECT_EQ(play.text("txtNumGames"), "3");
    EXPECT_TRUE(play.value("optLeague"));
    EXPECT_TRUE(play.enabled("cmdReset"));
    EXPECT_TRUE(play.enabled("mnuReset"));
    EXPECT_EQ(play.session().gMode, kAdd);
}

TEST_F(EventScreen, BeginsAnEventOfWhichNothingIsRecorded) {
    SessionState& session = play.session();
    session.gSessionNum = 7;
    session.gGameNum = 3;
    session.gGmsRecorded = 2;
    session.gSeriesTot = 401;
    session.gSeriesAvg = 200.5;
    addEvent();
    EXPECT_EQ(session.gSessionNum, Int32(0));
    EXPECT_EQ(session.gGameNum, Int16(0));
    EXPECT_EQ(session.gGmsRecorded, Int16(0));
    EXPECT_EQ(session.gSeriesTot, Int16(0));
    EXPECT_EQ(session.gSeriesAvg, 0.0);
}

TEST_F(EventScreen, StoresAnEventFieldByField) {
    addEvent();
    play.type("txtEvent", "O'Brien Classic");
    play.type("txtDateBowled", "nov 12, 2026");
    play.type("txtCenter", "Brook Lanes");
    play.type("txtLoc", "Millbrook");
    EXPECT_EQ(play.focus(), "txtLoc");
    play.click("optTourn");
    play.type("txtNumGames", "4");
    play.type("txtComment", "House shot");
    play.click("cmdUpdGames", {{"Update Games", Answer::No},
                               {"Game Update Cancelled.", Answer::OK,
                                "Game update cancelled, current event record was saved."}});
    EXPECT_EQ(events(),
              std::vector<std::string>{
                  "1|O'Brien Classic|11/12/2026|Brook Lanes|Millbrook|TOURNAMENT|4|0|0|0|House shot|NONE"});
    EXPECT_EQ(play.session().gSessionNum, Int32(1));
    EXPECT_EQ(play.session().gNumGames, Int16(4));
    play.click("cmdUpdGames", {{"Update Games", Answer::Yes}});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}).size(), 1U);  // the same row was rewritten
    EXPECT_EQ(play.screen().name(), "frmGame");
}

TEST_F(EventScreen, TakesAtMostFiftyCharactersForAName) {
    addEvent();
    play.type("txtEvent", std::string(60, 'a'));
    EXPECT_EQ(play.text("txtEvent"), std::string(50, 'a'));
}

TEST_F(EventScreen, StoresAnEventWithoutANameAfterTheMessage) {
    addEvent();
    play.click("cmdPrevious", {kSave, {"Required Field", Answer::OK, "Event name is required."}, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}), std::vector<std::string>{""});
    EXPECT_EQ(play.focus(), "txtEvent");
}

TEST_F(EventScreen, RefusesADateInTheFuture) {
    addEvent();
    play.type("txtEvent", "Thursday League");
    play.type("txtDateBowled", "11/15/2026");
    play.click("cmdPrevious",
               {kSave,
                {"Invalid Date", Answer::OK,
                 "Invalid date.\r\nDate must be of the format mm/dd/yyyy and cannot be in the future."},
                kStay});
    EXPECT_TRUE(events().empty());
    EXPECT_EQ(play.focus(), "txtDateBowled");
}

TEST_F(EventScreen, GoesToWhatIsWrongBehindItsBox) {
    addEvent();
    play.type("txtDateBowled", "11/15/2026");
    std::vector<std::string> before;
    const auto look = [&] { before.push_back(play.focus()); };
    play.click(
        "cmdPrevious",
        {kSave, {"Required Field", Answer::OK, "", look}, {"Invalid Date", Answer::OK, "", look}, kStay});
    EXPECT_EQ(before, (std::vector<std::string>{"cmdPrevious", "txtEvent"}));
    EXPECT_EQ(play.focus(), "txtDateBowled");
}

TEST_F(EventScreen, HandsOverToTheGames) {
    play.insertEvent(0);
    play.insertGame(1, "N");
    editEvent();
    play.type("txtNumGames", "1");
    play.display.forgetEvents();
    play.click("cmdUpdGames", {{"Update Games", Answer::Yes}});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmEvent", "load frmGame", "show frmGame"}));
}

TEST_F(EventScreen, LeadsToAnEndlessRetryWhenNothingWasStored) {
    addEvent();
    play.type("txtEvent", "Thursday League");
    play.type("txtDateBowled", "1/1/2030");
    play.click("cmdUpdGames", {{"Invalid Date", Answer::OK}, {"Update Games", Answer::Yes}});
    EXPECT_EQ(play.display.retrying_, "Game Information, Form Load.");
    EXPECT_EQ(play.display.retries(), TestDisplay::kMostRetries);
}

TEST_F(EventScreen, StoresTheOtherFieldsWhenTheDateCannotBeRead) {
    addEvent();
    play.type("txtEvent", "Thursday League");
    play.type("txtDateBowled", "someday");
    play.click("cmdPrevious", {kSave, {"Database Error", Answer::OK}, {"Database Error", Answer::OK}, kStay});
    const auto& boxes = play.display.boxes();
    EXPECT_EQ(
        boxes[1].text,
        "Error Number: 13\r\nError: Type mismatch\r\nModule: Event Information, Update_Event.\r\nIf this "
        "persists, please send email to support@tallybrook.example with this error information.");
    EXPECT_EQ(boxes[1].icon, Icon::Critical);
    EXPECT_TRUE(boxes[2].text.starts_with("Error Number: -2147217887\r\n")) << boxes[2].text;
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName", "fldDateBowled"}),
              std::vector<std::string>{"Thursday League|null"});
}

TEST_F(EventScreen, DiscardsThePendingRowOnNo) {
    play.insertEvent();
    addEvent();
    play.type("txtEvent", "Second");
    play.click("cmdPrevious", {kDoNotSave, kNotSaved, kStay});
    EXPECT_EQ(play.text("txtEvent"), "Second");
    play.click("cmdPrevious", {kSave, kStay});  // now into the row that was current before
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSessionNum", "fldEventName"}),
              std::vector<std::string>{"1|Second"});
}

TEST_F(EventScreen, RetriesWithoutEndWhenNoRowIsLeftToSaveInto) {
    addEvent();
    play.type("txtEvent", "Only");
    play.click("cmdPrevious", {kDoNotSave, kNotSaved, kStay});
    play.click("cmdPrevious", {kSave});
    EXPECT_EQ(play.display.retrying_, "Event Information, Update_Event.");
}

TEST_F(EventScreen, LooksUpTheLocationOfAKnownCenter) {
    play.insert("tblEventInfo", {{"fldCenterName", "Brook Lanes"}, {"fldCenterLoc", "Millbrook"}});
    addEvent();
    play.type("txtLoc", "typed before");
    play.type("txtCenter", "brook LANES");
    play.tab();
    EXPECT_EQ(play.text("txtLoc"), "Millbrook");
    EXPECT_EQ(play.focus(), "txtNumGames");
    play.type("txtCenter", "Elsewhere");
    play.tab();
    EXPECT_EQ(play.text("txtLoc"), "");
    EXPECT_EQ(play.focus(), "txtLoc");
    play.type("txtLoc", "kept");
    play.type("txtCenter", "");
    play.click("optPractice");
    EXPECT_EQ(play.text("txtLoc"), "kept");
    EXPECT_EQ(play.focus(), "optPractice");
}

TEST_F(EventScreen, ClicksAButtonEvenWhenTheLookUpMovesTheFocus) {
    addEvent();
    play.type("txtCenter", "New Lanes");
    EXPECT_EQ(play.click("cmdReset", {{"Confirm - Form Reset", Answer::No}}), Arrival::Elsewhere);
    EXPECT_EQ(play.focus(), "txtLoc");
    play.type("txtCenter", "Newer Lanes");
    EXPECT_EQ(play.type("txtComment", "lost"), Arrival::Elsewhere);
    EXPECT_EQ(play.text("txtComment"), "");
}

TEST_F(EventScreen, EndsOnAnApostropheInTheCenter) {
    addEvent();
    play.type("txtCenter", "O'Brien's");
    play.display.forgetEvents();
    play.tab();
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"run-time error -2147217900", "end program"}));
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(EventScreen, KeepsTheFocusOnABadNumberOfGames) {
    addEvent();
    for (const char* bad : {"", "0", "-1", "0.9", "three"}) {
        play.type("txtNumGames", bad);
        EXPECT_EQ(play.click("cmdPrevious", {{"Invalid Data", Answer::OK,
                                              "Number of games must be greater than 0. Please re-enter."}}),
                  Arrival::Kept)
            << bad;
        EXPECT_EQ(play.focus(), "txtNumGames");
    }
    play.type("txtNumGames", "2");
    play.click("optPractice");
    EXPECT_EQ(play.session().gNumGames, Int16(2));
    play.type("txtNumGames", "2.6");
    play.click("optLeague");
    EXPECT_EQ(play.session().gNumGames, Int16(3));
}

TEST_F(EventScreen, WarnsOfAnIncompleteEvent) {
    play.insert("tblEventInfo", {{"fldEventName", "Open"},
                                 {"fldDateBowled", makeDate(2026, 1, 2)},
                                 {"fldEventType", "PRACTICE"},
                                 {"fldNumGames", std::int64_t{3}},
                                 {"fldGmsRecorded", std::int64_t{2}},
                                 {"fldSeriesTot", std::int64_t{401}},
                                 {"fldSeriesAvg", 200.5}});
    play.session().gSessionNum = 1;
    editEvent({{"Incomplete event.", Answer::OK, "Incomplete event record, only 2 of 3 entered."}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    EXPECT_TRUE(play.value("optPractice"));
    EXPECT_FALSE(play.enabled("cmdReset"));
    EXPECT_FALSE(play.enabled("mnuReset"));
    EXPECT_EQ(play.text("txtDateBowled"), "1/2/2026");
    EXPECT_EQ(play.session().gSeriesTot, Int16(401));
    EXPECT_EQ(play.session().gSeriesAvg, 200.5);
}

TEST_F(EventScreen, IsFilledWhenItWarnsOfAnIncompleteEvent) {
    play.insertEvent(3);
    bool isLeague = false;
    bool canReset = true;
    Expected incomplete{"Incomplete event."};
    incomplete.meanwhile = [&] {
        Screen& event = *play.program().screens.find("frmEvent");
        isLeague = dynamic_cast<OptionButton&>(Play::control(event, "optLeague")).value();
        canReset = Play::control(event, "cmdReset").isEnabled();
    };
    editEvent({incomplete});
    EXPECT_TRUE(isLeague);
    EXPECT_FALSE(canReset);
}

TEST_F(EventScreen, IsSilentAboutACompleteEvent) {
    play.insert("tblEventInfo", {{"fldNumGames", std::int64_t{3}}, {"fldGmsRecorded", std::int64_t{3}}});
    play.session().gSessionNum = 1;
    editEvent();
    EXPECT_TRUE(play.display.boxes().empty());
}

TEST_F(EventScreen, IsSilentAboutMoreGamesThanPlanned) {
    play.insert("tblEventInfo", {{"fldNumGames", std::int64_t{2}}, {"fldGmsRecorded", std::int64_t{3}}});
    play.session().gSessionNum = 1;
    editEvent();
    EXPECT_TRUE(play.display.boxes().empty());
}

TEST_F(EventScreen, SwitchesToAddingWithTheNextEvent) {
    play.insert("tblEventInfo", {{"fldEventName", "Old"},
                                 {"fldDateBowled", makeDate(2026, 1, 2)},
                                 {"fldEventType", "TOURNAMENT"},
                                 {"fldNumGames", std::int64_t{0}}});
    play.session().gSessionNum = 1;
    editEvent();
    play.type("txtNumGames", "3");
    play.click("cmdNextEvent", {kSave, {"Add New Event", Answer::Yes, "Add a new event?"}});
    EXPECT_EQ(play.session().gMode, kAdd);
    EXPECT_EQ(play.session().gSessionNum, Int32(0));
    EXPECT_EQ(play.text("txtEvent"), "");
    EXPECT_TRUE(play.value("optLeague"));
    EXPECT_TRUE(play.enabled("cmdReset"));
    EXPECT_TRUE(play.enabled("mnuReset"));
    play.type("txtEvent", "New");
    play.click("cmdNextEvent", {kSave, {"Add New Event", Answer::No}});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSessionNum", "fldEventName", "fldEventType"}),
              (std::vector<std::string>{"1|Old|TOURNAMENT", "2|New|LEAGUE"}));
}

TEST_F(EventScreen, GoesOnEditingWithoutANextEvent) {
    play.insertEvent(0);
    editEvent();
    play.type("txtNumGames", "3");
    play.click("cmdNextEvent", {kSave, {"Add New Event", Answer::No}});
    EXPECT_EQ(play.session().gMode, kEdit);
    EXPECT_EQ(play.text("txtEvent"), "Thursday League");
}

TEST_F(EventScreen, TakesNothingOverIntoTheNextEvent) {
    play.insert("tblEventInfo", {{"fldEventName", "Old"},
                                 {"fldDateBowled", makeDate(2026, 1, 2)},
                                 {"fldCenterName", "Brook Lanes"},
                                 {"fldCenterLoc", "Millbrook"},
                                 {"fldEventType", "LEAGUE"},
                                 {"fldNumGames", std::int64_t{3}},
                                 {"fldGmsRecorded", std::int64_t{3}},
                                 {"fldSeriesTot", std::int64_t{600}},
                                 {"fldSeriesAvg", 200.0},
                                 {"fldComment", "House shot"},
                                 {"fldHHRecordID", "77"}});
    play.session().gSessionNum = 1;
    editEvent();
    play.click("cmdNextEvent", {kDoNotSave, kNotSaved, {"Add New Event", Answer::Yes}});
    for (const char* const box : {"txtEvent", "txtCenter", "txtLoc", "txtComment"})
        EXPECT_EQ(play.text(box), "") << box;
    play.type("txtEvent", "New");
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(events().back(), "2|New|11/14/2026|||LEAGUE|3|0|0|0||NONE");
}

TEST_F(EventScreen, KeepsTheRecordOfTheHandheldInAnEventThatIsSavedAgain) {
    play.insert("tblEventInfo", {{"fldEventName", "Imported"},
                                 {"fldDateBowled", makeDate(2026, 1, 2)},
                                 {"fldNumGames", std::int64_t{0}},
                                 {"fldHHRecordID", "77"}});
    play.session().gSessionNum = 1;
    editEvent();
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName", "fldHHRecordID"}),
              std::vector<std::string>{"Imported|77"});
}

TEST_F(EventScreen, TakesATimeOfTodayForToday) {
    addEvent();
    play.type("txtEvent", "Thursday League");
    play.type("txtDateBowled", "11/14/2026 11:59:59 PM");
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldDateBowled"}), std::vector<std::string>{"11/14/2026"});
}

TEST_F(EventScreen, ResetLeavesThePlaceAlone) {
    addEvent();
    play.type("txtEvent", "Name");
    play.type("txtLoc", "Millbrook");
    play.type("txtComment", "Comment");
    play.type("txtNumGames", "9");
    play.type("txtDateBowled", "1/2/2026");
    play.click("optPractice");
    play.click("cmdReset", {{"Confirm - Form Reset", Answer::Yes,
                             "Resetting the form will erase the data in the form\r\nContinue?"}});
    EXPECT_EQ(play.text("txtEvent") + play.text("txtComment"), "");
    EXPECT_EQ(play.text("txtLoc"), "Millbrook");
    EXPECT_EQ(play.text("txtDateBowled"), "11/14/2026");
    EXPECT_EQ(play.text("txtNumGames"), "3");
    EXPECT_TRUE(play.value("optLeague"));
    EXPECT_EQ(play.focus(), "txtEvent");
}

TEST_F(EventScreen, CountsItsGamesAndTotalsWhenSaved) {
    play.insertEvent(3);
    play.insertGame(1, "N", 200);
    play.insertGame(2, "N", 201);
    play.session().gSessionNum = 1;
    play.session().gMode = kEdit;
    play.load("frmEvent", {{"Incomplete event.", Answer::OK}});
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot", "fldSeriesAvg"}),
              std::vector<std::string>{"2|401|200.5"});
}

TEST_F(EventScreen, TakesFewerGamesThanAreRecorded) {
    play.insertEvent(2);
    play.insertGame(1, "N", 200);
    play.insertGame(2, "N", 201);
    editEvent({{"Incomplete event.", Answer::OK}});
    play.type("txtNumGames", "1");
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldNumGames", "fldGmsRecorded"}), std::vector<std::string>{"1|2"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameNum"}).size(), 2U);
}

TEST_F(EventScreen, ShowsTheTypeOfAStoredEvent) {
    for (const auto& [type, option] : std::vector<std::pair<Value, std::string>>{{"LEAGUE", "optLeague"},
                                                                                 {"TOURNAMENT", "optTourn"},
                                                                                 {"PRACTICE", "optPractice"},
                                                                                 {"league", "optPractice"},
                                                                                 {"", "optPractice"},
                                                                                 {Null{}, "optPractice"}}) {
        Play other;
        other.insert("tblEventInfo", {{"fldEventType", type}});
        other.session().gSessionNum = 1;
        other.session().gMode = kEdit;
        other.load("frmEvent");
        EXPECT_TRUE(other.value(option)) << toText(type);
    }
}

TEST_F(EventScreen, LeavesTheTotalsOfAnEventWithoutGames) {
    play.insert("tblEventInfo", {{"fldEventName", "Old"},
                                 {"fldDateBowled", makeDate(2026, 1, 2)},
                                 {"fldNumGames", std::int64_t{3}},
                                 {"fldGmsRecorded", std::int64_t{3}},
                                 {"fldSeriesTot", std::int64_t{401}},
                                 {"fldSeriesAvg", 200.5}});
    play.session().gSessionNum = 1;
    editEvent();
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot", "fldSeriesAvg"}),
              std::vector<std::string>{"0|401|200.5"});
}

TEST_F(EventScreen, ShowsWhereAnEventCannotBeRead) {
    play.insert("tblEventInfo", {{"fldEventName", "Odd"}, {"fldNumGames", Null{}}});
    play.session().gSessionNum = 1;
    editEvent({{"Database Error", Answer::OK}});
    EXPECT_TRUE(play.display.boxes().back().text.starts_with(
        "Error Number: 94\r\nError: Invalid use of Null\r\nModule: Event Information, Load_Event.\r\n"));
    EXPECT_EQ(play.text("txtEvent"), "Odd");
}

TEST_F(EventScreen, GoesToTheDiskAtMostTwiceForASave) {
    play.insertEvent(3);
    play.insertGame(1, "N", 200);
    play.session().gSessionNum = 1;
    play.session().gMode = kEdit;
    play.load("frmEvent", {{"Incomplete event.", Answer::OK}});
    int commits = 0;
    sqlite3* const logbook = play.program().store().connection().database().getHandle();
    const auto count = [](void* counted) {
        ++*static_cast<int*>(counted);
        return 0;
    };
    sqlite3_commit_hook(logbook, count, &commits);
    play.click("cmdPrevious", {kSave, kStay});
    sqlite3_commit_hook(logbook, nullptr, nullptr);
    EXPECT_EQ(commits, 2);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSeriesTot"}), std::vector<std::string>{"200"});
}

TEST_F(EventScreen, IsNotSavedWhereItCannotBeStored) {
    addEvent();
    play.type("txtEvent", "Thursday League");
    play.click("cmdPrevious", {kSave, kStay});
    EXPECT_EQ(play.display.saves(), 1);
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE UPDATE ON tblEventInfo BEGIN SELECT RAISE(ABORT, 'full'); END");
    play.type("txtEvent", "Friday League");
    play.click("cmdPrevious", {kSave, {"Database Error"}, {"Database Error"}, kStay});
    EXPECT_EQ(play.display.saves(), 1);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}), std::vector<std::string>{"Thursday League"});
}

TEST_F(EventScreen, LeavesByEveryWayAfterTheSavePrompt) {
    addEvent();
    play.type("txtEvent", "Kept");
    play.click("mnuExit", {kSave, {"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    EXPECT_EQ(play.screen().name(), "frmEvent");
    EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::No);
    play.click("cmdMain", {kSave, {"Return to Main", Answer::No, "Return to main menu?"}});
    EXPECT_EQ(play.screen().name(), "frmEvent");
    play.display.forgetEvents();
    play.click("cmdMain", {kSave, {"Return to Main", Answer::Yes}});
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"unload frmEvent", "unload frmMain",
                                                               "load frmMain", "show frmMain"}));
    addEvent();
    play.display.forgetEvents();
    play.close({kSave, {"Required Field", Answer::Cancel}, kBack});
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"unload frmEvent", "show frmMain"}));
    addEvent();
    play.click("cmdExit", {kDoNotSave, kNotSaved, {"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}), (std::vector<std::string>{"Kept", ""}));
}

TEST_F(EventScreen, StoresTheOtherFieldsBesideANumberOfGamesThatIsNone) {
    addEvent();
    play.type("txtEvent", "Night");
    play.type("txtNumGames", "3 games");
    play.click("cmdPrevious", {kSave, {"Database Error", Answer::OK}, kStay});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName", "fldNumGames", "fldEventType"}),
              std::vector<std::string>{"Night|0|LEAGUE"});
}

TEST_F(EventScreen, EndsOnTooManyGames) {
    addEvent();
    play.type("txtNumGames", "40000");
    play.tab();
    EXPECT_EQ(play.display.events().back(), "end program");
}

TEST_F(EventScreen, HelpEntriesDoNothingAndItsKeyOpensTheHelp) {
    addEvent();
    play.display.forgetEvents();
    play.click("mnuTBKHelp");
    play.click("mnuAbout");
    EXPECT_TRUE(play.display.events().empty());
    play.press("F1");
    EXPECT_EQ(play.display.events(), std::vector<std::string>{"help 0"});
}

}  // namespace

}  // namespace tallybrook::test
