// Walks over the events, whose games and frames are read many events at a time, against SQLite asked event by
// event.

#include "store/EventRows.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

constexpr int kEvents = 80;

/// A row as it is put in: numbers, or what another program may have put in their place.
struct Row {
    std::string event;
    std::string game;
    std::string number;
};

rc::Gen<std::string> numberBelow(int end) {
    return rc::gen::map(rc::gen::inRange(1, end), [](int n) { return std::to_string(n); });
}

/// Mostly numbers.
rc::Gen<std::string> oddNumberBelow(int end) {
    return rc::gen::weightedOneOf<std::string>(
        {{30, numberBelow(end)},
         {1, rc::gen::element<std::string>("NULL", "'7'", "'x'", "3.5", "8.0", "x'37'")}});
}

/// Rows of some events, in the order in which a bowler enters them or in any other.
std::vector<Row> rowsOf(int events) {
    const bool hasOdd = *rc::gen::element(false, true);
    const auto column = [hasOdd](int end) { return hasOdd ? oddNumberBelow(end) : numberBelow(end); };
    std::vector<Row> rows;
    for (int event = 1; event <= events; event += *rc::gen::weightedElement<int>({{9, 1}, {1, 3}, {1, 20}}))
        for (int game = 1; game <= *rc::gen::inRange(0, 3); ++game)
            for (int frame = 1; frame <= *rc::gen::inRange(0, 4); ++frame)
                rows.push_back({std::to_string(event), std::to_string(game), std::to_string(frame)});
    for (int some = *rc::gen::element(0, 0, 1, 40); some > 0; --some)
        rows.insert(rows.begin() + *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(rows) + 1),
                    {*column(events + 1), *column(3), *column(12)});
    return rows;
}

std::string wholeNumber(const std::string& column, std::int64_t value) {
    return fmt::format("{0} = {1} AND typeof({0}) IN ('integer', 'real')", column, value);
}

class Walks : public testing::Test {
protected:
    Walks() { database().exec("PRAGMA synchronous = OFF"); }

    SQLite::Database& database() { return store.connection().database(); }

    /// Puts others in the place of the rows there are.
    void replace(const std::vector<Row>& rows) {
        SQLite::Transaction transaction(database());
        database().exec("DELETE FROM tblFrameInfo; DELETE FROM tblGameInfo");
        for (std::size_t i = 0; i < rows.size(); ++i) {
            database().exec(fmt::format(
                "INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum, fldFirstBallRes, "
                "fldSecondBallRes, fldFillBallRes, fldLineScore) VALUES ({}, {}, {}, 'a{}', NULL, 7, 'd')",
                rows[i].event, rows[i].game, rows[i].number, i));
            database().exec(fmt::format(
                "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum, fldGameScore, fldScoreType) VALUES "
                "({}, {}, {}, 'P')",
                rows[i].event, rows[i].number, i));
        }
        transaction.commit();
    }

    std::vector<std::string> expectedGames(int event) {
        return texts(
            fmt::format("SELECT coalesce(fldGameNum, '') || ' ' || fldGameScore || ' ' || fldScoreType "
                        "FROM tblGameInfo WHERE {} ORDER BY fldGameNum, fldGameKey",
                        wholeNumber("fldSessionNum", event)));
    }
    std::vector<std::string> expectedFrames(int event, int game) {
        return texts(
            fmt::format("SELECT coalesce(fldFrameNum, '') || ' ' || fldFirstBallRes || ' ' || "
                        "coalesce(fldSecondBallRes, '') || "
                        "' ' || iif(typeof(fldFrameNum) = 'integer' AND fldFrameNum < 10, '', "
                        "fldFillBallRes) || ' ' || fldLineScore FROM tblFrameInfo WHERE {} AND {} "
                        "ORDER BY fldFrameNum, "
                        "fldFrameKey",
                        wholeNumber("fldSessionNum", event), wholeNumber("fldGameNum", game)));
    }
    static std::vector<std::string> foundGames(EventRows& rows) {
        std::vector<std::string> games;
        for (const StoredGame& game : rows.games())
            games.push_back(toText(game.number) + " " + toText(game.score) + " " + toText(game.scoreType));
        return games;
    }
    static std::vector<std::string> foundFrames(EventRows& rows, int game) {
        std::vector<std::string> frames;
        for (const StoredFrame& frame : rows.framesOf(game))
            frames.push_back(toText(frame.number) + " " + toText(frame.firstBall) + " " +
                             toText(frame.secondBall) + " " + toText(frame.fillBall) + " " +
                             toText(frame.lineScore));
        return frames;
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};

private:
    std::vector<std::string> texts(const std::string& sql) {
        SQLite::Statement found(database(), sql);
        std::vector<std::string> texts;
        while (found.executeStep())
            texts.push_back(found.getColumn(0).getString());
        return texts;
    }
};

TEST_F(Walks, FindWhatSingleQuestionsFind) {
    EXPECT_TRUE(rc::check("walks find what single questions find", [&] {
        replace(rowsOf(kEvents));
        EventRows rows(store, WalkBy::Index);
        for (int event = *rc::gen::inRange(-3, 3); event <= kEvents;
             event += *rc::gen::weightedElement<int>({{8, 1}, {1, 3}, {1, 20}})) {
            rows.goTo(event);
            RC_ASSERT(foundGames(rows) == expectedGames(event));
            for (int game = 1; game <= 3; ++game)
                RC_ASSERT(foundFrames(rows, game) == expectedFrames(event, game));
        }
    }));
}

TEST_F(Walks, ByTheTableFindTheSameOrTellThatTheyMayNot) {
    int whole = 0;
    EXPECT_TRUE(rc::check("walks by the table find what walks by the index find", [&] {
        replace(rowsOf(kEvents));
        EventRows byTable(store, WalkBy::Table);
        EventRows byIndex(store, WalkBy::Index);
        bool isSame = true;
        for (int event = *rc::gen::inRange(-3, 3); event <= kEvents;
             event += *rc::gen::weightedElement<int>({{8, 1}, {1, 3}, {1, 20}})) {
            byTable.goTo(event);
            byIndex.goTo(event);
            isSame = isSame && foundGames(byTable) == foundGames(byIndex);
            for (int game = 1; game <= 3; ++game)
                isSame = isSame && foundFrames(byTable, game) == foundFrames(byIndex, game);
        }
        const bool isWhole = byTable.isWhole();
        whole += isWhole ? 1 : 0;
        RC_ASSERT(isSame || !isWhole);
    }));
    EXPECT_GT(whole, 10) << "rows that were entered in order lie in order";
}

TEST_F(Walks, ByTheTableMissWhatWasAddedToAnEventLater) {
    replace({{"1", "1", "1"}, {"1", "1", "2"}, {"2", "1", "1"}, {"1", "1", "3"}});
    EventRows rows(store, WalkBy::Table);
    rows.goTo(1);
    EXPECT_EQ(rows.games().size(), 2U);
    EXPECT_EQ(rows.framesOf(1).size(), 2U);
    EXPECT_FALSE(rows.isWhole());
}

TEST_F(Walks, ByTheTableMissTheOrderOfWhatIsNoNumber) {
    replace({{"1", "1", "'x'"}, {"1", "1", "1"}});
    EventRows rows(store, WalkBy::Table);
    rows.goTo(1);
    EXPECT_EQ(foundFrames(rows, 1).front(), "x a0  7 d");
    EXPECT_EQ(expectedFrames(1, 1).front(), "1 a1   d");
    EXPECT_FALSE(rows.isWhole());
}

TEST_F(Walks, GoToTheLastKeyThatThereCanBe) {
    replace({{"9223372036854775807", "1", "1"}, {"-9223372036854775808", "1", "1"}});
    EventRows rows(store);
    for (const std::int64_t event : {std::numeric_limits<std::int64_t>::min(), std::int64_t{0},
                                     std::numeric_limits<std::int64_t>::max()}) {
        rows.goTo(event);
        EXPECT_EQ(rows.games().size(), event == 0 ? 0U : 1U);
        EXPECT_EQ(rows.framesOf(1).size(), event == 0 ? 0U : 1U);
    }
}

TEST_F(Walks, TellWhatSQLiteReports) {
    EventRows rows(store);
    rows.goTo(1);
    database().exec("DROP TABLE tblFrameInfo");
    EXPECT_TRUE(rows.games().empty());
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            static_cast<void>(rows.framesOf(1));
            ADD_FAILURE() << "no failure";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kEngineFailure);
        }
    }
}

}  // namespace

}  // namespace tallybrook
