#pragma once

#include "pictures/TimeAxis.h"
#include "pictures/TrendSeries.h"

namespace tallybrook {

/// The drawing of a trend: averages over the dates, and below them the games of each month.
class TrendPlot {
public:
    /// Draws into a width from its left edge; the look must outlive it.
    TrendPlot(std::shared_ptr<const TrendSeries> series, const PictureLook& look, double width,
              const PictureView& view);

    [[nodiscard]] double height() const;
    /// The place of the averages.
    [[nodiscard]] const QRectF& averages() const { return averages_; }
    /// The places of the events in sight.
    [[nodiscard]] std::vector<Spot> spots() const;
    void draw(QPainter& painter) const;

private:
    /// The averages at the left axis.
    struct Scale {
        double low;
        double high;
        double step;
    };
    [[nodiscard]] Scale scaleOf() const;
    [[nodiscard]] QPointF placeOf(std::size_t event, double average) const;
    [[nodiscard]] double heightOf(double average) const;
    /// The events in sight, with one beside each end for the lines that lead there.
    [[nodiscard]] std::pair<std::size_t, std::size_t> inSight(std::size_t beside) const;
    [[nodiscard]] QPolygonF lineOf(const std::vector<double>& averages, std::size_t from,
                                   std::size_t to) const;

    void drawAxes(QPainter& painter) const;
    void drawMarks(QPainter& painter) const;
    void drawMoving(QPainter& painter) const;
    void drawSeasons(QPainter& painter) const;
    void drawEnds(QPainter& painter) const;
    void drawEnd(QPainter& painter, std::size_t event, const char* name, bool isAbove) const;
    [[nodiscard]] QRectF placeOf(const MonthOfGames& month) const;
    void drawMonths(QPainter& painter) const;

    std::shared_ptr<const TrendSeries> shown_;
    const TrendSeries& series_;
    const PictureLook& look_;
    QRectF averages_;
    QRectF months_;
    TimeAxis axis_;
    Scale scale_;
    double reach_;  // of marks
};

/// Whether there are events enough for a line of the moving averages, and for one of a season.
bool showsMoving(const TrendSeries& series);
bool showsSeasons(const TrendSeries& series);

/// How the lines are drawn, for the plot and for its legend.
QPen penOfMoving(const PictureLook& look);
QPen penOfSeason(const PictureLook& look);

}  // namespace tallybrook
