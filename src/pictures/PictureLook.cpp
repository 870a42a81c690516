#include "pictures/PictureLook.h"

#include "style/Colours.h"

#include <QFontInfo>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr double kReadable = 4.5;  // the contrast of texts

QFont changed(QFont font, double scale, bool isBold) {
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale);
    font.setBold(isBold);
    return font;
}

QFontMetricsF metricsOf(const QFont& font, const QPaintDevice* device) {
    return device == nullptr ? QFontMetricsF(font) : QFontMetricsF(font, device);
}

/// A colour brought nearer to the ink until it stands out from the ground.
QColor standingOut(const QColor& colour, const QColor& ink, const QColor& ground, double wanted) {
    constexpr double kStep = 0.05;
    QColor found = colour;
    for (double share = kStep; contrast(found, ground) < wanted && share < 1 + kStep; share += kStep)
        found = between(colour, ink, std::min(share, 1.0));
    return found;
}

}  // namespace

QPalette paperPalette() {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

PictureLook::PictureLook(const QFont& font, const QPalette& palette, const QPaintDevice* device)
    : font_(font),
      boldFont_(changed(font, 1, true)),
      headingFont_(changed(font, 1.2, true)),
      smallFont_(changed(font, 0.85, false)),
      ground_(palette.color(QPalette::Active, QPalette::Base)),
      ink_(palette.color(QPalette::Active, QPalette::Text)),
      quiet_(standingOut(between(ground_, ink_, 0.6), ink_, ground_, kReadable)),
      line_(between(ground_, ink_, 0.45)),
      fill_(standingOut(QColor(32, 122, 148), ink_, ground_, kReadable)),
      mark_(standingOut(between(ground_, ink_, 0.4), ink_, ground_, kShapeContrast)),
      metrics_(metricsOf(font_, device)),
      boldMetrics_(metricsOf(boldFont_, device)),
      headingMetrics_(metricsOf(headingFont_, device)),
      lineHeight_(1.15 * metrics_.height()),
      hair_(std::max(metrics_.height() / 16, 1.0)) {}

double PictureLook::widthOf(const QString& text, bool isBold) const {
    return (isBold ? boldMetrics_ : metrics_).horizontalAdvance(text);
}

double PictureLook::heightOf(const QString& text, double width, Text kind) const {
    const QFontMetricsF& metrics = kind == Text::Heading ? headingMetrics_ : metrics_;
    return metrics.boundingRect(QRectF(0, 0, width, 0), Qt::TextWordWrap, text).height();
}

}  // namespace tallybrook
