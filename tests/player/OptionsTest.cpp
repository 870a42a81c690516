#include "player/CommandTable.h"
#include "player/Options.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

Options read(const std::vector<std::string>& arguments) {
    return readOptions(arguments);
}

TEST(Options, AskForHelp) {
    EXPECT_TRUE(read({"--help"}).help);
    EXPECT_FALSE(read({}).help);
}

TEST(Options, HelpTellsEveryCommand) {
    EXPECT_EQ(commandForms(),
              "start\n"
              "click NAME\n"
              "type NAME \"TEXT\"\n"
              "focus NAME\n"
              "tab\n"
              "backtab\n"
              "press \"TEXT\"\n"
              "pick NAME \"TEXT\"|#N\n"
              "row NAME N\n"
              "close\n"
              "answer NAME\n"
              "reply \"TEXT\"\n"
              "choose \"TEXT\"|cancel\n"
              "clock \"TEXT\"\n"
              "show NAME ...\n"
              "screens\n"
              "rows NAME\n"
              "put NAME FIELD VALUE ...\n"
              "change NAME N FIELD VALUE ...\n"
              "write \"TEXT\" \"TEXT\"\n"
              "shot NAME\n"
              "shot-report NAME\n"
              "note \"TEXT\"\n");
    EXPECT_EQ(
        kUsage,
        "usage: tallybrook-play [--display model|desktop] [--data DIR] [--clock \"YYYY-MM-DD HH:MM:SS\"] "
        "[--shots DIR] [SCRIPT]\n"
        "       tallybrook-play --help     tells the commands of a script");
}

TEST(Options, HaveDefaults) {
    const Options options = read({});
    EXPECT_EQ(options.where, Options::Where::Model);
    EXPECT_EQ(options.clock, makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55} +
                                 std::chrono::seconds{32});
    EXPECT_FALSE(options.data);
    EXPECT_FALSE(options.shots);
    EXPECT_FALSE(options.script);
}

TEST(Options, AreReadInAnyOrder) {
    const Options options = read({"--shots", "pictures", "tour.txt", "--clock", "2026-12-24 18:00:00",
                                  "--data", "book", "--display", "desktop"});
    EXPECT_EQ(options.where, Options::Where::Desktop);
    EXPECT_EQ(options.clock, makeDate(2026, 12, 24) + std::chrono::hours{18});
    EXPECT_EQ(options.data, "book");
    EXPECT_EQ(options.shots, "pictures");
    EXPECT_EQ(options.script, "tour.txt");
    EXPECT_EQ(read({"--display", "model"}).where, Options::Where::Model);
}

TEST(Options, OfAnotherKindAreRefused) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> wrong{
        {{"--display", "paper"}, "there is no display paper"},
        {{"--display"}, "--display needs a value"},
        {{"--clock", "noon"}, "a time is \"YYYY-MM-DD HH:MM:SS\""},
        {{"--data", ""}, "the data folder has no name"},
        {{"--shots", ""}, "the folder for pictures has no name"},
        {{"-x"}, "there is no option -x"},
        {{"one", "two"}, "there is one script only"},
        {{"--data"}, "--data needs a value"}};
    for (const auto& [arguments, why] : wrong) {
        try {
            read(arguments);
            ADD_FAILURE() << "this was taken, although " << why;
        } catch (const WrongUsage& refused) {
            EXPECT_EQ(refused.what(), why);
        }
    }
}

}  // namespace

}  // namespace tallybrook::test
