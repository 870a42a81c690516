#include "pictures/ReportPicture.h"

#include <QPainter>
#include <algorithm>
#include <numeric>
#include <utility>

namespace tallybrook {

namespace {

void drawWrapped(QPainter& painter, const QRectF& place, const QString& text, const QFont& font,
                 const QColor& colour) {
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(place, Qt::TextWordWrap, text);
}

}  // namespace

QString PictureTable::asText() const {
    QString text = head.join('\t') + '\n';
    for (const QStringList& row : rows)
        text += row.join('\t') + '\n';
    return text;
}

QStringList PictureTable::told(std::size_t row) const {
    const QStringList& cells = rows.at(row);
    QStringList lines{cells.value(0)};
    for (qsizetype column = 1; column < cells.size(); ++column) {
        if (!cells[column].isEmpty())
            lines += head.value(column) + ": " + cells[column];
    }
    return lines;
}

PictureView PictureView::over(double first, double last) const {
    constexpr double kLeast = 1e-4;
    const double width = std::clamp(last - first, kLeast, 1.0);
    const double begin = std::clamp(first, 0.0, 1 - width);
    return {begin, begin + width, choice};
}

double heightOf(const Strips& strips) {
    return std::accumulate(strips.begin(), strips.end(), 0.0,
                           [](double sum, const Strip& strip) { return sum + strip.height; });
}

Strip underHeading(const QString& heading, Strip strip, const PictureLook& look, double width) {
    const QRectF place(0, 0, width, look.heightOf(heading, width, PictureLook::Text::Heading));
    const double above = place.height() + 0.6 * look.lineHeight();
    strip.draw = [heading, &look, place, above, below = std::move(strip.draw)](QPainter& painter) {
        drawWrapped(painter, place, heading, look.headingFont(), look.ink());
        painter.translate(0, above);
        below(painter);
        painter.translate(0, -above);
    };
    strip.height += above;
    for (Spot& spot : strip.spots)
        spot.place.translate(0, above);
    if (strip.plot)
        strip.plot->translate(0, above);
    return strip;
}

Strip gapStrip(double height) {
    return {height, [](QPainter& /*painter*/) {}};
}

Strip noteStrip(const QString& text, const PictureLook& look, double width) {
    const QRectF place(0, 0, width, look.heightOf(text, width, PictureLook::Text::Usual));
    return {place.height() + look.lineHeight() / 4, [text, &look, place](QPainter& painter) {
                drawWrapped(painter, place, text, look.font(), look.quiet());
            }};
}

void drawText(QPainter& painter, const QRectF& place, Qt::Alignment alignment, const QString& text,
              const QFont& font, const QColor& colour) {
    painter.setFont(font);
    painter.setPen(colour);
    const QString shown =
        QFontMetricsF(font, painter.device()).elidedText(text, Qt::ElideRight, place.width() + 1);
    painter.drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine, shown);
}

QString counted(int count, const QString& one, const QString& many) {
    return QString("%1 %2").arg(count).arg(count == 1 ? one : many);
}

}  // namespace tallybrook
