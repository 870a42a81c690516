#include "backup/KeptFiles.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

class KeptFilesTest : public testing::Test {
protected:
    KeptFilesTest() {
        fs::create_directories(data() / "Backups");
        put(data() / "Backups" / "Tallybrook_DB 2026-11-21 20.00.00.mdb");
    }

    static void put(const fs::path& file) { std::ofstream(file) << "something"; }
    [[nodiscard]] fs::path data() const { return folder.path() / "Tallybrook"; }
    [[nodiscard]] bool isKept(const fs::path& file) const { return KeptFiles(data()).has(file); }

    test::TemporaryFolder folder;
    const fs::path elsewhere = folder.path() / "elsewhere.txt";
};

TEST_F(KeptFilesTest, AreTheProgramsOwnWhetherTheyAreThereOrNot) {
    for (const char* const name : {"Tallybrook_DB.mdb", "Tallybrook_DB.mdb-journal", "Tallybrook_DB.mdb.new",
                                   "Tallybrook_DB.mdb.trial", "tbrkcfg.conf", "tbrkcfg.conf.new",
                                   "Tallybrook.lock", "Backups/Tallybrook_DB 2026-11-21 20.00.00.mdb"}) {
        EXPECT_TRUE(isKept(data() / name)) << name;
        EXPECT_TRUE(isKept(data() / "Backups" / ".." / name)) << name;
        EXPECT_FALSE(isKept(folder.path() / name)) << name;
    }
    EXPECT_FALSE(isKept(data() / "report.txt"));
}

TEST_F(KeptFilesTest, AreTheSameByAnyOtherName) {
    put(data() / "Tallybrook_DB.mdb");
    fs::create_hard_link(data() / "Tallybrook_DB.mdb", elsewhere);
    EXPECT_TRUE(isKept(elsewhere));
}

TEST_F(KeptFilesTest, AreFoundBehindLinksOfAnyForm) {
    fs::create_symlink(data() / "Tallybrook.lock", elsewhere);
    EXPECT_TRUE(isKept(elsewhere));
    fs::create_symlink("elsewhere.txt", folder.path() / "link to a link");
    EXPECT_TRUE(isKept(folder.path() / "link to a link"));
}

TEST_F(KeptFilesTest, MayThemselvesBeLinksToWhatIsNotThereYet) {
    EXPECT_FALSE(isKept(elsewhere));
    fs::create_symlink("../elsewhere.txt", data() / "Tallybrook_DB.mdb");
    EXPECT_TRUE(isKept(elsewhere));
}

TEST_F(KeptFilesTest, LieWhereALinkToTheirFolderLeads) {
    fs::rename(data() / "Backups", folder.path() / "kept");
    fs::create_symlink("../kept", data() / "Backups");
    EXPECT_TRUE(isKept(folder.path() / "kept" / "Tallybrook_DB 2026-11-21 20.00.00.mdb"));
}

}  // namespace

}  // namespace tallybrook
