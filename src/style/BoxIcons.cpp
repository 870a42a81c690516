#include "style/BoxIcons.h"

#include <QFont>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

enum class Shape { Disc, Triangle };

struct BoxIcon {
    QStyle::StandardPixmap picture;
    const char* desktopName;  // of the icon that a desktop may have
    Shape shape;
    QRgb ground;
    QRgb ink;
    char16_t sign;
};

constexpr QRgb kWhite = qRgb(255, 255, 255);
constexpr QRgb kBlue = qRgb(32, 110, 140);

constexpr std::array<BoxIcon, 4> kIcons{{
    {QStyle::SP_MessageBoxQuestion, "dialog-question", Shape::Disc, kBlue, kWhite, u'?'},
    {QStyle::SP_MessageBoxInformation, "dialog-information", Shape::Disc, kBlue, kWhite, u'i'},
    {QStyle::SP_MessageBoxWarning, "dialog-warning", Shape::Triangle, qRgb(244, 190, 60), qRgb(30, 30, 30),
     u'!'},
    {QStyle::SP_MessageBoxCritical, "dialog-error", Shape::Disc, qRgb(190, 40, 40), kWhite, u'\u00d7'},
}};

/// The shape in a square of one by one, with a little room around it.
QPainterPath pathOf(Shape shape) {
    QPainterPath path;
    if (shape == Shape::Disc)
        path.addEllipse(QRectF(0.04, 0.04, 0.92, 0.92));
    else
        path.addPolygon(QPolygonF({{0.5, 0.06}, {0.96, 0.92}, {0.04, 0.92}}));
    path.closeSubpath();
    return path;
}

void draw(const BoxIcon& icon, QPainter& painter, int side) {
    const bool isDisc = icon.shape == Shape::Disc;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.scale(side, side);
    painter.setPen(QPen(QColor(icon.ground), 0.06, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(icon.ground));
    painter.drawPath(pathOf(icon.shape));
    painter.restore();

    QFont font = painter.font();
    font.setPixelSize(side * (isDisc ? 66 : 56) / 100);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(icon.ink));
    const double top = isDisc ? 0 : 0.2 * side;  // a triangle has its room below
    painter.drawText(QRectF(0, top, side, side - top), Qt::AlignCenter, QString(QChar(icon.sign)));
}

/// Draws an icon in the sizes that are asked for, and in no others: each takes a font of its own.
class BoxIconEngine : public QIconEngine {
public:
    explicit BoxIconEngine(const BoxIcon& icon) : icon_(icon) {}

    [[nodiscard]] QIconEngine* clone() const override { return new BoxIconEngine(icon_); }
    void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
        painter->save();
        painter->translate(place.topLeft());
        draw(icon_, *painter, std::min(place.width(), place.height()));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

private:
    const BoxIcon& icon_;
};

}  // namespace

QIcon boxIcon(QStyle::StandardPixmap picture) {
    const auto* const found = std::ranges::find(kIcons, picture, &BoxIcon::picture);
    if (found == kIcons.end() || QIcon::hasThemeIcon(found->desktopName))
        return {};
    return QIcon(new BoxIconEngine(*found));
}

}  // namespace tallybrook
