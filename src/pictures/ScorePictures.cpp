#include "pictures/Pictures.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>

namespace tallybrook {

namespace {

QString told(const char* what, const DatedScore& score) {
    const QString day = score.date.isEmpty() ? QString() : " on " + score.date;
    return QString("%1 %2").arg(what).arg(score.score) + day;
}

/// The high and the low one of games or series, those that there are.
template <typename Figures>
QString endsTold(const char* high, const char* low, const Figures& figures) {
    QStringList ends;
    if (figures.high)
        ends += told(high, *figures.high);
    if (figures.low)
        ends += told(low, *figures.low);
    return ends.join(", ");
}

QString endsTold(const ScoreFigures& scores) {
    return endsTold("High game", "Low game", scores);
}

/// How much the marks beside the bars tell: the scores stand below the bars as well.
enum class Marks { WithScores, Short };

/// The marks of a range, as in "High 172" or "High".
QString marksOf(const ScoreRange& range, const ScoreFigures& scores, Marks how) {
    QStringList marks;
    const auto mark = [&](const char* what, const std::optional<DatedScore>& end) {
        if (end && range.holds(end->score))
            marks += how == Marks::Short ? QString(what) : QString("%1 %2").arg(what).arg(end->score);
    };
    mark("High", scores.high);
    mark("Low", scores.low);
    return marks.join(", ");
}

/// Where things stand in the rows of a picture: a label, what is drawn, and a text.
struct Columns {
    double label;
    double drawn;
    double text;
    double gap;

    [[nodiscard]] double width() const { return label + drawn + text + 2 * gap; }
};

Columns columnsFor(const QStringList& labels, const QStringList& texts, const PictureLook& look,
                   double width) {
    const auto widest = [&look](const QStringList& all) {
        double widestOne = 0;
        for (const QString& one : all)
            widestOne = std::max(widestOne, look.widthOf(one, true));
        return widestOne;
    };
    const double gap = look.digit();
    const double label = widest(labels);
    const double text = widest(texts);
    return {label, std::clamp(width - label - text - 2 * gap, 4 * gap, 60 * gap), text, gap};
}

/// The place of a row that is as high as a line.
Spot rowSpot(std::size_t row, const PictureLook& look, double width) {
    return {QRectF(0, 0, width - look.hair(), look.lineHeight()), row};
}

/// One row of the bars.
struct BarRow {
    QString label;
    QString count;
    QString marks;
    double share;  // of the longest bar
};

std::vector<BarRow> barRows(const ScoreFigures& scores, Marks how) {
    int most = 1;
    for (const ScoreRange& range : scores.ranges)
        most = std::max(most, range.games);
    std::vector<BarRow> rows;
    for (const ScoreRange& range : scores.ranges)
        rows.push_back({range.label, QString::number(range.games), marksOf(range, scores, how),
                        static_cast<double>(range.games) / most});
    return rows;
}

void drawBarRow(QPainter& painter, const BarRow& row, const Columns& columns, const PictureLook& look) {
    const double height = look.lineHeight();
    const double bar = columns.label + columns.gap;
    const QFont& font = row.marks.isEmpty() ? look.font() : look.boldFont();
    drawText(painter, {0, 0, columns.label, height}, Qt::AlignRight | Qt::AlignVCenter, row.label, font,
             look.ink());
    painter.fillRect(QRectF(bar, 0, look.hair(), 1.3 * height), look.line());  // the axis, from row to row
    painter.fillRect(QRectF(bar, 0.1 * height, row.share * columns.drawn, 0.8 * height), look.fill());
    const double text = bar + row.share * columns.drawn + columns.gap / 2;
    const double count = look.widthOf(row.count + "  ", true);
    constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
    drawText(painter, {text, 0, count, height}, kLeft, row.count, font, look.ink());
    drawText(painter, {text + count, 0, columns.text, height}, kLeft, row.marks, look.boldFont(), look.ink());
}

Columns columnsFor(const std::vector<BarRow>& rows, const PictureLook& look, double width) {
    QStringList labels;
    QStringList texts;
    for (const BarRow& row : rows) {
        labels += row.label;
        texts += row.count + "  " + row.marks;
    }
    return columnsFor(labels, texts, look, width);
}

Strips barStrips(const ScoreFigures& scores, const PictureLook& look, double width) {
    std::vector<BarRow> rows = barRows(scores, Marks::WithScores);
    Columns columns = columnsFor(rows, look, width);
    if (columns.width() > width) {
        rows = barRows(scores, Marks::Short);
        columns = columnsFor(rows, look, width);
    }
    Strips strips;
    for (const BarRow& row : rows)
        strips.push_back(
            {1.3 * look.lineHeight(),
             [row, columns, &look](QPainter& painter) { drawBarRow(painter, row, columns, look); },
             {rowSpot(strips.size(), look, width)}});
    strips.push_back(gapStrip(look.lineHeight() / 4));
    strips.front() = underHeading("Scores of the games", strips.front(), look, width);
    if (const QString ends = endsTold(scores); !ends.isEmpty())
        strips.push_back(noteStrip(ends + ".", look, width));
    return strips;
}

// --- Series ------------------------------------------------------------------------------------------------

QString lengthOf(const SeriesFigures& series) {
    return counted(series.games, "game", "games");
}

QString endsOf(const SeriesFigures& series) {
    QStringList ends;
    if (series.low)
        ends += QString("Low %1").arg(series.low->score);
    if (series.high)
        ends += QString("High %1").arg(series.high->score);
    return ends.join("   ");
}

/// The line on which the series of a length lie.
struct Track {
    QPointF left;
    double length;
    double radius;  // of a series

    [[nodiscard]] QPointF placeOf(int total, int games) const {
        constexpr double kHighestGame = 300;
        return left + QPointF(std::clamp(total / (kHighestGame * games), 0.0, 1.0) * length, 0);
    }
};

/// A disc for the high series, a ring for the low one, and a line from one to the other.
void drawEnds(QPainter& painter, const SeriesFigures& series, const Track& track, const PictureLook& look) {
    const auto place = [&](const DatedScore& end) { return track.placeOf(end.score, series.games); };
    painter.setPen(QPen(look.fill(), 3 * look.hair()));
    if (series.low && series.high)
        painter.drawLine(place(*series.low), place(*series.high));
    painter.setPen(QPen(look.fill(), 1.5 * look.hair()));
    painter.setBrush(look.ground());
    if (series.low)
        painter.drawEllipse(place(*series.low), track.radius, track.radius);
    painter.setBrush(look.fill());
    if (series.high)
        painter.drawEllipse(place(*series.high), track.radius, track.radius);
}

void drawSeries(QPainter& painter, const SeriesFigures& series, const Columns& columns,
                const PictureLook& look) {
    const double height = look.lineHeight();
    const double radius = 0.28 * height;
    const Track track{{columns.label + columns.gap + radius, height / 2}, columns.drawn - 2 * radius, radius};
    const QPointF right = track.left + QPointF(track.length, 0);
    drawText(painter, {0, 0, columns.label, height}, Qt::AlignRight | Qt::AlignVCenter, lengthOf(series),
             look.font(), look.ink());
    painter.setPen(QPen(look.line(), look.hair()));
    painter.drawLine(track.left, right);
    drawEnds(painter, series, track, look);
    drawText(painter, {right.x() + radius + columns.gap, 0, columns.text, height},
             Qt::AlignLeft | Qt::AlignVCenter, endsOf(series), look.font(), look.ink());
}

Strips seriesStrips(const std::vector<SeriesFigures>& all, const PictureLook& look, double width) {
    QStringList labels;
    QStringList texts;
    for (const SeriesFigures& series : all) {
        labels += lengthOf(series);
        texts += endsOf(series);
    }
    const Columns columns = columnsFor(labels, texts, look, width);
    Strips strips;
    for (const SeriesFigures& series : all)
        strips.push_back(
            {1.4 * look.lineHeight(),
             [series, columns, &look](QPainter& painter) { drawSeries(painter, series, columns, look); },
             {rowSpot(strips.size(), look, width)}});
    strips.front() = underHeading("High and low series", strips.front(), look, width);
    strips.push_back(gapStrip(look.lineHeight() / 4));
    strips.push_back(noteStrip("Ring: low, disc: high, from 0 to 300 for each game.", look, width));
    return strips;
}

PictureTable tableOf(const ScoreFigures& scores) {
    PictureTable table{{"Scores", "Games", "Marks"}, {}};
    for (const ScoreRange& range : scores.ranges)
        table.rows.push_back(
            {range.label, QString::number(range.games), marksOf(range, scores, Marks::WithScores)});
    return table;
}

PictureTable tableOf(const std::vector<SeriesFigures>& all) {
    const auto score = [](const std::optional<DatedScore>& end) {
        return end ? QString::number(end->score) : QString();
    };
    const auto day = [](const std::optional<DatedScore>& end) { return end ? end->date : QString(); };
    PictureTable table{{"Length", "Low", "Low bowled on", "High", "High bowled on"}, {}};
    for (const SeriesFigures& series : all)
        table.rows.push_back(
            {lengthOf(series), score(series.low), day(series.low), score(series.high), day(series.high)});
    return table;
}

}  // namespace

ReportPicture scoresPicture(const ScoreFigures& scores) {
    QStringList parts;
    for (const ScoreRange& range : scores.ranges) {
        if (range.games > 0)
            parts += range.label + ": " + counted(range.games, "game", "games");
    }
    parts += endsTold(scores);
    parts.removeAll(QString());
    return {"Scores of the games", parts.join(". "),
            [scores](const PictureLook& look, double width, const PictureView&) {
                return barStrips(scores, look, width);
            },
            [scores](const PictureView&) { return tableOf(scores); }};
}

ReportPicture seriesPicture(const std::vector<SeriesFigures>& series) {
    QStringList parts;
    for (const SeriesFigures& one : series)
        parts += QString("Series of %1: %2").arg(lengthOf(one), endsTold("high", "low", one));
    return {"High and low series", parts.join(". "),
            [series](const PictureLook& look, double width, const PictureView&) {
                return seriesStrips(series, look, width);
            },
            [series](const PictureView&) { return tableOf(series); }};
}

}  // namespace tallybrook
