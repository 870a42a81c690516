#include "player/CurrentFolder.h"
#include "player/Outcome.h"
#include "player/PlayApplication.h"
#include "player/PlayStopped.h"
#include "player/Stages.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

Outcome play(const std::string& script, const Options& options = {}) {
    std::istringstream in(script);
    std::ostringstream out;
    std::ostringstream errors;
    const int status = playApplication(options, *makeStage("model"), in, out, errors);
    return {.status = status, .transcript = out.str(), .errors = errors.str()};
}

const std::string kAddAnEvent =
    "start\nanswer OK\nanswer No\nclick mnuAddFromForm\ntype txtEvent \"Thursday \\\"League\\\"\"\nclick "
    "cmdPrevious\nanswer "
    "Yes\nanswer Yes\n";

TEST(PlayApplication, PlaysTheProgramsOwnScreens) {
    const Outcome played = play(kAddAnEvent + "rows tblEventInfo\n");
    EXPECT_EQ(played.status, status::kPlayed) << played.errors;
    const std::string end =
        "> rows tblEventInfo\n"
        "rows tblEventInfo 1\n"
        "  fldSessionNum=1 fldEventName=\"Thursday \\\"League\\\"\" fldDateBowled=2026-11-14 "
        "fldCenterName=\"\" "
        "fldCenterLoc=\"\" fldEventType=\"LEAGUE\" fldNumGames=3 fldGmsRecorded=0 fldSeriesTot=0 "
        "fldSeriesAvg=0 "
        "fldComment=\"\" fldHHRecordID=\"NONE\"\n";
    EXPECT_TRUE(played.transcript.ends_with(end)) << played.transcript;
}

TEST(PlayApplication, TheTimeIsTheOneToldAtTheStart) {
    Options options;
    options.clock = makeDate(2027, 2, 3);
    const Outcome played = play(kAddAnEvent + "rows tblEventInfo\n", options);
    EXPECT_NE(played.transcript.find("fldDateBowled=2027-02-03"), std::string::npos) << played.transcript;
}

TEST(PlayApplication, KeepsTheDataFolderThatItIsGiven) {
    const TemporaryFolder folder;
    Options options;
    options.data = folder.path() / "book";
    EXPECT_EQ(play(kAddAnEvent, options).status, status::kPlayed);
    EXPECT_TRUE(fs::exists(folder.path() / "book"));
    const Outcome again = play("start\nanswer No\nrows tblEventInfo\n", options);
    EXPECT_NE(again.transcript.find("rows tblEventInfo 1\n"), std::string::npos) << again.transcript;
}

TEST(PlayApplication, MakesNoDataFolderBeforeTheStart) {
    const TemporaryFolder folder;
    Options options;
    options.data = folder.path() / "book";
    EXPECT_EQ(play("note \"a\"\n", options).status, status::kPlayed);
    EXPECT_FALSE(fs::exists(folder.path() / "book"));
}

TEST(PlayApplication, LeavesNothingBehind) {
    const TemporaryFolder place;
    const std::string before = fs::temp_directory_path().string();
    ASSERT_EQ(setenv("TMPDIR", place.path().c_str(), 1), 0);
    const Outcome played = play(kAddAnEvent);
    ASSERT_EQ(setenv("TMPDIR", before.c_str(), 1), 0);
    EXPECT_EQ(played.status, status::kPlayed) << played.errors;
    EXPECT_TRUE(fs::is_empty(place.path()));
}

TEST(PlayApplication, TheCurrentFolderComesBack) {
    const fs::path before = fs::current_path();
    {
        const CurrentFolder back;
        fs::current_path("/");
        EXPECT_EQ(back.path(), before);
    }
    EXPECT_EQ(fs::current_path(), before);
}

}  // namespace

}  // namespace tallybrook::test
