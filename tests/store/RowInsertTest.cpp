#include "store/Recordset.h"
#include "store/RowInsert.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

class Insert : public testing::Test {
protected:
    [[nodiscard]] int countOf() {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        return rows.RecordCount();
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
    RowInsert games{store, "tblGameInfo", {"fldSessionNum", "fldGameNum", "fldLanePair", "fldGameScore"}};
};

TEST_F(Insert, StoresWhatARecordsetWouldStore) {
    EXPECT_EQ(games.add(Value{std::int64_t{7}}, Value{"2"}, Value{std::int64_t{12}}, Value{Null{}}), 1);
    EXPECT_EQ(games.add(Value{7.4}, Value{2.5}, Value{"11-12"}, Value{"1,000"}), 2);
    Recordset same(store);
    same.Open("SELECT * FROM tblGameInfo");
    same.AddNew();
    same["fldSessionNum"] = 7.4;
    same["fldGameNum"] = 2.5;
    same["fldLanePair"] = "11-12";
    same["fldGameScore"] = "1,000";
    same.Update();

    const std::vector<Store::Row> rows = store.rows("tblGameInfo");
    ASSERT_EQ(rows.size(), 3U);
    for (std::size_t field = 1; field < rows[1].values.size(); ++field)
        EXPECT_EQ(rows[1].values[field], rows[2].values[field]) << field;
    EXPECT_EQ(rows[0].values[2], Value{std::int64_t{2}});
    EXPECT_EQ(rows[0].values[6], Value{"12"});
    EXPECT_EQ(rows[0].values[7], Value{Null{}});
    EXPECT_EQ(rows[0].values[10], Value{"P"}) << "what the table has for a field that is not given";
}

TEST_F(Insert, StoresNothingOfARowThatIsRefused) {
    for (const Value& wrong : {Value{"five"}, Value{std::int64_t{40000}}}) {
        try {
            games.add(Value{std::int64_t{7}}, wrong, Value{"11-12"}, Value{std::int64_t{200}});
            ADD_FAILURE() << "taken: " << toText(wrong);
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kValueNotTaken);
        }
    }
    EXPECT_EQ(countOf(), 0);
}

TEST_F(Insert, TellsWhatSQLiteReports) {
    games.add(Value{Null{}}, Value{Null{}}, Value{"first"}, Value{Null{}});
    store.connection().database().exec(
        "CREATE TRIGGER refusing BEFORE INSERT ON tblGameInfo BEGIN SELECT RAISE(ABORT, 'no'); END");
    sqlite3_db_config(store.connection().database().getHandle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 1, nullptr);
    try {
        games.add(Value{Null{}}, Value{Null{}}, Value{"second"}, Value{Null{}});
        ADD_FAILURE() << "stored";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), error::kEngineFailure);
    }
    EXPECT_EQ(countOf(), 1);
}

TEST_F(Insert, ShowsInWhatIsOpenedLater) {
    Recordset before(store);
    before.Open("SELECT * FROM tblGameInfo");
    games.add(Value{std::int64_t{1}}, Value{std::int64_t{1}}, Value{""}, Value{std::int64_t{1}});
    EXPECT_EQ(before.RecordCount(), 0);
    EXPECT_EQ(countOf(), 1);
}

}  // namespace

}  // namespace tallybrook
