#include "player/CommandTable.h"
#include "player/Options.h"

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
    const std::string forms = commandForms();
    for (const char* const form :
         {"click NAME\n", "type NAME \"TEXT\"\n", "write \"TEXT\" \"TEXT\"\n", "put NAME", "change NAME N",
          "shot-report NAME\n", "choose \"TEXT\"|cancel\n"})
        EXPECT_NE(forms.find(form), std::string::npos) << forms;
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
    const std::vector<std::vector<std::string>> wrong{
        {"--display", "paper"}, {"--display"}, {"--clock", "noon"}, {"--data", ""},
        {"--shots", ""},        {"-x"},        {"one", "two"},      {"--data"}};
    for (const auto& arguments : wrong)
        EXPECT_THROW(read(arguments), WrongUsage) << arguments.front();
}

}  // namespace

}  // namespace tallybrook::test
