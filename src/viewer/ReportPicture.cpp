#include "viewer/ReportPicture.h"

#include <QPainter>
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

Strip underHeading(const QString& heading, Strip strip, const PictureLook& look, double width) {
    const QRectF place(0, 0, width, look.heightOf(heading, width, PictureLook::Text::Heading));
    const double above = place.height() + 0.6 * look.lineHeight();
    const auto draw = [heading, &look, place, above, below = std::move(strip.draw)](QPainter& painter) {
        drawWrapped(painter, place, heading, look.headingFont(), look.ink());
        painter.translate(0, above);
        below(painter);
        painter.translate(0, -above);
    };
    return {above + strip.height, draw};
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
