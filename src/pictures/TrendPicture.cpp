#include "bowling/Season.h"
#include "pictures/EventMark.h"
#include "pictures/Pictures.h"
#include "pictures/TrendPlot.h"

#include <QPainter>
#include <memory>
#include <utility>

namespace tallybrook {

namespace {

constexpr const char* kTrendHeading = "Averages over time";

/// An average as it is told: with one decimal.
QString told(double average) {
    return QString::number(average, 'f', 1);
}

// --- The legend --------------------------------------------------------------------------------------------

/// One thing that the legend names.
struct Entry {
    QString name;
    std::function<void(QPainter& painter, const QPointF& place, double reach)> draw;
};

Entry lineEntry(const QString& name, const QPen& pen) {
    return {name, [pen](QPainter& painter, const QPointF& place, double reach) {
                painter.setPen(pen);
                painter.drawLine(place - QPointF(reach, 0), place + QPointF(reach, 0));
            }};
}

std::vector<Entry> legendOf(const TrendChoices& choices, int choice, const PictureLook& look) {
    std::vector<Entry> entries;
    if (showsMoving(*choices.at(choice)))
        entries.push_back(lineEntry("Last 12 events", penOfMoving(look)));
    if (showsSeasons(*choices.at(choice)))
        entries.push_back(lineEntry("Season so far", penOfSeason(look)));
    for (const TrendChoices::Marked& marked : choices.marked(choice))
        entries.push_back(
            {marked.name, [mark = marked.mark, &look](QPainter& painter, const QPointF& place, double) {
                 drawEventMark(painter, mark, place, reachOfMarks(look, 1), look);
             }});
    return entries;
}

/// An entry with its place, which lies in the first of its rows that has room.
struct PlacedEntry {
    Entry entry;
    QPointF corner;
    double width;
};

std::vector<PlacedEntry> placed(std::vector<Entry> entries, const PictureLook& look, double width) {
    std::vector<PlacedEntry> places;
    QPointF corner;
    for (Entry& entry : entries) {
        const double own = std::min(look.widthOf(entry.name, false) + 6 * look.digit(), width);
        if (corner.x() > 0 && corner.x() + own > width)
            corner = {0, corner.y() + look.lineHeight()};
        places.push_back({std::move(entry), corner, own});
        corner.rx() += own;
    }
    return places;
}

Strip legendStrip(const std::vector<PlacedEntry>& entries, const PictureLook& look) {
    const double line = look.lineHeight();
    return {entries.back().corner.y() + 1.5 * line, [entries, line, &look](QPainter& painter) {
                for (const PlacedEntry& entry : entries) {
                    const double reach = 1.3 * look.digit();
                    const QPointF place = entry.corner + QPointF(reach + look.hair(), line / 2);
                    entry.entry.draw(painter, place, reach);
                    const double left = place.x() + reach + look.digit() / 2;
                    drawText(painter, {left, entry.corner.y(), entry.corner.x() + entry.width - left, line},
                             Qt::AlignLeft | Qt::AlignVCenter, entry.entry.name, look.font(), look.ink());
                }
            }};
}

// --- The picture -------------------------------------------------------------------------------------------

Strip plotStrip(const TrendChoices& choices, const PictureLook& look, double width, const PictureView& view) {
    const auto plot = std::make_shared<TrendPlot>(choices.at(view.choice), look, width, view);
    return {plot->height(), [plot](QPainter& painter) { plot->draw(painter); }, plot->spots(),
            plot->averages()};
}

QString noteOn(int unscored) {
    return unscored == 0
               ? QString()
               : counted(unscored, "event without a score is", "events without a score are") + " left out.";
}

Strips stripsOf(const TrendChoices& choices, int unscored, const PictureLook& look, double width,
                const PictureView& view) {
    Strips strips{legendStrip(placed(legendOf(choices, view.choice, look), look, width), look),
                  plotStrip(choices, look, width, view)};
    strips.front() = underHeading(kTrendHeading, strips.front(), look, width);
    if (const QString note = noteOn(unscored); !note.isEmpty())
        strips.push_back(noteStrip(note, look, width));
    return strips;
}

PictureTable tableOf(const TrendSeries& series) {
    PictureTable table{
        {"Date", "Event", "Type", "Games", "Pinfall", "Average", "Last 12 events", "Season", "Season so far"},
        {}};
    for (std::size_t index = 0; index < series.events.size(); ++index) {
        const BowledEvent& event = series.events[index];
        table.rows.push_back(
            {dayText(event.date), QString::fromStdString(event.name).simplified(),
             QString::fromStdString(event.type).simplified(), QString::number(event.gamesCounted()),
             QString::number(event.pinfall), told(event.average), told(series.moving[index]),
             QString::fromStdString(nameOf(seasonOf(event.date))), told(series.ofSeason[index])});
    }
    return table;
}

QString endTold(const char* what, const TrendSeries& series, std::size_t event) {
    return QString("%1 series of %2: %3 on %4")
        .arg(what, counted(series.ends->games, "game", "games"))
        .arg(series.events[event].pinfall)
        .arg(dayText(series.events[event].date));
}

QString summaryOf(const TrendSeries& series, int unscored) {
    const BowledEvents& events = series.events;
    PinsOverGames all;
    for (const BowledEvent& event : events)
        all.add(event);
    const MonthOfGames most = std::ranges::max(series.months, {}, &MonthOfGames::games);
    QStringList parts{
        QString("%1 from %2 to %3")
            .arg(counted(static_cast<int>(events.size()), "event", "events"), dayText(events.front().date),
                 dayText(events.back().date)),
        "Average " + told(all.average()),
        "Average of the last 12 events: " + told(series.moving.back()),
        QString("Average of %1: %2")
            .arg(QString::fromStdString(nameOf(seasonOf(events.back().date))), told(series.ofSeason.back())),
        endTold("High", series, series.ends->high),
        endTold("Low", series, series.ends->low),
        QString("Most games in a month: %1 in %2").arg(most.games).arg(monthText(most.month))};
    return parts.join(". ") + "." + (unscored > 0 ? " " + noteOn(unscored) : QString());
}

}  // namespace

ReportPicture trendPicture(EventFigures events) {
    const auto choices = std::make_shared<TrendChoices>(std::move(events.bowled));
    return {kTrendHeading, summaryOf(*choices->at(0), events.unscored),
            [choices, unscored = events.unscored](const PictureLook& look, double width,
                                                  const PictureView& view) {
                return stripsOf(*choices, unscored, look, width, view);
            },
            [choices](const PictureView& view) { return tableOf(*choices->at(view.choice)); },
            choices->names()};
}

}  // namespace tallybrook
