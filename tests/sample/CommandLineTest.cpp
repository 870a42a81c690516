#include "Made.h"
#include "SourceFolder.h"
#include "sample/Career.h"
#include "sample/LogbookFile.h"

#include <cstdlib>
#include <fstream>

#include <sys/wait.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using sample::Options;
using sample::readOptions;

Options read(const std::vector<std::string>& arguments) {
    return readOptions(arguments);
}

std::string refusal(const std::vector<std::string>& arguments) {
    try {
        read(arguments);
    } catch (const WrongUsage& wrong) {
        return wrong.what();
    }
    return "";
}

TEST(CommandLine, HasDefaults) {
    const Options options = read({"--events", "10", "--data", "here"});
    EXPECT_EQ(options.events, 10);
    EXPECT_EQ(options.seed, 1U);
    EXPECT_EQ(options.data, "here");
    EXPECT_FALSE(options.cdb);
    EXPECT_FALSE(options.help);
}

TEST(CommandLine, TakesItsOptionsInAnyOrder) {
    const Options options =
        read({"--cdb", "--seed", "18446744073709551615", "--data", "a b", "--events", "1000000"});
    EXPECT_EQ(options.events, 1'000'000);
    EXPECT_EQ(options.seed, UINT64_MAX);
    EXPECT_EQ(options.data, "a b");
    EXPECT_TRUE(options.cdb);
    EXPECT_TRUE(read({"--help"}).help);
    EXPECT_TRUE(read({"--events", "1", "--help"}).help);
}

TEST(CommandLine, TellsWhatIsWrong) {
    EXPECT_EQ(refusal({}), "--events is missing");
    EXPECT_EQ(refusal({"--events", "1"}), "--data is missing");
    EXPECT_EQ(refusal({"--data", "d"}), "--events is missing");
    EXPECT_EQ(refusal({"--events"}), "--events needs a value");
    EXPECT_EQ(refusal({"--events", "1", "--data", ""}), "the data folder has no name");
    EXPECT_EQ(refusal({"--size", "1"}), "there is no option --size");
    EXPECT_EQ(refusal({"folder"}), "there is no option folder");
    for (const char* number : {"", "0", "-1", "1000001", "99999999999999999999", "ten", "10x", " 10", "1.5"})
        EXPECT_EQ(refusal({"--events", number, "--data", "d"}),
                  "the number of events is a whole number from 1 to 1000000");
    for (const char* number : {"", "-1", "18446744073709551616", "x"})
        EXPECT_EQ(refusal({"--events", "1", "--data", "d", "--seed", number}),
                  "the seed is a whole number from 0 to 18446744073709551615");
}

/// What the real program did.
struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

class Executable : public testing::Test {
protected:
    [[nodiscard]] fs::path path(const std::string& name) const { return folder.path() / name; }

    [[nodiscard]] Outcome run(const std::string& arguments) const {
        const std::string command =
            "cd '" + folder.path().string() + "' && '" + TALLYBROOK_SAMPLE + "' " + arguments + " >out 2>err";
        const int status = std::system(command.c_str());
        EXPECT_TRUE(WIFEXITED(status));
        return {WEXITSTATUS(status), bytesOf(path("out")), bytesOf(path("err"))};
    }

    TemporaryFolder folder;
};

TEST_F(Executable, MakesALogbookInANewFolder) {
    const Outcome outcome = run("--events 5 --data new/folder");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output + outcome.errors, "");
    EXPECT_EQ(query(path("new/folder/Tallybrook_DB.mdb"), "SELECT count(*) FROM tblEventInfo")[0][0], "5");
    EXPECT_TRUE(fs::is_directory(path("new/folder/TBRK/PDA DB Archive")));
    EXPECT_EQ(std::distance(fs::directory_iterator(path("new/folder")), {}),
              2);  // nothing else is left there
}

TEST_F(Executable, RefusesAFolderWithALogbook) {
    fs::create_directory(path("data"));
    std::ofstream(path("data/Tallybrook_DB.mdb")) << "a logbook";
    const Outcome outcome = run("--events 5 --data data --cdb");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "The folder holds a logbook already: data/Tallybrook_DB.mdb\n");
    EXPECT_EQ(bytesOf(path("data/Tallybrook_DB.mdb")), "a logbook");
    EXPECT_EQ(std::distance(fs::directory_iterator(path("data")), {}), 1);
}

TEST_F(Executable, RefusesAFolderWithALinkThatLeadsNowhere) {
    fs::create_directory(path("data"));
    fs::create_symlink("nowhere", path("data/Tallybrook_DB.mdb"));
    EXPECT_EQ(run("--events 5 --data data").status, 1);
    EXPECT_TRUE(fs::is_symlink(path("data/Tallybrook_DB.mdb")));
}

TEST_F(Executable, BeginsAnewWhereItWasCutOff) {
    fs::create_directory(path("data"));
    std::ofstream(path("data/Tallybrook_DB.mdb.unfinished")) << "half a logbook";
    EXPECT_EQ(run("--events 5 --data data").status, 0);
    EXPECT_EQ(query(path("data/Tallybrook_DB.mdb"), "SELECT count(*) FROM tblEventInfo")[0][0], "5");
}

TEST_F(Executable, LeavesNothingHalfMade) {
    fs::create_directories(path("data/tblGame.cdb"));  // a file of that name cannot be written
    const Outcome outcome = run("--events 5 --data data --cdb");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors, "");
    for (const auto& entry : fs::directory_iterator(path("data")))
        EXPECT_EQ(entry.path().filename().string().find("Tallybrook_DB"), std::string::npos);
}

TEST_F(Executable, TellsAFolderThatCannotBeMade) {
    std::ofstream(path("file")) << "text";
    const Outcome outcome = run("--events 5 --data file/below");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors, "");
}

TEST_F(Executable, TellsWrongUsage) {
    const Outcome outcome = run("--events none --data data");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              "the number of events is a whole number from 1 to 1000000\n"
              "usage: tallybrook-sample --events N [--seed S] --data DIR [--cdb]\n");
    EXPECT_FALSE(fs::exists(path("data")));
}

TEST_F(Executable, Helps) {
    const Outcome outcome = run("--help");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(
        isSameText(outcome.output, bytesOf(fs::path(TALLYBROOK_SOURCE_DIR) / "tests/sample/help.txt")));
    EXPECT_EQ(outcome.errors, "");
    for (const char* part : {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "FILES", "EXIT STATUS", "EXAMPLE",
                             "--events", "--seed", "--data", "--cdb", "--help"})
        EXPECT_NE(outcome.output.find(part), std::string::npos) << part;
}

}  // namespace

}  // namespace tallybrook::test
