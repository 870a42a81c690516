#include "pictures/TrendPlot.h"

#include "bowling/Season.h"
#include "pictures/EventMark.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_set>

namespace tallybrook {

namespace {

constexpr double kLinesOfAverages = 13;
constexpr double kLinesOfMonths = 3;
constexpr std::size_t kSettledEvents = 3;

QRectF averagesPlace(const PictureLook& look, double width) {
    const double left = look.widthOf("300", false) + look.digit();
    const double line = look.lineHeight();
    return {left, line, width - left - look.digit(), kLinesOfAverages * line};
}

QRectF monthsPlace(const QRectF& averages, const PictureLook& look) {
    constexpr double kLinesBetween = 2.6;  // the names of the axis, and of the bars
    const double top = averages.bottom() + kLinesBetween * look.lineHeight();
    return {averages.left(), top, averages.width(), kLinesOfMonths * look.lineHeight()};
}

TimeAxis axisOf(const BowledEvents& events, const PictureView& view, const QRectF& plot) {
    return {events.front().date, events.back().date, view, plot};
}

/// A line of many points with as few of them as show the same: of those in one column of the display the
/// first, the last, and the ends between them.
QPolygonF thinned(const QPolygonF& points) {
    QPolygonF thin;
    for (auto first = points.begin(); first != points.end();) {
        const auto isBeside = [column = std::floor(first->x())](const QPointF& one) {
            return std::floor(one.x()) != column;
        };
        const auto end = std::find_if(first, points.end(), isBeside);
        auto [low, high] = std::minmax_element(first, end, [](auto& a, auto& b) { return a.y() < b.y(); });
        if (high < low)
            std::swap(low, high);
        for (const auto& point : {first, low, high, end - 1}) {
            if (thin.isEmpty() || thin.last() != *point)
                thin << *point;
        }
        first = end;
    }
    return thin;
}

}  // namespace

bool showsMoving(const TrendSeries& series) {
    return series.events.size() > kMovingEvents;
}

bool showsSeasons(const TrendSeries& series) {
    std::size_t ofSeason = 0;
    for (std::size_t event = 0; event < series.events.size(); ++event) {
        const bool isBegun =
            event > 0 && seasonOf(series.events[event - 1].date) == seasonOf(series.events[event].date);
        ofSeason = isBegun ? ofSeason + 1 : 1;
        if (ofSeason > kSettledEvents)
            return true;
    }
    return false;
}

QPen penOfMoving(const PictureLook& look) {
    return {look.fill(), 2.6 * look.hair(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPen penOfSeason(const PictureLook& look) {
    return {look.ink(), 1.4 * look.hair(), Qt::DashLine, Qt::FlatCap, Qt::RoundJoin};
}

TrendPlot::TrendPlot(std::shared_ptr<const TrendSeries> series, const PictureLook& look, double width,
                     const PictureView& view)
    : shown_(std::move(series)),
      series_(*shown_),
      look_(look),
      averages_(averagesPlace(look, width)),
      months_(monthsPlace(averages_, look)),
      axis_(axisOf(series_.events, view, averages_)),
      scale_(scaleOf()) {
    const auto [first, end] = inSight(0);
    reach_ = reachOfMarks(look_, end - first);
}

double TrendPlot::height() const {
    return months_.bottom() + look_.lineHeight() / 2;
}

// --- Places ------------------------------------------------------------------------------------------------

/// All averages of the whole time are in it, so that the scale stays while the range moves.
TrendPlot::Scale TrendPlot::scaleOf() const {
    const auto [low, high] = std::ranges::minmax(series_.events, {}, &BowledEvent::average);
    constexpr std::array kSteps{5.0, 10.0, 20.0, 25.0, 50.0, 100.0};
    constexpr double kMostSteps = 8;
    constexpr double kLeastSpan = 4;
    const double span = std::max(high.average - low.average, kLeastSpan);
    double step = kSteps.back();
    for (const double one : kSteps) {
        if (span / one <= kMostSteps) {
            step = one;
            break;
        }
    }
    while (span / step > kMostSteps)
        step *= 2;
    constexpr double kRoom = 0.3;  // of a step, for the names of the ends
    const double bottom = std::max(std::floor(low.average / step - kRoom), 0.0) * step;
    const double top = std::ceil(high.average / step + kRoom) * step;
    return {bottom, top, step};
}

double TrendPlot::heightOf(double average) const {
    return averages_.bottom() - (average - scale_.low) / (scale_.high - scale_.low) * averages_.height();
}

QPointF TrendPlot::placeOf(std::size_t event, double average) const {
    return {axis_.placeOf(series_.events[event].date), heightOf(average)};
}

std::pair<std::size_t, std::size_t> TrendPlot::inSight(std::size_t beside) const {
    const BowledEvents& events = series_.events;
    const auto begin = std::ranges::lower_bound(events, axis_.first(), {}, &BowledEvent::date);
    const auto end = std::ranges::upper_bound(events, axis_.last(), {}, &BowledEvent::date);
    const auto first = static_cast<std::size_t>(begin - events.begin());
    const auto last = static_cast<std::size_t>(end - events.begin());
    return {first - std::min(first, beside), std::max(std::min(last + beside, events.size()), first)};
}

std::vector<Spot> TrendPlot::spots() const {
    const auto [first, end] = inSight(0);
    const double reach = reach_;
    std::vector<Spot> spots;
    spots.reserve(end - first);
    for (std::size_t event = first; event < end; ++event) {
        const QPointF place = placeOf(event, series_.events[event].average);
        spots.push_back({QRectF(place - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach)), event});
    }
    return spots;
}

// --- Drawing -----------------------------------------------------------------------------------------------

void TrendPlot::draw(QPainter& painter) const {
    drawAxes(painter);
    drawMonths(painter);
    painter.save();
    const double reach = 2 * reachOfMarks(look_, 1);
    painter.setClipRect(averages_.adjusted(0, -look_.lineHeight(), reach, reach));
    drawMarks(painter);
    drawMoving(painter);
    drawSeasons(painter);  // thinner, and seen on the other where many events make that a band
    drawEnds(painter);
    painter.restore();
}

void TrendPlot::drawAxes(QPainter& painter) const {
    constexpr float kFaint = 0.35F;
    QColor grid = look_.line();
    grid.setAlphaF(kFaint);
    const double line = look_.lineHeight();
    const auto steps = std::lround((scale_.high - scale_.low) / scale_.step);
    for (long step = 0; step <= steps; ++step) {
        const double average = scale_.low + static_cast<double>(step) * scale_.step;
        const double height = heightOf(average);
        painter.setPen(QPen(grid, look_.hair()));
        painter.drawLine(QPointF(averages_.left(), height), QPointF(averages_.right(), height));
        drawText(painter, {0, height - line / 2, averages_.left() - look_.digit() / 2, line},
                 Qt::AlignRight | Qt::AlignVCenter, QString::number(average), look_.font(), look_.quiet());
    }
    const double width = look_.widthOf("Nov 2026  ", false);
    for (const TimeAxis::Tick& tick : axis_.ticks(width)) {
        const double place = axis_.placeOf(tick.day);
        painter.setPen(QPen(grid, look_.hair()));
        painter.drawLine(QPointF(place, averages_.top()), QPointF(place, averages_.bottom() + line / 3));
        const double left = std::min(place - width / 2, averages_.right() + look_.digit() - width);
        drawText(painter, {std::max(left, 0.0), averages_.bottom() + line / 3, width, line}, Qt::AlignCenter,
                 tick.name, look_.font(), look_.quiet());
    }
}

/// One mark where many would lie on the same points of the display.
void TrendPlot::drawMarks(QPainter& painter) const {
    const auto [first, end] = inSight(0);
    std::unordered_set<int> taken;
    constexpr int kRows = 1 << 14;
    for (std::size_t event = first; event < end; ++event) {
        const QPointF place = placeOf(event, series_.events[event].average);
        const double raster = look_.hair() * 1.5;
        const int column = static_cast<int>(place.x() / raster);
        const int row = static_cast<int>(place.y() / raster);
        if (taken.insert((column * kRows + row) * kEventMarks + series_.marks[event]).second)
            drawEventMark(painter, series_.marks[event], place, reach_, look_);
    }
}

QPolygonF TrendPlot::lineOf(const std::vector<double>& averages, std::size_t from, std::size_t to) const {
    QPolygonF line;
    for (std::size_t event = from; event < to; ++event)
        line << placeOf(event, averages[event]);
    return thinned(line);
}

/// From the twelfth event on: before, there are not as many to move over.
void TrendPlot::drawMoving(QPainter& painter) const {
    const auto [first, end] = inSight(1);
    painter.setPen(penOfMoving(look_));
    painter.drawPolyline(lineOf(series_.moving, std::max(first, kMovingEvents - 1), end));
}

/// A line for each season, which parts them; from the third event on, since one night is no season yet.
void TrendPlot::drawSeasons(QPainter& painter) const {
    const auto [first, end] = inSight(1);
    painter.setPen(penOfSeason(look_));
    for (std::size_t from = first; from < end;) {
        const Season season = seasonOf(series_.events[from].date);
        const bool isBegun = from > 0 && seasonOf(series_.events[from - 1].date) == season;
        std::size_t to = from;
        while (to < end && seasonOf(series_.events[to].date) == season)
            ++to;
        if (const std::size_t settled = isBegun ? from : from + kSettledEvents - 1; settled < to)
            painter.drawPolyline(lineOf(series_.ofSeason, settled, to));
        from = to;
    }
}

void TrendPlot::drawEnds(QPainter& painter) const {
    if (!series_.ends || series_.ends->high == series_.ends->low)
        return;
    drawEnd(painter, series_.ends->high, "High", true);
    drawEnd(painter, series_.ends->low, "Low", false);
}

void TrendPlot::drawEnd(QPainter& painter, std::size_t event, const char* name, bool isAbove) const {
    const QPointF place = placeOf(event, series_.events[event].average);
    const QString text = QString("%1 %2").arg(name).arg(series_.events[event].pinfall);
    const double reach = 2 * reachOfMarks(look_, 1);
    const double width = look_.widthOf(text, true) + look_.digit();
    const double line = look_.lineHeight();
    if (place.x() < averages_.left() || place.x() > averages_.right())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look_.ink(), 1.5 * look_.hair()));
    painter.drawEllipse(place, reach, reach);
    const double left = std::clamp(place.x() - width / 2, averages_.left(), averages_.right() - width);
    const bool isUp = isAbove || place.y() + reach + line > averages_.bottom();
    const QRectF box(left, isUp ? place.y() - reach - line : place.y() + reach, width, line);
    painter.fillRect(box.adjusted(0, line / 8, 0, -line / 8), look_.ground());
    drawText(painter, box, Qt::AlignCenter, text, look_.boldFont(), look_.ink());
}

/// The place of the highest bar that a month can have. Where few months are in sight it is no wider for that.
QRectF TrendPlot::placeOf(const MonthOfGames& month) const {
    const double left = std::max(axis_.placeOf(Day(month.month / 1)), months_.left());
    const double right =
        std::min(axis_.placeOf(Day((month.month + std::chrono::months(1)) / 1)), months_.right());
    const double gap = std::min(0.15 * (right - left), 2 * look_.hair());
    const double width = std::clamp(right - left - 2 * gap, look_.hair(), 8 * look_.digit());
    return {(left + right - width) / 2, months_.top(), width, months_.height()};
}

void TrendPlot::drawMonths(QPainter& painter) const {
    const int most = std::ranges::max(series_.months, {}, &MonthOfGames::games).games;
    const double line = look_.lineHeight();
    drawText(painter, {months_.left(), months_.top() - 1.1 * line, months_.width(), line},
             Qt::AlignLeft | Qt::AlignVCenter, QString("Games per month, up to %1").arg(most), look_.font(),
             look_.quiet());
    painter.save();
    painter.setClipRect(months_);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const MonthOfGames& month : series_.months) {
        const QRectF bar = placeOf(month);
        const double height = months_.height() * month.games / most;
        painter.fillRect(bar.adjusted(0, bar.height() - height, 0, 0), look_.fill());
    }
    painter.restore();
    painter.fillRect(QRectF(months_.left(), months_.bottom(), months_.width(), look_.hair()), look_.line());
}

}  // namespace tallybrook
