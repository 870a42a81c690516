#pragma once

#include "Golden.h"
#include "readers/Days.h"

#include <cmath>
#include <vector>

#include <rapidcheck.h>

namespace tallybrook::test {

/// An event as a statistical report is told of it.
struct WrittenEvent {
    QString name;
    Day day;
    int planned;
    int recorded;
    int pinfall;

    /// As the logbook has it: with two decimals, over the games that were recorded.
    [[nodiscard]] QString average() const {
        const double average = recorded > 0 ? static_cast<double>(pinfall) / recorded : 0;
        return QString::number(std::round(average * 100) / 100, 'g', 15);
    }
    [[nodiscard]] bool isScored() const { return pinfall > 0 && recorded > 0; }
};

/// The report of the season with other events in its list.
inline QString reportOf(const std::vector<WrittenEvent>& events, const QString& comment = "dry lanes") {
    const QString season = goldenReport("statistics.txt");
    QString text = season.section("Event: ", 0, 0);
    for (const WrittenEvent& event : events)
        text += QString(
                    "Event: %1\t\tDate Bowled: %2\nEvent Type: LEAGUE\nGames Bowled: %3\t\tPinfall: "
                    "%4\tEvent Average: %5\n"
                    "Comment: %6\n\n")
                    .arg(event.name, dayText(event.day))
                    .arg(event.planned)
                    .arg(event.pinfall)
                    .arg(event.average(), comment);
    return text + season.mid(season.indexOf("Game Statistics\n-----"));
}

/// Events in the order of their dates, some of which were never bowled or not to their end.
inline std::vector<WrittenEvent> randomWrittenEvents(int least = 0) {
    static const std::vector<QString> kNames{"Thursday League", "City Open",
                                             "thursday league", "",
                                             "Event: A\t\tB",   QString::fromUtf8("Müller-Cup")};
    std::vector<WrittenEvent> events;
    Day day{std::chrono::year(2019) / std::chrono::September / 3};
    for (int count = *rc::gen::inRange(least, 40); count > 0; --count) {
        day += std::chrono::days(*rc::gen::inRange(0, 50));
        const int planned = *rc::gen::inRange(1, 7);
        const int recorded = *rc::gen::inRange(0, planned + 1);
        events.push_back({*rc::gen::elementOf(kNames), day, planned, recorded,
                          recorded * *rc::gen::inRange(0, 300) + (recorded > 1 ? 1 : 0)});
    }
    return events;
}

/// So many events, a week apart.
inline std::vector<WrittenEvent> weeklyEvents(int count) {
    std::vector<WrittenEvent> events;
    Day day{std::chrono::year(1990) / std::chrono::September / 6};
    for (int index = 0; index < count; ++index, day += std::chrono::days(7))
        events.push_back(
            {index % 3 == 0 ? "City Open" : "Thursday League", day, 3, 3, 400 + index * 37 % 200});
    return events;
}

}  // namespace tallybrook::test
