#include "ReportPlay.h"
#include "reports/CountedFigures.h"
#include "reports/ReportRun.h"
#include "store/file/Connection.h"

#include <filesystem>
#include <fstream>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kStatisticsHead{"                       Tallybrook 2.0",
                                               "                       Statistical Report",
                                               "",
                                               "Report Date: 11/14/2026, 9:55:00 PM",
                                               "Report Type: All Events",
                                               "",
                                               "Found 0 matching events."};

class ReportFailure : public testing::Test {
protected:
    static Expected failure(const std::string& procedure, int number) {
        return ReportPlay::failure(procedure, number);
    }
    static Expected brokenStatement(const std::string& word) {
        const RunTimeError raised(error::kStatementNotUnderstood,
                                  "Syntax error in the statement: \"" + word + "\" was not expected.");
        return {"Database Error", Answer::OK, databaseErrorBox(raised, "TBK Reports, Open_DB.").text};
    }
    static constexpr int kGone = error::kObjectNotSet;

    ReportPlay play;
};

TEST_F(ReportFailure, OfASelectionOfNoEventsLeavesTheHeader) {
    const std::string report = play.statistics(
        {failure("Get_Sc_Mode", error::kNoCurrentRow), failure("Get_StSp_Stats", kGone),
         failure("Build_Sp_Sum", kGone), failure("Build_Sum_Matrix", kGone), failure("Write_Stats", kGone)});
    EXPECT_TRUE(isSameText(report, withLineEnds(kStatisticsHead)));
    for (const MessageBox& box : play.display.boxes())
        EXPECT_EQ(box.icon, Icon::Critical);
}

TEST_F(ReportFailure, OfADeletedEventComesWithTheDateInTheHeader) {
    const std::string report = play.eventReport(
        "Summary", 7,
        {failure("Write_Header", error::kNoCurrentRow), failure("Get_Sc_Mode", kGone),
         failure("Get_StSp_Stats", kGone), failure("Build_Sp_Sum", kGone), failure("Write_Event", kGone)});
    EXPECT_TRUE(
        isSameText(report, withLineEnds({"                       Tallybrook 2.0",
                                         "                       Event Report - Summary", "",
                                         "Report Date: 11/14/2026, 9:55:00 PM", "Event: Thursday League"})));
}

TEST_F(ReportFailure, OfABrokenSelectionLeavesAnEmptyFile) {
    play.addEvent({});
    const std::string report = play.report(
        {.kind = "Statistics", .evType = "League", .filter = "O'Hara's Cup"},
        {brokenStatement("Hara"), failure("Write_Header", error::kBadFileNameOrNumber),
         failure("Get_Sc_Mode", kGone), failure("Get_StSp_Stats", kGone), failure("Build_Sp_Sum", kGone),
         failure("Build_Sum_Matrix", kGone), failure("Write_Stats", kGone)});
    EXPECT_EQ(report, "");
}

TEST_F(ReportFailure, OfAFromDateAloneBreaksTheNamePart) {
    play.addEvent({});
    play.report(
        {.kind = "Statistics", .evType = "All Events", .filter = "x", .dateFrom = makeDate(2026, 1, 1)},
        {brokenStatement("AND"), failure("Write_Header", error::kBadFileNameOrNumber),
         failure("Get_Sc_Mode", kGone), failure("Get_StSp_Stats", kGone), failure("Build_Sp_Sum", kGone),
         failure("Build_Sum_Matrix", kGone), failure("Write_Stats", kGone)});
}

TEST_F(ReportFailure, OfAFileThatCannotBeOpenedEndsTheReport) {
    play.addEvent({});
    play.run(
        [&] {
            Write_Report(
                play.program(),
                {.kind = "Full", .eventKey = 1, .file = (play.dataFolder() / "no" / "r.txt").string()});
        },
        {failure("Write_Report", error::kPathNotFound)});
    play.run(
        [&] {
            Write_Report(play.program(), {.kind = "Full", .eventKey = 1, .file = play.dataFolder().string()});
        },
        {failure("Write_Report", error::kPathFileAccess)});
    EXPECT_TRUE(fs::is_directory(play.dataFolder()));
}

TEST_F(ReportFailure, OfAReportOverTheLogbookEndsItAndLeavesTheLogbook) {
    play.addEvent({});
    const fs::path logbook = play.program().logbookFile();
    const std::string before = bytesOf(logbook);
    for (const char* const kind : {"Summary", "Full", "Statistics"}) {
        play.run(
            [&] {
                Write_Report(play.program(), {.kind = kind,
                                              .evType = "All Events",
                                              .eventKey = 1,
                                              .file = logbook.string(),
                                              .copyToHandheld = true});
            },
            {failure("Write_Report", error::kPathFileAccess)});
        EXPECT_TRUE(isSameText(bytesOf(logbook), before)) << kind;
    }
    play.eventReport("Full");
}

TEST_F(ReportFailure, OfANullAverageStopsTheBody) {
    play.addEvent({.average = Null{}});
    const std::string report =
        play.eventReport("Full", 1, {failure("Write_Event", error::kInvalidUseOfNull)});
    EXPECT_TRUE(report.ends_with("Game Score only: 0 games.\r\n"));
}

TEST_F(ReportFailure, OfANullTotalStopsTheStatistics) {
    play.addEvent({.total = Null{}});
    const std::string report = play.statistics(
        {failure("Build_Sum_Matrix", error::kInvalidUseOfNull), failure("Write_Stats", kGone)});
    EXPECT_TRUE(report.ends_with("Game Score only: 0 games.\r\n"));
}

TEST_F(ReportFailure, OfANullNumberOfGamesStopsTheStatistics) {
    play.addEvent({});
    play.addEvent({.games = Null{}});
    play.statistics({failure("Build_Sum_Matrix", error::kInvalidUseOfNull), failure("Write_Stats", kGone)});
}

TEST_F(ReportFailure, OfANullScoreStopsTheStatistics) {
    play.addEvent({});
    play.addGame("N", Null{});
    play.statistics({failure("Build_Sum_Matrix", error::kInvalidUseOfNull), failure("Write_Stats", kGone)});
}

// No field takes such a number, but another program can put it in.
TEST_F(ReportFailure, OfATotalOrAScoreBeyond16BitsStopsTheStatistics) {
    play.addEvent({});
    play.addGame("N");
    SQLite::Database& logbook = play.program().store().connection().database();
    const auto stops = [&] {
        play.statistics({failure("Build_Sum_Matrix", error::kOverflow), failure("Write_Stats", kGone)});
    };
    logbook.exec("UPDATE tblEventInfo SET fldSeriesTot = 32768");
    stops();
    logbook.exec("UPDATE tblEventInfo SET fldSeriesTot = 0");
    logbook.exec("UPDATE tblGameInfo SET fldGameScore = 32768");
    stops();
}

// No event gets such a key, but another program can put it in.
TEST_F(ReportFailure, OfAKeyBeyond32BitsStopsTheReportAtItsMarks) {
    play.program().store().connection().database().exec(
        "INSERT INTO tblEventInfo (fldSessionNum, fldNumGames) VALUES (3000000000, 3)");
    const std::string report =
        play.statistics({failure("Get_StSp_Stats", error::kOverflow), failure("Build_Sp_Sum", kGone),
                         failure("Build_Sum_Matrix", kGone), failure("Write_Stats", kGone)});
    EXPECT_TRUE(report.ends_with("Game Score only: 0 games.\r\n"));
}

TEST_F(ReportFailure, OfANullFrameNumberStopsTheBody) {
    play.addEvent({});
    play.addGame("P");
    play.addFrame("X", "X", "", "", {{"fldFrameNum", Null{}}});
    const std::string report = play.eventReport(
        "Full", 1,
        {failure("Build_Sp_Sum", error::kInvalidUseOfNull), failure("Write_Event", error::kObjectNotSet)});
    EXPECT_TRUE(report.ends_with("Game Score only: 0 games.\r\n"));
}

TEST_F(ReportFailure, OfASeriesOf110GamesStopsTheStatistics) {
    play.addEvent({.games = std::int64_t{110}});
    play.statistics({failure("Build_Sum_Matrix", error::kOverflow), failure("Write_Stats", kGone)});
}

TEST_F(ReportFailure, OfNoSeriesAtAllStopsTheStatistics) {
    play.addEvent({.games = std::int64_t{0}});
    play.statistics(
        {failure("Build_Sum_Matrix", error::kSubscriptOutOfRange), failure("Write_Stats", kGone)});
}

TEST_F(ReportFailure, OfANegativeNumberOfGamesStopsTheStatistics) {
    play.addEvent({});
    play.addEvent({.games = std::int64_t{-1}});
    play.statistics(
        {failure("Build_Sum_Matrix", error::kSubscriptOutOfRange), failure("Write_Stats", kGone)});
}

TEST_F(ReportFailure, OfTheFirstEventIsToldBeforeThatOfANullNumberOfGames) {
    play.addEvent({.games = std::int64_t{-1}});
    play.addEvent({.games = Null{}});
    play.statistics(
        {failure("Build_Sum_Matrix", error::kSubscriptOutOfRange), failure("Write_Stats", kGone)});
}

TEST_F(ReportFailure, OfANullGameNumberStopsTheSecondWalk) {
    play.addEvent({});
    play.insert("tblGameInfo",
                {{"fldSessionNum", std::int64_t{1}}, {"fldGameNum", Null{}}, {"fldScoreType", "N"}});
    play.eventReport("Summary", 1,
                     {failure("Build_Sp_Sum", error::kInvalidUseOfNull), failure("Write_Event", kGone)});
}

TEST_F(ReportFailure, OfTheMatrixItselfComesWithTwoBoxes) {
    play.addEvent({});
    play.addGame("P");
    play.addFrame("9/", "one leave too many", "/");
    CountedFigures figures;
    for (int leave = 1; leave <= 32767; ++leave)
        figures.spares.figures.matrix.count(std::to_string(leave), false);
    ReportRun run(play.program());
    run.createRecordsets();
    run.gReportSQL = "SELECT * FROM tblEventInfo";
    countFigures(run, figures, false);
    play.run([&] { Build_Sp_Sum(run, figures.spares, {.PinfallGames = 1}); },
             {failure("Add_Spare_Matrix", error::kOverflow), failure("Build_Sp_Sum", kGone)});
}

class CopyToHandheld : public ReportFailure {
protected:
    void reportWithCopy(const std::vector<Expected>& boxes = {}) {
        play.report({.kind = "Summary", .filter = "Thursday League", .eventKey = 1, .copyToHandheld = true},
                    boxes);
    }
    fs::path syncFolder() {
        const fs::path folder = play.dataFolder() / "sync folder";
        fs::create_directories(folder);
        return folder;
    }
    void configure(const std::string& directory) {
        std::ofstream(play.dataFolder() / "tbrkcfg.conf")
            << "HHTYPE=\"Palm\"\r\nHHSYNCDIR=\"" << directory << "\"\r\n";
    }
};

TEST_F(CopyToHandheld, UsesTheValuesInForce) {
    play.addEvent({});
    configure("/nowhere");  // not read again
    play.session().gHHType = "PPC";
    play.session().gHHSyncDir = syncFolder().string();
    std::ofstream(syncFolder() / "report.txt") << "an older one";
    reportWithCopy();
    EXPECT_EQ(bytesOf(syncFolder() / "report.txt"), bytesOf(play.file()));
    EXPECT_EQ(play.session().gHHType, "PPC");
}

TEST_F(CopyToHandheld, ReadsTheConfigurationWhereItIsMissing) {
    play.addEvent({});
    configure(syncFolder().string());
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir.clear();
    reportWithCopy();
    EXPECT_EQ(bytesOf(syncFolder() / "report.txt"), bytesOf(play.file()));
}

TEST_F(CopyToHandheld, ReadsTheWholeConfigurationWhereTheHandheldIsMissing) {
    play.addEvent({});
    configure(syncFolder().string());
    play.session().gHHType.clear();
    play.session().gHHSyncDir = (play.dataFolder() / "not there").string();
    reportWithCopy();
    EXPECT_EQ(bytesOf(syncFolder() / "report.txt"), bytesOf(play.file()));
    EXPECT_EQ(play.session().gHHType, "Palm");
}

TEST_F(CopyToHandheld, TellsOfAMissingConfiguration) {
    play.addEvent({});
    fs::remove(play.dataFolder() / "tbrkcfg.conf");
    play.session().gHHType.clear();
    const Expected missing{
        "No PDA Configuration", Answer::OK,
        "Handheld configuration could not be read.\r\nPlease go to the Main Menu and run File, then "
        "Handheld Setup."};
    const MessageBox raised =
        databaseErrorBox(RunTimeError(20, "Resume without error"), "TBK Reports, Write_Report.");
    reportWithCopy({missing, {raised.title, Answer::OK, raised.text}});
    EXPECT_EQ(play.display.boxes().at(0).icon, Icon::Critical);
    EXPECT_NE(bytesOf(play.file()).find("Spare\t\t\tAttempts"), std::string::npos);  // complete all the same
}

TEST_F(CopyToHandheld, TellsOfABrokenConfiguration) {
    play.addEvent({});
    std::ofstream(play.dataFolder() / "tbrkcfg.conf") << "\n";
    play.session().gHHType.clear();
    reportWithCopy({failure("Write_Report", error::kInvalidProcedureCall)});
}

TEST_F(CopyToHandheld, NeverCopiesToAnEmptyDirectory) {
    play.addEvent({});
    configure("");
    play.session().gHHType.clear();
    play.session().gHHSyncDir.clear();
    reportWithCopy({failure("Write_Report", error::kPathNotFound)});
}

TEST_F(CopyToHandheld, TellsOfAFailedCopy) {
    play.addEvent({});
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = (play.dataFolder() / "not there").string();
    reportWithCopy({failure("Write_Report", error::kPathNotFound)});
}

TEST_F(CopyToHandheld, LeavesAReportAloneThatLiesThereAlready) {
    play.addEvent({});
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = play.dataFolder().string();
    reportWithCopy({failure("Write_Report", error::kPermissionDenied)});
    EXPECT_NE(bytesOf(play.file()).find("Spare\t\t\tAttempts"), std::string::npos);
}

TEST_F(CopyToHandheld, NeverTakesThePlaceOfTheLogbook) {
    play.addEvent({});
    play.session().gHHType = "Palm";
    play.session().gHHSyncDir = play.dataFolder().string();
    const fs::path logbook = play.program().logbookFile();
    const fs::path namesake = syncFolder() / logbook.filename();
    const std::string before = bytesOf(logbook);
    play.run(
        [&] {
            Write_Report(
                play.program(),
                {.kind = "Summary", .eventKey = 1, .file = namesake.string(), .copyToHandheld = true});
        },
        {failure("Write_Report", error::kPermissionDenied)});
    EXPECT_TRUE(isSameText(bytesOf(logbook), before));
    EXPECT_NE(bytesOf(namesake).find("Spare\t\t\tAttempts"), std::string::npos);
}

class Selection : public testing::Test {
protected:
    Selection() {
        play.addEvent({.name = "Thursday League", .date = makeDate(2026, 11, 5), .type = "LEAGUE"});
        play.addEvent({.name = "Thursday League", .date = makeDate(2026, 11, 12), .type = "LEAGUE"});
        play.addEvent({.name = "Open", .date = makeDate(2026, 11, 7), .type = "TOURNAMENT"});
        play.addEvent({.name = "Open", .date = makeDate(2026, 10, 1), .type = "PRACTICE"});
    }
    int found(const ReportRequest& request) {
        const std::string report = play.report(request);
        const std::size_t at = report.find("\r\nFound ") + 8;
        return std::stoi(report.substr(at));
    }
    ReportPlay play;
};

TEST_F(Selection, GoesByTypeDatesAndName) {
    const DateTime from = makeDate(2026, 11, 5);
    const DateTime to = makeDate(2026, 11, 7);
    struct Case {
        const char* type;
        bool limitsDates;
        const char* name;
        int found;
    };
    for (const Case& one :
         {Case{"All Events", false, "", 4}, Case{"All Events", true, "", 2},
          Case{"All Events", false, "Open", 2}, Case{"All Events", true, "open", 1},
          Case{"League", false, "", 2}, Case{"League", true, "", 1}, Case{"Tournament", false, "Open", 1},
          Case{"Practice", false, "Open", 1}, Case{"League", true, "Thursday League", 1}}) {
        EXPECT_EQ(found({.kind = "Statistics",
                         .evType = one.type,
                         .filter = one.name,
                         .dateFrom = one.limitsDates ? from : kZeroDate,
                         .dateTo = one.limitsDates ? to : kZeroDate}),
                  one.found)
            << one.type << one.limitsDates << one.name;
    }
}

TEST_F(Selection, IsToldInTheHeader) {
    const std::string report = play.report({.kind = "Statistics",
                                            .evType = "Tournament",
                                            .filter = "Open",
                                            .dateFrom = makeDate(2026, 11, 1),
                                            .dateTo = makeDate(2026, 11, 30)});
    EXPECT_NE(report.find(
                  "\r\nReport Type: Tournament\r\nDate Range: 11/1/2026 to 11/30/2026\r\nFilter: Open\r\n\r\n"
                  "Found 1 matching events.\r\n"),
              std::string::npos);
    EXPECT_EQ(report.find("Event Type: "), std::string::npos);
}

TEST_F(Selection, HasNoDatePartWithoutAnEnd) {
    const std::string report =
        play.report({.kind = "Statistics", .evType = "League", .dateFrom = makeDate(2026, 11, 12)});
    EXPECT_NE(report.find("Date Range: 11/12/2026 to 12:00:00 AM\r\n"), std::string::npos);
    EXPECT_NE(report.find("Found 2 matching events."), std::string::npos);
}

TEST_F(Selection, OfAnyOtherKindIsStatistical) {
    EXPECT_EQ(found({.kind = "summary", .evType = "All Events"}), 4);
}

}  // namespace

}  // namespace tallybrook::test
