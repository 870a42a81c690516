#include "store/Store.h"
#include "store/file/Connection.h"
#include "store/reading/RecentStatements.h"
#include "support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

class RecentlyUnderstood : public testing::Test {
protected:
    /// Understands a statement as it is done without any that went before, and keeps it.
    std::shared_ptr<Plan> keep(const std::string& sql) {
        const auto plan = std::make_shared<Plan>(store_.connection().transaction(), parseSelect(sql, 2026));
        recent_.keep(sql, shapeOf(sql).literals, {.plan = plan, .values = {}});
        return plan;
    }
    /// The numbers of a statement that is understood by an earlier one; none if it is not.
    [[nodiscard]] std::vector<Value> valuesOf(const std::string& sql, const std::shared_ptr<Plan>& by) const {
        const auto found = recent_.find(sql);
        return found && found->plan == by ? found->values : std::vector<Value>{};
    }

private:
    test::TemporaryFolder folder_;
    SettableClock clock_{makeDate(2026, 11, 14)};
    Store store_{folder_.path() / "logbook", clock_};
    RecentStatements recent_;
};

TEST_F(RecentlyUnderstood, IsWhatDiffersInPlainNumbersAlone) {
    const auto plan =
        keep("SELECT * FROM tblGameInfo WHERE fldSessionNum = 3 AND fldGameNum = 12 ORDER BY fldGameNum");
    EXPECT_EQ(
        valuesOf("SELECT * FROM tblGameInfo WHERE fldSessionNum = 145 AND fldGameNum = 7 ORDER BY fldGameNum",
                 plan),
        (std::vector<Value>{145.0, 7.0}));
    for (const char* other :
         {"", "SELECT * FROM tblGameInfo WHERE fldSessionNum = 145 AND fldGameNum = 7",
          "SELECT * FROM tblGameInfo WHERE fldSessionNum = 145 AND fldGameNum = 7 ORDER BY fldGameNum ",
          "SELECT * FROM tblGameInfo WHERE fldSessionNum =  AND fldGameNum = 7 ORDER BY fldGameNum",
          "SELECT * FROM tblGameInfo WHERE fldSessionNum = -1 AND fldGameNum = 7 ORDER BY fldGameNum",
          "SELECT * FROM tblGameInfo WHERE fldSessionNum = 1.5 AND fldGameNum = 7 ORDER BY fldGameNum"})
        EXPECT_TRUE(valuesOf(other, plan).empty()) << other;
}

TEST_F(RecentlyUnderstood, IsNoStatementWithOtherValues) {
    for (const char* sql :
         {"SELECT * FROM tblEventInfo WHERE fldEventName = '5'",
          "SELECT * FROM tblEventInfo WHERE fldSeriesAvg = 200.5",
          "SELECT * FROM tblEventInfo WHERE fldSessionNum = 1 AND fldEventName = 'League'"}) {
        const auto plan = keep(sql);
        EXPECT_TRUE(valuesOf(sql, plan).empty()) << sql;
    }
}

TEST_F(RecentlyUnderstood, AreTheLastFour) {
    const std::string field = "SELECT * FROM tblFrameInfo WHERE fldSessionNum = 1 AND fldGameNum ";
    std::vector<std::shared_ptr<Plan>> plans;
    for (const char* sign : {"=", "<", ">", "<=", ">="})
        plans.push_back(keep(field + sign + " 1"));
    EXPECT_TRUE(valuesOf(field + "= 2", plans[0]).empty());
    EXPECT_EQ(valuesOf(field + "< 2", plans[1]), (std::vector<Value>{1.0, 2.0}));
    EXPECT_EQ(valuesOf(field + "> 2", plans[2]), (std::vector<Value>{1.0, 2.0}));
    EXPECT_EQ(valuesOf(field + "<= 2", plans[3]), (std::vector<Value>{1.0, 2.0}));
    EXPECT_EQ(valuesOf(field + ">= 2", plans[4]), (std::vector<Value>{1.0, 2.0}));
}

}  // namespace

}  // namespace tallybrook
