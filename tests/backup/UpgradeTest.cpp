// Before a logbook of an older schema is changed there is a backup of it, proved like all others.

#include "backup/Backups.h"
#include "support/SameText.h"
#include "support/StoredEvents.h"
#include "support/TemporaryFolder.h"

#include <fstream>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

class UpgradeTest : public testing::Test {
protected:
    UpgradeTest() { test::writeEvents(logbook, 3, clock); }

    /// Opens it by a program with a step more; why it was refused, if it was.
    std::string refusal() const {
        try {
            const Store store(logbook, clock, upgrade);
        } catch (const LogbookRefused& refused) {
            return refused.what();
        }
        return "";
    }
    static int schemaOf(const fs::path& file) {
        return SQLite::Database(file.string()).execAndGet("PRAGMA user_version").getInt();
    }

    test::TemporaryFolder data;
    fs::path logbook = data.path() / "Tallybrook_DB.mdb";
    fs::path backup = data.path() / "Backups" / "Tallybrook_DB 2026-11-21 20.15.00.mdb";
    SettableClock clock{makeDate(2026, 11, 21) + std::chrono::hours{20} + std::chrono::minutes{15}};
    Upgrade upgrade{.backUp = [this](const fs::path& file) { backUpNow(file, clock); },
                    .steps =
                        [] {
                            SchemaSteps steps = schemaSteps();
                            steps.push_back({"ALTER TABLE tblGameInfo ADD COLUMN fldOilPattern TEXT"});
                            return steps;
                        }()};
};

TEST_F(UpgradeTest, IsBehindABackupOfTheOlderLogbook) {
    const int older = schemaOf(logbook);
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(schemaOf(logbook), older + 1);
    EXPECT_EQ(schemaOf(backup), older);
    EXPECT_EQ(Store(backup, clock).rows("tblEventInfo").size(), 3U);
}

TEST_F(UpgradeTest, DoesNotTouchALogbookThatCannotBeBackedUp) {
    std::ofstream(data.path() / "Backups") << "a file in the way";
    const std::string before = test::bytesOf(logbook);
    const std::string text = refusal();
    EXPECT_NE(
        text.find(
            "It could not be backed up.\r\nFolder of the backups: " + (data.path() / "Backups").string() +
            "\r\nFile exists\r\nPlease see that there is room on the disk, and that the folder can be "
            "written."),
        std::string::npos)
        << text;
    EXPECT_EQ(test::bytesOf(logbook), before);
}

TEST_F(UpgradeTest, DoesNotTouchALogbookThatIsDamaged) {
    {
        SQLite::Database database(logbook.string(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA writable_schema = ON; DELETE FROM sqlite_schema WHERE name = 'idxGame'");
    }
    const std::string before = test::bytesOf(logbook);
    const std::string text = refusal();
    EXPECT_NE(text.find("The logbook is damaged"), std::string::npos) << text;
    EXPECT_EQ(test::bytesOf(logbook), before);
    EXPECT_FALSE(fs::exists(backup));
}

}  // namespace

}  // namespace tallybrook
