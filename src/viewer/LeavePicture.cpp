#include "viewer/Pictures.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace tallybrook {

namespace {

constexpr const char* kHeading = "Spares, by attempts";

/// The measures of a leave's card.
struct Card {
    explicit Card(const PictureLook& look)
        : pin(2.3 * look.digit()),
          rack(4 * pin + 3 * look.hair()),
          width(std::max(rack, look.widthOf("1000 attempts"))),
          gap(2 * look.digit()),
          rackHeight(3.75 * pin),
          height(rackHeight + 4 * look.lineHeight()) {}

    double pin;
    double rack;
    double width;
    double gap;  ///< to the next card
    double rackHeight;
    double height;
};

QString nameOf(const LeaveFigures& leave) {
    if (leave.pins.isEmpty())
        return "Not recorded";
    return leave.standing == Pins::all() ? "All ten pins" : leave.pins;
}

QString percentOf(const LeaveFigures& leave) {
    const double share = leave.attempts > 0 ? static_cast<double>(leave.made) / leave.attempts : 0;
    return QString("%1%").arg(std::lround(100 * share));
}

/// A standing pin is a full disc with its number, one that is down a small ring.
void drawPin(QPainter& painter, const QRectF& place, int pin, bool isStanding, const PictureLook& look) {
    painter.setPen(QPen(isStanding ? look.ink() : look.line(), look.hair()));
    painter.setBrush(isStanding ? QBrush(look.ink()) : QBrush(Qt::NoBrush));
    if (!isStanding) {
        painter.drawEllipse(place.center(), 0.2 * place.width(), 0.2 * place.width());
        return;
    }
    painter.drawEllipse(place.center(), 0.46 * place.width(), 0.46 * place.width());
    QFont number = look.smallFont();
    number.setBold(true);
    drawText(painter, place, Qt::AlignCenter, QString::number(pin), number, look.ground());
}

void drawRack(QPainter& painter, Pins standing, const Card& card, const PictureLook& look) {
    double top = 0;
    for (const std::vector<int>& row : rackRows()) {
        double left = (card.width - static_cast<double>(row.size()) * card.pin) / 2;
        for (const int pin : row) {
            drawPin(painter, {left, top, card.pin, card.pin}, pin, standing.has(pin), look);
            left += card.pin;
        }
        top += 0.88 * card.pin;
    }
}

/// How many of the attempts were made, as a bar with the percentage beside it.
void drawRate(QPainter& painter, const LeaveFigures& leave, double top, const Card& card,
              const PictureLook& look) {
    const double percent = look.widthOf("100% ");
    const double height = look.lineHeight();
    const QRectF bar(look.hair(), top + 0.3 * height, card.width - percent - look.digit(), 0.4 * height);
    const double share = leave.attempts > 0 ? static_cast<double>(leave.made) / leave.attempts : 0;
    painter.fillRect(QRectF(bar.topLeft(), QSizeF(share * bar.width(), bar.height())), look.fill());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look.fill(), look.hair()));
    painter.drawRect(bar);
    drawText(painter, {card.width - percent, top, percent, height}, Qt::AlignRight | Qt::AlignVCenter,
             percentOf(leave), look.font(), look.ink());
}

void drawCard(QPainter& painter, const LeaveFigures& leave, const Card& card, const PictureLook& look) {
    const double line = look.lineHeight();
    if (leave.standing)
        drawRack(painter, *leave.standing, card, look);
    const auto write = [&](double top, const QString& text, const QFont& font) {
        drawText(painter, {0, card.rackHeight + top, card.width, line}, Qt::AlignCenter, text, font,
                 look.ink());
    };
    write(0, nameOf(leave), look.boldFont());
    write(line, counted(leave.attempts, "attempt", "attempts"), look.font());
    drawRate(painter, leave, card.rackHeight + 2 * line, card, look);
}

using Row = std::vector<LeaveFigures>;

Strip rowStrip(const Row& row, const Card& card, double step, const PictureLook& look) {
    return {card.height, [row, card, step, &look](QPainter& painter) {
                painter.save();
                for (const LeaveFigures& leave : row) {
                    drawCard(painter, leave, card, look);
                    painter.translate(step, 0);
                }
                painter.restore();
            }};
}

Strips stripsOf(const std::vector<LeaveFigures>& leaves, const PictureLook& look, double width) {
    const Card card(look);
    const auto perRow = std::max(static_cast<std::ptrdiff_t>((width + card.gap) / (card.width + card.gap)),
                                 std::ptrdiff_t{1});
    const double step = std::min(width / static_cast<double>(perRow), card.width + 3 * card.gap);
    Strips strips;
    for (auto first = leaves.begin(); first != leaves.end();) {
        const auto end = first + std::min(perRow, leaves.end() - first);
        strips.push_back(rowStrip(Row(first, end), card, step, look));
        first = end;
    }
    strips.front() = underHeading(kHeading, strips.front(), look, width);
    return strips;
}

}  // namespace

ReportPicture leavesPicture(const std::vector<LeaveFigures>& leaves) {
    QStringList told;
    for (const LeaveFigures& leave : leaves)
        told += QString("%1: %2, %3 made, %4")
                    .arg(nameOf(leave), counted(leave.attempts, "attempt", "attempts"))
                    .arg(leave.made)
                    .arg(percentOf(leave));
    return {kHeading, told.join(". "),
            [leaves](const PictureLook& look, double width) { return stripsOf(leaves, look, width); }};
}

}  // namespace tallybrook
