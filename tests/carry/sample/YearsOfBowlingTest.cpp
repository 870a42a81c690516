#include "carry/CarryOver.h"
#include "carry/OldLogbooks.h"
#include "sample/Sample.h"
#include "store/sql/FieldValue.h"

#include <gtest/gtest.h>

namespace tallybrook::carry {

namespace {

namespace fs = std::filesystem;

using test::JetRow;
using test::JetTableText;

/// A value as an old logbook holds it.
Cell oldValue(const SQLite::Column& value, JetType type) {
    if (type == JetType::Date) {
        const std::optional<DateTime> date = storedDateIn(value.getString());
        return std::chrono::duration<double, std::ratio<86400>>(*date - kZeroDate).count();
    }
    if (value.isInteger())
        return value.getInt64();
    if (value.isFloat())
        return value.getDouble();
    return value.getString();
}

/// The tables of an old logbook with the rows of a logbook.
std::vector<JetTableText> oldTablesOf(const SQLite::Database& logbook) {
    std::vector<JetTableText> old = test::emptyOldTables();
    for (JetTableText& table : old) {
        SQLite::Statement stored(logbook, "SELECT * FROM " + table.name);
        while (stored.executeStep()) {
            JetRow& row = table.rows.emplace_back();
            for (std::size_t at = 0; at < table.fields.size(); ++at)
                row.cells.push_back(oldValue(stored.getColumn(static_cast<int>(at)), table.fields[at].type));
        }
    }
    return old;
}

TEST(YearsOfBowling, AreCarriedOver) {
    const test::TemporaryFolder made;
    sample::makeSample({.events = 40, .seed = 7, .data = made.path()});
    const fs::path sampled = made.path() / "Tallybrook_DB.mdb";
    const SQLite::Database database(sampled.string());
    const std::vector<JetTableText> old = oldTablesOf(database);
    const test::OldLogbookFolder folder;
    test::writeBytes(folder.old(), test::jetFile(old));
    NoProgress progress;
    const CarriedOver carried = carryOver(folder.job(), SettableClock(makeDate(2026, 11, 14)), progress);
    EXPECT_TRUE(carried.notes.empty());
    EXPECT_EQ(carried.figures, figuresOf(database));
    for (const JetTableText& table : old)
        EXPECT_EQ(test::storedRows(folder.logbook(), "SELECT * FROM " + table.name),
                  test::storedRows(sampled, "SELECT * FROM " + table.name));
}

}  // namespace

}  // namespace tallybrook::carry
