// Memory is short at the nth allocation of a report, n counted up until all is well. The program tells of it
// and goes on, and what is counted anew for it is right.

#include "handheld/AnsweringDisplay.h"
#include "reports/modTBKReports.h"
#include "support/FailingAllocation.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <limits>
#include <string>

namespace tallybrook::test {

namespace {

/// A logbook of one event with a game of two frames.
class ShortMemory : public testing::Test {
protected:
    ShortMemory() {
        application_.start();
        insert("tblEventInfo", {{"fldEventName", "Thursday League"},
                                {"fldDateBowled", makeDate(2026, 11, 12)},
                                {"fldNumGames", std::int64_t{1}},
                                {"fldSeriesTot", std::int64_t{151}},
                                {"fldSeriesAvg", 151.0}});
        insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                               {"fldGameNum", std::int64_t{1}},
                               {"fldGameScore", std::int64_t{151}},
                               {"fldScoreType", "P"}});
        for (const std::int64_t frame : {1, 2})
            insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                    {"fldGameNum", std::int64_t{1}},
                                    {"fldFrameNum", frame},
                                    {"fldLineScore", "4/"},
                                    {"fldFirstBallRes", "1-2-4-7-8-9"},
                                    {"fldSecondBallRes", "/"}});
        display.boxes.clear();
    }

    [[nodiscard]] Program& program() { return application_.program(); }
    void insert(const std::string& table, const Play::Fields& fields) {
        insertRow(program().store(), table, fields);
    }
    /// Writes a statistical report whose allocation behind so many others fails. Returns whether it came to
    /// that.
    bool reportFails(int before) {
        display.boxes.clear();
        bool hasStruck = false;
        const ReportRequest request{.kind = "Statistics", .evType = "All Events", .file = file().string()};
        program().perform([&] {
            const FailingAllocation failing(before);
            Write_Report(program(), request);
            hasStruck = FailingAllocation::hasStruck();
        });
        return hasStruck;
    }
    [[nodiscard]] std::filesystem::path file() const { return folder_.path() / "report.txt"; }

    AnsweringDisplay display{[](const MessageBox& box) {
        return box.title == "Database Check" ? Answer::No : box.defaultAnswer();
    }};

private:
    const SettableClock clock_{makeDate(2026, 11, 14)};
    TemporaryFolder folder_;
    Application application_{display, clock_, folder_.path() / "data"};
};

TEST_F(ShortMemory, IsToldOrLeavesAWholeReport) {
    reportFails(std::numeric_limits<int>::max());
    const std::string whole = bytesOf(file());
    int countedAnew = 0;
    bool hasStruck = true;
    for (int before = 0; hasStruck && !HasFailure(); ++before) {
        SCOPED_TRACE("after " + std::to_string(before) + " allocations");
        hasStruck = reportFails(before);
        ASSERT_FALSE(program().hasEnded());
        if (display.boxes.empty()) {
            EXPECT_TRUE(isSameText(bytesOf(file()), whole));
            countedAnew += hasStruck ? 1 : 0;
        } else {
            EXPECT_TRUE(hasStruck);
            EXPECT_TRUE(display.boxes.front().text.starts_with("Error Number: 7\r\n"))
                << display.boxes.front().text;
        }
    }
    EXPECT_GT(countedAnew, 0);
}

}  // namespace

}  // namespace tallybrook::test
