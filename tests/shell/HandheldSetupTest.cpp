#include "shell/Configuration.h"
#include "shell/frmHHSetup.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <cstdlib>
#include <filesystem>
#include <optional>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Log = std::vector<std::string>;

/// The user's home for the length of a test.
class Home {
public:
    explicit Home(const std::string& folder) { setenv("HOME", folder.c_str(), 1); }
    ~Home() {
        if (before_)
            setenv("HOME", before_->c_str(), 1);
        else
            unsetenv("HOME");
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

private:
    std::optional<std::string> before_ =
        std::getenv("HOME") != nullptr ? std::optional<std::string>(std::getenv("HOME")) : std::nullopt;
};

class HandheldSetup : public testing::Test {
protected:
    HandheldSetup() { fs::create_directories(folder() / "inner one"); }

    void open(const std::string& type, const std::string& directory) {
        play.session().gHHType = type;
        play.session().gHHSyncDir = directory;
        play.click("mnuHHSetup");
    }
    [[nodiscard]] fs::path folder() const { return play.dataFolder() / "sync"; }
    frmHHSetup& screen() { return dynamic_cast<frmHHSetup&>(play.screen()); }
    bool pickFolder(const fs::path& path) {
        bool picked = false;
        play.run([&] { picked = screen().dirHHDir.pickFolder(path.string()); });
        return picked;
    }
    [[nodiscard]] std::string written() const { return bytesOf(play.dataFolder() / "tbrkcfg.conf"); }
    static inline const Expected kSave{"Save Handheld Configuration", Answer::Yes,
                                       "Save these changes to your handheld configuration?"};
    static inline const Expected kSaved{"Handheld Configuration", Answer::OK,
                                        "Handheld configuration changes saved."};

    Play play;
};

TEST_F(HandheldSetup, ShowsWhatIsConfigured) {
    open("PPC", folder().string());
    EXPECT_EQ(play.screen().caption(), "Tallybrook - Handheld Setup");
    EXPECT_FALSE(play.value("optHHType(0)"));
    EXPECT_TRUE(play.value("optHHType(1)"));
    EXPECT_EQ(play.text("txtHHDir"), folder().string());
    EXPECT_EQ(screen().dirHHDir.path(), folder().string());
    EXPECT_EQ(screen().dirHHDir.picked(), folder().string());
    EXPECT_TRUE(folder().string().starts_with(screen().drvHHDir.picked()));
    EXPECT_TRUE(play.enabled("cmdSaveChg"));
    EXPECT_EQ(play.focus(), "optHHType(0)");
    EXPECT_FALSE(play.value("optHHType(0)"));
}

TEST_F(HandheldSetup, ShowsNothingAfterAFirstStart) {
    open("", "");
    EXPECT_FALSE(play.value("optHHType(0)"));
    EXPECT_FALSE(play.value("optHHType(1)"));
    EXPECT_EQ(play.text("txtHHDir"), "");
    EXPECT_EQ(screen().dirHHDir.path(), "/");
    EXPECT_EQ(screen().drvHHDir.picked(), "/");
    EXPECT_FALSE(play.enabled("cmdSaveChg"));

    play.click("optHHType(0)");
    EXPECT_EQ(play.session().gHHType, "Palm");
    EXPECT_FALSE(play.enabled("cmdSaveChg"));  // a folder is needed as well
    pickFolder(folder());
    EXPECT_EQ(play.text("txtHHDir"), folder().string());
    EXPECT_TRUE(play.enabled("cmdSaveChg"));
}

TEST_F(HandheldSetup, ShowsNothingOfATypeThatItDoesNotKnow) {
    open("palm", folder().string());
    EXPECT_FALSE(play.value("optHHType(0)"));
    EXPECT_FALSE(play.value("optHHType(1)"));
    EXPECT_EQ(play.text("txtHHDir"), "");
    EXPECT_EQ(screen().dirHHDir.path(), "/");
    EXPECT_FALSE(play.enabled("cmdSaveChg"));
    EXPECT_EQ(play.session().gHHType, "palm");
}

TEST_F(HandheldSetup, StartsAtHomeWithATypeAlone) {
    const Home home(folder().string());
    open("Palm", "");
    EXPECT_EQ(play.text("txtHHDir"), "");
    EXPECT_TRUE(play.enabled("cmdSaveChg"));
    EXPECT_EQ(screen().dirHHDir.path(), folder().string());
    EXPECT_NE(screen().drvHHDir.picked(), "");
    EXPECT_TRUE(folder().string().starts_with(screen().drvHHDir.picked()));
}

TEST_F(HandheldSetup, StartsAtTheRootWithoutAHome) {
    const Home home((folder() / "gone").string());
    open("Palm", "");
    EXPECT_EQ(screen().dirHHDir.path(), "/");
}

TEST_F(HandheldSetup, EndsTheProgramWhereItCannotSave) {
    open("Palm", folder().string());
    fs::remove(play.dataFolder() / "tbrkcfg.conf");
    fs::create_directories(play.dataFolder() / "tbrkcfg.conf" / "in the way");
    play.click("cmdSaveChg", {kSave});
    EXPECT_EQ(play.display.events().back(), "end program");
    EXPECT_EQ(*(play.display.events().end() - 2), "run-time error 75");
}

TEST_F(HandheldSetup, HasItsCaptions) {
    open("", "");
    play.expectSeen({{"lblTitle", "Handheld Setup"},
                     {"fraHHType", "Handheld Type"},
                     {"optHHType(0)", "Palm Pilot"},
                     {"optHHType(1)", "Pocket PC"},
                     {"fraHHDir", "Synchronization Directory"},
                     {"lblDir", "Sync Directory:"},
                     {"lblSelDrive", "Select Drive:"},
                     {"lblSelDir", "Select Folder:"},
                     {"cmdSaveChg", "&Save"},
                     {"cmdMain", "&Main Menu"},
                     {"cmdExit", "E&xit"},
                     {"mnuHHSetupFile", "&File"},
                     {"mnuHHSetupSave", "&Save"},
                     {"mnuHHSetupMain", "&Main Menu"},
                     {"mnuHHSetupExit", "E&xit"},
                     {"mnuHHSetupHelp", "&Help"},
                     {"mnuHHSetupAbout", "&About Tallybrook"},
                     {"mnhHHSetupTBKHelp", "Tallybrook Help"}});
    play.display.forgetEvents();
    play.press("F1");
    EXPECT_EQ(play.display.events(), std::vector<std::string>{"help 0"});
}

// With one drive it is the only way to the root itself.
TEST_F(HandheldSetup, TakesTheDriveThatIsPickedAlready) {
    open("", "");
    play.run([&] { person::pick(screen().drvHHDir, 0); });
    EXPECT_EQ(play.text("txtHHDir"), "/");
    EXPECT_TRUE(play.enabled("cmdSaveChg"));
}

TEST_F(HandheldSetup, EndsTheProgramWhereTheFolderIsGone) {
    play.display.forgetEvents();
    open("Palm", (folder() / "gone").string());
    EXPECT_EQ(play.display.events(),
              (Log{"hide frmMain", "load frmHHSetup", "run-time error 76", "end program"}));
}

TEST_F(HandheldSetup, Saves) {
    open("", "");
    play.click("optHHType(1)");
    play.type("txtHHDir", "/typed by hand");
    play.click("cmdSaveChg", {kSave, kSaved});
    EXPECT_EQ(play.display.boxes().at(0).icon, Icon::Question);
    EXPECT_EQ(play.display.boxes().at(1).icon, Icon::Information);
    EXPECT_EQ(play.session().gHHSyncDir, "/typed by hand");
    EXPECT_NE(
        written().find("HHTYPE=\"PPC\"\r\n# Synchronization Directory\r\nHHSYNCDIR=\"/typed by hand\"\r\n"),
        std::string::npos);
}

// A path is often pasted with the end of its line, and a line without a key would end every further start.
TEST_F(HandheldSetup, SavesNothingThatCannotBeReadAgain) {
    open("", "");
    play.click("optHHType(0)");
    play.type("txtHHDir", folder().string() + "\n");
    play.click("cmdSaveChg", {kSave, kSaved});
    play.session().gHHSyncDir.clear();
    EXPECT_TRUE(Read_Config(play.program()));
    EXPECT_EQ(play.session().gHHSyncDir, folder().string());
}

TEST_F(HandheldSetup, KeepsANewTypeForTheRunThoughNotInTheFile) {
    play.session().gHHType = "Palm";
    open("Palm", folder().string());
    play.click("cmdSaveChg", {kSave, kSaved});
    const std::string before = written();
    play.click("optHHType(1)");
    play.type("txtHHDir", "/elsewhere");
    play.click("cmdSaveChg", {{kSave.title, Answer::No, kSave.text},
                              {"Handheld Configuration", Answer::OK, "Changes cancelled."}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Information);
    EXPECT_EQ(play.session().gHHType, "PPC");
    EXPECT_EQ(play.session().gHHSyncDir, folder().string());
    EXPECT_EQ(written(), before);
    play.click("cmdSaveChg", {kSave, kSaved});
    EXPECT_NE(written().find("HHTYPE=\"PPC\""), std::string::npos);
}

TEST_F(HandheldSetup, GoesThroughTheFolders) {
    open("Palm", folder().string());
    const fs::path inner = folder() / "inner one";
    EXPECT_EQ(screen().dirHHDir.items().back(), inner.string());
    play.run(
        [&] { person::pick(screen().dirHHDir, static_cast<int>(screen().dirHHDir.items().size()) - 1); });
    EXPECT_EQ(play.text("txtHHDir"), inner.string());
    EXPECT_EQ(play.focus(), "dirHHDir");
    EXPECT_FALSE(pickFolder(folder() / "gone"));
    EXPECT_EQ(play.text("txtHHDir"), inner.string());

    play.run([&] { person::pick(screen().drvHHDir, 0); });
    EXPECT_EQ(play.text("txtHHDir"), "/");
    EXPECT_EQ(screen().dirHHDir.path(), "/");
}

TEST_F(HandheldSetup, LeavesOnlyThroughItsWorkingEntries) {
    open("", "");
    play.display.forgetEvents();
    for (const char* entry : {"mnuHHSetupSave", "mnuHHSetupAbout", "mnhHHSetupTBKHelp"})
        play.click(entry);
    EXPECT_EQ(play.display.events(), Log{});
    play.click("mnuHHSetupExit", {{"Confirm - Exit", Answer::No}});
    play.click("mnuHHSetupMain", {{"Return to Main", Answer::No, "Return to main menu?"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
    EXPECT_EQ(play.screen().name(), "frmHHSetup");
    play.close({{"Return to Main", Answer::Yes}});
    EXPECT_EQ(play.display.events(),
              (Log{"unload frmHHSetup", "unload frmMain", "load frmMain", "show frmMain"}));
}

}  // namespace

}  // namespace tallybrook::test
