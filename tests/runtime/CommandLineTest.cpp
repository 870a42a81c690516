#include "runtime/CommandLine.h"

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

/// What a program with one option and one flag makes of the arguments, or why it does not take them.
std::string read(const std::vector<std::string>& arguments, bool takesWords = false) {
    std::string made;
    CommandLine line({{"--size",
                       [&](const std::string& value) {
                           if (value.empty())
                               throw WrongUsage("the size is empty");
                           made += "size " + value + ";";
                       }}},
                     {{"--loud", [&] { made += "loud;"; }}});
    if (takesWords)
        line.onWord = [&](const std::string& word) { made += "word " + word + ";"; };
    try {
        line.read(arguments);
    } catch (const WrongUsage& wrong) {
        return made + wrong.what();
    }
    return made;
}

TEST(CommandLine, IsReadInItsOrder) {
    EXPECT_EQ(read({}), "");
    EXPECT_EQ(read({"--loud", "--size", "3", "--size", "--loud"}), "loud;size 3;size --loud;");
    EXPECT_EQ(read({"one", "--size", "3", "two"}, true), "word one;size 3;word two;");
}

TEST(CommandLine, TellsWhatIsWrongWithIt) {
    EXPECT_EQ(read({"--loud", "--size"}), "loud;--size needs a value");
    EXPECT_EQ(read({"--size", ""}), "the size is empty");
    EXPECT_EQ(read({"--tall", "3"}), "there is no option --tall");
    EXPECT_EQ(read({"-x"}, true), "there is no option -x");
    EXPECT_EQ(read({"one"}), "there is no option one");
}

}  // namespace

}  // namespace tallybrook
