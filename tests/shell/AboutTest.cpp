#include "SourceFolder.h"
#include "support/Play.h"

#include <fstream>

namespace tallybrook::test {

namespace {

/// What stands in the project's LICENSE below the name of the terms, each line after a line break but the
/// first.
std::string termsOfTheLicense() {
    std::ifstream license(TALLYBROOK_SOURCE_DIR "/LICENSE");
    std::string line;
    std::getline(license, line);
    std::getline(license, line);
    std::string terms;
    while (std::getline(license, line))
        terms += (terms.empty() ? "" : "\r\n") + line;
    return terms;
}

}  // namespace

TEST(About, TellsTheTermsOfTheLicense) {
    Play play;
    play.load("frmAbout");
    EXPECT_FALSE(play.text("Text1").empty());
    EXPECT_EQ(play.text("Text1"), termsOfTheLicense());
}

}  // namespace tallybrook::test
