#include "ReportPlay.h"

#include <filesystem>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Log = std::vector<std::string>;

class ReportsMenu : public testing::Test {
protected:
    ReportsMenu() {
        play.click("mnuReports");
        play.display.forgetEvents();
    }
    static Expected nothingChosen(Answer answer) {
        return {"Cancelled - Open File", answer, "No file was selected."};
    }

    ReportPlay play;
};

TEST_F(ReportsMenu, IsReachedFromTheMainMenuToReport) {
    EXPECT_EQ(play.screen().name(), "frmReports");
    EXPECT_EQ(play.screen().caption(), "Reports");
    EXPECT_EQ(play.session().gMode, kReport);
    EXPECT_EQ(play.focus(), "none");
}

TEST_F(ReportsMenu, OpensAReportInTheViewer) {
    const fs::path report = play.dataFolder() / "a report; with 'quotes' $HOME.txt";
    play.display.expectDialog({"Open Report", report});
    play.click("mnuOpen");
    EXPECT_EQ(play.display.events(), Log{"viewer " + report.string()});
    const FileDialog& dialog = play.display.dialogs().at(0);
    EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Open);
    EXPECT_EQ(dialog.folder, (fs::current_path() / "Reports").string());
    EXPECT_EQ(dialog.filter, "Text Files (*.txt)|*.txt");
    EXPECT_EQ(dialog.name, "*.txt");

    play.display.expectDialog({"Open Report", std::nullopt});
    play.click("mnuOpen", {nothingChosen(Answer::Cancel)});
    EXPECT_EQ(play.display.dialogs().at(1).name, report.string());  // what was chosen last
}

TEST_F(ReportsMenu, AsksAgainWhereNothingWasChosen) {
    play.display.expectDialog({"Open Report", std::nullopt});
    play.display.expectDialog({"Open Report", std::nullopt});
    play.display.expectDialog({"Open Report", play.file()});
    play.click("mnuOpen", {nothingChosen(Answer::Retry), nothingChosen(Answer::Retry)});
    EXPECT_EQ(play.display.events(), Log{"viewer " + play.file().string()});
    const MessageBox& box = play.display.boxes().at(0);
    EXPECT_EQ(box.icon, Icon::None);
    EXPECT_EQ(box.buttons, Buttons::RetryCancel);
}

TEST_F(ReportsMenu, EndsWithoutAViewerOnCancel) {
    play.display.expectDialog({"Open Report", std::nullopt});
    play.click("mnuOpen", {nothingChosen(Answer::Cancel)});
    EXPECT_EQ(play.display.events(), Log{});
}

TEST_F(ReportsMenu, HidesItselfBehindWhatItLeadsTo) {
    const std::vector<std::pair<std::string, std::string>> ways{
        {"mnuRptEvent", "frmSearchEvents"}, {"mnuRptGame", "frmSearchGames"}, {"mnuStats", "frmEventStats"}};
    for (const auto& [entry, screen] : ways) {
        play.session().gMode = kAdd;
        play.display.forgetEvents();
        play.click(entry);
        EXPECT_EQ(play.display.events(), (Log{"hide frmReports", "load " + screen, "show " + screen}));
        EXPECT_EQ(play.session().gMode, kReport);
        play.display.forgetEvents();
        play.close({{"Previous Screen", Answer::Yes}});
        EXPECT_EQ(play.display.events(), (Log{"unload " + screen, "show frmReports"}));
    }
}

TEST_F(ReportsMenu, ShowsTheScreenBeforeItWhoeverUnloadsIt) {
    play.click("mnuStats");
    play.display.forgetEvents();
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(play.display.events(), (Log{"unload frmEventStats", "unload frmReports", "show frmMain",
                                          "unload frmMain", "load frmMain", "show frmMain"}));
}

TEST_F(ReportsMenu, ReturnsToTheMainMenuWithoutAQuestion) {
    play.click("mnuRetMain");
    EXPECT_EQ(play.display.events(),
              (Log{"unload frmReports", "show frmMain", "unload frmMain", "load frmMain", "show frmMain"}));
    EXPECT_EQ(play.program().screens.loaded().size(), 1U);
}

TEST_F(ReportsMenu, GoesFirstOnTheWayToTheMainMenu) {
    play.click("mnuSearchHelpAbout");
    play.run([&] { play.program().screens.show(*play.program().screens.find("frmReports")); });
    play.display.forgetEvents();
    play.click("mnuRetMain");
    EXPECT_EQ(play.display.events(), (Log{"unload frmReports", "unload frmAbout", "unload frmMain",
                                          "load frmMain", "show frmMain"}));
}

TEST_F(ReportsMenu, ClosesToTheScreenBeforeIt) {
    play.close();
    EXPECT_EQ(play.display.events(), (Log{"unload frmReports", "show frmMain"}));
}

TEST_F(ReportsMenu, OffersHelpAndTheAboutBox) {
    play.click("mnuTBKHelp");
    play.click("mnuSearchHelpAbout");
    EXPECT_EQ(play.display.events(), (Log{"help 0", "load frmAbout", "show frmAbout"}));
}

TEST_F(ReportsMenu, AsksBeforeTheProgramEnds) {
    play.click("mnuExit", {{"Confirm - Exit", Answer::No}});
    play.click("mnuExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(ReportsMenu, TellsOfAViewerThatDoesNotStart) {
    play.display.refuseViewer();
    play.display.expectDialog({"Open Report", play.file()});
    play.click("mnuOpen", {{"Database Error", Answer::OK,
                            databaseErrorBox(RunTimeError(error::kFileNotFound), "Reports, mnuOpen.").text}});
}

TEST_F(ReportsMenu, StartsInTheReportsOfTheFolderThatIsCurrentAsItComesUp) {
    const fs::path before = fs::current_path();
    const fs::path chosen = fs::canonical(play.dataFolder());
    play.click("mnuRetMain");
    fs::current_path(chosen);
    ASSERT_FALSE(fs::exists("Reports"));
    play.click("mnuReports");
    fs::current_path(before);
    play.display.expectDialog({"Open Report", chosen / "league.txt"});
    play.display.forgetEvents();
    play.click("mnuOpen");
    EXPECT_EQ(play.display.dialogs().back().folder, (chosen / "Reports").string());
    EXPECT_EQ(play.display.events(), Log{"viewer " + (chosen / "league.txt").string()});
}

TEST_F(ReportsMenu, ComesUpWhereTheCurrentFolderIsGone) {
    const fs::path before = fs::current_path();
    const fs::path gone = play.dataFolder() / "gone";
    play.click("mnuRetMain");
    fs::create_directory(gone);
    fs::current_path(gone);
    fs::remove(gone);
    play.click("mnuReports");
    EXPECT_EQ(play.screen().name(), "frmReports");
    fs::current_path(before);
}

TEST_F(ReportsMenu, HasItsCaptions) {
    play.expectSeen({{"lblTitle", "Reports"},
                     {"mnuFile", "&File"},
                     {"mnuOpen", "&Open"},
                     {"mnuExit", "E&xit"},
                     {"mnuSearchMain", "&Report"},
                     {"mnuRptEvent", "&Event Reports"},
                     {"mnuRptGame", "&Game Reports"},
                     {"mnuStats", "&Statistical Reports"},
                     {"mnuRetMain", "Return to &Main Menu"},
                     {"mnuSearchHelp", "&Help"},
                     {"mnuTBKHelp", "Tallybrook Help"},
                     {"mnuSearchHelpAbout", "&About"}});
}

TEST_F(ReportsMenu, LeadsToTheMainMenuFromAlone) {
    play.click("mnuStats");
    play.click("cmdRpt", {{"Return to Reports", Answer::Yes}});
    play.display.forgetEvents();
    play.click("mnuRetMain");
    EXPECT_EQ(play.display.events(), (Log{"unload frmReports", "load frmMain", "show frmMain"}));
}

}  // namespace

}  // namespace tallybrook::test
