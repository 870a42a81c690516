#include "handheld/SyncPlay.h"

namespace tallybrook::test {

namespace {

using Log = std::vector<std::string>;

class FrameImport : public testing::Test {
protected:
    static Exports with(const Lines& frames) {
        Exports files = smallExports();
        files.frames = frames;
        return files;
    }
    void importFrames(const Lines& frames, const std::vector<Expected>& check = SyncPlay::plainCheck()) {
        play.put(with(frames));
        play.sync(Answer::Yes, {}, check);
    }

    SyncPlay play;
};

TEST_F(FrameImport, TakesTheTextsAsTheyStand) {
    importFrames({FrameLine{
        .first = "no pins", .second = "10-9", .fill = "//", .lineScore = "12345", .comment = "it's, so"}
                      .text()});
    EXPECT_EQ(play.frames(), Log{"1|1|1|1|13|Blue|20|10|no pins|10-9|//|it's, so|12345|F000000001"});
}

TEST_F(FrameImport, KeepsAllTextsOfATenthFrame) {
    importFrames(
        {FrameLine{.number = "10", .first = "X", .second = "7-10", .fill = "/", .lineScore = "X8/"}.text()});
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldFrameNum", "fldFirstBallRes", "fldSecondBallRes",
                                         "fldFillBallRes", "fldLineScore"}),
              Log{"10|X|7-10|/|X8/"});
}

TEST_F(FrameImport, TakesMoreThanTenFramesOfAGame) {
    Lines frames;
    for (int frame = 1; frame <= 13; ++frame)
        frames.push_back(FrameLine{.number = std::to_string(frame)}.text());
    importFrames(frames);
    EXPECT_EQ(play.frames().size(), 13U);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldFrmsRecorded"}), Log{"13"});
}

TEST_F(FrameImport, PassesOverWhatIsMarkedForDeletion) {
    importFrames({FrameLine{.status = "0x0002"}.text(), FrameLine{.recordId = "F000000002"}.text()});
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldHHRecordID"}), Log{"F000000002"});
    EXPECT_TRUE(play.logHolds("Record ID F000000001 marked for deletion, not processed."));
    EXPECT_TRUE(play.logHolds("Frames processed: 2, Frames added: 1, Frames in error: 1"));
    EXPECT_TRUE(play.working("tblFrame.cdb").starts_with("F000000002,0x0002,"));
}

TEST_F(FrameImport, FailsOnANumberEvenOfADeletedFrame) {
    play.put(with({FrameLine{.number = "40000", .status = "0x0002"}.text()}));
    play.failingSync({SyncPlay::failure("ReadCDBFrames", 6), SyncPlay::failure("cmdAddPDA", 52)});
}

TEST_F(FrameImport, NeedsItsGameAndItsEvent) {
    importFrames(
        {FrameLine{.recordId = "F000000001", .gameId = "999", .number = "4", .gameNumber = "2"}.text(),
         FrameLine{.recordId = "F000000002", .eventId = "999"}.text(),
         FrameLine{.recordId = "F000000003"}.text()});
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldHHRecordID"}), Log{"F000000003"});
    EXPECT_TRUE(
        play.logHolds("No event or game found for Record ID F000000001, will not be added. Frame number: "
                      "4, Game number: 2"));
    EXPECT_TRUE(
        play.logHolds("No event or game found for Record ID F000000002, will not be added. Frame number: "
                      "1, Game number: 1"));
}

TEST_F(FrameImport, FindsItsGameAndItsEventByExactText) {
    Exports files = smallExports();
    files.events.push_back(EventLine{.recordId = "E000000002", .eventId = "e1"}.text());
    files.games.push_back(GameLine{.recordId = "G000000002", .gameId = "g1", .eventId = "e1"}.text());
    files.frames = {FrameLine{.gameId = "201 "}.text(),
                    FrameLine{.gameId = "0201"}.text(),
                    FrameLine{.eventId = "101 "}.text(),
                    FrameLine{.eventId = "0101"}.text(),
                    FrameLine{.eventId = "e1", .gameId = "G1"}.text(),
                    FrameLine{.eventId = "E1", .gameId = "g1"}.text(),
                    FrameLine{.recordId = "F000000002", .eventId = "e1", .gameId = "g1"}.text()};
    play.put(files);
    play.sync(Answer::Yes);
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldHHRecordID"}), Log{"F000000002"});
    EXPECT_TRUE(play.logHolds("Frames processed: 7, Frames added: 1, Frames in error: 6"));
}

TEST_F(FrameImport, TakesAnyOtherStatusForThatOfALiveFrame) {
    importFrames({FrameLine{.status = "0x0003"}.text(), FrameLine{.status = "0X0002"}.text(),
                  FrameLine{.status = "0xFFFF"}.text(), FrameLine{.status = "      "}.text()});
    EXPECT_EQ(play.frames().size(), 4U);
    EXPECT_TRUE(play.logHolds("Frames processed: 4, Frames added: 4, Frames in error: 0"));
}

TEST_F(FrameImport, TakesEarlierTextsForMissingOnes) {
    importFrames({R"(F000000001,0x0000,301,101,201,1,1,13,"Blue","20","10","X","","","X)"});
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldBallUsed", "fldLineScore", "fldComment"}), Log{"Blue|X|Blue"});
}

TEST_F(FrameImport, LogsTheFramesOfADeletedGame) {
    Exports files = smallExports();
    files.games = {GameLine{.status = "0x0002"}.text()};
    play.put(files);
    play.sync(Answer::No, {},
              {{"Database Error"}, {"Database Error"}, {"Database Error"}, {"Check Complete"}});
    EXPECT_TRUE(
        play.logHolds("No event or game found for Record ID F000000001, will not be added. Frame number: "
                      "1, Game number: 1"));
}

TEST_F(FrameImport, GoesToTheGameThatItsOwnNumberNames) {
    Exports files = smallExports();
    files.games.push_back(GameLine{.recordId = "G000000002", .gameId = "202", .number = "2"}.text());
    files.frames = {FrameLine{.gameId = "201", .gameNumber = "2"}.text()};
    play.put(files);
    play.sync(Answer::No);
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldGameNum"}), Log{"2"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameNum", "fldFrmsRecorded"}), (Log{"1|0", "2|1"}));
}

TEST_F(FrameImport, GoesToTheEventThatItNames) {
    Exports files = smallExports();
    files.events.push_back(EventLine{.recordId = "E000000002", .eventId = "102"}.text());
    files.frames = {FrameLine{.eventId = "102", .gameId = "201"}.text()};
    play.put(files);
    play.sync(Answer::No, {}, {{"Database Error"}, {"Check Complete"}});  // the second event has no games
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldSessionNum", "fldGameNum"}), Log{"2|1"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldSessionNum", "fldFrmsRecorded"}), Log{"1|0"});
}

TEST_F(FrameImport, RecalculatesNothing) {
    importFrames({FrameLine{}.text()});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore"}), Log{"187"});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldSeriesTot", "fldSeriesAvg"}), Log{"541|180.33"});
}

TEST_F(FrameImport, LeavesTheCountOfFramesToTheCheck) {
    play.put(with({FrameLine{}.text(), FrameLine{.lane = "40000"}.text()}));
    play.failingSync({SyncPlay::failure("ReadCDBFrames", 6), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.frames().size(), 1U);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldFrmsRecorded"}), Log{"0"});
}

TEST_F(FrameImport, FailsOnAnEmptyLine) {
    play.put(with({FrameLine{}.text(), ""}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ParseDBLine", 5),
                      SyncPlay::failure("ReadCDBFrames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_EQ(play.frames().size(), 1U);
}

TEST_F(FrameImport, FailsOnALineWithoutItsLane) {
    play.put(with({"F000000001,0x0000,301,101,201,1,1"}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 5), SyncPlay::failure("ParseDBLine", 5),
                      SyncPlay::failure("ReadCDBFrames", 52), SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.frames().empty());
}

TEST_F(FrameImport, StoresNoRowAfterAFailedCut) {
    play.put(with({FrameLine{.comment = std::string(40000, 'x')}.text()}));
    play.failingSync({SyncPlay::failure("ParseDBLine", 6), SyncPlay::failure("ReadCDBFrames", 91),
                      SyncPlay::failure("cmdAddPDA", 52)});
    EXPECT_TRUE(play.frames().empty());
}

TEST_F(FrameImport, TellsOfATotalThatIsNegative) {
    importFrames({countLine(-3), FrameLine{}.text()});
    EXPECT_TRUE(play.logHolds("Total of -3 frames in file."));
    EXPECT_EQ(play.frames().size(), 1U);
}

TEST_F(FrameImport, KeepsEveryByteOfAHostileText) {
    const std::string strange("a\0b\x01\x7F\t'%_;--", 12);
    importFrames({FrameLine{.ball = strange, .comment = "\u200B\U0001F3B3"}.text()});
    EXPECT_EQ(play.rows("tblFrameInfo", {"fldBallUsed", "fldComment"}), Log{strange + "|\u200B\U0001F3B3"});
    EXPECT_NE(play.working("tblFrame.cdb").find("\"" + strange + "\""), std::string::npos);
}

}  // namespace

}  // namespace tallybrook::test
