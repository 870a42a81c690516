#include "sample/Career.h"

#include "sample/Bowler.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string>

#include <fmt/format.h>

namespace tallybrook::sample {

namespace {

using std::chrono::days;

struct Center {
    const char* name;
    const char* location;
    int lanes;
};

constexpr Center kCenters[] = {
    {"Rolling Lanes", "Springfield", 32}, {"Riverside Bowl", "Milltown", 24},
    {"Northgate Lanes", "Northgate", 48}, {"Star Bowl", "Fairview", 40},
    {"Café Bowl", "Montréal", 16},        {"Bowlhaus Zürich", "Zürich", 12},
};
constexpr const Center& kHome = kCenters[0];

constexpr int kAnyDay = -1;

/// A kind of event, and what it brings with it.
struct Kind {
    const char* type;
    int day;               // of the week, from 0, Monday
    const Center* center;  // nullptr for any
    std::vector<const char*> names;
    std::vector<int> games;
    bool alternatesLanes = true;
};

/// In the order in which a week is filled: two leagues with practice between them. The fourth is a tournament
/// in some weeks, practice in the others.
constexpr int kFirstLeague = 0;
constexpr int kPractice = 1;
constexpr int kSecondLeague = 2;
constexpr int kTournament = 3;
constexpr int kKinds = 4;
constexpr int kWeeksBetweenTournaments = 5;

const Kind& kindOf(int kind, bool isSummer) {
    static const Kind kWinterFirst{"LEAGUE", 3, &kHome, {"Thursday Night League"}, {3}};
    static const Kind kWinterSecond{"LEAGUE", 0, &kCenters[1], {"Monday Scratch Trio"}, {3}};
    static const Kind kSummerFirst{"LEAGUE", 2, &kHome, {"Summer Mixed Doubles"}, {3}};
    static const Kind kSummerSecond{"LEAGUE", 5, &kCenters[2], {"Early Birds"}, {3}};
    static const Kind kAlone{
        "PRACTICE",   kAnyDay, &kHome, {"Practice", "Practice with coach", "Spare practice", "Lunch break"},
        {2, 3, 3, 4}, false};
    static const Kind kOpen{"TOURNAMENT",
                            6,
                            nullptr,
                            {"City Open", "Holiday Classic", "County Team Cup", "Coupe du Café"},
                            {3, 4, 6}};
    switch (kind) {
        case kFirstLeague:
            return isSummer ? kSummerFirst : kWinterFirst;
        case kSecondLeague:
            return isSummer ? kSummerSecond : kWinterSecond;
        case kTournament:
            return kOpen;
        default:
            return kAlone;
    }
}

constexpr const char* kEventComments[] = {
    "Fresh oil, slow start.", "Tired, but the spares were there", "New shoes",
    "Lanes broke down early", "Best night of the season",         "Left early: sore knee"};
constexpr const char* kGameComments[] = {"Found the line in the fifth", "Chopped two spares",
                                         "Moved two boards left", "Four in a row to finish"};
constexpr const char* kFrameComments[] = {
    "Light hit", "High on the head pin", "Good shot", "Missed inside", "Lofted it", "Pulled it"};
constexpr const char* kLaneConditions[] = {"", "", "dry", "medium", "fresh oil", "wet, then dry"};
/// The ball of each few years.
constexpr const char* kBalls[] = {"House ball, 14 lb", "Red, 15 lb", "Blue pearl", "Black solid",
                                  "Green hybrid"};

/// How often in a thousand racks the bowler strikes, as the years go by.
struct Milestone {
    int year;
    int strikes;
};
constexpr Milestone kMilestones[] = {{1996, 170}, {2003, 270}, {2013, 370}, {2020, 345}, {2026, 290}};
constexpr int kFirstYear = 1996;
constexpr int kYears = 31;

// How often in a thousand times something happens.
constexpr int kIncompleteEvents = 12;
constexpr int kBrokenOffGames = 4;
constexpr int kEventsWithComment = 250;
constexpr int kGamesWithComment = 80;
constexpr int kFramesWithComment = 20;
constexpr int kStepsAside = 60;

/// The years in which a handheld was at the lanes.
constexpr int kHandheldBought = 2002;
constexpr int kHandheldBroken = 2011;

constexpr DateTime kLastDay = makeDate(2026, 5, 31);
constexpr int kMostWeeks = 30 * 52;
constexpr int kEventsInTenWeeks = 32;

std::chrono::year_month_day calendar(DateTime date) {
    return std::chrono::year_month_day{std::chrono::floor<days>(date)};
}

int strikesIn(int year) {
    const auto* const next =
        std::ranges::find_if(kMilestones, [year](const Milestone& at) { return at.year > year; });
    if (next == std::begin(kMilestones))
        return next->strikes;
    const Milestone& last = *std::prev(next);
    if (next == std::end(kMilestones))
        return last.strikes;
    return last.strikes + (next->strikes - last.strikes) * (year - last.year) / (next->year - last.year);
}

/// How the bowler wrote a whole night down: with pins, as line scores or by the scores alone.
const char* anyScoreType(Dice& dice, int year) {
    const bool isBeginner = year < 2000;
    if (dice.happens(isBeginner ? 120 : 25))
        return "N";
    return dice.happens(isBeginner ? 300 : 60) ? "L" : "P";
}

std::string sometimes(Dice& dice, int perThousand, const auto& texts) {
    return dice.happens(perThousand) ? dice.anyOf(texts) : "";
}

/// One visit to the lanes.
class Night {
public:
    Night(Dice& dice, const Kind& kind, DateTime date)
        : dice_(dice),
          kind_(kind),
          date_(date),
          year_(int{calendar(date).year()}),
          strikes_(strikesIn(year_) + dice.between(-45, 45)),
          footPosition_(dice.between(15, 25)),
          target_(dice.between(8, 14)) {}

    Event bowl() {
        const Center& center = kind_.center != nullptr ? *kind_.center : dice_.anyOf(kCenters);
        Event event{.name = dice_.anyOf(kind_.names),
                    .date = date_,
                    .centerName = center.name,
                    .centerLocation = center.location,
                    .type = kind_.type,
                    .plannedGames = dice_.anyOf(kind_.games),
                    .comment = sometimes(dice_, kEventsWithComment, kEventComments),
                    .isFromHandheld = year_ >= kHandheldBought && year_ < kHandheldBroken};
        startLane_ = dice_.between(1, center.lanes);
        const char* const scoreType = anyScoreType(dice_, year_);
        const bool isIncomplete = event.plannedGames > 1 && dice_.happens(kIncompleteEvents);
        const int games = isIncomplete ? dice_.between(1, event.plannedGames - 1) : event.plannedGames;
        for (int number = 1; number <= games; ++number)
            event.games.push_back(bowlGame(number, scoreType));
        return event;
    }

private:
    Game bowlGame(int number, const std::string& scoreType) {
        const BowledGame bowled = sample::bowlGame(dice_, strikes_);
        Game game{.number = number,
                  .startLane = startLane_,
                  .score = scoreOf(bowled),
                  .laneCondition = dice_.anyOf(kLaneConditions),
                  .comment = sometimes(dice_, kGamesWithComment, kGameComments),
                  .scoreType = scoreType};
        if (scoreType == "N")
            return game;
        int frames = kFrames;
        if (dice_.happens(kBrokenOffGames)) {
            frames = dice_.between(2, kFrames - 1);
            game.score = 0;  // not known: the tenth frame was never bowled
        }
        game.frames.reserve(static_cast<std::size_t>(frames));
        for (int frame = 1; frame <= frames; ++frame)
            game.frames.push_back(frameOf(game, frame, bowled[static_cast<std::size_t>(frame - 1)]));
        return game;
    }

    Frame frameOf(const Game& game, int number, const Bowled& bowled) {
        if (dice_.happens(kStepsAside)) {
            const int step = dice_.between(0, 1) * 2 - 1;
            footPosition_ += 2 * step;
            target_ += step;
        }
        Frame frame{.number = number,
                    .lane = laneOf(game, number),
                    .ball = kBalls[static_cast<std::size_t>(year_ - kFirstYear) * std::size(kBalls) / kYears],
                    .footPosition = std::to_string(footPosition_),
                    .target = std::to_string(target_),
                    .comment = sometimes(dice_, kFramesWithComment, kFrameComments),
                    .lineScore = bowled.lineScore};
        if (game.scoreType == "P") {
            frame.first = bowled.first;
            frame.second = bowled.second;
            frame.fill = bowled.fill;
        }
        return frame;
    }

    [[nodiscard]] int laneOf(const Game& game, int frame) const {
        if (frame % 2 == 1 || !kind_.alternatesLanes)
            return game.startLane;
        return game.leftLane() + game.rightLane() - game.startLane;
    }

    Dice& dice_;
    const Kind& kind_;
    DateTime date_;
    int year_;
    int strikes_;
    int footPosition_;
    int target_;
    int startLane_ = 1;
};

}  // namespace

Career::Career(int events, std::uint64_t seed)
    : seed_(seed),
      dice_(seed),
      events_(events),
      weeks_(static_cast<int>(
          std::clamp<std::int64_t>(std::int64_t{events} * 10 / kEventsInTenWeeks, 1, kMostWeeks))) {}

/// Spreads the events evenly over the weeks.
void Career::planWeek() {
    const auto eventsBefore = [this](int week) {
        return static_cast<int>(std::int64_t{week} * events_ / weeks_);
    };
    const int count = eventsBefore(week_ + 1) - eventsBefore(week_);
    ++week_;
    const DateTime monday = kLastDay - days{7 * (weeks_ - week_) + 6};
    const unsigned month{calendar(monday).month()};
    const bool isSummer = month >= 5 && month <= 8;
    for (int i = 0; i < count; ++i) {
        int kind = i % kKinds;
        if (kind == kTournament && week_ % kWeeksBetweenTournaments != 0)
            kind = kPractice;
        const int day = kindOf(kind, isSummer).day;
        appointments_.push_back({.date = monday + days{day == kAnyDay ? dice_.between(0, 6) : day},
                                 .kind = kind,
                                 .isSummer = isSummer});
    }
    std::ranges::stable_sort(appointments_, std::ranges::greater{}, &Appointment::date);
}

Event Career::next() {
    while (appointments_.empty())
        planWeek();
    const Appointment next = appointments_.back();
    appointments_.pop_back();
    Event event = Night(dice_, kindOf(next.kind, next.isSummer), next.date).bowl();
    number(event);
    return event;
}

void Career::number(Event& event) {
    Counts numbers = bowled_;
    bowled_.add(event);
    event.recordId = recordId('E', ++numbers.events);
    for (Game& game : event.games) {
        game.recordId = recordId('G', ++numbers.games);
        for (Frame& frame : game.frames)
            frame.recordId = recordId('F', ++numbers.frames);
    }
}

/// Ten characters: the records of different seeds are rarely taken for each other.
std::string Career::recordId(char kind, int number) const {
    return fmt::format("{}{:02X}{:07X}", kind, seed_ % 256, number);
}

Counts countCareer(int events, std::uint64_t seed) {
    Counts counts;
    for (Career career(events, seed); !career.isOver();)
        counts.add(career.next());
    return counts;
}

}  // namespace tallybrook::sample
