#include "BrowsePlay.h"
#include "browse/frmSearchEvents.h"

#include <fmt/format.h>

namespace tallybrook::test {

namespace {

const Expected kInUse{"Select Search Criteria", Answer::OK,
                      "This search criteria is already in use. Please choose another"};
const Expected kBadType{"Search Parameter Error", Answer::OK, "Invalid search parameter for Event Type."};
const std::string kSearchEvents = "Search Events, cmdSearch.";
constexpr const char* kSelectEvents = "SELECT tblEventInfo.* FROM tblEventInfo WHERE ";

class EventSearch : public testing::Test {
protected:
    EventSearch() {
        play.addEvent("Thursday League", {{"fldCenterName", "Brook Lanes"},
                                          {"fldComment", "cold and dry"},
                                          {"fldSeriesTot", std::int64_t{560}},
                                          {"fldSeriesAvg", 186.67}});
        play.addEvent("City Open", {{"fldCenterName", "Mill Bowl"},
                                    {"fldDateBowled", makeDate(2026, 3, 7)},
                                    {"fldEventType", "TOURNAMENT"},
                                    {"fldNumGames", std::int64_t{6}},
                                    {"fldSeriesTot", std::int64_t{1300}},
                                    {"fldSeriesAvg", 216.67}});
        play.addEvent("Warm up", {{"fldCenterName", "Brook Lanes"},
                                  {"fldDateBowled", makeDate(2026, 11, 14)},
                                  {"fldEventType", "PRACTICE"},
                                  {"fldNumGames", std::int64_t{2}},
                                  {"fldSeriesTot", std::int64_t{301}},
                                  {"fldSeriesAvg", 150.5}});
        open();
    }

    void open() { play.handOverTo("frmSearchEvents"); }
    [[nodiscard]] frmSearchEvents& search() {
        return dynamic_cast<frmSearchEvents&>(*play.program().screens.find("frmSearchEvents"));
    }
    [[nodiscard]] std::string at(const std::string& name, int row) {
        return name + "(" + std::to_string(row) + ")";
    }
    /// Fills in a row, and leaves its value by the keyboard.
    void fill(int row, const std::string& field, const std::string& op, const std::string& value,
              const std::vector<Expected>& boxes = {}) {
        play.pick(at("cboListField", row), field);
        play.pick(at("cboSearchOp", row), op);
        play.type(at("txtSearchVal", row), value);
        play.tab(boxes);
    }
    /// Adds a row behind one, joined as told: "And", "Or" or not at all.
    void addRow(int row, const std::string& join) {
        play.click(at("chkCriteria", row));
        if (!join.empty())
            play.click(at("opt" + join, row));
    }
    /// Searches, and returns the condition of the statement that was run.
    std::string condition(const std::vector<Expected>& boxes) {
        play.click("cmdSearch", boxes);
        const std::string& statement = search().adoTBKEvent.RecordSource();
        EXPECT_TRUE(statement.starts_with(kSelectEvents)) << statement;
        return statement.substr(std::string(kSelectEvents).size());
    }
    /// The boxes of a statement that is not understood: the refresh fails, then the look at its rows.
    static std::vector<Expected> refusal() {
        return {{"Database Error"}, BrowsePlay::failure(kSearchEvents, error::kObjectNotSet), kNoHits};
    }
    /// The number in the box of the refused statement, the third from the end.
    [[nodiscard]] std::string refusedNumber() {
        const std::string& text = play.display.boxes()[play.display.boxes().size() - 3].text;
        return text.substr(0, text.find("\r\n"));
    }
    /// The names of the hits.
    [[nodiscard]] std::vector<std::string> hits() {
        std::vector<std::string> names;
        for (int row = 1; row <= play.grid().rowCount(); ++row)
            names.push_back(play.grid().cell(row, 1));
        return names;
    }
    /// The enabled states of a row, in the order of its controls: "f", "o", "v", "c", "a", "r" where on.
    [[nodiscard]] std::string states(int row) {
        std::string on;
        for (const auto& [name, letter] :
             {std::pair{"cboListField", 'f'}, std::pair{"cboSearchOp", 'o'}, std::pair{"txtSearchVal", 'v'},
              std::pair{"chkCriteria", 'c'}, std::pair{"optAnd", 'a'}, std::pair{"optOr", 'r'}}) {
            if (const Control* const control = play.screen().find(at(name, row)); control != nullptr)
                on += control->isEnabled() ? letter : '-';
        }
        return on;
    }
    [[nodiscard]] std::string allStates() {
        std::string on;
        for (int row = 0; row < 5; ++row)
            on += (row == 0 ? "" : " ") + states(row);
        return on;
    }

    BrowsePlay play;
};

constexpr const char* kFreshEvents = "f----- ------ ------ ------ ---";

TEST_F(EventSearch, ComesUpWithOneFieldOpen) {
    EXPECT_EQ(play.session().gMode, kReport);
    EXPECT_EQ(play.screen().caption(), "Search Events");
    EXPECT_EQ(play.focus(), "cboListField(0)");
    EXPECT_EQ(allStates(), kFreshEvents);
    EXPECT_EQ(play.list("cboListField(0)").items(),
              (std::vector<std::string>{"Center Name", "Comment", "Date Bowled", "Event Name", "Event Type",
                                        "Number of Games", "Series Average", "Series Total"}));
    for (int row = 1; row < 5; ++row)
        EXPECT_TRUE(play.list(at("cboListField", row)).items().empty());
}

TEST_F(EventSearch, SpeaksOfItsControls) {
    const std::vector<std::pair<std::string, std::string>> captions{{"cmdSearch", "&Begin Search"},
                                                                    {"cmdReset", "&Reset Form"},
                                                                    {"cmdPrevious", "&Previous Screen"},
                                                                    {"cmdRetMain", "Return to &Main"},
                                                                    {"cmdExit", "E&xit"},
                                                                    {"mnuFile", "&File"},
                                                                    {"mnuExit", "E&xit"},
                                                                    {"mnuCommands", "&Commands"},
                                                                    {"mnuStartSearch", "&Begin Search"},
                                                                    {"mnuSearchReset", "&Reset Form"},
                                                                    {"mnuPrevious", "&Previous Screen"},
                                                                    {"mnuRetMain", "Return to &Main"},
                                                                    {"mnuHelp", "&Help"},
                                                                    {"mnuTBKHelp", "Tallybrook Help"},
                                                                    {"lblValue", "Value:"},
                                                                    {"lblSearchFor", "Search For:"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(play.control(name).caption(), caption) << name;
    const std::vector<std::pair<std::string, std::string>> tips{
        {"txtSearchVal(4)", "Select the value that you want to search on"},
        {"chkCriteria(3)", "Check this box if you want to add another search layer"},
        {"optAnd(0)",
         "The \"And\" button will search for events that meet the previous criteria AND the criteria you "
         "enter here"},
        {"optOr(3)", "The \"OR\" button selects criteria that matches either this case or the previous case"},
        {"cmdSearch", "Click here to start your search"},
        {"cmdReset", "Click here to reset the form"}};
    for (const auto& [name, tip] : tips)
        EXPECT_EQ(play.control(name).tip(), tip) << name;
}

TEST_F(EventSearch, LeadsTheTabFromRowToRow) {
    std::vector<std::string> expected;
    for (int row = 0; row < 5; ++row) {
        for (const char* name : {"cboListField", "cboSearchOp", "txtSearchVal"})
            expected.push_back(at(name, row));
        if (row < 4) {
            for (const char* name : {"chkCriteria", "optAnd", "optOr"})
                expected.push_back(at(name, row));
        }
    }
    for (const char* button : {"cmdSearch", "cmdReset", "cmdPrevious", "cmdRetMain", "cmdExit"})
        expected.emplace_back(button);
    EXPECT_EQ(play.tabOrder(), expected);
}

TEST_F(EventSearch, OffersTheOperatorsOfEachField) {
    const std::vector<std::string> numberWords{"is equal to", "is less or equal to", "is greater or equal to",
                                               "is less than", "is greater than"};
    const std::vector<std::pair<std::string, std::vector<std::string>>> cases{
        {"Center Name", {"is", "contains"}},
        {"Comment", {"contains"}},
        {"Date Bowled", {"is on", "is on or before", "is on or after", "is before", "is after"}},
        {"Event Name", {"is", "contains"}},
        {"Event Type", {"is"}},
        {"Number of Games", numberWords},
        {"Series Average", numberWords},
        {"Series Total", numberWords}};
    for (const auto& [field, words] : cases) {
        play.pick("cboListField(0)", field);
        EXPECT_EQ(play.list("cboSearchOp(0)").items(), words) << field;
        EXPECT_EQ(play.focus(), "cboSearchOp(0)");
        EXPECT_EQ(states(0), "fo----");
    }
}

TEST_F(EventSearch, OpensTheValueWithTheOperator) {
    play.pick("cboListField(0)", "Series Total");
    play.pick("cboSearchOp(0)", "is less than");
    EXPECT_EQ(play.focus(), "txtSearchVal(0)");
    EXPECT_EQ(states(0), "fov---");
    play.type("txtSearchVal(0)", "600");
    play.tab();
    EXPECT_EQ(play.focus(), "cmdSearch");
    EXPECT_EQ(states(0), "fovc--");
    play.focusOn("txtSearchVal(0)");
    EXPECT_TRUE(dynamic_cast<TextBox&>(play.control("txtSearchVal(0)")).isAllSelected());
}

struct OneRow {
    std::string field;
    std::string op;
    std::string value;
    std::string condition;  // with the sort clause
    std::vector<std::string> hits;
};

TEST_F(EventSearch, MakesAConditionOfEachFieldAndOperator) {
    const std::string league = "Thursday League";
    const std::string cup = "City Open";
    const std::string warm = "Warm up";
    const std::vector<OneRow> cases{
        {"Center Name",
         "is",
         "brook lanes",
         "fldCenterName = 'brook lanes' ORDER BY fldCenterName",
         {league, warm}},
        {"Center Name", "contains", "OW", "fldCenterName LIKE '%OW%' ORDER BY fldCenterName", {cup}},
        {"Comment", "contains", "dry", "fldComment LIKE '%dry%' ORDER BY fldComment", {league}},
        {"Date Bowled", "is on", "3/7/2026", "fldDateBowled = #3/7/2026# ORDER BY fldDateBowled", {cup}},
        {"Date Bowled",
         "is on or before",
         "Nov 12, 2026",
         "fldDateBowled <= #11/12/2026# ORDER BY fldDateBowled",
         {cup, league}},
        {"Date Bowled",
         "is on or after",
         "2026-11-12",
         "fldDateBowled >= #11/12/2026# ORDER BY fldDateBowled",
         {league, warm}},
        {"Date Bowled", "is before", "11/12", "fldDateBowled < #11/12/2026# ORDER BY fldDateBowled", {cup}},
        {"Date Bowled",
         "is after",
         "11/12/26 9:00 PM",
         "fldDateBowled > #11/12/2026# ORDER BY fldDateBowled",
         {warm}},
        {"Event Name", "is", "city open", "fldEventName = 'city open' ORDER BY fldEventName", {cup}},
        {"Event Name", "contains", "", "fldEventName LIKE '%%' ORDER BY fldEventName", {cup, league, warm}},
        {"Event Type", "is", "practice", "fldEventType = 'PRACTICE' ORDER BY fldEventType", {warm}},
        {"Event Type", "is", "Tournament", "fldEventType = 'TOURNAMENT' ORDER BY fldEventType", {cup}},
        {"Event Type", "is", "LEAGUE", "fldEventType = 'LEAGUE' ORDER BY fldEventType", {league}},
        {"Number of Games", "is equal to", "6 or so", "fldNumGames = 6 ORDER BY fldNumGames", {cup}},
        {"Number of Games",
         "is less or equal to",
         "3",
         "fldNumGames <= 3 ORDER BY fldNumGames",
         {warm, league}},
        {"Number of Games",
         "is greater than",
         "few",
         "fldNumGames > 0 ORDER BY fldNumGames",
         {warm, league, cup}},
        {"Series Average",
         "is greater than",
         "180.5",
         "fldSeriesAvg > 180.5 ORDER BY fldSeriesAvg",
         {league, cup}},
        {"Series Average",
         "is greater or equal to",
         "150.50",
         "fldSeriesAvg >= 150.5 ORDER BY fldSeriesAvg",
         {warm, league, cup}},
        {"Series Total",
         "is less than",
         "1e16",
         "fldSeriesTot < 10000000000000000 ORDER BY fldSeriesTot",
         {warm, league, cup}},
        {"Series Total",
         "is greater than",
         "-.5",
         "fldSeriesTot > -0.5 ORDER BY fldSeriesTot",
         {warm, league, cup}},
    };
    for (const OneRow& one : cases) {
        fill(0, one.field, one.op, one.value);
        const std::string count = fmt::format(
            "Based on your search criteria, {} event(s) were found.\r\n"
            "Highlight an event and click Retrieve Record to create a report.",
            one.hits.size());
        EXPECT_EQ(condition({{kFound.title, Answer::OK, count}}), one.condition);
        EXPECT_EQ(hits(), one.hits) << one.condition;
        play.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
        play.click("cmdPrevious", {{"Previous Screen", Answer::Yes}});
        open();
    }
}

TEST_F(EventSearch, HandsOverToTheList) {
    fill(0, "Series Total", "is greater than", "500");
    play.display.forgetEvents();
    play.click("cmdSearch", {kFound});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmSearchEvents", "load frmEventList", "show frmEventList"}));
    EXPECT_TRUE(search().isLoaded());
    play.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmSearchEvents");
    EXPECT_EQ(play.text("txtSearchVal(0)"), "500");
    EXPECT_EQ(play.focus(), "cmdSearch");
    EXPECT_EQ(condition({kFound}), "fldSeriesTot > 500 ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, TellsOfNoHitsAndStartsAfresh) {
    fill(0, "Series Total", "is greater than", "9999");
    play.display.forgetEvents();
    EXPECT_EQ(condition({kNoHits}), "fldSeriesTot > 9999 ORDER BY fldSeriesTot");
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_TRUE(play.display.events().empty());
    EXPECT_EQ(allStates(), kFreshEvents);
    EXPECT_EQ(play.text("txtSearchVal(0)"), "");
    EXPECT_EQ(play.list("cboListField(0)").items().size(), 16U);
}

TEST_F(EventSearch, ComesToTheFrontWhereNothingIsFound) {
    fill(0, "Series Total", "is greater than", "9999");
    play.click("mnuHelpAbout");
    play.display.forgetEvents();
    play.run([&] { person::click(BrowsePlay::control(search(), "cmdSearch")); }, {kNoHits});
    EXPECT_EQ(play.display.events(), std::vector<std::string>{"raise frmSearchEvents"});
}

TEST_F(EventSearch, TakesAFieldOnce) {
    play.pick("cboListField(0)", "Series Total");
    play.pick("cboListField(0)", "Series Total", {kInUse});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.focus(), "cboListField(0)");
    play.pick("cboListField(0)", "Comment");
    play.pick("cboListField(0)", "Series Total", {kInUse});
    EXPECT_EQ(play.list("cboListField(0)").picked(), "Series Total");
    EXPECT_EQ(play.list("cboSearchOp(0)").items(), std::vector<std::string>{"contains"});
    play.pick("cboSearchOp(0)", "contains");
    play.tab();
    addRow(0, "And");
    play.pick("cboListField(1)", "Comment", {kInUse});
    EXPECT_EQ(states(1), "f-----");
}

TEST_F(EventSearch, KeepsOperatorAndValueWhereAnotherFieldIsChosen) {
    fill(0, "Series Total", "is equal to", "1,300");
    play.pick("cboListField(0)", "Series Average");
    EXPECT_EQ(play.list("cboSearchOp(0)").picked(), "");
    EXPECT_EQ(play.text("txtSearchVal(0)"), "1,300");
    EXPECT_EQ(condition({kNoHits}), "fldSeriesAvg = 1 ORDER BY fldSeriesAvg");
}

TEST_F(EventSearch, KeepsTheValueOfTheOperatorThatStoodWhenItWasLeft) {
    fill(0, "Event Name", "contains", "open");
    play.pick("cboSearchOp(0)", "is");
    EXPECT_EQ(play.focus(), "txtSearchVal(0)");
    play.pick("cboSearchOp(0)", "contains");
    play.tab();
    play.pick("cboSearchOp(0)", "is");
    play.run([&] { play.control("mnuStartSearch").click(); }, {kNoHits});  // a menu takes no focus
    EXPECT_EQ(search().adoTBKEvent.RecordSource(),
              std::string(kSelectEvents) + "fldEventName = '%open%' ORDER BY fldEventName");
}

TEST_F(EventSearch, RefusesAnUnknownEventType) {
    play.pick("cboListField(0)", "Event Type");
    play.pick("cboSearchOp(0)", "is");
    play.type("txtSearchVal(0)", "leagues");
    EXPECT_EQ(play.click("cmdSearch", {kBadType}), Arrival::Kept);
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.focus(), "txtSearchVal(0)");
    EXPECT_EQ(play.text("txtSearchVal(0)"), "");
    EXPECT_EQ(states(0), "fovc--");
    play.type("txtSearchVal(0)", "league");
    play.tab();
    EXPECT_EQ(condition({kFound}), "fldEventType = 'LEAGUE' ORDER BY fldEventType");
}

TEST_F(EventSearch, KeepsTheValueThatABadEventTypeWouldReplace) {
    fill(0, "Event Type", "is", "league");
    play.type("txtSearchVal(0)", "cup");
    play.tab({kBadType});
    play.run([&] { play.control("mnuStartSearch").click(); }, {kFound});
    EXPECT_EQ(hits(), std::vector<std::string>{"Thursday League"});
}

TEST_F(EventSearch, OpensTheRowBehind) {
    fill(0, "Center Name", "is", "Brook Lanes");
    play.click("chkCriteria(0)");
    EXPECT_EQ(states(0), "fovcar");
    EXPECT_EQ(states(1), "f-----");
    EXPECT_EQ(play.list("cboListField(1)").items().size(), 8U);
    EXPECT_FALSE(play.value("optAnd(0)"));
    EXPECT_FALSE(play.value("optOr(0)"));
    play.click("optAnd(0)");
    play.click("optOr(0)");
    EXPECT_FALSE(play.value("optAnd(0)"));
    EXPECT_TRUE(play.value("optOr(0)"));
}

TEST_F(EventSearch, JoinsEachPairOfRowsOnItsOwn) {
    fill(0, "Series Total", "is greater than", "0");
    addRow(0, "And");
    fill(1, "Number of Games", "is greater than", "0");
    addRow(1, "Or");
    EXPECT_TRUE(play.value("optAnd(0)"));
    EXPECT_TRUE(play.value("optOr(1)"));
}

TEST_F(EventSearch, StringsTheRowsTogetherWithoutBrackets) {
    fill(0, "Event Name", "is", "warm up");
    addRow(0, "Or");
    fill(1, "Number of Games", "is greater than", "3");
    addRow(1, "And");
    fill(2, "Center Name", "contains", "brook");
    EXPECT_EQ(condition({kFound}),
              "fldEventName = 'warm up' OR fldNumGames > 3 AND fldCenterName LIKE '%brook%' "
              "ORDER BY fldEventName");
    EXPECT_EQ(hits(), std::vector<std::string>{"Warm up"});
}

TEST_F(EventSearch, TakesFourRows) {
    fill(0, "Series Total", "is greater than", "0");
    addRow(0, "And");
    fill(1, "Series Average", "is greater than", "0");
    addRow(1, "And");
    fill(2, "Number of Games", "is greater than", "2");
    addRow(2, "And");
    fill(3, "Event Type", "is", "tournament");
    EXPECT_EQ(allStates(), "fovcar fovcar fovcar fovc-- ---");
    EXPECT_EQ(condition({kFound}),
              "fldSeriesTot > 0 AND fldSeriesAvg > 0 AND fldNumGames > 2 AND fldEventType = 'TOURNAMENT' "
              "ORDER BY fldSeriesTot");
    EXPECT_EQ(hits(), std::vector<std::string>{"City Open"});
}

TEST_F(EventSearch, PassesOverARowThatIsNotComplete) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "");
    play.pick("cboListField(1)", "Comment");
    EXPECT_EQ(condition({kFound}), "fldSeriesTot > 500 ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, BreaksOnTheJoinOfTheLastRow) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    EXPECT_EQ(condition(refusal()), "fldSeriesTot > 500 AND  ORDER BY fldSeriesTot");
    EXPECT_EQ(refusedNumber(), "Error Number: -2147217900");
    EXPECT_EQ(play.display.boxes()[play.display.boxes().size() - 3].icon, Icon::Critical);
    EXPECT_EQ(allStates(), kFreshEvents);
}

TEST_F(EventSearch, BreaksOnAMissingJoin) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "");
    fill(1, "Number of Games", "is greater than", "3");
    EXPECT_EQ(condition(refusal()), "fldSeriesTot > 500fldNumGames > 3 ORDER BY fldSeriesTot");
    EXPECT_EQ(refusedNumber(), "Error Number: -2147217900");
}

TEST_F(EventSearch, BreaksOnAnApostrophe) {
    fill(0, "Event Name", "is", "Warm up at O'Neil");
    EXPECT_EQ(condition(refusal()), "fldEventName = 'Warm up at O'Neil' ORDER BY fldEventName");
    EXPECT_EQ(refusedNumber(), "Error Number: -2147217900");
}

TEST_F(EventSearch, CannotLeaveItsSelectByAQuote) {
    fill(0, "Event Name", "is", "x' OR fldEventName = 'City Open");
    EXPECT_EQ(condition({kFound}), "fldEventName = 'x' OR fldEventName = 'City Open' ORDER BY fldEventName");
    EXPECT_EQ(hits(), std::vector<std::string>{"City Open"});
    play.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
    play.type("txtSearchVal(0)",
              "x'; DELETE FROM tblEventInfo; SELECT * FROM tblEventInfo WHERE fldEventName = '");
    play.click("cmdSearch", refusal());
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSessionNum"}).size(), 3U);
}

TEST_F(EventSearch, BreaksWithoutACompleteRow) {
    EXPECT_EQ(condition(refusal()), " ORDER BY ");
    EXPECT_EQ(refusedNumber(), "Error Number: -2147217900");
    play.pick("cboListField(0)", "Series Total");
    EXPECT_EQ(condition(refusal()), " ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, ShowsOneBoxForEachRowBeyondTheLists) {
    fill(0, "Series Total", "is greater than", "500");
    for (int again = 0; again < 5; ++again) {
        play.focusOn("txtSearchVal(0)");
        play.tab();
    }
    EXPECT_EQ(condition({BrowsePlay::failure(kSearchEvents, error::kSubscriptOutOfRange), kFound}),
              "fldSeriesTot > 500 ORDER BY fldSeriesTot");
    EXPECT_EQ(hits(), (std::vector<std::string>{"Thursday League", "City Open"}));
    play.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
    play.focusOn("txtSearchVal(0)");
    const Expected beyond = BrowsePlay::failure(kSearchEvents, error::kSubscriptOutOfRange);
    condition({beyond, beyond, kFound});
}

TEST_F(EventSearch, CountsALeavingAfterAnError) {
    play.pick("cboListField(0)", "Event Type");
    play.pick("cboSearchOp(0)", "is");
    for (int again = 0; again < 5; ++again)
        play.tab({kBadType});
    play.type("txtSearchVal(0)", "league");
    condition({BrowsePlay::failure(kSearchEvents, error::kSubscriptOutOfRange), kFound});
}

TEST_F(EventSearch, KeepsAWrongTypeUntilItHasToldOfIt) {
    play.pick("cboListField(0)", "Event Type");
    play.pick("cboSearchOp(0)", "is");
    play.type("txtSearchVal(0)", "open");
    Expected box = kBadType;
    std::string before;
    box.meanwhile = [&] { before = play.text("txtSearchVal(0)"); };
    play.tab({box});
    EXPECT_EQ(before, "open");
    EXPECT_EQ(play.text("txtSearchVal(0)"), "");
}

TEST_F(EventSearch, RemovesTheRowBehind) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    addRow(1, "Or");
    fill(2, "Comment", "contains", "x");
    play.click("chkCriteria(0)");
    EXPECT_EQ(states(0), "fovc--");
    EXPECT_EQ(states(1), "fovcar");
    EXPECT_EQ(states(2), "fovc--");
    EXPECT_FALSE(play.value("optAnd(0)"));
    EXPECT_TRUE(play.list("cboListField(1)").items().empty());
    EXPECT_TRUE(play.list("cboSearchOp(1)").items().empty());
    EXPECT_EQ(play.text("txtSearchVal(1)"), "");
    EXPECT_EQ(play.list("cboListField(2)").picked(), "Comment");
    EXPECT_EQ(play.text("txtSearchVal(2)"), "x");
    EXPECT_EQ(condition(refusal()), "fldSeriesTot > 500fldComment LIKE '%x%' ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, LeavesNoJoinBehindWithARemovedRow) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    play.click("chkCriteria(0)");
    EXPECT_EQ(condition({kFound}), "fldSeriesTot > 500 ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, KeepsTheValueAndTheUseOfARemovedRow) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    play.click("chkCriteria(0)");
    addRow(0, "And");
    play.pick("cboListField(1)", "Event Name", {kInUse});
    play.pick("cboListField(1)", "Center Name");
    play.pick("cboSearchOp(1)", "contains");
    play.run([&] { play.control("mnuStartSearch").click(); }, {kNoHits});
    EXPECT_EQ(search().adoTBKEvent.RecordSource(),
              std::string(kSelectEvents) +
                  "fldSeriesTot > 500 AND fldCenterName LIKE '%city%' ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, ForgetsTheOperatorOfARemovedRow) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    play.click("chkCriteria(0)");
    addRow(0, "");
    play.pick("cboListField(1)", "Center Name");  // its value is there, its operator is not
    EXPECT_EQ(condition({kFound}), "fldSeriesTot > 500 ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, RemovesNothingWithoutAField) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    play.click("chkCriteria(0)");
    EXPECT_FALSE(play.value("chkCriteria(0)"));
    EXPECT_EQ(states(0), "fovcar");
    EXPECT_EQ(states(1), "f-----");
    EXPECT_TRUE(play.value("optAnd(0)"));
    EXPECT_EQ(condition(refusal()), "fldSeriesTot > 500 AND  ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, ResetsTheFormOnYes) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    const std::string words = "Are you sure you want to reset the form?";
    play.click("cmdReset", {{"Reset Form", Answer::No, words}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(states(1), "fovc--");
    play.click("mnuSearchReset", {{"Reset Form", Answer::Yes, words}});
    EXPECT_EQ(allStates(), kFreshEvents);
    for (int row = 0; row < 5; ++row) {
        EXPECT_EQ(play.text(at("txtSearchVal", row)), "");
        EXPECT_TRUE(play.list(at("cboSearchOp", row)).items().empty());
    }
    EXPECT_FALSE(play.value("chkCriteria(0)"));
    EXPECT_TRUE(play.list("cboListField(1)").items().empty());
}

TEST_F(EventSearch, ClearsAllButTheMarksOfTheJoins) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    addRow(1, "Or");
    fill(2, "Number of Games", "is equal to", "6");
    addRow(2, "And");
    fill(3, "Comment", "contains", "x");
    addRow(3, "Or");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(allStates(), kFreshEvents);
    for (int row = 0; row < 4; ++row) {
        EXPECT_FALSE(play.value(at("chkCriteria", row))) << row;
        EXPECT_TRUE(play.list(at("cboListField", row + 1)).items().empty()) << row;
        EXPECT_TRUE(play.list(at("cboSearchOp", row + 1)).items().empty()) << row;
        EXPECT_EQ(play.text(at("txtSearchVal", row + 1)), "") << row;
        EXPECT_EQ(play.value(at("optAnd", row)), row % 2 == 0) << row;
        EXPECT_EQ(play.value(at("optOr", row)), row % 2 == 1) << row;
    }
}

TEST_F(EventSearch, KeepsTheFirstRowAndTheJoinsThroughAReset) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "Or");
    fill(1, "Event Name", "contains", "city");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(condition(refusal()), " ORDER BY fldSeriesTot");
    fill(0, "Series Total", "is greater than", "600");
    EXPECT_EQ(condition(refusal()), "fldSeriesTot > 600 OR  ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, FindsItsWayOutOfAJoinThatIsLeftOver) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    EXPECT_EQ(condition(refusal()), "fldSeriesTot > 500 AND  ORDER BY fldSeriesTot");
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "And");
    fill(1, "Event Name", "contains", "city");
    EXPECT_EQ(condition({kFound}), "fldSeriesTot > 500 AND fldEventName LIKE '%city%' ORDER BY fldSeriesTot");
    play.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
    play.click("cmdPrevious", {{"Previous Screen", Answer::Yes}});
    open();
    fill(0, "Series Total", "is greater than", "500");
    EXPECT_EQ(condition({kFound}), "fldSeriesTot > 500 ORDER BY fldSeriesTot");
}

TEST_F(EventSearch, KeepsItsRowsUntilItHasToldOfNoHits) {
    fill(0, "Event Name", "is", "nowhere");
    Expected box = kNoHits;
    std::string value;
    box.meanwhile = [&] { value = play.text("txtSearchVal(0)"); };
    play.click("cmdSearch", {box});
    EXPECT_EQ(value, "nowhere");
    EXPECT_EQ(play.text("txtSearchVal(0)"), "");
}

TEST_F(EventSearch, GivesTheFieldsBackWithAReset) {
    play.pick("cboListField(0)", "Comment");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    play.pick("cboListField(0)", "Comment");
    EXPECT_EQ(states(0), "fo----");
}

TEST_F(EventSearch, HandsTheFocusOnWhenAResetClosesItsControl) {
    fill(0, "Series Total", "is greater than", "500");
    addRow(0, "Or");
    play.focusOn("cboListField(1)");
    play.run([&] { play.control("mnuSearchReset").click(); }, {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(play.focus(), "cmdSearch");
}

TEST_F(EventSearch, LengthensItsFirstListWithEachReset) {
    for (int again = 0; again < 2; ++again)
        play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(play.list("cboListField(0)").items().size(), 24U);
    EXPECT_EQ(play.list("cboListField(0)").items()[23], "Series Total");
    play.pick("cboListField(0)", 7);
    play.pick("cboListField(0)", 8);
    EXPECT_TRUE(play.hasEndedWith(error::kSubscriptOutOfRange));
}

TEST_F(EventSearch, EndsOnADateThatCannotBeRead) {
    for (const char* date : {"", "yesterday", "2/30/2026", "5"}) {
        BrowsePlay other;
        other.handOverTo("frmSearchEvents");
        other.pick("cboListField(0)", "Date Bowled");
        other.pick("cboSearchOp(0)", "is on");
        other.type("txtSearchVal(0)", date);
        other.click("cmdSearch");
        EXPECT_TRUE(other.hasEndedWith(error::kTypeMismatch)) << date;
    }
}

TEST_F(EventSearch, EndsOnANumberBeyondADouble) {
    play.pick("cboListField(0)", "Series Total");
    play.pick("cboSearchOp(0)", "is equal to");
    play.type("txtSearchVal(0)", "1e999");
    play.tab();
    EXPECT_TRUE(play.hasEndedWith(error::kOverflow));
}

TEST_F(EventSearch, EndsWhenTheFifthValueIsLeft) {
    fill(0, "Series Total", "is greater than", "0");
    addRow(0, "And");
    fill(1, "Series Average", "is greater than", "0");
    addRow(1, "And");
    fill(2, "Number of Games", "is greater than", "2");
    addRow(2, "And");
    fill(3, "Event Type", "is", "tournament");
    addRow(3, "And");
    play.pick("cboListField(4)", "Comment");
    play.pick("cboSearchOp(4)", "contains");
    play.type("txtSearchVal(4)", "x");
    play.click("cmdSearch");
    EXPECT_TRUE(play.hasEndedWith(error::kNoControlArrayElement));
}

TEST_F(EventSearch, LeavesWhenARecordIsNotThere) {
    const Handler step = search().form.handler();
    play.run([&] { step([] { throw RunTimeError(error::kNoCurrentRow); }); },
             {{"Database Error", Answer::OK,
               "Record could not be retrieved.\r\nThis could be due to timing.\r\n"
               "Click OK to return to the previous screen.\r\n"
               "Debug Information: Module - Search Events, cmdSearch"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(EventSearch, StaysUntilItHasToldOfAMissingRecord) {
    const Handler step = search().form.handler();
    std::string before;
    play.run([&] { step([] { throw RunTimeError(error::kNoCurrentRow); }); },
             {{"Database Error", Answer::OK, "", [&] { before = play.screen().name(); }}});
    EXPECT_EQ(before, "frmSearchEvents");
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(EventSearch, GoesBackToTheScreenBefore) {
    const std::string words = "Return to previous screen?";
    play.click("cmdPrevious", {{"Previous Screen", Answer::No, words}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    play.close({{"Previous Screen", Answer::No, words}});
    EXPECT_EQ(play.screen().name(), "frmSearchEvents");
    play.click("mnuPrevious", {{"Previous Screen", Answer::Yes, words}});
    EXPECT_EQ(play.screen().name(), "frmMain");
    EXPECT_EQ(play.program().screens.loaded().size(), 1U);
}

TEST_F(EventSearch, ReturnsToTheMainMenu) {
    const std::string words = "Are you sure you want to return to the main screen?";
    play.click("cmdRetMain", {{"Return to Main", Answer::No, words}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    play.display.forgetEvents();
    play.click("mnuRetMain", {{"Return to Main", Answer::Yes, words}});
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"unload frmSearchEvents", "unload frmMain",
                                                               "load frmMain", "show frmMain"}));
}

TEST_F(EventSearch, ExitsHelpsAndTellsAboutItself) {
    play.click("cmdExit", {{"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    play.press("F1");
    EXPECT_EQ(play.lastEvent(), "help 0");
    play.click("mnuHelpAbout");
    EXPECT_EQ(play.screen().name(), "frmAbout");
    play.click("cmdAboutOK");
    play.click("mnuExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(EventSearch, IsReachedFromTheReports) {
    BrowsePlay other;
    other.click("mnuReports");
    other.session().gMode = kAdd;
    other.click("mnuRptEvent");
    EXPECT_EQ(other.screen().name(), "frmSearchEvents");
    EXPECT_EQ(other.session().gMode, kReport);
}

}  // namespace

}  // namespace tallybrook::test
