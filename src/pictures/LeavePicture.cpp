#include "pictures/Pictures.h"
#include "pictures/RackCards.h"

#include <QStringList>
#include <cmath>

namespace tallybrook {

namespace {

constexpr const char* kLeavesHeading = "Spares, by attempts";

QString nameOf(const LeaveFigures& leave) {
    return nameOfLeave(leave.pins, leave.standing);
}

double shareOf(const LeaveFigures& leave) {
    return leave.attempts > 0 ? static_cast<double>(leave.made) / leave.attempts : 0;
}

QString percentOf(const LeaveFigures& leave) {
    return QString("%1%").arg(std::lround(100 * shareOf(leave)));
}

RackCards cardsOf(const std::vector<LeaveFigures>& leaves) {
    RackCards cards;
    for (const LeaveFigures& leave : leaves)
        cards.push_back({nameOf(leave), leave.standing, counted(leave.attempts, "attempt", "attempts"),
                         shareOf(leave), percentOf(leave)});
    return cards;
}

PictureTable tableOf(const std::vector<LeaveFigures>& leaves) {
    PictureTable table{{"Pins", "Attempts", "Made", "Share"}, {}};
    for (const LeaveFigures& leave : leaves)
        table.rows.push_back(
            {nameOf(leave), QString::number(leave.attempts), QString::number(leave.made), percentOf(leave)});
    return table;
}

}  // namespace

ReportPicture leavesPicture(const std::vector<LeaveFigures>& leaves) {
    QStringList told;
    for (const LeaveFigures& leave : leaves)
        told += QString("%1: %2, %3 made, %4")
                    .arg(nameOf(leave), counted(leave.attempts, "attempt", "attempts"))
                    .arg(leave.made)
                    .arg(percentOf(leave));
    return {kLeavesHeading, told.join(". "),
            [cards = cardsOf(leaves)](const PictureLook& look, double width, const PictureView&) {
                return cardStrips(kLeavesHeading, cards, look, width);
            },
            [leaves](const PictureView&) { return tableOf(leaves); }};
}

}  // namespace tallybrook
