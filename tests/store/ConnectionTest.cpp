#include "runtime/Clock.h"
#include "store/Store.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(Connection, KeepsAStatementThatIsInUseHoweverManyOthersArePrepared) {
    const test::TemporaryFolder folder;
    const SettableClock clock{makeDate(2026, 11, 14)};
    Store store(folder.path() / "Tallybrook_DB.mdb", clock);
    const auto statement = [&](int number) -> Statement& {
        return store.connection().prepared("SELECT " + std::to_string(number));
    };
    Statement::Use first(statement(0));
    for (int number = 1; number <= 500; ++number)
        Statement::Use {
            statement(number)
            } -> executeStep();
    EXPECT_TRUE(first->executeStep());
    EXPECT_EQ(first->number(0), 0);
    EXPECT_FALSE(first->executeStep());
}

/// In the engine's own words.
TEST(Connection, WaitsForTheDiskAndKeepsOthersOut) {
    const test::TemporaryFolder folder;
    const SettableClock clock{makeDate(2026, 11, 14)};
    Store store(folder.path() / "Tallybrook_DB.mdb", clock);
    std::string told;
    for (const char* const setting :
         {"journal_mode", "locking_mode", "synchronous", "cache_size", "trusted_schema"})
        told += std::string(setting) + " " +
                store.connection().database().execAndGet("PRAGMA " + std::string(setting)).getString() + "\n";
    EXPECT_EQ(told,
              "journal_mode truncate\nlocking_mode exclusive\nsynchronous 2\ncache_size -8192\n"
              "trusted_schema 0\n");
}

TEST(Connection, TakesNoJournalAlongThatIsStillNeeded) {
    const test::TemporaryFolder folder;
    const SettableClock clock{makeDate(2026, 11, 14)};
    const std::filesystem::path journal = folder.path() / "Tallybrook_DB.mdb-journal";
    for (const std::string bytes : {"", "what undoes a save"}) {
        {
            const Store store(folder.path() / "Tallybrook_DB.mdb", clock);
            std::ofstream(journal) << bytes;
        }
        EXPECT_EQ(std::filesystem::exists(journal), !bytes.empty());
    }
}

}  // namespace

}  // namespace tallybrook
