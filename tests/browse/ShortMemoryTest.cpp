// Memory is short at the nth allocation of a deletion, n counted up until all is well. Whatever becomes of
// the event that is to be deleted, the other one stays as it is.

#include "BrowsePlay.h"
#include "handheld/AnsweringDisplay.h"
#include "shell/TBK_Globals.h"
#include "support/FailingAllocation.h"

#include <optional>

namespace tallybrook::test {

namespace {

class ShortMemory : public testing::Test {
protected:
    ShortMemory() {
        start();
        insert("tblEventInfo", {{"fldEventName", "A night to keep"}});
        insertChildren(1);
    }

    void start() {
        application_.reset();
        application_.emplace(display, clock_, folder_.path() / "data");
        application_->start();
    }
    [[nodiscard]] Program& program() { return application_->program(); }
    /// Adds a further event, and opens the list with that one as the current row.
    void openListAtFurtherEvent() {
        insert("tblEventInfo",
               {{"fldEventName", "Further night"}, {"fldDateBowled", makeDate(2026, 11, 12)}});
        Recordset events(program().store());
        events.Open("SELECT * FROM tblEventInfo");
        events.MoveLast();
        insertChildren(toInt32(events["fldSessionNum"]).value());
        program().session.gMode = kEdit;
        program().session.gSessionNum = 1;  // the event that was opened last
        program().perform([&] { program().screens.load("frmEventList"); });
        Screen& list = *program().screens.find("frmEventList");
        auto& grid = dynamic_cast<Grid&>(Play::control(list, "dgdEventList"));
        program().perform([&] { person::selectRow(grid, grid.rowCount()); });
    }
    void insertChildren(int session) {
        insert("tblGameInfo", {{"fldSessionNum", std::int64_t{session}}, {"fldGameNum", std::int64_t{1}}});
        insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{session}}, {"fldGameNum", std::int64_t{1}}});
    }
    void insert(const std::string& table, const Play::Fields& fields) {
        insertRow(program().store(), table, fields);
    }
    /// How many rows of the first event a table has.
    [[nodiscard]] int rowsToKeep(const std::string& table) {
        Recordset rows(program().store());
        rows.Open("SELECT * FROM " + table + " WHERE fldSessionNum = 1");
        return rows.RecordCount();
    }

    AnsweringDisplay display{[](const MessageBox& box) {
        if (box.title == "Database Check")
            return Answer::No;
        return box.buttons == Buttons::YesNo ? Answer::Yes : box.defaultAnswer();
    }};

private:
    const SettableClock clock_{makeDate(2026, 11, 14)};
    TemporaryFolder folder_;
    std::optional<Application> application_;
};

TEST_F(ShortMemory, DeletesNoOtherEvent) {
    bool hasStruck = true;
    for (int before = 0; hasStruck && !HasFailure(); ++before) {
        SCOPED_TRACE("after " + std::to_string(before) + " allocations");
        openListAtFurtherEvent();
        Control& button = Play::control(*program().screens.find("frmEventList"), "cmdDelRecord");
        program().perform([&] {
            const FailingAllocation failing(before);
            person::click(button);
            hasStruck = FailingAllocation::hasStruck();
        });
        if (program().hasEnded())
            start();
        else
            program().perform([&] { returnToMain(program()); });
        for (const char* const table : {"tblEventInfo", "tblGameInfo", "tblFrameInfo"})
            EXPECT_EQ(rowsToKeep(table), 1) << table;
    }
}

}  // namespace

}  // namespace tallybrook::test
