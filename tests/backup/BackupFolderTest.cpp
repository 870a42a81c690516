#include "backup/BackupFolder.h"
#include "support/TemporaryFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

constexpr DateTime kEvening = makeDate(2026, 11, 21) + std::chrono::hours{20};

class BackupFolderTest : public testing::Test {
protected:
    BackupFolderTest() { folder.make(); }

    void put(const std::string& name) const { std::ofstream(folder.path() / name) << "a backup"; }

    test::TemporaryFolder data;
    BackupFolder folder{data.path() / "Tallybrook_DB.mdb"};
};

TEST_F(BackupFolderTest, KnowsItsBackupsByTheirNamesAlone) {
    put("Tallybrook_DB 2026-11-21 20.00.00.mdb");
    put("Tallybrook_DB 2026-11-21 20.15.00.mdb.txt");
    put("Tallybrook_XX 2026-11-21 20.16.00.mdb");
    put("Tallybrook_DB 2026-11-31 20.00.00.mdb");
    put("Tallybrook_DB 2026-11-21 20.60.00.mdb");
    put("Tallybrook_DB put aside 2026-11-21 20.17.00.mdb");
    put("Tallybrook_DB.mdb");
    EXPECT_EQ(folder.times(), std::vector{kEvening});
}

TEST_F(BackupFolderTest, TellsThemInTheOrderOfTheirTimes) {
    std::vector<DateTime> times;
    for (int day = 0; day < 30; ++day)
        times.push_back(kEvening + std::chrono::days{day});
    for (int place = 0; place < 30; ++place)  // in another order
        put(folder.existing(times[static_cast<std::size_t>(place * 7 % 30)]).filename().string());
    EXPECT_EQ(folder.times(), times);
}

TEST_F(BackupFolderTest, GivesNoNameThatSomethingHas) {
    fs::create_directory(folder.existing(kEvening));
    put("Tallybrook_DB 2026-11-21 20.00.01.mdb");
    EXPECT_EQ(folder.fileFor(kEvening), folder.existing(kEvening + std::chrono::seconds{2}));
}

TEST_F(BackupFolderTest, IsThinnedOutByTheClockAndNotByItsNewestBackup) {
    for (const char* const time :
         {"2026-10-01 09.00.00", "2026-10-01 20.00.00", "2026-11-20 20.00.00", "2026-11-21 20.00.00"})
        put("Tallybrook_DB " + std::string(time) + ".mdb");
    const std::vector<DateTime> all = folder.times();
    folder.thinOut(makeDate(2026, 9, 30));
    EXPECT_EQ(folder.times(), all);
    folder.thinOut(kEvening);
    EXPECT_EQ(folder.times(), std::vector(all.begin() + 1, all.end()));
}

}  // namespace

}  // namespace tallybrook
