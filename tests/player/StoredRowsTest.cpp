#include "player/StoredRows.h"
#include "store/Recordset.h"
#include "support/TemporaryFolder.h"

#include <sstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(StoredRows, WriteEachKindOfValue) {
    const TemporaryFolder folder;
    const SettableClock clock(makeDate(2026, 11, 14));
    Store store(folder.path() / "book.db", clock);
    Recordset rows(store);
    rows.Open("SELECT * FROM tblEventInfo");
    rows.AddNew();
    rows["fldEventName"] = "in " + folder.path().string();
    rows["fldDateBowled"] = makeDate(2026, 1, 2);
    rows["fldNumGames"] = std::int64_t{3};
    rows["fldSeriesAvg"] = 201.5;
    rows["fldCenterName"] = Null{};
    rows["fldComment"] = "a \"b\"\r\nc";
    rows.Update();
    rows.AddNew();
    rows["fldDateBowled"] = Null{};
    rows.Update();

    std::ostringstream out;
    const Transcript transcript(out, Places(folder.path(), "/nowhere"));
    const std::vector<std::string> written = storedRows(store, "tblEventInfo", transcript);
    ASSERT_EQ(written.size(), 2U);
    EXPECT_EQ(written[0],
              "fldSessionNum=1 fldEventName=\"in <data>\" fldDateBowled=2026-01-02 fldCenterName=null "
              "fldCenterLoc=\"\" fldEventType=\"\" fldNumGames=3 fldGmsRecorded=0 fldSeriesTot=0 "
              "fldSeriesAvg=201.5 "
              "fldComment=\"a \\\"b\\\"\\r\\nc\" fldHHRecordID=\"\"");
    EXPECT_NE(written[1].find("fldSessionNum=2"), std::string::npos);
    EXPECT_NE(written[1].find("fldDateBowled=null"), std::string::npos);
    EXPECT_TRUE(storedRows(store, "tblGameInfo", transcript).empty());
}

}  // namespace

}  // namespace tallybrook::test
