// A logbook of an older schema is brought to the newest, step by step: behind a backup, whole or not at all.
// tests/store/schemas holds a logbook of every schema there has been, as the program of its day made it.

#include "SourceFolder.h"
#include "store/CutOffASave.h"
#include "store/Store.h"
#include "store/sql/Schema.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <map>
#include <stdexcept>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

/// Steps that might come one day.
const SchemaSteps kSteps{{"ALTER TABLE tblGameInfo ADD COLUMN fldOilPattern TEXT DEFAULT 'house'",
                          "CREATE INDEX idxOil ON tblGameInfo (fldOilPattern)"},
                         {"ALTER TABLE tblEventInfo ADD COLUMN fldTeam TEXT",
                          "UPDATE tblEventInfo SET fldTeam = 'none' WHERE fldEventType = 'LEAGUE'"}};
const SchemaSteps kSecondFails{kSteps.front(),
                               {"UPDATE tblEventInfo SET fldComment = 'half done'", "nonsense"}};

/// What a query gives, a line for each row.
Lines linesOf(const fs::path& file, const std::string& sql) {
    const SQLite::Database database(file.string());
    SQLite::Statement rows(database, sql);
    Lines lines;
    while (rows.executeStep()) {
        std::string line;
        for (int column = 0; column < rows.getColumnCount(); ++column)
            line += rows.getColumn(column).getString() + "|";
        lines.push_back(line);
    }
    return lines;
}

class SchemaStepping : public testing::Test {
protected:
    SchemaStepping() { makeOfSchema(1); }

    void makeOfSchema(int schema) const {
        fs::remove(file);
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec(
            test::bytesOf(fmt::format(TALLYBROOK_SOURCE_DIR "/tests/store/schemas/{}.sql", schema)));
    }
    /// With a backup that is noted, and succeeds.
    Upgrade upgrade(SchemaSteps steps) {
        return {.backUp =
                    [this](const fs::path& logbook) {
                        EXPECT_EQ(logbook, file);
                        backedUp.push_back(test::bytesOf(logbook));
                    },
                .steps = std::move(steps)};
    }
    std::string refusal(const Upgrade& upgrade) const {
        try {
            const Store store(file, clock, upgrade);
        } catch (const LogbookRefused& refused) {
            return refused.what();
        }
        return "";
    }
    [[nodiscard]] int schema() const { return std::stoi(linesOf(file, "PRAGMA user_version").at(0)); }
    void expectAlone() const {
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    }

    test::TemporaryFolder folder;
    fs::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
    std::vector<std::string> backedUp;
};

constexpr const char* kColumns =
    "SELECT t.name, c.name, c.type, c.dflt_value, c.pk FROM sqlite_schema t, pragma_table_info(t.name) c "
    "WHERE t.type = 'table' ORDER BY t.name, c.name";
constexpr const char* kIndexes =
    "SELECT name, tbl_name, sql FROM sqlite_schema WHERE type = 'index' ORDER BY name";
constexpr const char* kRows =
    "SELECT fldEventName, fldDateBowled, fldCenterName, fldComment, fldHHRecordID, NULL FROM tblEventInfo "
    "UNION ALL SELECT fldSessionNum, fldGameNum, fldLanePair, fldScoreType, fldGameScore, fldBowlHand "
    "FROM tblGameInfo UNION ALL SELECT fldSessionNum, fldGameNum, fldFrameNum, fldFirstBallRes, "
    "fldLineScore, "
    "fldHHRecordID FROM tblFrameInfo";

TEST_F(SchemaStepping, BringsAStoredLogbookOfEverySchemaToThatOfANewOne) {
    const fs::path fresh = folder.path() / "fresh";
    { const Store made(fresh, clock); }
    const int newest = newestSchema(schemaSteps());
    for (int stored = 1; stored <= newest; ++stored) {
        SCOPED_TRACE(stored);
        makeOfSchema(stored);
        const Lines rows = linesOf(file, kRows);
        EXPECT_EQ(rows.size(), 4U);
        EXPECT_EQ(refusal(upgrade(schemaSteps())), "");
        EXPECT_EQ(schema(), newest);
        EXPECT_EQ(linesOf(file, kColumns), linesOf(fresh, kColumns));
        EXPECT_EQ(linesOf(file, kIndexes), linesOf(fresh, kIndexes));
        EXPECT_EQ(linesOf(file, kRows), rows);
    }
}

TEST_F(SchemaStepping, MayBringAColumnThatTheProgramAsksFor) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE)
        .exec("ALTER TABLE tblGameInfo DROP COLUMN fldBowlHand");
    EXPECT_NE(refusal({}).find("belongs to another program, or is damaged"), std::string::npos);
    EXPECT_EQ(refusal(upgrade({{"ALTER TABLE tblGameInfo ADD COLUMN fldBowlHand TEXT DEFAULT 'N'"}})), "");
    EXPECT_EQ(linesOf(file, "SELECT DISTINCT fldBowlHand FROM tblGameInfo"), Lines{"N|"});
}

TEST_F(SchemaStepping, LeavesANewestLogbookAsItIs) {
    const std::string before = test::bytesOf(file);
    EXPECT_EQ(refusal(upgrade({})), "");
    EXPECT_TRUE(backedUp.empty());
    EXPECT_EQ(test::bytesOf(file), before);
}

TEST_F(SchemaStepping, TakesAllStepsBehindABackup) {
    const std::string before = test::bytesOf(file);
    const Lines rows = linesOf(file, kRows);
    EXPECT_EQ(refusal(upgrade(kSteps)), "");
    EXPECT_EQ(backedUp, Lines{before});
    EXPECT_EQ(schema(), 3);
    EXPECT_EQ(linesOf(file, kRows), rows);
    EXPECT_EQ(linesOf(file, "SELECT fldOilPattern FROM tblGameInfo"), Lines{"house|"});
    EXPECT_EQ(linesOf(file, "SELECT fldTeam FROM tblEventInfo"), (Lines{"none|", "|"}));
    EXPECT_EQ(linesOf(file, "PRAGMA integrity_check"), Lines{"ok|"});
    expectAlone();
    EXPECT_EQ(refusal(upgrade(kSteps)), "");
    EXPECT_EQ(backedUp.size(), 1U) << "there was nothing left to do";
}

TEST_F(SchemaStepping, TakesOnlyTheStepsThatAreMissing) {
    EXPECT_EQ(refusal(upgrade({kSteps.front()})), "");
    EXPECT_EQ(schema(), 2);
    EXPECT_EQ(refusal(upgrade(kSteps)), "");
    EXPECT_EQ(schema(), 3);
    EXPECT_EQ(backedUp.size(), 2U);
}

TEST_F(SchemaStepping, TakesNoStepWithoutABackup) {
    const std::string before = test::bytesOf(file);
    Upgrade unproved = upgrade(kSteps);
    unproved.backUp = [](const fs::path&) { throw std::runtime_error("The copy was not like the logbook."); };
    for (const Upgrade& one : {unproved, Upgrade{.steps = kSteps}}) {
        const std::string text = refusal(one);
        EXPECT_NE(text.find(file.string()), std::string::npos) << text;
        EXPECT_NE(text.find("brought up to date"), std::string::npos) << text;
        EXPECT_NE(text.find("Please "), std::string::npos) << text;
        EXPECT_NE(text.find(one.backUp ? "The copy was not" : "no backup"), std::string::npos) << text;
        EXPECT_EQ(test::bytesOf(file), before);
        expectAlone();
    }
}

TEST_F(SchemaStepping, LeavesTheLogbookAsItWasBeforeAStepThatFails) {
    const std::string before = test::bytesOf(file);
    for (const SchemaStep& failing : {SchemaStep{"nonsense"}, kSecondFails.back(),
                                      SchemaStep{"ALTER TABLE tblGameInfo DROP COLUMN fldComment"}}) {
        const std::string text = refusal(upgrade({failing}));
        EXPECT_NE(text.find("what it holds is unchanged"), std::string::npos) << text;
        EXPECT_EQ(test::bytesOf(file), before);
        expectAlone();
    }
}

TEST_F(SchemaStepping, KeepsTheStepsBeforeOneThatFailsAndGoesOnFromThere) {
    EXPECT_NE(refusal(upgrade(kSecondFails)), "");
    EXPECT_EQ(schema(), 2);
    EXPECT_EQ(linesOf(file, "SELECT fldComment FROM tblEventInfo"), (Lines{"new ball|", "|"}));
    EXPECT_EQ(refusal(upgrade(kSteps)), "");
    EXPECT_EQ(schema(), 3);
}

TEST_F(SchemaStepping, IsDoneAnewWhereAStepWasCutOff) {
    test::cutOffASave(file,
                      "ALTER TABLE tblGameInfo ADD COLUMN fldOilPattern TEXT DEFAULT 'cut off';"
                      "UPDATE tblEventInfo SET fldComment = printf('%.9000c', 'x');"
                      "PRAGMA user_version = 2");
    EXPECT_EQ(refusal(upgrade(kSteps)), "");
    EXPECT_EQ(linesOf(file, "SELECT fldOilPattern FROM tblGameInfo"), Lines{"house|"});
    EXPECT_EQ(linesOf(file, "SELECT fldComment FROM tblEventInfo"), (Lines{"new ball|", "|"}));
}

TEST_F(SchemaStepping, RefusesANumberThatIsNotAmongItsOwn) {
    for (const auto& [number, why] :
         std::map<int, std::string>{{4, "newer version"}, {0, "another program"}, {-1, "another program"}}) {
        SQLite::Database(file.string(), SQLite::OPEN_READWRITE)
            .exec(fmt::format("PRAGMA user_version = {}", number));
        const std::string before = test::bytesOf(file);
        EXPECT_NE(refusal(upgrade(kSteps)).find(why), std::string::npos) << number;
        EXPECT_EQ(test::bytesOf(file), before);
        EXPECT_TRUE(backedUp.empty());
    }
}

TEST_F(SchemaStepping, RefusesAnOlderLogbookWithoutTheTables) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE).exec("DROP TABLE tblFrameInfo");
    const std::string before = test::bytesOf(file);
    EXPECT_NE(refusal(upgrade(kSteps)).find("another program"), std::string::npos);
    EXPECT_EQ(test::bytesOf(file), before);
    EXPECT_TRUE(backedUp.empty());
}

}  // namespace

}  // namespace tallybrook
