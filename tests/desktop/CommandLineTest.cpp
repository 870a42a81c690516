#include "support/RunWithHands.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>

namespace tallybrook::test {

namespace {

class CommandLine : public testing::Test {
protected:
    [[nodiscard]] ProgramRun run(const QStringList& arguments) const {
        return runWithHands(TALLYBROOK_PROGRAM, arguments, path());
    }
    [[nodiscard]] QString path() const { return QString::fromStdString(folder.path().string()); }

    TemporaryFolder folder;
};

}  // namespace

TEST_F(CommandLine, StartsWithTheMainMenu) {
    const ProgramRun outcome = run({});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_TRUE(outcome.output.startsWith("box: No configuration file was found."));
    EXPECT_TRUE(outcome.output.endsWith("window: Main Menu - Tallybrook\nbox: Exit Tallybrook?\n"))
        << outcome.output.toStdString();
    EXPECT_FALSE(outcome.output.contains("window: Event Information - Tallybrook"));
}

TEST_F(CommandLine, RecordsANightAtOnce) {
    const ProgramRun outcome = run({"--record"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_TRUE(outcome.output.contains("\nwindow: Event Information - Tallybrook\n"))
        << outcome.output.toStdString();
    EXPECT_LT(outcome.output.indexOf("window: Event Information"),
              outcome.output.indexOf("window: Main Menu"));
}

TEST_F(CommandLine, LogbookThatIsRefusedEndsTheProgram) {
    std::filesystem::create_directory(folder.path() / "Tallybrook");
    std::ofstream(folder.path() / "Tallybrook" / "Tallybrook_DB.mdb") << "something else";
    const ProgramRun outcome = run({});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_TRUE(outcome.output.startsWith("box: The logbook cannot be opened"))
        << outcome.output.toStdString();
    EXPECT_FALSE(outcome.output.contains("window: ")) << outcome.output.toStdString();
}

TEST_F(CommandLine, FolderThatIsNotThereIsStatus1) {
    const ProgramRun outcome = run({"--folder"});
    EXPECT_EQ(outcome.status, 1) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output,
              "box: The folder of the logbook cannot be opened:||" + path() +
                  "/Tallybrook||It is not there yet. Tallybrook makes it when you start it for "
                  "the first time.\n");
}

TEST_F(CommandLine, FileInThePlaceOfTheFolderIsNoFolder) {
    std::ofstream(folder.path() / "Tallybrook") << "a file";
    const ProgramRun outcome = run({"--folder"});
    EXPECT_EQ(outcome.status, 1) << outcome.errors.toStdString();
    EXPECT_TRUE(outcome.output.contains("||It is not there yet.")) << outcome.output.toStdString();
}

}  // namespace tallybrook::test
