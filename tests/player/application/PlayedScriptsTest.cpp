#include "SourceFolder.h"
#include "player/CurrentFolder.h"
#include "player/Outcome.h"
#include "player/PlayApplication.h"
#include "player/Stages.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

const fs::path kScripts = fs::path(TALLYBROOK_SOURCE_DIR) / "tests" / "scripts";

std::vector<fs::path> filesWith(const std::string& extension) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator(kScripts)) {
        if (entry.path().extension() == extension)
            found.push_back(entry.path());
    }
    std::ranges::sort(found);
    return found;
}

/// What a script says about its exit status, in a line "# status 3"; 0 where it says nothing.
int expectedStatus(const std::string& script) {
    const std::string mark = "\n# status ";
    const std::string text = "\n" + script;
    const std::size_t found = text.find(mark);
    return found == std::string::npos ? 0 : std::stoi(text.substr(found + mark.size()));
}

/// The first line in which the texts differ, with what stands there; empty where they are the same.
std::string firstDifference(const std::string& expected, const std::string& played) {
    std::istringstream expectedLines(expected);
    std::istringstream playedLines(played);
    for (int number = 1;; ++number) {
        std::string wanted;
        std::string got;
        const bool moreWanted = static_cast<bool>(std::getline(expectedLines, wanted));
        const bool moreGot = static_cast<bool>(std::getline(playedLines, got));
        if (!moreWanted && !moreGot)
            return expected == played ? "" : "the last line end";
        if (moreWanted != moreGot || wanted != got)
            return "line " + std::to_string(number) + "\n  expected: " + (moreWanted ? wanted : "(the end)") +
                   "\n  played:   " + (moreGot ? got : "(the end)");
    }
}

/// Plays a script in an empty current folder.
Outcome play(const std::string& stageName, const std::string& script) {
    const CurrentFolder back;
    const TemporaryFolder empty;
    fs::current_path(empty.path());
    std::istringstream in(script);
    std::ostringstream out;
    std::ostringstream errors;
    const int status = playApplication({}, *makeStage(stageName), in, out, errors);
    return {.status = status, .transcript = out.str(), .errors = errors.str()};
}

bool writesExpected() {
    return std::getenv("TALLYBROOK_WRITE_EXPECTED") != nullptr;
}

class PlayedScripts : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(On, PlayedScripts, testing::ValuesIn(kStages),
                         [](const auto& stage) { return stage.param; });

TEST_P(PlayedScripts, LookAsTheyShould) {
    const std::vector<fs::path> scripts = filesWith(".txt");
    EXPECT_FALSE(scripts.empty()) << "there is nothing to play in tests/scripts";
    for (const fs::path& file : scripts) {
        const std::string script = bytesOf(file);
        const Outcome played = play(GetParam(), script);
        const fs::path expected = fs::path(file).replace_extension(".transcript");
        if (writesExpected() && GetParam() == "model")
            std::ofstream(expected, std::ios::binary) << played.transcript;
        EXPECT_EQ(firstDifference(bytesOf(expected), played.transcript), "") << file.filename();
        EXPECT_EQ(played.status, expectedStatus(script)) << file.filename() << ": " << played.errors;
    }
}

TEST(ScriptsFolder, EveryTranscriptHasItsScript) {
    std::vector<fs::path> alone = filesWith(".transcript");
    std::erase_if(alone,
                  [](const fs::path& file) { return fs::exists(fs::path(file).replace_extension(".txt")); });
    EXPECT_EQ(alone, std::vector<fs::path>{});
}

TEST(FirstDifference, NamesItsLine) {
    EXPECT_EQ(firstDifference("a\nb\n", "a\nb\n"), "");
    EXPECT_EQ(firstDifference("a\nb\n", "a\nc\n"), "line 2\n  expected: b\n  played:   c");
    EXPECT_EQ(firstDifference("a\n", "a\nc\n"), "line 2\n  expected: (the end)\n  played:   c");
    EXPECT_EQ(firstDifference("a\nb\n", "a\n"), "line 2\n  expected: b\n  played:   (the end)");
    EXPECT_EQ(firstDifference("a\n\n", "a\n"), "line 2\n  expected: \n  played:   (the end)");
    EXPECT_EQ(firstDifference("a\n", "a"), "the last line end");
}

}  // namespace

}  // namespace tallybrook::test
