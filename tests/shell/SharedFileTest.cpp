#include "shell/SharedFile.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <filesystem>
#include <fstream>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

class SharedFile : public testing::Test {
protected:
    SharedFile() {
        fs::create_directory(elsewhere);
        fs::create_directories(backup.parent_path());
        std::ofstream(backup) << "a copy of the logbook";
    }

    [[nodiscard]] static int numberOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& failure) {
            return failure.number();
        }
        return 0;
    }
    /// The errors of a report that is written there, and of one that is copied there.
    [[nodiscard]] std::pair<int, int> refusals(const fs::path& file) {
        const fs::path report = elsewhere / "finished.txt";
        std::ofstream(report) << "a report";
        return {numberOf([&] { openSharedFile(play.program(), file).writeLine("a report"); }),
                numberOf([&] { copySharedFile(play.program(), report, file); })};
    }

    static constexpr std::pair kRefused{error::kPathFileAccess, error::kPermissionDenied};
    static constexpr std::pair kTaken{0, 0};

    Play play;
    fs::path folder = play.dataFolder();
    fs::path logbook = folder / "Tallybrook_DB.mdb";
    fs::path backup = folder / "Backups" / "Tallybrook_DB 2026-11-14 21.55.32.mdb";
    fs::path elsewhere = folder / "elsewhere";
};

TEST_F(SharedFile, IsNoneOfTheProgramsOwn) {
    for (const fs::path& own : {logbook, backup, folder / "tbrkcfg.conf", folder / "Tallybrook.lock"}) {
        const std::string before = bytesOf(own);
        EXPECT_EQ(refusals(own), kRefused) << own;
        EXPECT_TRUE(isSameText(bytesOf(own), before)) << own;
    }
    const fs::path journal = logbook.string() + "-journal";
    EXPECT_EQ(refusals(journal), kRefused);
    fs::remove(journal);
    EXPECT_EQ(refusals(journal), kRefused);  // the next save makes it anew
    EXPECT_FALSE(fs::exists(journal));
    for (const char* const beside : {".trial", ".trial-journal", ".new"})
        EXPECT_EQ(refusals(logbook.string() + beside), kRefused) << beside;
    EXPECT_EQ(refusals(folder / "tbrkcfg.conf.new"), kRefused);  // the next change of the setup makes it
}

TEST_F(SharedFile, IsNotTheLogbookByAnotherSpelling) {
    const std::string before = bytesOf(logbook);
    for (const fs::path& spelling : {fs::relative(logbook), folder / "." / logbook.filename(),
                                     folder / "Backups" / ".." / logbook.filename(),
                                     fs::path(folder.string() + "//" + logbook.filename().string())})
        EXPECT_EQ(refusals(spelling), kRefused) << spelling;
    EXPECT_TRUE(isSameText(bytesOf(logbook), before));
}

TEST_F(SharedFile, IsNotTheLogbookByALink) {
    const std::string before = bytesOf(logbook);
    fs::create_symlink(logbook, elsewhere / "link.txt");
    fs::create_symlink(elsewhere / "link.txt", elsewhere / "link to the link.txt");
    fs::create_hard_link(logbook, elsewhere / "second name.txt");
    fs::create_directory_symlink(folder, elsewhere / "way");
    fs::create_hard_link(backup, elsewhere / "backup.txt");
    for (const fs::path& link : {elsewhere / "link.txt", elsewhere / "link to the link.txt",
                                 elsewhere / "second name.txt", elsewhere / "way" / logbook.filename(),
                                 elsewhere / "way" / "Backups" / backup.filename(), elsewhere / "backup.txt"})
        EXPECT_EQ(refusals(link), kRefused) << link;
    EXPECT_TRUE(isSameText(bytesOf(logbook), before));
    EXPECT_EQ(bytesOf(backup), "a copy of the logbook");
}

TEST_F(SharedFile, IsWrittenAsUtf8) {
    openSharedFile(play.program(), elsewhere / "report.txt").writeLine("K\u00f6ln");
    EXPECT_EQ(bytesOf(elsewhere / "report.txt"), "K\u00f6ln\r\n");
}

TEST_F(SharedFile, IsAnyOther) {
    std::ofstream(folder / "DB_Report.txt") << "an older report";
    for (const fs::path& file : {folder / "DB_Report.txt", folder / "Game Report.txt",
                                 elsewhere / logbook.filename(), elsewhere / "tbrkcfg.conf"}) {
        EXPECT_EQ(refusals(file), kTaken) << file;
        EXPECT_EQ(bytesOf(file), "a report") << file;
    }
}

// A logbook that lies elsewhere, with only a link to it in the data folder.
TEST_F(SharedFile, IsNotTheLogbookThatTheDataFolderLinksTo) {
    fs::rename(logbook, elsewhere / "night.mdb");
    fs::create_symlink(elsewhere / "night.mdb", logbook);
    fs::create_hard_link(elsewhere / "night.mdb", elsewhere / "second name.mdb");
    for (const char* const name : {"night.mdb", "night.mdb-journal", "second name.mdb"})
        EXPECT_EQ(refusals(elsewhere / name), kRefused) << name;
}

// A report there would be read as the setup at the next start.
TEST_F(SharedFile, IsNotWhatALinkOfTheProgramWillLeadTo) {
    fs::remove(folder / "tbrkcfg.conf");
    fs::create_symlink(fs::path("elsewhere") / "my setup.conf", folder / "tbrkcfg.conf");
    EXPECT_EQ(refusals(elsewhere / "my setup.conf"), kRefused);
    EXPECT_FALSE(fs::exists(elsewhere / "my setup.conf"));
}

TEST_F(SharedFile, IsNoCopyOfTheProgramsOwn) {
    EXPECT_EQ(numberOf([&] { copySharedFile(play.program(), logbook, elsewhere / "copy.mdb"); }),
              error::kPermissionDenied);
    EXPECT_FALSE(fs::exists(elsewhere / "copy.mdb"));
}

TEST_F(SharedFile, NeedsAFolder) {
    EXPECT_EQ(refusals(elsewhere / "none" / "report.txt"),
              (std::pair{error::kPathNotFound, error::kPathNotFound}));
}

}  // namespace

}  // namespace tallybrook::test
