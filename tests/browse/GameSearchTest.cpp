#include "BrowsePlay.h"
#include "browse/frmSearchGames.h"

namespace tallybrook::test {

namespace {

const Expected kBadPair{"Tallybrook - Invalid Data", Answer::OK,
                        "Invalid lane pair. Enter a valid lane pair as L-R (e.g. 5-6).\r\nPlease re-enter."};
const std::string kSearchGames = "frmSearch Games, cmdSearch.";
constexpr const char* kSelectGames = "SELECT tblGameInfo.* FROM tblGameInfo WHERE ";

class GameSearch : public testing::Test {
protected:
    GameSearch() {
        addGame(1, "5-6", 211);
        addGame(2, "5-6", 187);
        addGame(3, "13-14", 234);
        addGame(4, "5-6", 205);
        play.handOverTo("frmSearchGames");
    }
    void addGame(int number, const char* pair, int score) {
        play.addGame(1, number, {{"fldLanePair", pair}, {"fldGameScore", std::int64_t{score}}});
    }
    [[nodiscard]] frmSearchGames& search() {
        return dynamic_cast<frmSearchGames&>(*play.program().screens.find("frmSearchGames"));
    }
    void fill(int row, const std::string& field, const std::string& op, const std::string& value,
              const std::vector<Expected>& boxes = {}) {
        const std::string index = "(" + std::to_string(row) + ")";
        play.pick("cboSearchFld" + index, field);
        play.pick("cboSearchOp" + index, op);
        play.type("txtSearchVal" + index, value);
        play.tab(boxes);
    }
    std::string condition(const std::vector<Expected>& boxes) {
        play.click("cmdSearch", boxes);
        const std::string& statement = search().adoTBKGame.RecordSource();
        EXPECT_TRUE(statement.starts_with(kSelectGames)) << statement;
        return statement.substr(std::string(kSelectGames).size());
    }
    /// The boxes of a statement that is refused: the refresh fails, then the look at its rows.
    static std::vector<Expected> refusal() {
        return {{"Database Error"}, BrowsePlay::failure(kSearchGames, error::kObjectNotSet), kNoHits};
    }
    [[nodiscard]] std::vector<std::string> scores() {
        std::vector<std::string> scores;
        for (int row = 1; row <= play.grid().rowCount(); ++row)
            scores.push_back(play.grid().cell(row, 6));
        return scores;
    }
    /// The enabled states in tab order.
    [[nodiscard]] std::string states() {
        std::string on;
        for (const char* name : {"cboSearchFld(0)", "cboSearchOp(0)", "txtSearchVal(0)", "chkCriteria",
                                 "optAnd", "optOr", "cboSearchFld(1)", "cboSearchOp(1)", "txtSearchVal(1)"})
            on += play.enabled(name) ? '+' : '-';
        return on;
    }

    BrowsePlay play;
};

constexpr const char* kFreshGames = "+--------";

TEST_F(GameSearch, ComesUpWithOneFieldOpen) {
    EXPECT_EQ(play.session().gMode, kReport);
    EXPECT_EQ(play.screen().caption(), "Game Search");
    EXPECT_EQ(play.focus(), "cboSearchFld(0)");
    EXPECT_EQ(states(), kFreshGames);
    EXPECT_EQ(play.list("cboSearchFld(0)").items(), (std::vector<std::string>{"Game Score", "Lane Pair"}));
    EXPECT_TRUE(play.list("cboSearchFld(1)").items().empty());
}

TEST_F(GameSearch, SpeaksOfItsControls) {
    play.expectSeen(
        {{"lblTitle", "Game Search"},
         {"lblSearchFor", "Search For:"},
         {"lblValue", "Value:"},
         {"txtSearchVal(0)", "", "Select the value that you want to search on"},
         {"txtSearchVal(1)", "", "Select the value that you want to search on"},
         {"optAnd", "And",
          "The \"And\" button will search for events that meet the previous criteria AND the criteria you "
          "enter here"},
         {"optOr", "Or",
          "The \"OR\" button selects criteria that matches either this case or the previous case"},
         {"cmdSearch", "&Begin Search", "Click here to start your search"},
         {"cmdReset", "&Reset Form", "Click here to reset the form"},
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
         {"mnuHelpAbout", "&About"}});
    EXPECT_EQ(play.control("chkCriteria").tip(), "Check this box if you want to add another search layer");
}

TEST_F(GameSearch, LeadsTheTabFromRowToRow) {
    EXPECT_EQ(play.tabOrder(), (std::vector<std::string>{
                                   "cboSearchFld(0)", "cboSearchOp(0)", "txtSearchVal(0)", "chkCriteria",
                                   "optAnd", "optOr", "cboSearchFld(1)", "cboSearchOp(1)", "txtSearchVal(1)",
                                   "cmdSearch", "cmdReset", "cmdPrevious", "cmdRetMain", "cmdExit"}));
}

TEST_F(GameSearch, OffersTheOperatorsOfEachField) {
    play.pick("cboSearchFld(0)", "Game Score");
    EXPECT_EQ(play.list("cboSearchOp(0)").items(),
              (std::vector<std::string>{"is equal to", "is less or equal to", "is greater or equal to",
                                        "is less than", "is greater than"}));
    play.pick("cboSearchFld(0)", "Lane Pair");
    EXPECT_EQ(play.list("cboSearchOp(0)").items(), std::vector<std::string>{"is"});
}

TEST_F(GameSearch, MakesAConditionOfEachOperator) {
    const std::vector<std::pair<std::string, std::string>> cases{{"is equal to", "= 205"},
                                                                 {"is less or equal to", "<= 205"},
                                                                 {"is greater or equal to", ">= 205"},
                                                                 {"is less than", "< 205"},
                                                                 {"is greater than", "> 205"}};
    for (const auto& [words, sql] : cases) {
        fill(0, "Game Score", words, "205 pins");
        EXPECT_EQ(condition({kFound}), "fldGameScore " + sql + " ORDER BY fldGameScore");
        play.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
        play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    }
}

TEST_F(GameSearch, FindsScoresOnALanePair) {
    fill(0, "Game Score", "is greater than", "200");
    play.click("chkCriteria");
    EXPECT_EQ(states(), "+++++++--");
    play.click("optAnd");
    fill(1, "Lane Pair", "is", "5-6");
    EXPECT_EQ(states(), "+++++++++");
    play.display.forgetEvents();
    EXPECT_EQ(condition({{kFound.title, Answer::OK,
                          "Based on your search criteria, 2 games(s) were found.\r\n"
                          "Highlight a game and click Retrieve Record to create a report."}}),
              "fldGameScore > 200 AND fldLanePair = '5-6' ORDER BY fldGameScore");
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmSearchGames", "load frmGameList", "show frmGameList"}));
    EXPECT_EQ(scores(), (std::vector<std::string>{"205", "211"}));
}

TEST_F(GameSearch, FindsEitherOfTwo) {
    fill(0, "Lane Pair", "is", "13-14");
    play.click("chkCriteria");
    play.click("optAnd");
    play.click("optOr");
    EXPECT_FALSE(play.value("optAnd"));
    fill(1, "Game Score", "is less than", "190");
    EXPECT_EQ(condition({kFound}), "fldLanePair = '13-14' OR fldGameScore < 190 ORDER BY fldLanePair");
    EXPECT_EQ(scores(), (std::vector<std::string>{"234", "187"}));
}

TEST_F(GameSearch, RefusesABadLanePair) {
    play.pick("cboSearchFld(0)", "Lane Pair");
    play.pick("cboSearchOp(0)", "is");
    for (const char* bad : {"6-5", "5-7", "4-5", "5", ""}) {
        play.type("txtSearchVal(0)", bad);
        EXPECT_EQ(play.click("cmdSearch", {kBadPair}), Arrival::Kept) << bad;
        EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
        EXPECT_EQ(play.focus(), "txtSearchVal(0)");
        EXPECT_EQ(play.text("txtSearchVal(0)"), bad);
        EXPECT_TRUE(dynamic_cast<TextBox&>(play.control("txtSearchVal(0)")).isAllSelected());
        EXPECT_FALSE(play.enabled("chkCriteria"));
    }
    play.type("txtSearchVal(0)", "13-14");
    play.tab();
    EXPECT_TRUE(play.enabled("chkCriteria"));
    // Nothing was counted while the pair was bad, so there is one row to look at, and no failure.
    EXPECT_EQ(condition({kFound}), "fldLanePair = '13-14' ORDER BY fldLanePair");
}

TEST_F(GameSearch, RefusesABadLanePairWhereverTheFocusWouldGo) {
    play.pick("cboSearchFld(0)", "Lane Pair");
    play.pick("cboSearchOp(0)", "is");
    play.type("txtSearchVal(0)", "4-5");
    const auto stays = [&] {
        return play.focus() == "txtSearchVal(0)" && !play.enabled("chkCriteria") &&
               play.screen().name() == "frmSearchGames";
    };
    EXPECT_EQ(play.pick("cboSearchFld(0)", "Game Score", {kBadPair}), Arrival::Kept);
    EXPECT_TRUE(stays());
    EXPECT_EQ(play.list("cboSearchFld(0)").picked(), "Lane Pair");
    for (const char* const key : {"Tab", "Shift+Tab", "Alt+R"}) {
        play.run([&] { person::press(play.screen(), person::readKey(key)); }, {kBadPair});
        EXPECT_TRUE(stays()) << key;
    }
    EXPECT_EQ(play.click("cmdPrevious", {kBadPair}), Arrival::Kept);
    EXPECT_TRUE(stays());
    play.click("mnuSearchReset", {{"Reset Form", Answer::No}});  // a menu takes no focus
    play.press("F1");
    EXPECT_TRUE(stays());
    EXPECT_EQ(play.text("txtSearchVal(0)"), "4-5");
}

TEST_F(GameSearch, KeepsALanePairAsItWasTyped) {
    fill(0, "Lane Pair", "is", "5x-6");
    EXPECT_EQ(condition({kNoHits}), "fldLanePair = '5x-6' ORDER BY fldLanePair");
}

TEST_F(GameSearch, EndsOnALaneBeyondSixteenBits) {
    fill(0, "Lane Pair", "is", "40001-40002");
    EXPECT_TRUE(play.hasEndedWith(error::kOverflow));
}

TEST_F(GameSearch, NamesTheEventSearchWhenNothingIsFound) {
    fill(0, "Game Score", "is equal to", "300");
    EXPECT_EQ(condition({kNoHits}), "fldGameScore = 300 ORDER BY fldGameScore");
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.screen().name(), "frmSearchGames");
    EXPECT_EQ(states(), kFreshGames);
    EXPECT_EQ(play.list("cboSearchFld(0)").items().size(), 4U);
    play.pick("cboSearchFld(0)", 2);
    EXPECT_TRUE(play.hasEndedWith(error::kSubscriptOutOfRange));
}

TEST_F(GameSearch, TakesAFieldOnce) {
    fill(0, "Game Score", "is equal to", "205");
    play.click("chkCriteria");
    play.pick("cboSearchFld(1)", "Game Score",
              {{"Select Search Criteria", Answer::OK,
                "This search criteria is already in use. Please choose another"}});
    EXPECT_FALSE(play.enabled("cboSearchOp(1)"));
}

TEST_F(GameSearch, ShowsOneBoxForEachRowBeyondTheLists) {
    fill(0, "Game Score", "is greater than", "200");
    for (int again = 0; again < 3; ++again) {
        play.focusOn("txtSearchVal(0)");
        play.tab();
    }
    const Expected beyond = BrowsePlay::failure(kSearchGames, error::kSubscriptOutOfRange);
    EXPECT_EQ(condition({beyond, beyond, kFound}), "fldGameScore > 200 ORDER BY fldGameScore");
}

TEST_F(GameSearch, LeavesTheJoinBehindWithTheRemovedRow) {
    fill(0, "Game Score", "is greater than", "200");
    play.click("chkCriteria");
    play.click("optOr");
    fill(1, "Lane Pair", "is", "5-6");
    play.click("chkCriteria");
    EXPECT_EQ(states(), "++++--+++");
    EXPECT_FALSE(play.value("optOr"));
    EXPECT_TRUE(play.list("cboSearchFld(1)").items().empty());
    EXPECT_TRUE(play.list("cboSearchOp(1)").items().empty());
    EXPECT_EQ(play.text("txtSearchVal(1)"), "");
    EXPECT_EQ(condition(refusal()), "fldGameScore > 200 OR  ORDER BY fldGameScore");
}

TEST_F(GameSearch, RemovesNothingWithoutAField) {
    fill(0, "Game Score", "is greater than", "200");
    play.click("chkCriteria");
    play.click("optOr");
    play.click("chkCriteria");
    EXPECT_EQ(states(), "+++++++--");
    EXPECT_TRUE(play.value("optOr"));
    play.click("chkCriteria");
    EXPECT_FALSE(play.value("optOr"));
}

TEST_F(GameSearch, ReadsTheValueOfARemovedRowAsANumber) {
    fill(0, "Lane Pair", "is", "5-6");
    play.click("chkCriteria");
    play.click("optAnd");
    fill(1, "Game Score", "is less than", "200");
    play.click("chkCriteria");
    play.type("txtSearchVal(1)", "8-7");  // would be refused as a lane pair
    play.tab();
    EXPECT_EQ(play.focus(), "cmdSearch");
}

TEST_F(GameSearch, BreaksWithoutAJoinOrARow) {
    EXPECT_EQ(condition(refusal()), " ORDER BY ");
    fill(0, "Game Score", "is greater than", "200");
    play.click("chkCriteria");
    fill(1, "Lane Pair", "is", "5-6");
    EXPECT_EQ(condition(refusal()), "fldGameScore > 200fldLanePair = '5-6' ORDER BY fldGameScore");
}

TEST_F(GameSearch, ResetsTheFormOnYes) {
    fill(0, "Game Score", "is greater than", "200");
    play.click("chkCriteria");
    play.click("optAnd");
    fill(1, "Lane Pair", "is", "5-6");
    play.click("cmdReset", {{"Reset Form", Answer::No, "Are you sure you want to reset the form?"}});
    EXPECT_EQ(states(), "+++++++++");
    play.click("mnuSearchReset", {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(states(), kFreshGames);
    EXPECT_FALSE(play.value("chkCriteria"));
    fill(0, "Game Score", "is greater than", "200");
    EXPECT_EQ(condition(refusal()), "fldGameScore > 200 AND  ORDER BY fldGameScore");
}

TEST_F(GameSearch, LeavesWhenARecordIsNotThere) {
    const Handler step = search().form.handler();
    play.run([&] { step([] { throw RunTimeError(error::kNoCurrentRow); }); },
             {{"Database Error", Answer::OK,
               "Record could not be retrieved.\r\nThis could be due to timing.\r\n"
               "Click OK to return to the previous screen.\r\n"
               "Debug Information: Module - Game List, Write_Report"}});
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(GameSearch, GoesBackToTheScreenBefore) {
    const std::string words = "Return to previous screen?";
    for (const char* const way : {"cmdPrevious", "mnuPrevious"}) {
        play.click(way, {{"Previous Screen", Answer::No, words}});
        EXPECT_EQ(play.screen().name(), "frmSearchGames");
        EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
        EXPECT_EQ(play.display.boxes().back().buttons, Buttons::YesNo);
    }
    play.click("cmdPrevious", {{"Previous Screen", Answer::Yes, words}});
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(GameSearch, ReturnsToTheMainMenu) {
    const std::string words = "Are you sure you want to return to the main screen?";
    for (const char* const way : {"cmdRetMain", "mnuRetMain"}) {
        BrowsePlay other;
        other.handOverTo("frmSearchGames");
        other.display.forgetEvents();
        other.click(way, {{"Return to Main", Answer::No, words}});
        EXPECT_EQ(other.screen().name(), "frmSearchGames");
        other.click(way, {{"Return to Main", Answer::Yes, words}});
        EXPECT_EQ(other.display.events(), (std::vector<std::string>{"unload frmSearchGames", "unload frmMain",
                                                                    "load frmMain", "show frmMain"}));
    }
}

TEST_F(GameSearch, ExitsByItsMenu) {
    play.click("mnuExit", {{"Confirm - Exit", Answer::No, "Exit Tallybrook?"}});
    EXPECT_FALSE(play.program().hasEnded());
    play.click("mnuExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(GameSearch, LeavesAsTheEventSearchDoes) {
    play.click("cmdRetMain",
               {{"Return to Main", Answer::No, "Are you sure you want to return to the main screen?"}});
    play.close({{"Previous Screen", Answer::No, "Return to previous screen?"}});
    play.click("cmdExit", {{"Confirm - Exit", Answer::No}});
    play.press("F1");
    EXPECT_EQ(play.lastEvent(), "help 0");
    play.click("mnuHelpAbout");
    play.click("cmdAboutOK");
    play.click("mnuPrevious", {{"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmMain");
}

}  // namespace

}  // namespace tallybrook::test
