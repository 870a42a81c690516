#include "JetWriter.h"
#include "OldLogbooks.h"
#include "carry/JetFile.h"

#include <array>
#include <cstdio>
#include <memory>

#include <gtest/gtest.h>

namespace tallybrook::carry {

namespace {

using test::JetRow;
using test::JetTableText;
using test::RowPlace;

class JetFileOfTables : public testing::Test {
protected:
    void write(const std::vector<JetTableText>& tables) const {
        test::writeBytes(path, test::jetFile(tables));
    }
    std::vector<std::vector<Cell>> rowsOf(const std::string& name) const {
        JetFile file(path.string(), std::filesystem::file_size(path));
        for (const JetEntry& entry : file.tables()) {
            if (entry.name != name)
                continue;
            JetTable table(file, entry);
            std::vector<std::vector<Cell>> rows;
            while (auto row = table.next())
                rows.push_back(*row);
            EXPECT_EQ(table.lostRows(), 0);
            return rows;
        }
        return {};
    }
    /// What another reader of such files says.
    std::string saidByMdbExport(const std::string& table) const {
        const std::string command = "mdb-export -T %Y-%m-%d '" + path.string() + "' " + table;
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"), pclose);
        std::array<char, 4096> bytes{};
        std::string text;
        while (const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), output.get()))
            text.append(bytes.data(), count);
        return text;
    }

    test::TemporaryFolder folder;
    std::filesystem::path path = folder.path() / "file.mdb";
};

const JetTableText kNumbersAndTexts{.name = "Things",
                                    .fields = {{"Key", JetType::Integer32},
                                               {"Text", JetType::Text, true},
                                               {"Score", JetType::Integer16},
                                               {"Average", JetType::Double},
                                               {"Day", JetType::Date},
                                               {"Note", JetType::Memo},
                                               {"IsLeague", JetType::Boolean}},
                                    .rows = {}};

JetRow row(std::int64_t key, const Cell& text, const Cell& note = Null{}, RowPlace place = RowPlace::Usual) {
    return {.cells = {key, text, std::int64_t{-7}, 200.25, 46330.0, note, std::int64_t{key % 2}},
            .place = place};
}

TEST_F(JetFileOfTables, IsReadByAnotherReaderAlike) {
    JetTableText table = kNumbersAndTexts;
    table.rows = {row(1, "Z\u00fcrich"), row(2, "\u30DC\u30A6\u30EA", "said \"so\""), row(3, "", ""),
                  row(4, Null{})};
    write({table});
    EXPECT_EQ(saidByMdbExport("Things"),
              "Key,Text,Score,Average,Day,Note,IsLeague\n"
              "1,\"Z\u00fcrich\",-7,200.25,\"2026-11-04\",,1\n"
              "2,\"\u30DC\u30A6\u30EA\",-7,200.25,\"2026-11-04\",\"said \"\"so\"\"\",0\n"
              "3,,-7,200.25,\"2026-11-04\",,1\n"  // it does not tell a Null from an empty text
              "4,,-7,200.25,\"2026-11-04\",,0\n");
}

TEST_F(JetFileOfTables, IsReadByAnotherReaderAlikeWhereItIsLarge) {
    JetTableText table = kNumbersAndTexts;
    table.isMapWide = true;
    std::string expected = "Key,Text,Score,Average,Day,Note,IsLeague\n";
    for (int key = 1; key <= 300; ++key) {
        const std::string note(static_cast<std::size_t>(key * 30), static_cast<char>('a' + key % 26));
        table.rows.push_back(row(key, "t" + std::to_string(key), note));
        expected += std::to_string(key) + ",\"t" + std::to_string(key) + R"(",-7,200.25,"2026-11-04",")" +
                    note + "\"," + std::to_string(key % 2) + "\n";
    }
    write({table});
    EXPECT_TRUE(saidByMdbExport("Things") == expected);  // too long to be shown
    const auto rows = rowsOf("Things");
    ASSERT_EQ(rows.size(), 300U);
    for (std::size_t at = 0; at < rows.size(); ++at)
        EXPECT_TRUE(rows[at][0] == table.rows[at].cells[0] && rows[at][5] == table.rows[at].cells[5]) << at;
}

TEST_F(JetFileOfTables, TellsNullFromEmpty) {
    JetTableText table = kNumbersAndTexts;
    table.rows = {row(1, "", ""), row(2, Null{}, Null{})};
    write({table});
    const auto rows = rowsOf("Things");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0][1], Cell{""});
    EXPECT_EQ(rows[0][5], Cell{""});
    EXPECT_EQ(rows[1][1], Cell{Null{}});
    EXPECT_EQ(rows[1][5], Cell{Null{}});
}

TEST_F(JetFileOfTables, KeepsWhatIsDeletedAway) {
    JetTableText table = kNumbersAndTexts;
    table.rows = {row(1, "a"), row(2, "b", Null{}, RowPlace::Deleted),
                  row(3, "c", Null{}, RowPlace::DeletedElsewhere), row(4, "d")};
    write({table});
    const auto rows = rowsOf("Things");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1][1], Cell{"d"});
}

TEST_F(JetFileOfTables, FollowsRowsThatHaveMoved) {
    JetTableText table = kNumbersAndTexts;
    table.rows = {row(1, "a", std::string(5000, 'n'), RowPlace::Moved),
                  row(2, "b", "note", RowPlace::MovedTwice), row(3, "c", std::string(100, 'm'))};
    write({table});
    const auto rows = rowsOf("Things");
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0][5], Cell{std::string(5000, 'n')});
    EXPECT_EQ(rows[1][1], Cell{"b"});
    EXPECT_EQ(rows[2][5], Cell{std::string(100, 'm')});
}

TEST_F(JetFileOfTables, HasLongTextsOfEachForm) {
    JetTableText table = kNumbersAndTexts;
    for (const std::size_t size : {0U, 1U, 31U, 33U, 2038U, 2039U, 9000U})
        table.rows.push_back(row(static_cast<std::int64_t>(size), "x", std::string(size, 'q')));
    write({table});
    const auto rows = rowsOf("Things");
    ASSERT_EQ(rows.size(), table.rows.size());
    for (std::size_t at = 0; at < rows.size(); ++at)
        EXPECT_EQ(rows[at][5], table.rows[at].cells[5]) << at;
}

TEST_F(JetFileOfTables, NamesTablesOfPeopleAlone) {
    JetTableText hidden = kNumbersAndTexts;
    hidden.name = "Hidden";
    hidden.flags = 8;
    JetTableText system = kNumbersAndTexts;
    system.name = "MSysOther";
    JetTableText query = kNumbersAndTexts;
    query.name = "Query";
    query.type = 5;
    JetTableText linked{.name = "Linked", .fields = {}, .rows = {}, .type = 6, .database = "D:\\other.mdb"};
    write({kNumbersAndTexts, hidden, system, query, linked});
    JetFile file(path.string(), std::filesystem::file_size(path));
    const std::vector<JetEntry> entries = file.tables();
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, "Things");
    EXPECT_EQ(entries[1].name, "Hidden");
    EXPECT_TRUE(entries[2].isLinked);
    EXPECT_EQ(entries[2].database, "D:\\other.mdb");
}

}  // namespace

}  // namespace tallybrook::carry
