#include "player/PlayStopped.h"
#include "player/Script.h"

#include <sstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// The commands of a script with their line numbers, as in "2:start".
std::vector<std::string> read(const std::string& text) {
    std::istringstream in(text);
    Script script(in);
    std::vector<std::string> found;
    while (const auto line = script.next())
        found.push_back(std::to_string(line->number) + ":" + line->text);
    return found;
}

using Lines = std::vector<std::string>;

TEST(Script, PassesOverBlankLinesAndNotes) {
    EXPECT_EQ(read("# the start\n\nstart\n   \n\t# more\nclick cmdOne\n"),
              (Lines{"3:start", "6:click cmdOne"}));
    EXPECT_EQ(read(""), Lines{});
}

TEST(Script, KeepsALineAsItStands) {
    EXPECT_EQ(read("  note   \"a\" "), (Lines{"1:  note   \"a\" "}));
}

TEST(Script, TakesAnyLineEndAndAByteOrderMark) {
    EXPECT_EQ(read("\xEF\xBB\xBFstart\r\ntab"), (Lines{"1:start", "2:tab"}));
    EXPECT_EQ(read("start\n\xEF\xBB\xBFtab"), (Lines{"1:start", "2:\xEF\xBB\xBFtab"}));  // no mark there
}

TEST(Script, KnowsTheLineOfTheLastCommand) {
    std::istringstream in("\nstart\n# over\n");
    Script script(in);
    EXPECT_EQ(script.lineNumber(), 0);
    EXPECT_TRUE(script.next());
    EXPECT_FALSE(script.next());
    EXPECT_EQ(script.lineNumber(), 2);
}

TEST(Script, StopsAtALineThatIsNotRead) {
    std::istringstream in("start\nnote \"open\n");
    Script script(in);
    EXPECT_TRUE(script.next());
    try {
        script.next();
        FAIL() << "the line was read";
    } catch (const PlayStopped& stopped) {
        EXPECT_EQ(stopped.status, status::kNotCarriedOut);
        EXPECT_EQ(stopped.message, "line 2: a text has no closing quote");
    }
}

}  // namespace

}  // namespace tallybrook::test
