// Which screen the program knows as the one that waits.

#include "shell/ProgramScreen.h"
#include "support/Play.h"

#include <memory>
#include <string>

namespace tallybrook::test {

namespace {

/// A screen whose only procedure looks for a row that never comes.
class SeekingScreen : public ProgramScreen {
public:
    SeekingScreen(Program& program, const std::string& name) : ProgramScreen(program, name, "Seeking") {}

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}
    void seek() {
        handler("Seeking, Seek.", Retry::OnNoCurrentRow)([] { throw RunTimeError(error::kNoCurrentRow); });
    }
};

TEST(ProgramScreens, TellWhichOfThemWaits) {
    Play play;
    for (const char* const name : {"frmFirst", "frmSecond", "frmFirst"}) {
        play.program().screens.add(
            name, [&play, name] { return std::make_unique<SeekingScreen>(play.program(), name); });
        play.load(name);
        auto& screen = dynamic_cast<SeekingScreen&>(*play.program().screens.find(name));
        play.run([&screen] { screen.seek(); });
        EXPECT_EQ(play.program().waiting, &screen) << name;
        EXPECT_EQ(play.display.retrying_, "Seeking, Seek.");
        EXPECT_EQ(play.display.retries(), TestDisplay::kMostRetries);
    }
}

}  // namespace

}  // namespace tallybrook::test
