#include "handheld/SyncPlay.h"

namespace tallybrook::test {

namespace {

using Log = std::vector<std::string>;

class GameImport : public testing::Test {
protected:
    /// One event, these games, and a frame for the check.
    static Exports with(const Lines& games) {
        Exports files = smallExports();
        files.games = games;
        return files;
    }
    void importGames(const Lines& games, const std::vector<Expected>& check = SyncPlay::plainCheck()) {
        play.put(with(games));
        play.sync(Answer::Yes, {}, check);
    }
    /// An import that fails in the reader of the games.
    void failOn(const Lines& games, int number) {
        play.put(with(games));
        play.failingSync({SyncPlay::failure("ReadCDBGames", number), SyncPlay::failure("ReadCDBFrames", 52),
                          SyncPlay::failure("cmdAddPDA", 52)});
    }

    SyncPlay play;
};

TEST_F(GameImport, TakesTheRecordAsItStands) {
    importGames({GameLine{.number = "7",
                          .score = "301",
                          .leftLane = "8",
                          .rightLane = "3",
                          .startLane = "-2",
                          .lanePair = "a, b",
                          .laneCond = "wet, then dry",
                          .comment = "it's fine"}
                     .text()});
    EXPECT_EQ(play.games(), Log{"1|1|7|-2|8|3|a, b|301|wet, then dry|it's fine|N|0|G000000001|N"});
}

TEST_F(GameImport, PassesOverWhatIsMarkedForDeletion) {
    importGames(
        {GameLine{.status = "0x0002", .score = "99999"}.text(), GameLine{.recordId = "G000000002"}.text()});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldHHRecordID"}), Log{"G000000002"});
    EXPECT_TRUE(play.logHolds("Record ID G000000001 marked for deletion, not processed."));
    EXPECT_TRUE(play.logHolds("Games processed: 2, Games added: 1, Games in error: 1"));
}

TEST_F(GameImport, TakesAnyOtherStatusForThatOfALiveGame) {
    importGames({GameLine{.status = "0x0003"}.text(), GameLine{.status = "0X0002"}.text(),
                 GameLine{.status = "0xFFFF"}.text(), GameLine{.status = "      "}.text()});
    EXPECT_EQ(play.games().size(), 4U);
    EXPECT_TRUE(play.logHolds("Games processed: 4, Games added: 4, Games in error: 0"));
}

TEST_F(GameImport, EndsAtALaterCountOfNone) {
    play.put(with({countLine(2), GameLine{}.text(), countLine(0), "no record any more"}));
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Sync Complete", Answer::OK, "There were no games to process."}});
    EXPECT_EQ(play.games().size(), 1U);
    EXPECT_TRUE(play.frames().empty());
    EXPECT_TRUE(play.runLog().ends_with("No games to process.\r\n"));
}

TEST_F(GameImport, FindsTheEventByExactText) {
    importGames({GameLine{.eventId = "101 "}.text(), GameLine{.eventId = "0101"}.text(),
                 GameLine{.eventId = ""}.text(), GameLine{.recordId = "G000000002"}.text()});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldHHRecordID"}), Log{"G000000002"});
    EXPECT_TRUE(play.logHolds("No event found for record ID G000000001. Event ID: 101 "));
    EXPECT_TRUE(play.logHolds("No event found for record ID G000000001. Event ID: 0101"));
    EXPECT_TRUE(play.logHolds("No event found for record ID G000000001. Event ID: "));
}

TEST_F(GameImport, DoesNotFindAnEventOfAnEarlierRun) {
    play.put(smallExports());
    play.sync(Answer::No);
    play.put({.events = {"# none"}, .games = {GameLine{}.text()}, .frames = {FrameLine{}.text()}});
    play.sync(Answer::No, {}, SyncPlay::plainCheck(), "mnuSyncPDA");
    EXPECT_EQ(play.games().size(), 1U);
    EXPECT_TRUE(play.logHolds("No event found for record ID G000000001. Event ID: 101"));
    EXPECT_TRUE(play.logHolds("Frames processed: 1, Frames added: 0, Frames in error: 1"));
}

TEST_F(GameImport, GoesToTheFirstOfTwoEventsWithOneIdentifier) {
    Exports files = smallExports();
    files.events.push_back(EventLine{.recordId = "E000000002"}.text());
    files.games.push_back(GameLine{.recordId = "G000000002", .gameId = "202", .number = "2"}.text());
    play.put(files);
    play.sync(Answer::No, {}, {{"Database Error"}, {"Check Complete"}});  // the second has no games
    EXPECT_EQ(play.events().size(), 2U);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldSessionNum"}), (Log{"1", "1"}));
}

TEST_F(GameImport, ReadsNoNumberBehindAnEmptyOne) {
    importGames({GameLine{.unused = ""}.text()});
    EXPECT_EQ(play.rows("tblGameInfo",
                        {"fldGameScore", "fldLeftLane", "fldRightLane", "fldStartLane", "fldLanePair"}),
              Log{"187|0|0|0|13-14"});
}

TEST_F(GameImport, DoesNothingWithItsSeventhField) {
    importGames({GameLine{.unused = "-17"}.text()});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore", "fldLeftLane"}), Log{"187|13"});
    EXPECT_EQ(play.working("tblGame.cdb").find("-17"), std::string::npos);
}

TEST_F(GameImport, FailsOnASeventhFieldBeyondItsRange) {
    failOn({GameLine{.unused = "40000"}.text()}, 6);
    EXPECT_TRUE(play.games().empty());
    EXPECT_EQ(play.events().size(), 1U);
}

TEST_F(GameImport, StoresAnyScoreType) {
    // Seen before the check puts it right: the frames fail.
    Exports files = with({GameLine{.scoreType = "Zz"}.text()});
    files.frames = {FrameLine{.number = "40000"}.text()};
    play.put(files);
    play.failingSync({SyncPlay::failure("ReadCDBFrames", 6), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldScoreType", "fldFrmsRecorded", "fldBowlHand"}), Log{"Zz|0|N"});
}

TEST_F(GameImport, DoesNotTouchTheEvent) {
    Exports files = smallExports();
    files.frames = {FrameLine{.number = "40000"}.text()};
    play.put(files);
    play.failingSync({SyncPlay::failure("ReadCDBFrames", 6), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot", "fldSeriesAvg"}),
              Log{"0|541|180.33"});
}

TEST_F(GameImport, FailsOnAnEmptyLine) {
    play.put(with({""}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ReadCDBGames", 52),
                      SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(GameImport, FailsOnAnEmptyLineBehindAGame) {
    // The event of the game before is still known, so the walk goes on to its next number.
    play.put(with({GameLine{}.text(), ""}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ParseDBLine", 5),
                      SyncPlay::failure("ReadCDBGames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.games().size(), 1U);
}

TEST_F(GameImport, FailsOnALineWithoutItsTexts) {
    play.put(with({"G000000001,0x0000,201,101,1,187,0,13,14,13"}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ParseDBLine", 5),
                      SyncPlay::failure("ReadCDBGames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.games().empty());
}

TEST_F(GameImport, StoresNoRowAfterAFailedCut) {
    play.put(with({GameLine{.comment = std::string(40000, 'x')}.text()}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 6), SyncPlay::failure("ReadCDBGames", 91),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.games().empty());
}

TEST_F(GameImport, TakesEarlierTextsForMissingOnes) {
    importGames({R"(G000000001,0x0000,201,101,1,187,0,13,14,13,"13-14","P)"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldLanePair", "fldLaneCond", "fldComment"}), Log{"13-14|13-14|P"});
}

}  // namespace

}  // namespace tallybrook::test
