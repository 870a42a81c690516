#pragma once

#include "bowling/LanePair.h"
#include "runtime/DateTime.h"

#include <string>
#include <vector>

// What a logbook holds, as plain values.
namespace tallybrook::sample {

struct Frame {
    int number = 0;
    int lane = 0;
    std::string ball = {};
    std::string footPosition = {};
    std::string target = {};
    std::string first = {};  // the pin strings of the balls, empty in a line score game
    std::string second = {};
    std::string fill = {};
    std::string comment = {};
    std::string lineScore = {};
    std::string recordId = {};  // on the handheld
};

struct Game {
    int number = 0;
    int startLane = 0;
    int score = 0;
    std::string laneCondition = {};
    std::string comment = {};
    std::string scoreType = {};  // "P", "L" or "N"
    std::vector<Frame> frames = {};
    std::string recordId = {};

    /// The odd lane of the pair.
    [[nodiscard]] int leftLane() const { return pairOf(startLane).left.value(); }
    [[nodiscard]] int rightLane() const { return pairOf(startLane).right.value(); }
    [[nodiscard]] std::string lanePair() const { return text(pairOf(startLane)); }
};

struct Event {
    std::string name = {};
    DateTime date = kZeroDate;
    std::string centerName = {};
    std::string centerLocation = {};
    std::string type = {};
    int plannedGames = 0;
    std::string comment = {};
    bool isFromHandheld = false;  // or typed in by hand
    std::vector<Game> games = {};
    std::string recordId = {};

    [[nodiscard]] int seriesTotal() const;
    /// Rounded to two decimals as the program rounds it; 0 without games.
    [[nodiscard]] double seriesAverage() const;
};

/// How many rows a logbook has.
struct Counts {
    int events = 0;
    int games = 0;
    int frames = 0;

    void add(const Event& event);
};

}  // namespace tallybrook::sample
