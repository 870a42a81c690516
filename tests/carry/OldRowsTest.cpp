#include "OldLogbooks.h"
#include "carry/CarryOver.h"
#include "carry/NewLogbook.h"
#include "carry/OldRows.h"
#include "carry/ReadingProcess.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tallybrook::carry {

namespace {

using Said = std::vector<Message>;

const Message kEvents = TableBegins{.name = "tblEventInfo", .columns = {"fldSessionNum"}, .toldRows = 1};
const Message kGames = TableBegins{.name = "tblGameInfo", .columns = {"fldGameKey"}};
const Message kFrames = TableBegins{.name = "tblFrameInfo", .columns = {"fldFrameKey"}};
const Message kEvent = RowFound{{std::int64_t{17}}};

/// Takes what is said into a logbook of its own.
CarriedOver carried(const Said& said) {
    const test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "logbook.mdb";
    test::writeBytes(file, "");
    NewLogbook logbook(file);
    CarriedOver result;
    OldRows rows(logbook, 2026, result);
    for (const Message& message : said)
        rows.take(message);
    EXPECT_TRUE(rows.isAtEnd());
    return result;
}

TEST(OldRows, AreTakenInTheirOrder) {
    const CarriedOver result =
        carried({kEvents, kEvent, TableEnds{}, kGames, TableEnds{}, kFrames, TableEnds{}, ReadingEnds{}});
    EXPECT_EQ(result.tables[0].carried, 1);
}

TEST(OldRows, AreNotTakenInAnyOther) {
    const Said misfits[] = {{RowFound{}},
                            {kEvent},
                            {TableEnds{}},
                            {kEvents, RowFound{}},
                            {kEvents, kEvents},
                            {kEvents, TableEnds{}, kEvent},
                            {kEvents, TableEnds{}, TableEnds{}},
                            {kEvents, TableEnds{}, kEvents},
                            {kEvents, TableEnds{}, kGames, TableEnds{}, kFrames, TableEnds{}, ReadingEnds{},
                             OtherTable{"tblPhotos"}}};
    for (const Said& misfit : misfits)
        EXPECT_THROW(carried(misfit), ReadingBroken) << misfit.size();
}

TEST(OldRows, AreMissedOneByOne) {
    const CarriedOver result = carried(
        {kEvents, TableEnds{.lostRows = 1}, kGames, TableEnds{}, kFrames, TableEnds{}, ReadingEnds{}});
    EXPECT_EQ(
        std::ranges::count(result.notes, "Rows of tblEventInfo that are damaged and cannot be read: 1."), 1);
}

}  // namespace

}  // namespace tallybrook::carry
