#include "pictures/RackCards.h"

#include <QPainter>
#include <algorithm>

namespace tallybrook {

namespace {

/// The measures of a card.
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

/// The share as a bar with its rate beside it.
void drawRate(QPainter& painter, const RackCard& leave, double top, const Card& card,
              const PictureLook& look) {
    const double percent = look.widthOf("100% ");
    const double height = look.lineHeight();
    const QRectF bar(look.hair(), top + 0.3 * height, card.width - percent - look.digit(), 0.4 * height);
    painter.fillRect(QRectF(bar.topLeft(), QSizeF(leave.share * bar.width(), bar.height())), look.fill());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look.fill(), look.hair()));
    painter.drawRect(bar);
    drawText(painter, {card.width - percent, top, percent, height}, Qt::AlignRight | Qt::AlignVCenter,
             leave.rate, look.font(), look.ink());
}

void drawCard(QPainter& painter, const RackCard& leave, const Card& card, const PictureLook& look) {
    const double line = look.lineHeight();
    if (leave.standing)
        drawRack(painter, *leave.standing, card, look);
    const auto write = [&](double top, const QString& text, const QFont& font) {
        drawText(painter, {0, card.rackHeight + top, card.width, line}, Qt::AlignCenter, text, font,
                 look.ink());
    };
    write(0, leave.name, look.boldFont());
    write(line, leave.line, look.font());
    drawRate(painter, leave, card.rackHeight + 2 * line, card, look);
}

Strip rowStrip(const RackCards& row, const Card& card, double step, const PictureLook& look) {
    return {card.height, [row, card, step, &look](QPainter& painter) {
                painter.save();
                for (const RackCard& leave : row) {
                    drawCard(painter, leave, card, look);
                    painter.translate(step, 0);
                }
                painter.restore();
            }};
}

/// The places of the cards in a row, of which the first stands in a row of the table.
std::vector<Spot> spotsOf(const RackCards& row, std::size_t first, const Card& card, double step) {
    std::vector<Spot> spots;
    for (std::size_t index = 0; index < row.size(); ++index) {
        const QRectF place(static_cast<double>(index) * step, 0, card.width, card.height - card.pin);
        spots.push_back({place, first + index});
    }
    return spots;
}

}  // namespace

QString nameOfLeave(const QString& pins, const std::optional<Pins>& standing) {
    if (pins.isEmpty())
        return "Not recorded";
    return standing == Pins::all() ? "All ten pins" : pins;
}

Strips cardStrips(const QString& heading, const RackCards& cards, const PictureLook& look, double width) {
    const Card card(look);
    const auto perRow = std::max(static_cast<std::ptrdiff_t>((width + card.gap) / (card.width + card.gap)),
                                 std::ptrdiff_t{1});
    const double step = std::min(width / static_cast<double>(perRow), card.width + 3 * card.gap);
    Strips strips;
    for (auto first = cards.begin(); first != cards.end();) {
        const auto end = first + std::min(perRow, cards.end() - first);
        const RackCards row(first, end);
        strips.push_back(rowStrip(row, card, step, look));
        strips.back().spots = spotsOf(row, static_cast<std::size_t>(first - cards.begin()), card, step);
        first = end;
    }
    strips.front() = underHeading(heading, strips.front(), look, width);
    return strips;
}

}  // namespace tallybrook
