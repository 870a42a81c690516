#include "readers/FigureReaders.h"

#include <QList>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr QStringView kEvent = u"Event: ";
constexpr int kMost = 32767;  // that the logbook holds

/// A day as reports write it, as in "11/14/2026".
std::optional<std::chrono::local_days> dayIn(QStringView text) {
    const QList<QStringView> parts = text.split('/');
    if (parts.size() != 3)
        return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(parts[2].toInt()),
                                           std::chrono::month(parts[0].toUInt()),
                                           std::chrono::day(parts[1].toUInt()));
    return date.ok() ? std::optional(std::chrono::local_days(date)) : std::nullopt;
}

/// The line that an event begins with, as in "Event: City Open", two tabs, "Date Bowled: 9/12/2024". Its name
/// may hold anything.
std::optional<BowledEvent> beginningIn(QStringView line) {
    constexpr QStringView kDate = u"\t\tDate Bowled: ";
    const qsizetype date = line.lastIndexOf(kDate);
    const Field name = behind(kEvent, line.first(std::max(date, qsizetype{0})));
    const auto day = name ? dayIn(line.sliced(date + kDate.size()).trimmed()) : std::nullopt;
    if (!day)
        return std::nullopt;
    return BowledEvent{name->toString().toStdString(), {}, *day, 0, 0, 0};
}

/// Takes the figures of an event from their line; returns false for any other one.
bool takeFigures(QStringView line, BowledEvent& event) {
    const std::optional<int> games = countIn(column(line, u"Games Bowled:"));
    const std::optional<int> pinfall = countIn(column(line, u"Pinfall:"));
    const Field average = column(line, u"Event Average:");
    if (!games || !pinfall || !average || *games > kMost || *pinfall > kMost)
        return false;
    event.games = *games;
    event.pinfall = *pinfall;
    event.average = average->toDouble();
    return true;
}

/// Whether there is anything to draw: what was planned and never bowled has no pins. Somebody may have
/// written an average that has no place on any scale.
bool isScored(const BowledEvent& event) {
    return event.pinfall > 0 && event.average > 0 && event.average <= kMost;
}

/// Reads the list line by line. No event begins on the further lines of a comment, which an empty line ends:
/// a bowler may write anything.
class ListReader {
public:
    explicit ListReader(std::size_t mostEvents) { figures_.bowled.reserve(mostEvents); }

    void read(QStringView line) {
        if (const auto begun = linesOfComment_ < 2 ? beginningIn(line) : std::nullopt)
            event_ = begun;
        else if (event_ && line.startsWith(u"Event Type:"))
            event_->type = behind(u"Event Type:", line)->toString().toStdString();
        else if (event_ && takeFigures(line, *event_))
            end();
        const bool isInComment = !line.isEmpty() && linesOfComment_ > 0;
        linesOfComment_ = isInComment || line.startsWith(u"Comment:") ? linesOfComment_ + 1 : 0;
    }
    EventFigures take() {
        std::ranges::stable_sort(figures_.bowled, {}, &BowledEvent::date);
        return std::move(figures_);
    }

private:
    void end() {
        if (isScored(*event_))
            figures_.bowled.push_back(*std::move(event_));
        else
            ++figures_.unscored;
        event_.reset();
    }

    EventFigures figures_;
    std::optional<BowledEvent> event_;
    int linesOfComment_ = 0;
};

}  // namespace

EventFigures eventsIn(const ReportLines& report) {
    const ReportLines lines = report.above(heading::kScores);
    const auto isBeginning = [](QStringView line) { return line.startsWith(kEvent); };
    ListReader list(static_cast<std::size_t>(std::ranges::count_if(lines, isBeginning)));
    for (const QStringView line : lines)
        list.read(line);
    return list.take();
}

}  // namespace tallybrook
