// What one statement tells of the games of an event, and of the rows of a table.

#include "store/AtOneLook.h"
#include "store/Store.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

class AtOneLook : public testing::Test {
protected:
    void run(const std::string& sql) { store.connection().database().exec(sql); }
    /// The games of the first event in a line each: number, kind, frames told of and stored, first ball.
    std::string games() {
        const std::vector<GameOverview> found = gamesAtOneLook(store, 1).value();
        std::string lines;
        for (const GameOverview& game : found)
            lines += fmt::format("{} {} {} {} {}\n", toText(game.number), toText(game.scoreType),
                                 toText(game.framesRecorded), game.frames,
                                 game.firstBall ? toText(*game.firstBall) : "none");
        return lines;
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
};

TEST_F(AtOneLook, TellsTheGamesInTheOrderOfTheirNumbers) {
    run("INSERT INTO tblGameInfo (fldSessionNum, fldGameNum, fldScoreType, fldFrmsRecorded) "
        "VALUES (1, 2, 'L', 3), (1, 1, 'P', 10), (2, 1, 'P', 1)");
    EXPECT_EQ(games(), "1 P 10 0 none\n2 L 3 0 none\n");
}

// However late the lowest frame was entered; of two of its number the one that was entered first.
TEST_F(AtOneLook, TellsTheFirstBallOfTheLowestFrame) {
    run("INSERT INTO tblGameInfo (fldSessionNum, fldGameNum) VALUES (1, 1), (1, 2)");
    run("INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum, fldFirstBallRes) "
        "VALUES (1, 1, 3, '7-10'), (1, 1, 2, '1'), (1, 1, 2, '5'), (1, 2, 1, 'X'), (2, 1, 1, '4')");
    EXPECT_EQ(games(), "1 P 0 3 1\n2 P 0 1 X\n");
}

TEST_F(AtOneLook, TellsWhetherAllRowsAreThoseOfEvents) {
    EXPECT_EQ(rowsAllOfEvents(store, "tblGameInfo"), std::nullopt);
    run("INSERT INTO tblEventInfo DEFAULT VALUES");
    run("INSERT INTO tblGameInfo (fldSessionNum) VALUES (1), (1)");
    EXPECT_EQ(rowsAllOfEvents(store, "tblGameInfo"), 2);
    for (const std::string other : {"2", "NULL", "'1x'", "1.5"}) {
        run("INSERT INTO tblGameInfo (fldSessionNum) VALUES (" + other + ")");
        EXPECT_EQ(rowsAllOfEvents(store, "tblGameInfo"), std::nullopt) << other;
        run("DELETE FROM tblGameInfo WHERE fldGameKey = last_insert_rowid()");
    }
}

}  // namespace

}  // namespace tallybrook
