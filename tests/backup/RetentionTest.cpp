#include "backup/Retention.h"

#include <algorithm>
#include <iterator>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook {

namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using Times = std::vector<DateTime>;

constexpr DateTime kSaturday = makeDate(2026, 11, 14) + hours{21};

Times kept(const Times& times) {
    return keptBackups(times, kSaturday);
}

TEST(Retention, KeepsAllOfTwoDays) {
    const Times times{kSaturday - days{2}, kSaturday - hours{30}, kSaturday - hours{29},
                      kSaturday - minutes{1}, kSaturday};
    EXPECT_EQ(kept(times), times);
}

TEST(Retention, KeepsTheNewestOfADay) {
    const DateTime day = makeDate(2026, 11, 4);
    EXPECT_EQ(kept({day + hours{9}, day + hours{23}, day + hours{12}, day + days{1}}),
              (Times{day + hours{23}, day + days{1}}));
}

TEST(Retention, KeepsTheNewestOfAWeek) {
    const DateTime monday = makeDate(2026, 8, 10);
    EXPECT_EQ(kept({monday - days{1}, monday, monday + days{3}, monday + days{6}, monday + days{7}}),
              (Times{monday - days{1}, monday + days{6}, monday + days{7}}));
}

TEST(Retention, KeepsTheNewestOfAMonthForEver) {
    EXPECT_EQ(
        kept({makeDate(1999, 12, 1), makeDate(1999, 12, 31), makeDate(2000, 1, 3), makeDate(2000, 1, 4)}),
        (Times{makeDate(1999, 12, 31), makeDate(2000, 1, 4)}));
}

TEST(Retention, ThinsOutToTheSecondWhereItsAgeIsUp) {
    struct Case {
        days age;
        DateTime older;
        DateTime newer;  // which stands for both in the next coarser span
    };
    for (const auto& [age, older, newer] :
         {Case{days{2}, makeDate(2026, 8, 11) + hours{9}, makeDate(2026, 8, 11) + hours{23}},
          Case{days{14}, makeDate(2026, 8, 11), makeDate(2026, 8, 13)},
          Case{days{182}, makeDate(2026, 8, 11), makeDate(2026, 8, 20)}}) {
        EXPECT_EQ(keptBackups({older, newer}, older + age), (Times{older, newer})) << age.count();
        EXPECT_EQ(keptBackups({older, newer}, older + age + std::chrono::seconds{1}), Times{newer})
            << age.count();
    }
}

TEST(Retention, KeepsWhatAWrongClockDatedAhead) {
    const Times times{makeDate(2036, 1, 1), makeDate(2036, 1, 1) + hours{1}};
    EXPECT_EQ(kept(times), times);
}

/// Times up to two years before now, some of them close together.
Times someTimes() {
    Times times;
    for (const int minute : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 2 * 365 * 24 * 60)))
        times.push_back(kSaturday - minutes{minute});
    for (const int minute : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 20 * 24 * 60)))
        times.push_back(kSaturday - minutes{minute});
    return times;
}

RC_GTEST_PROP(Retention, LeavesNoSpanOfTimeWithoutItsNewest, ()) {
    const Times times = someTimes();
    const Times left = kept(times);
    for (const DateTime time : times) {
        const auto isNear = [time](days span) {
            return [time, span](DateTime other) { return other >= time && other - time < span; };
        };
        const bool isKept = std::ranges::binary_search(left, time);
        if (kSaturday - time <= days{2})
            RC_ASSERT(isKept);
        if (kSaturday - time <= days{14})
            RC_ASSERT(std::ranges::any_of(left, isNear(days{1})));
        if (kSaturday - time <= days{182})
            RC_ASSERT(std::ranges::any_of(left, isNear(days{7})));
        RC_ASSERT(std::ranges::any_of(left, isNear(days{31})));
    }
}

RC_GTEST_PROP(Retention, KeepsNothingThatWasNotThere, ()) {
    Times times = someTimes();
    const Times left = kept(times);
    std::ranges::sort(times);
    RC_ASSERT(std::ranges::includes(times, left));
    RC_ASSERT(kept(left) == left);
    RC_ASSERT(left.size() <= 2 * 24 * 60 + 15U + 27 + 25);
    if (!times.empty())
        RC_ASSERT(left.back() == times.back());
}

// What was thinned out again and again as time went on is what would be kept of all.
RC_GTEST_PROP(Retention, ForgetsAsItGoesOnWhatItWouldForgetAtTheEnd, ()) {
    Times times = someTimes();
    std::ranges::sort(times);
    times.erase(std::unique(times.begin(), times.end()), times.end());
    Times left;
    for (const DateTime time : times) {
        left.push_back(time);
        left = keptBackups(left, time);
    }
    RC_ASSERT(kept(left) == kept(times));
}

/// What is left when all was removed that is to be removed, bit by bit.
Times thinnedOut(Times times, DateTime now) {
    std::ranges::sort(times);
    for (Times removed = backupsToRemove(times, now); !removed.empty();
         removed = backupsToRemove(times, now)) {
        Times left;
        std::ranges::set_difference(times, removed, std::back_inserter(left));
        times = left;
    }
    return times;
}

TEST(Thinning, ForgetsNothingOnAnEveningWithTheClockFarAhead) {
    constexpr days kAhead{10 * 365};
    Times times;
    for (int day = 0; day < 60; ++day)
        times.push_back(kSaturday - days{day});
    const Times before = keptBackups(times, kSaturday);
    Times left = before;
    for (int hour = 0; hour < 6; ++hour) {  // past midnight
        left.push_back(kSaturday + kAhead + hours{hour});
        EXPECT_EQ(thinnedOut(left, left.back()), left) << hour;
    }
    const DateTime later = kSaturday + hours{1};  // the clock was put right
    left.push_back(later);
    EXPECT_TRUE(std::ranges::includes(thinnedOut(left, later), keptBackups(before, later)));
}

TEST(Thinning, GoesOnThoughTheClockWasAheadOnce) {
    const Times pair{kSaturday - days{3} - hours{1}, kSaturday - days{3}};
    Times times{kSaturday, kSaturday + days{365}};
    times.insert(times.end(), pair.begin(), pair.end());
    EXPECT_EQ(backupsToRemove(times, kSaturday + hours{1}), Times{pair.front()});
}

TEST(Thinning, RemovesTheThreeOldestAtOnce) {
    const DateTime day = makeDate(2025, 3, 4);
    Times times{kSaturday, kSaturday - days{1}};
    for (int hour = 0; hour < 9; ++hour)
        times.push_back(day + hours{hour});
    EXPECT_EQ(backupsToRemove(times, kSaturday), (Times{day, day + hours{1}, day + hours{2}}));
    EXPECT_EQ(thinnedOut(times, kSaturday), (Times{day + hours{8}, kSaturday - days{1}, kSaturday}));
}

TEST(Thinning, OfNothingRemovesNothing) {
    EXPECT_TRUE(backupsToRemove({}, kSaturday).empty());
    EXPECT_TRUE(backupsToRemove({kSaturday}, kSaturday + days{1000}).empty());
}

RC_GTEST_PROP(Thinning, ComesToWhatIsKeptAtTheEnd, ()) {
    Times times = someTimes();
    times.insert(times.end(), {kSaturday, kSaturday - days{1}});
    std::ranges::sort(times);
    times.erase(std::unique(times.begin(), times.end()), times.end());
    RC_ASSERT(thinnedOut(times, kSaturday) == keptBackups(times, kSaturday - days{1}));
    RC_ASSERT(backupsToRemove(times, kSaturday).size() <= 3U);
}

}  // namespace

}  // namespace tallybrook
