#include "player/Transcript.h"

#include <functional>
#include <sstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// What a transcript writes for a play in "/book", started in "/play".
std::string written(const std::function<void(Transcript&)>& write) {
    std::ostringstream out;
    Transcript transcript(out, Places("/book", "/play"));
    write(transcript);
    return out.str();
}

TEST(Transcript, WritesACommandAsItStands) {
    EXPECT_EQ(written([](Transcript& t) { t.command("  choose  \"/book/a\""); }),
              ">   choose  \"/book/a\"\n");
}

TEST(Transcript, WritesEveryIcon) {
    const auto box = [](Icon icon) {
        return written([icon](Transcript& t) { t.box({.text = "a", .icon = icon}); });
    };
    const auto line = [](const std::string& icon) {
        return "box title=\"Tallybrook\" icon=" + icon + " buttons=OK default=OK text=\"a\"\n";
    };
    EXPECT_EQ(box(Icon::None), line("none"));
    EXPECT_EQ(box(Icon::Question), line("question"));
    EXPECT_EQ(box(Icon::Information), line("information"));
    EXPECT_EQ(box(Icon::Warning), line("warning"));
    EXPECT_EQ(box(Icon::Critical), line("critical"));
}

TEST(Transcript, WritesEverySetOfButtons) {
    const auto box = [](Buttons buttons, std::optional<Answer> preset) {
        return written([&](Transcript& t) { t.box({.text = "a", .buttons = buttons, .preset = preset}); });
    };
    const auto line = [](const std::string& buttons) {
        return "box title=\"Tallybrook\" icon=none " + buttons + " text=\"a\"\n";
    };
    EXPECT_EQ(box(Buttons::OKCancel, Answer::Cancel), line("buttons=OK|Cancel default=Cancel"));
    EXPECT_EQ(box(Buttons::YesNo, std::nullopt), line("buttons=Yes|No default=Yes"));
    EXPECT_EQ(box(Buttons::YesNo, Answer::No), line("buttons=Yes|No default=No"));
    EXPECT_EQ(box(Buttons::RetryCancel, std::nullopt), line("buttons=Retry|Cancel default=Retry"));
}

TEST(Transcript, KeepsALongTextOnOneLine) {
    EXPECT_EQ(
        written([](Transcript& t) { t.box({.text = "\"/book/x\"\r\nis gone", .title = "In /play"}); }),
        "box title=\"In <cwd>\" icon=none buttons=OK default=OK text=\"\\\"<data>/x\\\"\\r\\nis gone\"\n");
}

TEST(Transcript, WritesInputsAndDialogs) {
    EXPECT_EQ(written([](Transcript& t) { t.input({.text = "Name?"}); }),
              "input title=\"Tallybrook\" text=\"Name?\"\n");
    EXPECT_EQ(
        written([](Transcript& t) {
            t.dialog({.title = "Save", .folder = "/book", .filter = "All (*.*)|*.*", .name = "a.txt"});
            t.dialog(
                {.purpose = FileDialog::Purpose::Save, .title = "", .folder = "", .filter = "", .name = ""});
        }),
        "dialog open title=\"Save\" folder=\"<data>\" filter=\"All (*.*)|*.*\" name=\"a.txt\"\n"
        "dialog save title=\"\" folder=\"\" filter=\"\" name=\"\"\n");
}

TEST(Transcript, WritesTheOtherLines) {
    EXPECT_EQ(written([](Transcript& t) {
                  t.screen("load", "frmMain");
                  t.pointer(Pointer::Busy);
                  t.pointer(Pointer::Default);
                  t.help(HelpTopic::Contents);
                  t.help(HelpTopic::PinfallEntry);
                  t.viewer("notepad.exe /book/a.txt");
                  t.focus("none");
                  t.refused("cmdA", Refusal::Disabled);
                  t.refused("cmdA", Refusal::Hidden);
                  t.refused("cmdA", Refusal::Kept);
                  t.retrying("Game Information, Load_Game.");
                  t.runTimeError(RunTimeError(13));
                  t.endProgram();
              }),
              "load frmMain\n"
              "pointer busy\n"
              "pointer default\n"
              "help contents\n"
              "help 232\n"
              "viewer \"notepad.exe <data>/a.txt\"\n"
              "focus none\n"
              "refused cmdA disabled\n"
              "refused cmdA hidden\n"
              "refused cmdA kept\n"
              "retrying \"Game Information, Load_Game.\"\n"
              "run-time error 13 \"Type mismatch\"\n"
              "end program\n");
}

}  // namespace

}  // namespace tallybrook::test
