#include "carry/OldLogbooks.h"
#include "keeper/Keeper.h"
#include "store/Store.h"
#include "support/SameText.h"

#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

class CarryOverCommand : public testing::Test {
protected:
    CarryOverCommand() {
        std::vector<test::JetTableText> old = test::emptyOldTables();
        old[0].rows = {test::rowWith(
            old[0], {{"fldSessionNum", std::int64_t{17}}, {"fldSeriesTot", std::int64_t{600}}})};
        old[1].rows = {test::rowWith(old[1], {{"fldGameKey", std::int64_t{40}},
                                              {"fldSessionNum", std::int64_t{17}},
                                              {"fldGameScore", std::int64_t{201}}})};
        old[1].fields.pop_back();
        old[1].rows[0].cells.pop_back();
        test::writeBytes(folder.old(), test::jetFile(old));
    }
    ExitStatus run(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--data", folder.path().string()});
        out.str("");
        notes.str("");
        return runKeeper(arguments, clock, progress, out, notes);
    }

    test::OldLogbookFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    NoProgress progress;
    std::ostringstream out;
    std::ostringstream notes;
};

TEST_F(CarryOverCommand, TellsWhatItHasDone) {
    ASSERT_EQ(run({"carry-over", folder.old().string()}), ExitStatus::Done) << notes.str();
    EXPECT_EQ(out.str(),
              "Carried over: 1 event and 1 game, 201 pins in all.\n"
              "The new logbook was read again: rows, pins and series totals of each event are those that "
              "were read.\n"
              "                  as it says      read  carried over\n"
              "tblEventInfo               1         1             1\n"
              "tblGameInfo                1         1             1\n"
              "tblFrameInfo               0         0             0\n"
              "Events whose recorded total is not that of their games, in the old logbook too:\n"
              "    event 17: recorded 600, its games come to 201\n"
              "What did not come over as it was:\n"
              "    tblGameInfo has no column fldBowlHand: it is as in a new row.\n");
    EXPECT_EQ(test::storedRows(folder.logbook(), "SELECT fldGameKey FROM tblGameInfo"),
              (test::StoredRows{{"40"}}));
}

TEST_F(CarryOverCommand, TakesTheOldLogbookInTheLogbooksPlace) {
    EXPECT_EQ(run({"carry-over"}), ExitStatus::BadInput);
    fs::rename(folder.old(), folder.logbook());
    ASSERT_EQ(run({"carry-over", "--json"}), ExitStatus::Done) << notes.str();
    const auto json = nlohmann::json::parse(out.str());
    EXPECT_EQ(json["oldLogbook"], (folder.path() / "Tallybrook_DB (old).mdb").string());
    EXPECT_EQ(json["holds"]["games"], 1);
    EXPECT_EQ(json["events"][0]["pins"], 201);
    EXPECT_EQ(json["tables"][1]["carried"], 1);
    EXPECT_EQ(json["notes"].size(), 1U);
    EXPECT_NO_THROW(Store(folder.logbook(), clock));
}

TEST_F(CarryOverCommand, TellsWhereTheOldLogbookLiesNow) {
    fs::rename(folder.old(), folder.logbook());
    ASSERT_EQ(run({"carry-over"}), ExitStatus::Done) << notes.str();
    EXPECT_TRUE(out.str().ends_with(
        "\nThe old logbook lies here now: " + (folder.path() / "Tallybrook_DB (old).mdb").string() + "\n"))
        << out.str();
}

TEST_F(CarryOverCommand, RefusesWhatItCannotDo) {
    ASSERT_EQ(run({"carry-over", folder.old().string()}), ExitStatus::Done);
    const std::string logbook = test::bytesOf(folder.logbook());
    EXPECT_EQ(run({"carry-over", folder.old().string()}), ExitStatus::Failed);
    EXPECT_NE(notes.str().find("a logbook with events already"), std::string::npos);
    fs::remove(folder.logbook());
    test::writeBytes(folder.old(), "a text");
    EXPECT_EQ(run({"carry-over", folder.old().string()}), ExitStatus::BadInput);
    EXPECT_NE(notes.str().find("no Access database"), std::string::npos);
    EXPECT_FALSE(fs::exists(folder.logbook()));
    test::writeBytes(folder.logbook(), logbook);
    EXPECT_EQ(run({"carry-over", folder.path().string()}), ExitStatus::BadInput);
}

}  // namespace

}  // namespace tallybrook::keeper
