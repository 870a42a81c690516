#include "bowling/Season.h"
#include "figures/Leagues.h"
#include "figures/Trend.h"

#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

using namespace std::chrono;

BowledEvent event(local_days day, int games, int pinfall, const char* name = "League") {
    return {name, "", day, games, pinfall, static_cast<double>(pinfall) / games};
}

local_days day(int year, unsigned month, unsigned number) {
    return local_days{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{number}};
}

/// Events in the order of their dates.
BowledEvents randomEvents() {
    BowledEvents events;
    local_days at = day(2020, 8, 1);
    for (int count = *rc::gen::inRange(1, 60); count > 0; --count) {
        at += days{*rc::gen::inRange(0, 40)};
        const int games = *rc::gen::inRange(1, 7);
        events.push_back(event(at, games, *rc::gen::inRange(games, 300 * games + 1)));
    }
    return events;
}

/// Pins over games of the events between two places.
double over(const BowledEvents& events, std::size_t from, std::size_t to) {
    double pins = 0;
    double games = 0;
    for (std::size_t index = from; index <= to; ++index) {
        pins += events[index].pinfall;
        games += events[index].games;
    }
    return pins / games;
}

}  // namespace

TEST(TrendTest, AverageTellsTheGamesThatCount) {
    const BowledEvent half{"City Open", "", day(2024, 9, 12), 3, 283, 141.5};  // the third was never recorded
    EXPECT_EQ(half.gamesCounted(), 2);
    const BowledEvent rounded{"City Open", "", day(2024, 9, 12), 3, 500, 166.67};
    EXPECT_EQ(rounded.gamesCounted(), 3);
    const BowledEvent cutOff{"City Open", "", day(2024, 9, 12), 3, 400, 133.33};
    EXPECT_EQ(cutOff.gamesCounted(), 3);
    const BowledEvent few{"City Open", "", day(2024, 9, 12), 3, 1, 300};
    EXPECT_EQ(few.gamesCounted(), 1);
    const BowledEvent many{"City Open", "", day(2024, 9, 12), 3, 5000, 1};
    EXPECT_EQ(many.gamesCounted(), 1000);
}

TEST(TrendTest, NoGamesHaveNoAverage) {
    PinsOverGames sum;
    EXPECT_EQ(sum.average(), 0);
    sum.add(event(day(2025, 1, 1), 3, 450));
    EXPECT_EQ(sum.average(), 150);
    sum.remove(event(day(2025, 1, 1), 3, 450));
    EXPECT_EQ(sum.average(), 0);
}

RC_GTEST_PROP(TrendTest, MovesOverTwelveEvents, ()) {
    const BowledEvents events = randomEvents();
    const std::vector<double> moving = movingAverages(events);
    RC_ASSERT(moving.size() == events.size());
    for (std::size_t index = 0; index < events.size(); ++index)
        RC_ASSERT(std::abs(moving[index] - over(events, index < 11 ? 0 : index - 11, index)) < 1e-9);
}

RC_GTEST_PROP(TrendTest, SeasonBeginsAnew, ()) {
    const BowledEvents events = randomEvents();
    const std::vector<double> season = seasonAverages(events);
    for (std::size_t index = 0; index < events.size(); ++index) {
        std::size_t first = index;
        while (first > 0 && seasonOf(events[first - 1].date) == seasonOf(events[index].date))
            --first;
        RC_ASSERT(std::abs(season[index] - over(events, first, index)) < 1e-9);
    }
}

RC_GTEST_PROP(TrendTest, GamesOfAMonthAddUp, ()) {
    const BowledEvents events = randomEvents();
    std::map<std::pair<int, unsigned>, int> games;
    for (const BowledEvent& one : events) {
        const year_month_day date(one.date);
        games[{static_cast<int>(date.year()), static_cast<unsigned>(date.month())}] += one.games;
    }
    const std::vector<MonthOfGames> months = gamesPerMonth(events);
    RC_ASSERT(months.size() == games.size());
    for (const MonthOfGames& month : months)
        RC_ASSERT(
            (games[{static_cast<int>(month.month.year()), static_cast<unsigned>(month.month.month())}] ==
             month.games));
}

TEST(TrendTest, OneMonthOfTwoYearsIsTwoMonths) {
    const BowledEvents events{event(day(2024, 11, 7), 3, 450), event(day(2025, 11, 6), 2, 300),
                              event(day(2025, 11, 13), 4, 600)};
    EXPECT_EQ(gamesPerMonth(events),
              (std::vector<MonthOfGames>{{2024y / November, 3}, {2025y / November, 6}}));
}

TEST(TrendTest, TwoEventsThatAreAlikeCountTwice) {
    const BowledEvent alike = event(day(2025, 1, 8), 3, 600);
    const BowledEvents events{event(day(2025, 1, 1), 3, 300), alike, alike};
    EXPECT_EQ(movingAverages(events), (std::vector<double>{100, 150, 1500.0 / 9}));
    EXPECT_EQ(seasonAverages(events), (std::vector<double>{100, 150, 1500.0 / 9}));
    EXPECT_EQ(nightsOf(events).back().events, 2);
}

TEST(TrendTest, GamesThatWereNotRecordedDoNotCount) {
    const BowledEvent ofThree{"League", "", day(2025, 1, 1), 3, 300, 150};
    const BowledEvents events{ofThree, event(day(2025, 1, 8), 2, 400), event(day(2025, 1, 15), 3, 450)};
    EXPECT_EQ(movingAverages(events), (std::vector<double>{150, 175, 1150.0 / 7}));
    EXPECT_EQ(gamesPerMonth(events), (std::vector<MonthOfGames>{{2025y / January, 7}}));
    const auto ends = seriesEnds(events);
    ASSERT_TRUE(ends);
    EXPECT_EQ(ends->games, 2);
    EXPECT_EQ(ends->high, 1U);
    EXPECT_EQ(ends->low, 0U);
}

TEST(TrendTest, EndsAreThoseOfTheUsualLength) {
    const BowledEvents events{event(day(2025, 1, 1), 3, 450),  event(day(2025, 1, 8), 6, 1200),
                              event(day(2025, 1, 15), 3, 510), event(day(2025, 1, 22), 3, 450),
                              event(day(2025, 1, 29), 1, 90),  event(day(2025, 2, 5), 3, 510)};
    const auto ends = seriesEnds(events);
    ASSERT_TRUE(ends);
    EXPECT_EQ(ends->games, 3);
    EXPECT_EQ(ends->high, 2U);  // the first of equal ones
    EXPECT_EQ(ends->low, 0U);
    EXPECT_FALSE(seriesEnds({}));
    EXPECT_EQ(seriesEnds({events[0], events[1]})->games, 6);  // the longer of equally many
}

RC_GTEST_PROP(TrendTest, NightsHoldTheEventsOfTheirDay, ()) {
    const BowledEvents events = randomEvents();
    const std::vector<NightOfGames> nights = nightsOf(events);
    std::set<local_days> all;
    for (const BowledEvent& one : events)
        all.insert(one.date);
    RC_ASSERT(nights.size() == all.size());
    for (const NightOfGames& night : nights) {
        const auto isThen = [&](const BowledEvent& one) { return one.date == night.day; };
        std::int64_t pins = 0;
        std::int64_t games = 0;
        for (const BowledEvent& one : events) {
            pins += isThen(one) ? one.pinfall : 0;
            games += isThen(one) ? one.games : 0;
        }
        RC_ASSERT(night.events == std::ranges::count_if(events, isThen));
        RC_ASSERT(night.total.pins == pins);
        RC_ASSERT(night.total.games == games);
    }
}

RC_GTEST_PROP(TrendTest, ClassesAreAboutAsLarge, ()) {
    const std::vector<NightOfGames> nights = nightsOf(randomEvents());
    const std::vector<double> bounds = classBounds(nights, 5);
    RC_ASSERT(bounds.size() < 5U);
    RC_ASSERT(std::ranges::is_sorted(bounds));
    RC_ASSERT(std::ranges::adjacent_find(bounds) == bounds.end());
    for (const double bound : bounds)
        RC_ASSERT(std::ranges::any_of(
            nights, [&](const NightOfGames& night) { return night.total.average() < bound; }));
}

TEST(TrendTest, ClassesBeginAtTheNightsThatPartThem) {
    BowledEvents events;
    for (const int score : {180, 120, 200, 140, 160})
        events.push_back(event(day(2025, 1, 1) + days{std::ssize(events)}, 1, score));
    EXPECT_EQ(classBounds(nightsOf(events), 5), (std::vector<double>{140, 160, 180, 200}));
    EXPECT_EQ(classBounds(nightsOf(events), 2), (std::vector<double>{160}));
    EXPECT_EQ(classBounds({}, 5), std::vector<double>{});
}

TEST(TrendTest, LeaguesAreToldApartWithoutCase) {
    const BowledEvents events{
        event(day(2025, 1, 1), 3, 450, "City Open"), event(day(2025, 1, 8), 3, 450, "M\xC3\xBCller-Cup"),
        event(day(2025, 1, 9), 3, 450, "Practice"), event(day(2025, 1, 15), 3, 450, "M\xC3\x9CLLER-CUP")};
    const Leagues leagues(events);
    ASSERT_EQ(leagues.all().size(), 3U);
    EXPECT_EQ(leagues.all()[0].name, "M\xC3\xBCller-Cup");
    EXPECT_EQ(leagues.all()[0].events, 2U);
    EXPECT_EQ(leagues.all()[1].name, "City Open");
    EXPECT_EQ(leagues.all()[2].name, "Practice");  // behind the other with one event, which came before it
    const std::vector<std::size_t> places{1, 0, 2, 0};
    for (std::size_t index = 0; index < places.size(); ++index)
        EXPECT_EQ(leagues.of(index), places[index]) << index;
}

TEST(TrendTest, LeaguesWithTheMostEventsComeFirst) {
    BowledEvents events;
    for (const char* const name : {"City Open", "Practice", "Thursday", "Thursday", "City Open", "Thursday"})
        events.push_back(event(day(2025, 1, 1), 3, 450, name));
    const Leagues leagues(events);
    std::vector<std::string> names;
    for (std::size_t index = 0; index < events.size(); ++index)
        names.push_back(leagues.all()[leagues.of(index)].name);
    EXPECT_EQ(leagues.all()[0].name, "Thursday");
    EXPECT_EQ(leagues.all()[1].name, "City Open");
    EXPECT_EQ(leagues.all()[2].name, "Practice");
    EXPECT_EQ(names, (std::vector<std::string>{"City Open", "Practice", "Thursday", "Thursday", "City Open",
                                               "Thursday"}));
}

}  // namespace tallybrook::test
