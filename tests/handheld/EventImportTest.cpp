#include "handheld/SyncPlay.h"
#include "store/file/Connection.h"

namespace tallybrook::test {

namespace {

using Log = std::vector<std::string>;

class EventImport : public testing::Test {
protected:
    /// The files of these event lines and of no live games and frames.
    static Exports eventsAlone(const Lines& lines) {
        return {.events = lines, .games = {"# games"}, .frames = {"# frames"}};
    }
    /// The boxes of the check over events without games and frames.
    static std::vector<Expected> checkOfEvents(std::size_t events) {
        std::vector<Expected> boxes(2 + events, {"Database Error"});
        boxes.push_back({"Check Complete"});
        return boxes;
    }
    void importEvents(const Lines& lines, std::size_t added, Answer toDelete = Answer::Yes) {
        play.put(eventsAlone(lines));
        play.sync(toDelete, {}, checkOfEvents(added));
    }
    /// An import that fails in the reader of the events.
    void failOn(const Lines& lines, int number) {
        play.put(eventsAlone(lines));
        play.failingSync({SyncPlay::failure("ReadCDBEvents", number), SyncPlay::failure("ReadCDBGames", 52),
                          SyncPlay::failure("cmdAddPDA", 52)});
    }

    SyncPlay play;
};

TEST_F(EventImport, GoesOnAfterAFileOfHeadersAlone) {
    play.put(eventsAlone({"# headers", countLine(5)}));
    play.sync(Answer::No, {}, SyncPlay::checkOfNothing());
    EXPECT_TRUE(play.logHolds("Total of 5 events in file."));
    EXPECT_TRUE(play.logHolds("Events processed: 0, Events added: 0, Events in error: 0"));
    EXPECT_TRUE(play.logHolds("Games processed: 0, Games added: 0, Games in error: 0"));
}

TEST_F(EventImport, LogsNoTotalWithoutACount) {
    importEvents({EventLine{}.text()}, 1);
    EXPECT_EQ(play.events().size(), 1U);
    EXPECT_EQ(play.runLog().find("Total of"), std::string::npos);
}

TEST_F(EventImport, ReadsEveryFileWithoutAnyLine) {
    play.put({});
    play.sync(Answer::Yes, {}, SyncPlay::checkOfNothing());
    EXPECT_EQ(play.working("tblEvent.cdb"), "");
    EXPECT_TRUE(play.logHolds("Frames processed: 0, Frames added: 0, Frames in error: 0"));
}

TEST_F(EventImport, CopiesEveryHeaderLine) {
    importEvents({"# one", "#", countLine(7), EventLine{}.text(), "# RECCNT=1 and again", "# last"}, 1);
    const std::string written = play.working("tblEvent.cdb");
    EXPECT_TRUE(written.starts_with("# one\r\n#\r\n# RECCNT=7\r\nE000000001,0x0002,"));
    EXPECT_TRUE(written.ends_with("\r\n# RECCNT=1 and again\r\n# last\r\n"));
    EXPECT_TRUE(play.logHolds("Total of 7 events in file."));
    EXPECT_TRUE(play.logHolds("Total of 1 events in file."));
}

TEST_F(EventImport, EndsAtALaterCountOfNone) {
    play.put(eventsAlone({EventLine{}.text(), "# reccnt=0", countLine(0), "no record any more"}));
    play.click("cmdAddPDA",
               {SyncPlay::sayingWhatIsToCome(), SyncPlay::askingToDelete(Answer::Yes), {"Sync Complete"}});
    EXPECT_EQ(play.events().size(), 1U);
}

TEST_F(EventImport, PassesOverWhatIsMarkedForDeletion) {
    importEvents({EventLine{.status = "0x0002", .date = "no date at all"}.text(),
                  EventLine{.recordId = "E000000002", .status = "0xFFFF"}.text(),
                  EventLine{.recordId = "E000000003", .status = "0x002 "}.text()},
                 2);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldHHRecordID"}), (Log{"E000000002", "E000000003"}));
    EXPECT_TRUE(play.logHolds("Record ID E000000001 marked for deletion, not processed."));
    EXPECT_TRUE(play.logHolds("Events processed: 3, Events added: 2, Events in error: 1"));
    EXPECT_EQ(play.working("tblEvent.cdb").find("E000000001"), std::string::npos);
}

TEST_F(EventImport, KeepsACommentWithACommaWhole) {
    importEvents({EventLine{.comment = "sore knee, left early"}.text()}, 1);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldComment", "fldNumGames", "fldSeriesAvg", "fldSeriesTot"}),
              Log{"sore knee, left early|3|180.33|541"});
}

TEST_F(EventImport, MovesTheNumbersBehindACommentThatEndsInAComma) {
    importEvents({EventLine{.comment = "sore knee,"}.text()}, 1);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldComment", "fldNumGames", "fldSeriesAvg", "fldSeriesTot"}),
              Log{"sore knee,|0|3|180"});
    EXPECT_TRUE(play.working("tblEvent.cdb").ends_with("\"sore knee,\",0,3,180\r\n"));
}

TEST_F(EventImport, StoresNamesWithApostrophes) {
    importEvents({EventLine{.name = "Bill's Open"}.text()}, 1);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}), Log{"Bill's Open"});
}

TEST_F(EventImport, FailsOnARecordIdWithAnApostrophe) {
    play.put(eventsAlone({EventLine{.recordId = "E00000'001"}.text()}));
    play.failingSync(
        {{"Database Error"}, SyncPlay::failure("ReadCDBGames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    const std::string& text = play.display.boxes()[2].text;
    EXPECT_TRUE(text.starts_with("Error Number: -2147217900\r\n")) << text;
    EXPECT_TRUE(text.ends_with("\r\nModule: Sync PDA, ReadCDBEvents.")) << text;
    EXPECT_TRUE(play.events().empty());
}

TEST_F(EventImport, WritesTheTypeInCapitals) {
    importEvents({EventLine{.type = "League"}.text(),
                  EventLine{.recordId = "E000000002", .type = "\u00fcbung"}.text()},
                 2);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventType"}), (Log{"LEAGUE", "\u00dcBUNG"}));
    EXPECT_EQ(play.working("tblEvent.cdb").find("eague\""),
              play.working("tblEvent.cdb").find("eague\",\"11"));
}

TEST_F(EventImport, ReadsDatesAsTheyComeAndGivesThemBackAsTheyCame) {
    const Lines dates{"1/2/2026",   "02-03-26",           "Nov 14, 2026",
                      "2026-11-14", "11/14/2026 9:55 PM", "25/12/2025"};
    Lines lines;
    for (const std::string& date : dates)
        lines.push_back(
            EventLine{.recordId = "E00000000" + std::to_string(lines.size()), .date = date}.text());
    importEvents(lines, dates.size());
    EXPECT_EQ(play.rows("tblEventInfo", {"fldDateBowled"}),
              (Log{"1/2/2026", "2/3/2026", "11/14/2026", "11/14/2026", "11/14/2026", "12/25/2025"}));
    for (const std::string& date : dates)
        EXPECT_NE(play.working("tblEvent.cdb").find(",\"" + date + "\","), std::string::npos) << date;
}

TEST_F(EventImport, FailsOnADateThatIsNone) {
    failOn({EventLine{}.text(), EventLine{.recordId = "E000000002", .date = "2/30/2026"}.text()}, 13);
    EXPECT_EQ(play.rows("tblEventInfo", {"fldHHRecordID"}), Log{"E000000001"});
    EXPECT_TRUE(play.runLog().ends_with("Event E000000001 added to database. Key: 1\r\n"));
}

TEST_F(EventImport, FailsOnAnEmptyLine) {
    failOn({"# headers", "", EventLine{}.text()}, 13);
    EXPECT_TRUE(play.events().empty());
}

TEST_F(EventImport, FailsOnNumbersBeyondSixteenBits) {
    failOn({EventLine{.total = "32768"}.text()}, 6);
    EXPECT_TRUE(play.events().empty());
}

TEST_F(EventImport, FailsOnACountBeyondThirtyTwoBits) {
    failOn({"# RECCNT=99999999999", EventLine{}.text()}, 6);
}

TEST_F(EventImport, FailsOnALineWithoutItsLastNumber) {
    const std::string whole = EventLine{}.text();
    play.put(eventsAlone({whole.substr(0, whole.rfind(','))}));
    // The cutting tells its failure and goes back; the row then finds no data control any more.
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ReadCDBEvents", 91),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.events().empty());
    EXPECT_TRUE(
        play.masterLog().ends_with("Error Number: 5\r\nError: Invalid procedure call or argument\r\nModule: "
                                   "Sync PDA, ParseDBLine.\r\n"));
}

TEST_F(EventImport, FailsOnALineWithoutItsLastTwoNumbers) {
    std::string line = EventLine{}.text();
    for (int cut = 0; cut < 2; ++cut)
        line.erase(line.rfind(','));
    play.put(eventsAlone({line}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ParseDBLine", 5),
                      SyncPlay::failure("ReadCDBEvents", 52), SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(EventImport, FailsOnALineTooLongForItsPositions) {
    play.put(eventsAlone({EventLine{.comment = std::string(40000, 'x')}.text()}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 6), SyncPlay::failure("ParseDBLine", 6),
                      SyncPlay::failure("ReadCDBEvents", 52), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.events().empty());
}

TEST_F(EventImport, LooksForNoDuplicatesAfterAFailedCut) {
    play.put(eventsAlone({EventLine{.date = std::string(40000, '1')}.text()}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 6), SyncPlay::failure("ReadCDBEvents", 91),
                      SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(EventImport, FailsWhereTheLogbookDoes) {
    play.put(smallExports());
    const auto breakTheLogbook = [&] {
        play.program().store().connection().database().exec("DROP TABLE tblEventInfo");
    };
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             {"Delete PDA Data", Answer::No, "", breakTheLogbook},
                             {"Database Error"},
                             SyncPlay::failure("ReadCDBGames", 52),
                             SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.display.boxes()[2].text.starts_with("Error Number: -2147467259\r\n"));
    EXPECT_TRUE(play.display.boxes()[2].text.ends_with("Module: Sync PDA, ReadCDBEvents."));
}

// --- Duplicates --------------------------------------------------------------------------------------------

TEST_F(EventImport, TellsDuplicatesByTheRecordIdAlone) {
    for (const char* const name : {"Summer Cup", "Winter Cup"})
        play.insert("tblEventInfo", {{"fldEventName", name},
                                     {"fldDateBowled", makeDate(2025, 7, 4)},
                                     {"fldHHRecordID", "E000000001"}});
    play.put(eventsAlone({EventLine{.date = "11-12-26"}.text()}));
    play.sync(Answer::Yes,
              {{"Duplicate Record ID", Answer::No,
                lines({"Duplicate Event(s) Found:", "Event: Summer Cup", "Date Bowled: 7/4/2025",
                       "Event: Winter Cup", "Date Bowled: 7/4/2025", "PDA Record", "Event: Thursday League",
                       "Date: 11-12-26", "Add record from PDA?"})}},
              checkOfEvents(2));
    const MessageBox& box = play.display.boxes()[2];
    EXPECT_EQ(box.icon, Icon::Warning);
    EXPECT_EQ(box.buttons, Buttons::YesNo);
    EXPECT_EQ(box.defaultAnswer(), Answer::Yes);
    EXPECT_EQ(play.events().size(), 2U);
    EXPECT_TRUE(play.logHolds("Conflicting record ID E000000001 not processed."));
    EXPECT_TRUE(play.logHolds("Events processed: 1, Events added: 0, Events in error: 1"));
    EXPECT_EQ(play.working("tblEvent.cdb"), "");  // neither kept nor marked
}

TEST_F(EventImport, AddsADuplicateThatIsWanted) {
    const Expected duplicate{"Duplicate Record ID", Answer::Yes};
    importEvents({EventLine{}.text()}, 1, Answer::No);
    play.sync(Answer::No, {duplicate}, checkOfEvents(2), "mnuSyncPDA");
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSessionNum", "fldHHRecordID"}),
              (Log{"1|E000000001", "2|E000000001"}));
    EXPECT_TRUE(play.logHolds("Event E000000001 added to database. Key: 2"));
}

TEST_F(EventImport, AsksOnceForEachDuplicateOfOneFile) {
    play.put(eventsAlone({EventLine{}.text(), EventLine{.name = "again"}.text(), EventLine{}.text()}));
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::Yes}, {"Duplicate Record ID", Answer::No}},
              checkOfEvents(2));
    EXPECT_EQ(play.rows("tblEventInfo", {"fldEventName"}), (Log{"Thursday League", "again"}));
    EXPECT_TRUE(play.logHolds("Events processed: 3, Events added: 2, Events in error: 1"));
}

TEST_F(EventImport, AsksBeforeItReadsTheDate) {
    play.insert("tblEventInfo", {{"fldDateBowled", makeDate(2025, 7, 4)}, {"fldHHRecordID", "E000000001"}});
    play.put(eventsAlone({EventLine{.date = "soon"}.text()}));
    play.sync(Answer::No,
              {{"Duplicate Record ID", Answer::No,
                lines({"Duplicate Event(s) Found:", "Event: ", "Date Bowled: 7/4/2025", "PDA Record",
                       "Event: Thursday League", "Date: soon", "Add record from PDA?"})}},
              checkOfEvents(1));
}

TEST_F(EventImport, RefusedTakesItsGamesAndFramesWithIt) {
    play.put(smallExports());
    play.sync(Answer::No);
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::No}}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_EQ(play.events().size(), 1U);
    EXPECT_EQ(play.games().size(), 1U);
    EXPECT_EQ(play.frames().size(), 1U);
    EXPECT_TRUE(play.logHolds("Events processed: 1, Events added: 0, Events in error: 1"));
    EXPECT_TRUE(play.logHolds("Games processed: 1, Games added: 0, Games in error: 1"));
    EXPECT_TRUE(play.logHolds("Frames processed: 1, Frames added: 0, Frames in error: 1"));
}

TEST_F(EventImport, AsksOnceForEachEventOfAFileThatCameBefore) {
    Exports files;
    for (const char* const last : {"1", "2", "3"}) {
        const std::string number = last;
        files.events.push_back(EventLine{.recordId = "E" + number, .eventId = number}.text());
        for (const char* const game : {"1", "2"})
            files.games.push_back(GameLine{
                .recordId = "G" + number + game, .gameId = number + game, .eventId = number, .number = game}
                                      .text());
        files.frames.push_back(
            FrameLine{.recordId = "F" + number, .eventId = number, .gameId = number + "1"}.text());
    }
    for (Lines* const lines : {&files.events, &files.games, &files.frames}) {
        for (std::string& line : *lines)
            line.insert(line.find(','), 10 - line.find(','), '.');  // a record ID has ten characters
    }
    play.put(files);
    play.sync(Answer::No);
    const Expected refused{"Duplicate Record ID", Answer::No};
    play.sync(Answer::No, {refused, refused, refused}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_EQ(play.events().size(), 3U);
    EXPECT_EQ(play.games().size(), 6U);
    EXPECT_EQ(play.frames().size(), 3U);
    EXPECT_TRUE(play.logHolds("Events processed: 3, Events added: 0, Events in error: 3"));
    EXPECT_TRUE(play.logHolds("Games processed: 6, Games added: 0, Games in error: 6"));
    EXPECT_TRUE(play.logHolds("Frames processed: 3, Frames added: 0, Frames in error: 3"));
}

TEST_F(EventImport, WantedTwiceEntersWithAllItsGamesAndFrames) {
    play.put(smallExports());
    play.sync(Answer::No);
    play.sync(Answer::No, {{"Duplicate Record ID", Answer::Yes}}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_EQ(play.rows("tblGameInfo", {"fldSessionNum"}), (Log{"1", "2"}));
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldSessionNum"}), (Log{"1", "2"}));
}

}  // namespace

}  // namespace tallybrook::test
