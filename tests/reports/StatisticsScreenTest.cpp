#include "ReportPlay.h"
#include "controls/Lists.h"
#include "store/file/Connection.h"

#include <filesystem>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

class StatisticsScreen : public testing::Test {
protected:
    StatisticsScreen() {
        play.addEvent({.name = "Open", .date = makeDate(2026, 10, 1), .type = "PRACTICE"});
        play.addEvent({.name = "Thursday League", .date = makeDate(2026, 11, 12), .type = "LEAGUE"});
        play.addEvent({.name = "thursday league", .date = makeDate(2026, 11, 19), .type = "LEAGUE"});
        play.addGame("N", std::int64_t{200});
        play.click("mnuReports");
        play.click("mnuStats");
    }
    ListBox& names() { return dynamic_cast<ListBox&>(play.control("lstEvent")); }
    void pick(int index) {
        play.run([&] { person::pick(names(), index); });
    }
    /// The states of these controls, in their order.
    std::vector<bool> enabled(const Names& controls) {
        std::vector<bool> states;
        for (const std::string& name : controls)
            states.push_back(play.enabled(name));
        return states;
    }
    /// Asks for the report, and returns it.
    std::string generate(const std::vector<Expected>& boxes = {}) {
        play.display.expectDialog({"Save Report", play.file()});
        std::vector<Expected> all = boxes;
        all.push_back(complete());
        play.click("cmdGenReport", all);
        return bytesOf(play.file());
    }
    Expected complete() {
        return {"Report Complete", Answer::OK,
                "The report is complete.\r\nThe report is in the following file: " + play.file().string()};
    }
    int found() {
        const std::string report = generate();
        return std::stoi(report.substr(report.find("\r\nFound ") + 8));
    }
    static inline const Names kFilterControls{"chkDate", "txtFrom", "txtTo", "chkEvent", "lstEvent"};

    ReportPlay play;
};

TEST_F(StatisticsScreen, StartsWithAllEventsAndNoFilter) {
    EXPECT_EQ(play.screen().caption(), "Event Statistics");
    EXPECT_EQ(play.session().gMode, kReport);
    EXPECT_EQ(play.focus(), "optEvType(0)");
    EXPECT_TRUE(play.value("optEvType(0)"));
    EXPECT_TRUE(play.value("optFilter(1)"));
    EXPECT_TRUE(play.value("optSync(1)"));
    EXPECT_FALSE(play.value("chkDate"));
    EXPECT_FALSE(play.value("chkEvent"));
    EXPECT_FALSE(play.enabled("fraFilter"));
    EXPECT_EQ(enabled(kFilterControls), std::vector<bool>(5, false));
    EXPECT_EQ(found(), 3);
}

TEST_F(StatisticsScreen, LimitsTheReportToAType) {
    play.click("optEvType(1)");
    EXPECT_NE(generate().find("Report Type: League\r\n\r\nFound 2 matching events."), std::string::npos);
    play.click("optEvType(2)");
    EXPECT_EQ(found(), 1);
    play.click("optEvType(3)");
    const std::string report =
        generate({ReportPlay::failure("Get_Sc_Mode", error::kNoCurrentRow),
                  ReportPlay::failure("Get_StSp_Stats", 91), ReportPlay::failure("Build_Sp_Sum", 91),
                  ReportPlay::failure("Build_Sum_Matrix", 91), ReportPlay::failure("Write_Stats", 91)});
    EXPECT_TRUE(report.ends_with("Found 0 matching events.\r\n"));
}

TEST_F(StatisticsScreen, SavesWhereTheUserSays) {
    generate();
    const FileDialog& dialog = play.display.dialogs().at(0);
    EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Save);
    EXPECT_EQ(dialog.folder, play.dataFolder().string());
    EXPECT_EQ(dialog.filter, "Text Files(*.txt) | *.txt");
    EXPECT_EQ(dialog.name, "Tallybrook - Statistics Report");
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    generate();
    EXPECT_EQ(play.display.dialogs().at(1).name, play.file().string());
}

TEST_F(StatisticsScreen, ShowsTheBusyPointerMeanwhile) {
    play.display.forgetEvents();
    generate();
    EXPECT_EQ(play.display.events(), (Names{"busy", "default"}));
}

TEST_F(StatisticsScreen, IsNoLongerBusyAsItTellsOfTheReport) {
    play.display.forgetEvents();
    play.display.expectDialog({"Save Report", play.file()});
    Expected box = complete();
    Names before;
    box.meanwhile = [&] { before = play.display.events(); };
    play.click("cmdGenReport", {box});
    EXPECT_EQ(before, (Names{"busy", "default"}));
}

TEST_F(StatisticsScreen, WritesNothingWhenTheDialogIsCancelled) {
    play.display.forgetEvents();
    play.display.expectDialog({"Save Report", std::nullopt});
    play.click("cmdGenReport");
    EXPECT_TRUE(play.display.events().empty());
    EXPECT_FALSE(fs::exists(play.file()));
}

TEST_F(StatisticsScreen, OffersFiltersOnDemand) {
    play.click("optFilter(0)");
    EXPECT_EQ(enabled(kFilterControls), (std::vector<bool>{true, false, false, true, true}));
    EXPECT_EQ(found(), 3);                   // nothing is checked
    play.clock.set(makeDate(2026, 11, 15));  // today is the day of the start
    play.click("chkDate");
    EXPECT_EQ(enabled(kFilterControls), std::vector<bool>(5, true));
    EXPECT_EQ(play.focus(), "txtFrom");
    EXPECT_EQ(play.text("txtFrom"), "");
    EXPECT_EQ(play.text("txtTo"), "11/14/2026");
    play.type("txtTo", "1/1/2020");
    play.click("chkDate");
    EXPECT_EQ(play.text("txtTo"), "");
    EXPECT_EQ(enabled(kFilterControls), (std::vector<bool>{true, false, false, true, true}));
    play.click("chkDate");
    EXPECT_EQ(play.text("txtTo"), "11/14/2026");  // offered each time
    play.click("optFilter(1)");
    EXPECT_EQ(enabled(kFilterControls), std::vector<bool>(5, false));
    EXPECT_FALSE(play.value("chkDate"));
}

TEST_F(StatisticsScreen, LimitsTheReportToDates) {
    play.click("optFilter(0)");
    play.click("chkDate");
    play.type("txtFrom", "11/12/2026");
    play.type("txtTo", "Nov 12, 2026 9:00 PM");
    EXPECT_NE(generate().find("Date Range: 11/12/2026 to 11/12/2026\r\n\r\nFound 1 matching events."),
              std::string::npos);
    play.click("chkDate");
    EXPECT_EQ(found(), 3);
}

TEST_F(StatisticsScreen, RefusesDatesItCannotUse) {
    play.click("optFilter(0)");
    play.click("chkDate");
    const auto refuse = [&](const char* from, const char* to, const Expected& box, const char* focus) {
        play.type("txtFrom", from);
        play.type("txtTo", to);
        play.click("cmdGenReport", {box});
        EXPECT_EQ(play.focus(), focus);
        EXPECT_EQ(play.display.boxes().back().icon, Icon::Critical);
    };
    const Expected badStart{"Invalid Date Format", Answer::OK,
                            "Invalid date format in report starting date."};
    const Expected badEnd{"Invalid Date Format", Answer::OK, "Invalid date format in report ending date."};
    refuse("", "11/14/2026", badStart, "txtFrom");
    refuse("2/30/2026", "nothing", badStart, "txtFrom");
    refuse("1/1/2026", "13/13/2026", badEnd, "txtTo");
    refuse("1/2/2026", "1/1/2026",
           {"Invalid Start Date", Answer::OK, "Starting date must be less than or equal to ending date."},
           "txtFrom");
    EXPECT_TRUE(play.display.dialogs().empty());
}

TEST_F(StatisticsScreen, GoesToAWrongDateOnceItHasToldOfIt) {
    play.click("optFilter(0)");
    play.click("chkDate");
    play.type("txtFrom", "nothing");
    std::string before;
    play.click("cmdGenReport", {{"Invalid Date Format", Answer::OK, "", [&] { before = play.focus(); }}});
    EXPECT_EQ(before, "cmdGenReport");
    EXPECT_EQ(play.focus(), "txtFrom");
}

TEST_F(StatisticsScreen, ListsTheEventNamesOfTheType) {
    play.click("optFilter(0)");
    play.click("chkEvent");
    EXPECT_EQ(names().items(), (Names{"Open", "Thursday League"}));
    play.click("optEvType(1)");
    EXPECT_EQ(names().items(), Names{"Thursday League"});
    pick(0);
    EXPECT_EQ(names().picked(), "Thursday League");
    EXPECT_NE(generate().find("Filter: Thursday League\r\n\r\nFound 2 matching events."), std::string::npos);

    play.click("optEvType(0)");  // empties the filter with the list
    EXPECT_EQ(names().picked(), "");
    EXPECT_EQ(found(), 3);
}

TEST_F(StatisticsScreen, ListsNoNamesOfATypeUnasked) {
    play.click("optFilter(0)");
    play.click("optEvType(1)");
    EXPECT_TRUE(names().items().empty());
    play.click("optEvType(3)");  // which has no events, and says nothing of that
}

TEST_F(StatisticsScreen, SelectsAllNamesWhereNoneIsPicked) {
    play.click("optFilter(0)");
    play.click("chkEvent");
    EXPECT_EQ(found(), 3);
}

TEST_F(StatisticsScreen, ForgetsTheNameWithItsCheckBox) {
    play.click("optFilter(0)");
    play.click("chkEvent");
    pick(0);
    play.click("chkEvent");
    EXPECT_TRUE(names().items().empty());
    EXPECT_EQ(found(), 3);
}

TEST_F(StatisticsScreen, ForgetsEverythingWithTheFilter) {
    play.click("optFilter(0)");
    play.click("chkDate");
    play.type("txtFrom", "11/12/2026");
    play.type("txtTo", "11/12/2026");
    play.click("chkEvent");
    pick(1);
    EXPECT_EQ(found(), 1);
    play.click("optFilter(1)");
    EXPECT_TRUE(names().items().empty());
    EXPECT_EQ(found(), 3);
}

TEST_F(StatisticsScreen, TellsOfATypeWithoutEvents) {
    play.click("optEvType(3)");
    play.click("optFilter(0)");
    play.click("chkEvent", {{"No Events", Answer::OK, "No events in the database"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    EXPECT_TRUE(names().items().empty());
}

TEST_F(StatisticsScreen, ResetsAllButTheType) {
    play.click("optEvType(1)");
    play.click("optFilter(0)");
    play.click("chkDate");
    play.click("chkEvent");
    play.click("optSync(0)");
    play.click("cmdReset", {{"Reset Form", Answer::No, "Reset the form?"}});
    EXPECT_TRUE(play.value("chkDate"));
    play.click("cmdReset", {{"Reset Form", Answer::Yes, "Reset the form?"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
    EXPECT_TRUE(play.value("optEvType(1)"));
    EXPECT_TRUE(play.value("optFilter(1)"));
    EXPECT_TRUE(play.value("optSync(1)"));
    EXPECT_FALSE(play.value("chkDate"));
    EXPECT_FALSE(play.value("chkEvent"));
    EXPECT_EQ(enabled(kFilterControls), std::vector<bool>(5, false));
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = "/nowhere at all";
    EXPECT_EQ(found(), 2);  // and nothing is copied
}

TEST_F(StatisticsScreen, CopiesTheReportWhenAsked) {
    const fs::path folder = play.dataFolder() / "sync";
    fs::create_directories(folder);
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = folder.string();
    play.click("optSync(0)");
    const std::string report = generate();
    EXPECT_EQ(bytesOf(folder / "report.txt"), report);
}

TEST_F(StatisticsScreen, LeavesAfterAQuestion) {
    const auto screensAfter = [&](const char* button, const Expected& box) {
        play.click(button, {{box.title, Answer::No, box.text}});
        EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
        EXPECT_EQ(play.screen().name(), "frmEventStats");
        play.click(button, {box});
        Names loaded;
        for (const Screen* screen : play.program().screens.loaded())
            loaded.push_back(screen->name());
        return loaded;
    };
    EXPECT_EQ(screensAfter("cmdPrevious", {"Previous Screen", Answer::Yes, "Return to previous screen?"}),
              (Names{"frmMain", "frmReports"}));
    play.click("mnuStats");
    play.display.forgetEvents();
    EXPECT_EQ(screensAfter("cmdRpt", {"Return to Reports", Answer::Yes, "Return to reports menu?"}),
              Names{"frmReports"});
    EXPECT_EQ(play.display.events(), (Names{"unload frmEventStats", "unload frmReports", "show frmMain",
                                            "unload frmMain", "load frmReports", "show frmReports"}));
    EXPECT_EQ(play.screen().name(), "frmReports");
    play.click("mnuStats");
    EXPECT_EQ(screensAfter("cmdMain", {"Return to Main", Answer::Yes, "Return to main menu?"}),
              Names{"frmMain"});
}

TEST_F(StatisticsScreen, EndsTheProgramWithItsLastScreen) {
    play.click("cmdRpt", {{"Return to Reports", Answer::Yes}});
    play.close();
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(StatisticsScreen, ClosesLikePreviousScreen) {
    play.close({{"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmReports");
}

TEST_F(StatisticsScreen, HasItsTabOrder) {
    play.click("optFilter(0)");
    play.click("chkDate");
    play.click("optEvType(0)");
    Names order;
    do {
        order.push_back(play.focus());
        play.tab();
    } while (play.focus() != "optEvType(0)");
    EXPECT_EQ(order, (Names{"optEvType(0)", "optEvType(1)", "optEvType(2)", "optEvType(3)", "optFilter(0)",
                            "optFilter(1)", "chkDate", "txtFrom", "txtTo", "chkEvent", "lstEvent",
                            "optSync(0)", "optSync(1)", "cmdGenReport", "cmdReset", "cmdPrevious", "cmdRpt",
                            "cmdMain", "cmdExit"}));
}

TEST_F(StatisticsScreen, SelectsTheDatesItComesTo) {
    play.click("optFilter(0)");
    play.click("chkDate");
    play.tab();
    EXPECT_EQ(play.focus(), "txtTo");
    EXPECT_TRUE(dynamic_cast<TextBox&>(play.control("txtTo")).isAllSelected());
}

TEST_F(StatisticsScreen, TellsOfACopyThatFails) {
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = (play.dataFolder() / "not there").string();
    play.click("optSync(0)");
    play.display.forgetEvents();
    EXPECT_NE(generate({ReportPlay::failure("Write_Report", error::kPathNotFound)}), "");
    EXPECT_EQ(play.display.events(), (Names{"busy", "default"}));
}

TEST_F(StatisticsScreen, GoesOnWhereTheNamesCannotBeRead) {
    play.click("optFilter(0)");
    play.program().store().connection().database().exec("DROP TABLE tblEventInfo");
    const std::vector<Expected> boxes(5, {"Database Error", Answer::OK});
    play.click("chkEvent", boxes);
    EXPECT_NE(play.display.boxes().back().text.find("Module: Event Statistics, Get_Events."),
              std::string::npos);
    EXPECT_FALSE(play.program().hasEnded());
}

TEST_F(StatisticsScreen, HasItsCaptionsAndTips) {
    const char* const typeTip = "Check this box to get statistics on all your events";
    const char* const frameTip = "Select the type of event that you would like to get statistics on";
    play.expectSeen({{"lblTitle", "Event Statistics"},
                     {"fraSelEvent", "Event &Type", frameTip},
                     {"optEvType(0)", "All E&vents", typeTip},
                     {"optEvType(1)", "&League", typeTip},
                     {"optEvType(2)", "Pr&actice", typeTip},
                     {"optEvType(3)", "To&urnament", typeTip},
                     {"fraFilterOpt", "F&ilter Data?"},
                     {"optFilter(0)", "Yes"},
                     {"optFilter(1)", "No"},
                     {"fraFilter", "Filter Options"},
                     {"chkDate", "Date Range"},
                     {"lblFrom", "From"},
                     {"lblTo", "To"},
                     {"chkEvent", "Event Name"},
                     {"fraSyncPDA", "S&ync to PDA?", frameTip},
                     {"optSync(0)", "Yes", typeTip},
                     {"optSync(1)", "No", typeTip},
                     {"cmdGenReport", "&Generate Report",
                      "Retrieve the statistics based on the event type and retrieval options you selected"},
                     {"cmdReset", "R&eset Form", "Reset all the controls in the form"},
                     {"cmdPrevious", "P&revious Screen", "Return to the previous screen"},
                     {"cmdRpt", "Rep&orts Menu", "Return to the main menu"},
                     {"cmdMain", "&Main Menu", "Return to the main menu"},
                     {"cmdExit", "E&xit", "Exit Tallybrook"},
                     {"mnuFile", "&File"},
                     {"mnuExit", "E&xit"},
                     {"mnuCommands", "&Commands"},
                     {"mnuRetrieve", "&Generate Report"},
                     {"mnuReset", "R&eset Form"},
                     {"mnuPrevious", "&Previous Screen"},
                     {"mnuRptMenu", "Rep&orts Menu"},
                     {"mnuMain", "&Main Menu"},
                     {"mnuHelp", "&Help"},
                     {"mnuTBKHelp", "Tallybrook Help"},
                     {"mnuAbout", "&About"}});
}

TEST_F(StatisticsScreen, RunsItsButtonsFromTheMenu) {
    play.display.expectDialog({"Save Report", std::nullopt});
    play.click("mnuRetrieve");
    play.click("mnuReset", {{"Reset Form", Answer::No}});
    play.click("mnuPrevious", {{"Previous Screen", Answer::No}});
    play.click("mnuRptMenu", {{"Return to Reports", Answer::No}});
    play.click("mnuMain", {{"Return to Main", Answer::No}});
    play.click("mnuExit", {{"Confirm - Exit", Answer::No}});
    play.display.forgetEvents();
    play.press("F1");
    play.click("mnuAbout");
    EXPECT_EQ(play.display.events(), (Names{"help 0", "load frmAbout", "show frmAbout"}));
}

}  // namespace

}  // namespace tallybrook::test
