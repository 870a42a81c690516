// Memory is short at the nth allocation of a check, n counted up until all is well. What belongs to an event
// stays, and the program tells of it.

#include "handheld/AnsweringDisplay.h"
#include "maintenance/modDBUtils.h"
#include "store/file/Connection.h"
#include "support/FailingAllocation.h"
#include "support/Play.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tallybrook::test {

namespace {

/// A logbook of one event with a game of two frames, which are all as they should be.
class ShortMemory : public testing::Test {
protected:
    ShortMemory() {
        start();
        insert("tblEventInfo", {{"fldEventName", "Thursday League"},
                                {"fldDateBowled", makeDate(2026, 11, 12)},
                                {"fldGmsRecorded", std::int64_t{1}}});
        insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                               {"fldGameNum", std::int64_t{1}},
                               {"fldScoreType", "P"},
                               {"fldFrmsRecorded", std::int64_t{2}}});
        for (const std::int64_t frame : {1, 2})
            insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                    {"fldGameNum", std::int64_t{1}},
                                    {"fldFrameNum", frame},
                                    {"fldFirstBallRes", kFirstBall}});
    }

    /// Without the backups made before, each of which takes a check a few allocations more.
    void start() {
        application_.reset();
        std::filesystem::remove_all(folder_.path() / "data" / "Backups");
        application_.emplace(display, clock_, folder_.path() / "data");
        application_->start();
    }
    [[nodiscard]] Program& program() { return application_->program(); }
    void insert(const std::string& table, const Play::Fields& fields) {
        insertRow(program().store(), table, fields);
    }
    [[nodiscard]] std::size_t rowsOf(const std::string& table) {
        return program().store().rows(table).size();
    }

    [[nodiscard]] std::string scoreType() {
        Recordset games(program().store());
        games.Open("SELECT * FROM tblGameInfo");
        return toText(games["fldScoreType"]);
    }
    /// Makes a check look at the game, since not all of it is as it should be.
    void spoilCount() {
        Recordset games(program().store());
        games.Open("SELECT * FROM tblGameInfo");
        games["fldFrmsRecorded"] = std::int64_t{7};
        games.Update();
    }
    /// Makes a check look at the frames one by one: the game's number is one that only a walk understands.
    void storeNumberAsBytes() {
        program().store().connection().database().exec(
            "UPDATE tblGameInfo SET fldGameNum = CAST('1' AS BLOB)");
    }
    /// Checks the database until no allocation fails any more, and looks at what came of it each time.
    void checkAgainAndAgain(const std::function<void()>& look) {
        bool hasStruck = true;
        for (int before = 0; hasStruck && !HasFailure(); ++before) {
            SCOPED_TRACE("after " + std::to_string(before) + " allocations");
            display.boxes.clear();
            program().perform([&] {
                const FailingAllocation failing(before);
                DB_Check(program());
                hasStruck = FailingAllocation::hasStruck();
            });
            if (program().hasEnded())
                start();
            look();
        }
    }

    static constexpr const char* kFirstBall = "1-2-3-4-5-6-7-8-9-10";  // not to be read without memory

    AnsweringDisplay display{[](const MessageBox& box) {
        return box.title == "Database Check" ? Answer::No : box.defaultAnswer();
    }};

private:
    const SettableClock clock_{makeDate(2026, 11, 14)};
    TemporaryFolder folder_;
    std::optional<Application> application_;
};

TEST_F(ShortMemory, DeletesNoRowOfAnEvent) {
    checkAgainAndAgain([this] {
        EXPECT_TRUE(display.uncaught.value_or(error::kOutOfMemory) == error::kOutOfMemory);
        EXPECT_EQ(rowsOf("tblEventInfo"), 1U);
        EXPECT_EQ(rowsOf("tblGameInfo"), 1U);
        EXPECT_EQ(rowsOf("tblFrameInfo"), 2U);
    });
    EXPECT_EQ(display.boxes.size(), 1U);  // at last, nothing but that the check is complete
}

TEST_F(ShortMemory, DeletesNoRowOfAnEventBesideOneOfNone) {
    const auto addOrphan = [this] { insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{9}}}); };
    addOrphan();
    checkAgainAndAgain([&] {
        if (rowsOf("tblFrameInfo") == 2)
            addOrphan();
        EXPECT_EQ(rowsOf("tblFrameInfo"), 3U);
        EXPECT_EQ(rowsOf("tblGameInfo"), 1U);
    });
}

TEST_F(ShortMemory, TakesAGameWhoseFirstBallCannotBeReadForALineScore) {
    bool wasTaken = false;
    spoilCount();
    storeNumberAsBytes();
    checkAgainAndAgain([&] {
        if (scoreType() != "P") {
            wasTaken = wasTaken || scoreType() == "L";
            program().perform([this] { DB_Check(program()); });
            EXPECT_EQ(scoreType(), "P");
        }
        spoilCount();
    });
    EXPECT_TRUE(wasTaken);
}

}  // namespace

}  // namespace tallybrook::test
