// Which report the dialog offers, and what is opened.

#include "shell/OpenReport.h"
#include "support/Play.h"

namespace tallybrook::test {

namespace {

TEST(OpenReport, OffersTheFileThatWasChosenLast) {
    Play play;
    play.display.forgetEvents();
    FileDialog dialog{.title = "Open Report", .name = "first.txt"};
    play.display.expectDialog({.title = "Open Report", .file = "/reports/night.txt"});
    openReport(play.program(), dialog, "Reports, mnuOpen.");
    EXPECT_EQ(play.display.events(), std::vector<std::string>{"viewer /reports/night.txt"});
    EXPECT_EQ(dialog.name, "/reports/night.txt");
}

}  // namespace

}  // namespace tallybrook::test
