#include "pictures/Pictures.h"

#include <QPainter>
#include <QStringList>
#include <cmath>
#include <numeric>

namespace tallybrook {

namespace {

/// A part of the bar. Each has a pattern of its own, for those who do not tell the colours apart.
struct Part {
    QString name;
    int count;
    Qt::BrushStyle pattern;
    QString remark;
};

using BarParts = std::vector<Part>;

QString shareOf(const QString& percent, const char* what) {
    return percent.isEmpty() ? QString() : QString("%1% of %2").arg(percent, what);
}

/// The parts that the report has.
BarParts partsOf(const StrikeFigures& figures) {
    BarParts parts;
    const auto add = [&](const char* name, std::optional<int> count, Qt::BrushStyle pattern,
                         const QString& remark) {
        if (count)
            parts.push_back({name, *count, pattern, remark});
    };
    add("Strikes", figures.strikes, Qt::SolidPattern, shareOf(figures.strikePercent, "first balls"));
    add("Spares", figures.spares, Qt::BDiagPattern, shareOf(figures.sparePercent, "spare chances"));
    add("Open frames", figures.opens, Qt::NoBrush, {});
    return parts;
}

/// What the parts are shares of; nothing where one of them is not known.
std::optional<double> totalOf(const BarParts& parts) {
    constexpr std::size_t kAllParts = 3;
    if (parts.size() < kAllParts)
        return std::nullopt;
    return std::accumulate(parts.begin(), parts.end(), 0.0,
                           [](double sum, const Part& part) { return sum + part.count; });
}

double shareOf(const Part& part, double total) {
    return total > 0 ? part.count / total : 0;
}

QString percentOf(const Part& part, double total) {
    return QString("%1%").arg(std::lround(100 * shareOf(part, total)));
}

/// Fills a place with a pattern whose strokes are as thick as the look's lines.
void drawPattern(QPainter& painter, const QRectF& place, Qt::BrushStyle pattern, const PictureLook& look) {
    painter.setPen(QPen(look.fill(), 1.5 * look.hair()));
    painter.setBrush(pattern == Qt::SolidPattern ? QBrush(look.fill()) : QBrush(Qt::NoBrush));
    painter.drawRect(place);
    if (pattern != Qt::BDiagPattern)
        return;
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    const double step = 5 * look.hair();
    const int strokes = static_cast<int>((place.width() + place.height()) / step) + 1;
    for (int stroke = 0; stroke < strokes; ++stroke) {
        const double x = place.left() - place.height() + stroke * step;
        painter.drawLine(QPointF(x, place.bottom()), QPointF(x + place.height(), place.top()));
    }
    painter.restore();
}

Strip barStrip(const BarParts& parts, double total, const PictureLook& look, double width) {
    const double height = 1.6 * look.lineHeight();
    return {1.4 * height, [parts, total, &look, width, height](QPainter& painter) {
                const double edge = look.hair();
                double left = edge;
                for (const Part& part : parts) {
                    const double length = shareOf(part, total) * (width - 2 * edge);
                    if (length > 0)
                        drawPattern(painter, QRectF(left, edge, length, height), part.pattern, look);
                    left += length;
                }
            }};
}

/// A row of the legend: pattern, name, count, share, and what the report says of it.
void drawPart(QPainter& painter, const Part& part, std::optional<double> total, const PictureLook& look,
              double width) {
    const double height = look.lineHeight();
    const double digit = look.digit();
    constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
    constexpr auto kRight = Qt::AlignRight | Qt::AlignVCenter;
    double left = 2.6 * digit + look.hair();
    drawPattern(painter, {look.hair(), 0.15 * height, 1.6 * digit, 0.7 * height}, part.pattern, look);
    const auto write = [&](double columnWidth, Qt::Alignment alignment, const QString& text,
                           const QFont& font) {
        drawText(painter, {left, 0, columnWidth, height}, alignment, text, font, look.ink());
        left += columnWidth;
    };
    write(look.widthOf("Open frames "), kLeft, part.name, look.font());
    write(5 * digit, kRight, QString::number(part.count), look.boldFont());
    write(5 * digit, kRight, total ? percentOf(part, *total) : QString(), look.font());
    left += digit;
    drawText(painter, {left, 0, width - left, height}, kLeft, part.remark, look.font(), look.quiet());
}

QStringList notesOn(const StrikeFigures& figures) {
    QStringList notes;
    if (figures.lineScoreGames.value_or(0) > 0)
        notes += "Frames recorded as line scores count as open.";
    if (figures.singlePins)
        notes += QString("Single pin spares: %1 of %2 made.")
                     .arg(figures.singlePins->made)
                     .arg(figures.singlePins->attempts);
    if (figures.firstBallAverage)
        notes += QString("First ball average: %1.").arg(counted(*figures.firstBallAverage, "pin", "pins"));
    return notes;
}

constexpr const char* kHeading = "Strikes, spares and open frames";

Strips stripsOf(const StrikeFigures& figures, const PictureLook& look, double width) {
    const BarParts parts = partsOf(figures);
    const std::optional<double> total = totalOf(parts);
    Strips strips;
    if (total)
        strips.push_back(barStrip(parts, *total, look, width));
    std::size_t row = 0;
    for (const Part& part : parts)
        strips.push_back(
            {1.15 * look.lineHeight(),
             [part, total, &look, width](QPainter& painter) { drawPart(painter, part, total, look, width); },
             {{QRectF(0, 0, width - look.hair(), look.lineHeight()), row++}}});
    strips.push_back(gapStrip(look.lineHeight() / 3));
    for (const QString& note : notesOn(figures))
        strips.push_back(noteStrip(note, look, width));
    strips.front() = underHeading(kHeading, strips.front(), look, width);
    return strips;
}

PictureTable tableOf(const BarParts& parts) {
    PictureTable table{{"What", "Count", "Share", "In the report"}, {}};
    const std::optional<double> total = totalOf(parts);
    for (const Part& part : parts)
        table.rows.push_back({part.name, QString::number(part.count),
                              total ? percentOf(part, *total) : QString(), part.remark});
    return table;
}

/// A part in words, as in "Strikes: 25, 9% (9.2% of first balls)".
QString toldOf(const Part& part, std::optional<double> total) {
    return QString("%1: %2").arg(part.name).arg(part.count) +
           (total ? ", " + percentOf(part, *total) : QString()) +
           (part.remark.isEmpty() ? QString() : " (" + part.remark + ")");
}

}  // namespace

ReportPicture strikesPicture(const StrikeFigures& strikes) {
    const BarParts parts = partsOf(strikes);
    QStringList told;
    for (const Part& part : parts)
        told += toldOf(part, totalOf(parts)) + ".";
    told += notesOn(strikes);
    return {kHeading, told.join(" "),
            [strikes](const PictureLook& look, double width, const PictureView&) {
                return stripsOf(strikes, look, width);
            },
            [parts](const PictureView&) { return tableOf(parts); }};
}

}  // namespace tallybrook
