#include "BrowsePlay.h"
#include "browse/frmEventList.h"
#include "store/file/Connection.h"
#include "support/SameText.h"

#include <array>
#include <filesystem>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

const Expected kPreviousNo{"Return - Previous Screen", Answer::No, "Return to previous screen?"};

class EventList : public testing::Test {
protected:
    EventList() {
        play.addEvent("Thursday League", {{"fldCenterName", "Brook Lanes"},
                                          {"fldSeriesTot", std::int64_t{560}},
                                          {"fldSeriesAvg", 186.666},
                                          {"fldComment", "cold"},
                                          {"fldGmsRecorded", std::int64_t{1}}});
        play.addEvent("City Open", {{"fldDateBowled", makeDate(2026, 3, 7)}, {"fldEventType", "TOURNAMENT"}});
        play.addEvent("City Open", {{"fldDateBowled", makeDate(2025, 3, 8)}});
    }

    static Expected found(const std::string& text) {
        return {"Tallybrook - Search Results", Answer::OK, text};
    }
    static Expected toEdit(int events) {
        return found("There are " + std::to_string(events) +
                     " events available to edit.\r\n"
                     "To edit an event, highlight an event and click Retrieve Record.");
    }
    static Expected toReport(int events) {
        return found("Based on your search criteria, " + std::to_string(events) +
                     " event(s) were found.\r\n"
                     "Highlight an event and click Retrieve Record to create a report.");
    }
    void openToEdit() { play.click("mnuEditData", {toEdit(3)}); }
    /// The list after a search for all events.
    void openToReport() {
        play.handOverTo("frmSearchEvents");
        play.pick("cboListField(0)", "Event Name");
        play.pick("cboSearchOp(0)", "contains");
        play.tab();
        play.click("cmdSearch", {toReport(3)});
    }
    [[nodiscard]] std::vector<std::string> events() {
        return play.rows("tblEventInfo", {"fldSessionNum", "fldEventName"});
    }
    [[nodiscard]] Expected confirm(Answer answer, const std::string& nameAndDate) const {
        return {"Confirm - Delete Record", answer,
                "Are you sure you want to delete this event?\r\n" + nameAndDate};
    }
    /// Retrieves with a report, into a file of that name.
    fs::path report(const std::string& file, const std::vector<Expected>& more = {}) {
        fs::path path = play.dataFolder() / file;
        play.display.expectDialog({"Event Report", path});
        std::vector<Expected> boxes = more;
        boxes.push_back({"Report Complete", Answer::OK,
                         "The report is complete.\r\nThe report is in the following file: " + path.string()});
        play.click("cmdGetRecord", boxes);
        return path;
    }

    BrowsePlay play;
};

TEST_F(EventList, ShowsAllEventsToEdit) {
    openToEdit();
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.display.boxes().back().buttons, Buttons::OK);
    EXPECT_EQ(play.screen().caption(), "Event Listing");
    EXPECT_EQ(play.grid().caption(), "Event List");
    EXPECT_EQ(play.grid().rowCount(), 3);
    EXPECT_EQ(play.cells(1), "3|City Open|3/8/2025||3|0|0.00||LEAGUE|0");
    EXPECT_EQ(play.cells(2), "2|City Open|3/7/2026||3|0|0.00||TOURNAMENT|0");
    EXPECT_EQ(play.cells(3), "1|Thursday League|11/12/2026|Brook Lanes|3|560|186.67|cold|LEAGUE|1");
    EXPECT_EQ(play.grid().currentRow(), 1);
    EXPECT_EQ(play.focus(), "dgdEventList");
    EXPECT_TRUE(play.enabled("cmdDelRecord"));
    EXPECT_TRUE(play.enabled("mnuDelRecord"));
    for (const char* hidden :
         {"fraType", "optRpType(0)", "optRpType(1)", "fraSyncHH", "optSyncPDA(0)", "optSyncPDA(1)"})
        EXPECT_FALSE(play.control(hidden).isVisible()) << hidden;
}

TEST_F(EventList, NamesItsColumnsAndControls) {
    openToEdit();
    std::vector<std::string> columns;
    for (const GridColumn& column : play.grid().columns())
        columns.push_back(column.caption + "=" + column.field);
    EXPECT_EQ(columns, (std::vector<std::string>{
                           "Event=fldSessionNum", "Event Name=fldEventName", "Date Bowled=fldDateBowled",
                           "Center Name=fldCenterName", "Games Bowled=fldNumGames",
                           "Series Total=fldSeriesTot", "Series Avg.=fldSeriesAvg", "Comment=fldComment",
                           "Event Type=fldEventType", "Games Recorded=fldGmsRecorded"}));
    const std::vector<std::array<std::string, 3>> controls{
        {"cmdGetRecord", "R&etrieve Event", "Retrieve an event for editing or reporting"},
        {"cmdDelRecord", "&Delete Event", "Delete the event"},
        {"cmdPrevious", "&Previous Screen", "Return to the previous screen"},
        {"cmdMain", "&Main Menu", "Return to the main menu"},
        {"cmdExit", "E&xit", "Exit Tallybrook"},
        {"fraType", "Report Type", ""},
        {"optRpType(0)", "Full", ""},
        {"optRpType(1)", "Summary", ""},
        {"fraSyncHH", "Sync to PDA?", ""},
        {"optSyncPDA(0)", "Yes", ""},
        {"optSyncPDA(1)", "No", ""},
        {"mnuFile", "&File", ""},
        {"mnuExit", "E&xit", ""},
        {"mnuCommands", "&Commands", ""},
        {"mnuRetrieve", "R&etrieve Event", ""},
        {"mnuDelRecord", "&Delete Event", ""},
        {"mnuPrevious", "&Previous Screen", ""},
        {"mnuMain", "&Main Menu", ""},
        {"mnuHelp", "&Help", ""},
        {"mnuTBKHelp", "Tallybrook Help", ""},
        {"mnuAbout", "&About", ""}};
    for (const auto& [name, caption, tip] : controls) {
        EXPECT_EQ(play.control(name).caption(), caption);
        EXPECT_EQ(play.control(name).tip(), tip);
    }
}

TEST_F(EventList, LeadsTheTabFromTheEventsToItsButtons) {
    openToReport();
    EXPECT_EQ(play.tabOrder(),
              (std::vector<std::string>{"dgdEventList", "optRpType(0)", "optRpType(1)", "optSyncPDA(0)",
                                        "optSyncPDA(1)", "cmdGetRecord", "cmdDelRecord", "cmdPrevious",
                                        "cmdMain", "cmdExit"}));
}

TEST_F(EventList, ListsTheEventsByNameAndOnlyThenByDate) {
    play.addEvent("A night out", {{"fldDateBowled", makeDate(2027, 1, 2)}});
    play.addEvent("Warm up", {{"fldDateBowled", makeDate(2024, 5, 6)}});
    play.click("mnuEditData", {toEdit(5)});
    std::vector<std::string> keys;
    for (int row = 1; row <= play.grid().rowCount(); ++row)
        keys.push_back(play.grid().cell(row, 0));
    EXPECT_EQ(keys, (std::vector<std::string>{"4", "3", "2", "1", "5"}));
}

TEST_F(EventList, GreetsBeforeItIsSeen) {
    play.display.forgetEvents();
    Expected greeting = toEdit(3);
    std::vector<std::string> before;
    greeting.meanwhile = [&] { before = play.display.events(); };
    play.click("mnuEditData", {greeting});
    EXPECT_EQ(before, (std::vector<std::string>{"hide frmMain", "load frmEventList"}));
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmMain", "load frmEventList", "show frmEventList"}));
}

TEST_F(EventList, ShowsTheHitsOfASearchToReport) {
    openToReport();
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.grid().rowCount(), 3);
    EXPECT_FALSE(play.enabled("cmdDelRecord"));
    EXPECT_FALSE(play.enabled("mnuDelRecord"));
    EXPECT_TRUE(play.control("fraType").isVisible());
    EXPECT_TRUE(play.control("optSyncPDA(1)").isVisible());
    EXPECT_TRUE(play.value("optRpType(0)"));
    EXPECT_FALSE(play.value("optSyncPDA(0)"));
    EXPECT_TRUE(play.value("optSyncPDA(1)"));
}

TEST_F(EventList, ShowsNothingOnAnyOtherErrand) {
    play.session().gMode = kAdd;
    play.handOverTo("frmEventList");
    EXPECT_EQ(play.grid().rowCount(), 0);
    EXPECT_FALSE(play.enabled("cmdDelRecord"));
    EXPECT_FALSE(play.enabled("mnuDelRecord"));
    EXPECT_FALSE(play.control("fraType").isVisible());
    play.click("cmdGetRecord");
    EXPECT_EQ(play.session().gSessionNum, Int32(0));
    EXPECT_EQ(play.screen().name(), "frmEventList");  // nobody is left without a screen
}

TEST_F(EventList, FailsStepByStepWithoutItsSearch) {
    play.session().gMode = kReport;
    play.handOverTo("frmEventList", {BrowsePlay::failure("frmEventList, Form Load.", error::kObjectNotSet),
                                     {"Database Error"},
                                     BrowsePlay::failure("frmEventList, Form Load.", error::kObjectNotSet)});
    EXPECT_EQ(play.grid().rowCount(), 0);
}

TEST_F(EventList, SaysHowManyEvenIfNone) {
    BrowsePlay empty;
    empty.click("mnuEditData", {toEdit(0)});
    EXPECT_EQ(empty.grid().currentRow(), 0);
}

TEST_F(EventList, OpensAnEventToEdit) {
    openToEdit();
    play.row(2);
    play.display.forgetEvents();
    play.click("mnuRetrieve", {{"Incomplete event.", Answer::OK}});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmEventList", "load frmEvent", "show frmEvent"}));
    EXPECT_EQ(play.session().gSessionNum, Int32(2));
    EXPECT_EQ(play.text("txtDateBowled"), "3/7/2026");
    play.click(
        "cmdPrevious",
        {{"Save Event", Answer::No}, {"Action Cancelled", Answer::OK}, {"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmEventList");
    EXPECT_EQ(play.grid().currentRow(), 2);
}

TEST_F(EventList, OnlyNotesTheEventOnceTheErrandIsAnother) {
    openToEdit();
    play.row(3);
    play.click("cmdGetRecord", {{"Incomplete event."}});
    play.click("cmdNextEvent", {{"Save Event", Answer::Yes}, {"Add New Event", Answer::Yes}});
    EXPECT_EQ(play.session().gMode, kAdd);
    play.click("cmdPrevious",
               {{"Save Event", Answer::No}, {"Action Cancelled"}, {"Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmEventList");
    EXPECT_TRUE(play.enabled("cmdDelRecord"));
    EXPECT_TRUE(play.enabled("mnuDelRecord"));
    play.row(2);
    play.display.forgetEvents();
    play.click("cmdGetRecord");
    EXPECT_EQ(play.session().gSessionNum, Int32(2));
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"hide frmEventList", "show frmEventList"}));
}

TEST_F(EventList, RetrievesNoEventFromAnEmptyGrid) {
    BrowsePlay empty;
    empty.click("mnuEditData", {toEdit(0)});
    empty.session().gSessionNum = 7;
    empty.click("cmdGetRecord");
    EXPECT_EQ(empty.session().gSessionNum, Int32(0));
    EXPECT_EQ(empty.display.retrying_, "Event Information, Load_Event.");
}

TEST_F(EventList, WritesAReport) {
    openToReport();
    play.row(3);
    play.display.forgetEvents();
    const fs::path file = report("thursday.txt");
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmEventList", "busy", "default", "show frmEventList"}));
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    EXPECT_EQ(play.session().gSessionNum, Int32(1));
    const FileDialog& dialog = play.display.dialogs().back();
    EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Save);
    EXPECT_EQ(dialog.title, "Event Report");
    EXPECT_EQ(dialog.folder, (fs::current_path() / "Reports" / "").string());
    EXPECT_EQ(dialog.filter, "Text Files(*.txt)|*.txt");
    EXPECT_EQ(dialog.name, "Tallybrook - Full Report");
    const std::string text = bytesOf(file);
    EXPECT_NE(text.find("Event Report - Full\r\n"), std::string::npos);
    EXPECT_NE(text.find("Event: Thursday League\r\nEvent Date: 11/12/2026\r\n"), std::string::npos);
    EXPECT_FALSE(play.enabled("cmdDelRecord"));
    EXPECT_FALSE(play.enabled("mnuDelRecord"));
}

TEST_F(EventList, ComesBackOnceItHasToldOfTheReport) {
    openToReport();
    play.display.forgetEvents();
    play.display.expectDialog({"Event Report", play.dataFolder() / "report.txt"});
    std::vector<std::string> before;
    play.click("cmdGetRecord",
               {{"Report Complete", Answer::OK, "", [&] { before = play.display.events(); }}});
    EXPECT_EQ(before, (std::vector<std::string>{"hide frmEventList", "busy", "default"}));
    EXPECT_EQ(play.lastEvent(), "show frmEventList");
}

TEST_F(EventList, PresetsTheNameOfEachReportByItsType) {
    openToReport();
    report("full.txt");
    play.click("optRpType(1)");
    report("summary.txt");
    play.click("optRpType(0)");
    report("again.txt");
    std::vector<std::string> names;
    for (const FileDialog& dialog : play.display.dialogs())
        names.push_back(dialog.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Tallybrook - Full Report", "Tallybrook - Summary Report",
                                               "Tallybrook - Full Report"}));
}

TEST_F(EventList, KeepsItsChoicesBetweenTwoReports) {
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = (play.dataFolder() / "TBRK").string();
    openToReport();
    play.click("optRpType(1)");
    play.click("optSyncPDA(0)");
    for (int time = 0; time < 2; ++time) {
        const std::string name = "report" + std::to_string(time) + ".txt";
        const fs::path before = fs::current_path();
        fs::current_path(play.dataFolder());  // where the dialog leaves it
        const fs::path file = report(name);
        fs::current_path(before);
        EXPECT_EQ(play.display.dialogs().back().name, "Tallybrook - Summary Report");
        EXPECT_NE(bytesOf(file).find("Event Report - Summary\r\n"), std::string::npos);
        EXPECT_TRUE(isSameText(bytesOf(play.dataFolder() / "TBRK" / name), bytesOf(file)));
        EXPECT_TRUE(play.value("optRpType(1)"));
        EXPECT_TRUE(play.value("optSyncPDA(0)"));
    }
    play.click("optSyncPDA(1)");
    report("alone.txt");
    EXPECT_FALSE(fs::exists(play.dataFolder() / "TBRK" / "alone.txt"));
}

TEST_F(EventList, GoesOnWithThePresetNameAfterACancel) {
    openToReport();
    const fs::path before = fs::current_path();
    fs::current_path(play.dataFolder());
    play.display.expectDialog({"Event Report", std::nullopt});
    play.click("cmdGetRecord", {{"Report Complete", Answer::OK,
                                 "The report is complete.\r\nThe report is in the following file: "
                                 "Tallybrook - Full Report"}});
    fs::current_path(before);
    EXPECT_TRUE(fs::exists(play.dataFolder() / "Tallybrook - Full Report"));
}

TEST_F(EventList, ReportsOnNoEventFromAnEmptyGrid) {
    BrowsePlay empty;
    empty.session().gMode = kReport;
    empty.handOverTo("frmEventList", {{"Database Error"}, {"Database Error"}, {"Database Error"}});
    empty.display.expectDialog({"Event Report", empty.dataFolder() / "none.txt"});
    const auto stop = [](const char* procedure, int number) {
        return BrowsePlay::failure(std::string("TBK Reports, ") + procedure + ".", number);
    };
    empty.click("cmdGetRecord", {stop("Write_Header", error::kNoCurrentRow),
                                 stop("Get_Sc_Mode", error::kObjectNotSet),
                                 stop("Get_StSp_Stats", error::kObjectNotSet),
                                 stop("Build_Sp_Sum", error::kObjectNotSet),
                                 stop("Write_Event", error::kObjectNotSet),
                                 {"Report Complete"}});
    EXPECT_EQ(empty.session().gSessionNum, Int32(0));
    const std::string text = bytesOf(empty.dataFolder() / "none.txt");
    EXPECT_TRUE(
        text.ends_with("Event Report - Full\r\n\r\nReport Date: 11/14/2026, 9:55:00 PM\r\nEvent: \r\n"))
        << text;
}

TEST_F(EventList, AsksBeforeItDeletes) {
    openToEdit();
    play.row(3);
    play.click("cmdDelRecord", {confirm(Answer::No, "Thursday League bowled on 11/12/2026"),
                                {"Record Not Deleted", Answer::OK, "Record not deleted."}});
    EXPECT_EQ(play.display.boxes()[play.display.boxes().size() - 2].icon, Icon::None);
    EXPECT_EQ(play.display.boxes()[play.display.boxes().size() - 2].buttons, Buttons::YesNo);
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.session().gSessionNum, Int32(1));
    EXPECT_EQ(events().size(), 3U);
    EXPECT_EQ(play.screen().name(), "frmEventList");
}

TEST_F(EventList, DeletesAnEventWithItsGamesAndFrames) {
    for (int game = 1; game <= 2; ++game) {
        play.addGame(1, game);
        play.addGame(2, game);
        for (int frame = 1; frame <= 3; ++frame) {
            play.addFrame(1, game, frame);
            play.addFrame(2, game, frame);
        }
    }
    play.addFrame(1, 9, 1);  // of a game that is not there
    openToEdit();
    play.row(3);
    play.display.forgetEvents();
    play.click("mnuDelRecord",
               {confirm(Answer::Yes, "Thursday League bowled on 11/12/2026"),
                {"Record Deleted", Answer::OK, "Thursday League has been deleted from the database"},
                toEdit(2)});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"unload frmEventList", "load frmEventList", "show frmEventList"}));
    EXPECT_EQ(events(), (std::vector<std::string>{"2|City Open", "3|City Open"}));
    EXPECT_EQ(play.rows("tblGameInfo", {"fldSessionNum"}), std::vector<std::string>(2, "2"));
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldSessionNum"}), std::vector<std::string>(6, "2"));
    EXPECT_EQ(play.grid().rowCount(), 2);
}

TEST_F(EventList, DeletesAnEventWithoutGames) {
    openToEdit();
    play.row(2);
    play.click("cmdDelRecord",
               {confirm(Answer::Yes, "City Open bowled on 3/7/2026"),
                {"No Frames Recorded", Answer::OK, "No Frames recorded for City Open"},
                {"No Games Recorded", Answer::OK, "No Games recorded for City Open"},
                {"Record Deleted", Answer::OK, "City Open has been deleted from the database"},
                toEdit(2)});
    for (const MessageBox& box : play.display.boxes())
        EXPECT_EQ(box.icon, Icon::None) << box.title;
    EXPECT_EQ(events(), (std::vector<std::string>{"1|Thursday League", "3|City Open"}));
}

TEST_F(EventList, DeletesNothingFromAnEmptyGrid) {
    BrowsePlay empty;
    const std::string module = "frmEventList, cmdDelRecord.";
    empty.click("mnuEditData", {toEdit(0)});
    empty.click("cmdDelRecord", {BrowsePlay::failure(module, error::kTypeMismatch),
                                 confirm(Answer::Yes, " bowled on 12:00:00 AM"),
                                 {"No Frames Recorded", Answer::OK, "No Frames recorded for "},
                                 {"No Games Recorded", Answer::OK, "No Games recorded for "},
                                 BrowsePlay::failure(module, error::kNoCurrentRow),
                                 {"Record Deleted", Answer::OK, " has been deleted from the database"},
                                 toEdit(0)});
}

TEST_F(EventList, AsksWithTheDateThatTheGridShows) {
    openToEdit();
    play.row(3);
    play.run([&] {
        Recordset events(play.program().store());
        events.Open("SELECT * FROM tblEventInfo WHERE fldSessionNum = 1");
        events["fldDateBowled"] = makeDate(2020, 1, 1);
        events.Update();
    });
    play.click("cmdDelRecord",
               {confirm(Answer::No, "Thursday League bowled on 11/12/2026"), {"Record Not Deleted"}});
}

TEST_F(EventList, AsksWithTheZeroDateWhereAnEventHasNone) {
    play.addEvent("A date to come", {{"fldDateBowled", Null{}}});
    play.click("mnuEditData", {toEdit(4)});
    EXPECT_EQ(play.grid().text(2), "");
    play.click("cmdDelRecord", {BrowsePlay::failure("frmEventList, cmdDelRecord.", error::kTypeMismatch),
                                confirm(Answer::No, "A date to come bowled on 12:00:00 AM"),
                                {"Record Not Deleted"}});
}

/// The general box of a failure of the engine, whatever its words.
const Expected kEngineFailure{"Database Error"};

TEST_F(EventList, ComesUpEmptyWhereItsEventsCannotBeRead) {
    BrowsePlay other;
    other.program().store().connection().database().exec("DROP TABLE tblEventInfo");
    other.click("mnuEditData",
                {kEngineFailure, BrowsePlay::failure("frmEventList, Form Load.", error::kObjectNotSet)});
    const std::string& text = other.display.boxes().front().text;
    EXPECT_TRUE(text.starts_with("Error Number: -2147467259\r\n")) << text;
    EXPECT_NE(text.find("Module: frmEventList, Form Load.\r\n"), std::string::npos) << text;
    EXPECT_EQ(other.screen().name(), "frmEventList");
    EXPECT_EQ(other.grid().rowCount(), 0);
}

TEST_F(EventList, TakesAFailedLookForNoRows) {
    play.addGame(1, 1);
    openToEdit();
    play.row(3);
    play.program().store().connection().database().exec("DROP TABLE tblFrameInfo");
    play.click("cmdDelRecord",
               {confirm(Answer::Yes, "Thursday League bowled on 11/12/2026"),
                kEngineFailure,
                BrowsePlay::failure("frmEventList, Delete_Records", error::kObjectNotSet),
                {"No Frames Recorded", Answer::OK, "No Frames recorded for Thursday League"},
                {"Record Deleted", Answer::OK, "Thursday League has been deleted from the database"},
                toEdit(2)});
    EXPECT_TRUE(play.rows("tblGameInfo", {"fldGameNum"}).empty());
    EXPECT_EQ(events().size(), 2U);
}

TEST_F(EventList, GoesOnDeletingAfterAFailure) {
    play.addGame(1, 1);
    play.addGame(1, 2);
    openToEdit();
    play.row(3);
    // Somebody else's rule in the file: the first game cannot be deleted.
    play.run([&] {
        SQLite::Database& file = play.program().store().connection().database();
        file.exec(
            "CREATE TRIGGER keep BEFORE DELETE ON tblGameInfo WHEN OLD.fldGameNum = 1 "
            "BEGIN SELECT RAISE(ABORT, 'kept'); END");
    });
    play.click("cmdDelRecord", {confirm(Answer::Yes, "Thursday League bowled on 11/12/2026"),
                                {"No Frames Recorded"},
                                {"Database Error"},
                                {"Record Deleted"},
                                toEdit(2)});
    EXPECT_NE(play.display.boxes()[play.display.boxes().size() - 3].text.find(
                  "Module: frmEventList, Delete_Records\r\n"),
              std::string::npos);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameNum"}), std::vector<std::string>{"1"});
    EXPECT_EQ(events().size(), 2U);
}

TEST_F(EventList, EndsTheDeletingAtARowThatCannotBeLeft) {
    play.addGame(1, 1);
    play.addGame(1, 2);
    openToEdit();
    play.row(3);
    play.program().store().connection().database().exec(
        "CREATE TRIGGER keep BEFORE DELETE ON tblGameInfo BEGIN SELECT RAISE(ABORT, 'kept'); END");
    DataControl& games = dynamic_cast<frmEventList&>(play.screen()).adoTBKGame;
    play.click("cmdDelRecord", {confirm(Answer::Yes, "Thursday League bowled on 11/12/2026"),
                                {"No Frames Recorded"},
                                {"Database Error", Answer::OK, "", [&] { games.recordset().Close(); }},
                                BrowsePlay::failure("frmEventList, Delete_Records", error::kObjectClosed),
                                {"Record Deleted"},
                                toEdit(2)});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameNum"}), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(events().size(), 2U);
}

TEST_F(EventList, GoesBackToTheScreenBefore) {
    openToReport();
    play.click("cmdPrevious", {kPreviousNo});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    play.close({kPreviousNo});
    play.click("mnuPrevious", {{kPreviousNo.title, Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmSearchEvents");
    EXPECT_EQ(play.session().gMode, kReport);
}

TEST_F(EventList, ReturnsToTheMainMenu) {
    openToReport();
    play.click("mnuAbout");
    play.run([&] { play.program().screens.show(*play.program().screens.find("frmEventList")); });
    play.click("cmdMain", {{"Return - Main Menu", Answer::No, "Return to main menu?"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    play.display.forgetEvents();
    play.click("mnuMain", {{"Return - Main Menu", Answer::Yes}});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"unload frmEventList", "unload frmAbout", "unload frmSearchEvents",
                                        "unload frmMain", "load frmMain", "show frmMain"}));
}

TEST_F(EventList, ExitsHelpsAndTellsAboutItself) {
    openToEdit();
    play.press("F1");
    EXPECT_EQ(play.lastEvent(), "help 0");
    play.click("mnuAbout");
    EXPECT_EQ(play.screen().name(), "frmAbout");
    play.click("cmdAboutOK");
    play.click("cmdExit", {{"Confirm - Exit", Answer::No}});
    play.click("mnuExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

}  // namespace

}  // namespace tallybrook::test
