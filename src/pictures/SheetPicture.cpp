#include "pictures/Pictures.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>

namespace tallybrook {

namespace {

QString nameOf(const GameFigures& game) {
    return "Game " + game.number + (game.score.isEmpty() ? QString() : ": " + game.score);
}

QString wordsFor(Rank rank) {
    switch (rank) {
        case Rank::High:
            return "High game of the event";
        case Rank::Low:
            return "Low game of the event";
        case Rank::Usual:
            break;
    }
    return {};
}

/// The boxes for the balls of a frame, from 0.
int ballBoxes(std::size_t frame) {
    return frame == kSheetFrames - 1 ? 3 : 2;
}

/// The measures of a score sheet: a frame is as wide as its boxes.
struct Sheet {
    Sheet(const PictureLook& look, double width)
        : box(std::clamp((width - 2 * look.hair()) / kBoxes, 2.1 * look.digit(), 3.2 * look.digit())),
          line(look.lineHeight()),
          framesOfRow(kBoxes * box + look.hair() <= width ? kSheetFrames : kSheetFrames / 2) {}

    static constexpr int kBoxes = 21;
    double box;
    double line;
    std::size_t framesOfRow;  ///< all of them, or half where there is no room

    [[nodiscard]] double frameHeight() const { return 3.4 * line; }
    [[nodiscard]] double rowHeight() const { return frameHeight() + 0.5 * line; }
};

struct SheetFrame {
    std::size_t index;  // from 0
    QString marks;
    std::optional<int> total;
};

/// A frame from its upper left corner: number, a box for each ball, running total.
void drawFrame(QPainter& painter, const SheetFrame& frame, const Sheet& sheet, const PictureLook& look) {
    const int boxes = ballBoxes(frame.index);
    const double width = boxes * sheet.box;
    const double marksTop = sheet.line;
    const double totalTop = 2.1 * sheet.line;
    painter.setPen(QPen(look.line(), look.hair()));
    painter.drawLine(QPointF(0, marksTop), QPointF(width, marksTop));
    for (int box = 1; box < boxes; ++box)
        painter.drawLine(QPointF(box * sheet.box, marksTop), QPointF(box * sheet.box, totalTop));
    painter.drawLine(QPointF(sheet.box, totalTop), QPointF(width, totalTop));
    painter.setPen(QPen(look.quiet(), look.hair()));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0, 0, width, sheet.frameHeight()));
    drawText(painter, {0, 0, width, sheet.line}, Qt::AlignCenter, QString::number(frame.index + 1),
             look.smallFont(), look.quiet());
    const QRectF place(0, marksTop, width, totalTop - marksTop);
    if (frame.marks.size() > boxes)  // nothing that belongs into boxes
        drawText(painter, place, Qt::AlignCenter, frame.marks, look.font(), look.ink());
    const bool isEarlyStrike = boxes == 2 && frame.marks == "X";
    for (int ball = 0; frame.marks.size() <= boxes && ball < frame.marks.size(); ++ball) {
        const double left = (isEarlyStrike ? 1 : ball) * sheet.box;
        drawText(painter, {left, marksTop, sheet.box, place.height()}, Qt::AlignCenter,
                 frame.marks.mid(ball, 1), look.font(), look.ink());
    }
    if (frame.total)
        drawText(painter, {0, totalTop, width, sheet.frameHeight() - totalTop}, Qt::AlignCenter,
                 QString::number(*frame.total), look.boldFont(), look.ink());
}

/// Where the frames stand.
std::vector<Spot> spotsOf(const Sheet& sheet, const PictureLook& look) {
    std::vector<Spot> spots;
    QPointF corner(look.hair(), 0);
    for (std::size_t frame = 0; frame < kSheetFrames; ++frame) {
        if (frame == sheet.framesOfRow)
            corner = {look.hair(), sheet.rowHeight()};
        const double width = ballBoxes(frame) * sheet.box;
        spots.push_back({QRectF(corner, QSizeF(width, sheet.frameHeight())), frame});
        corner.rx() += width;
    }
    return spots;
}

Strip sheetStrip(const SheetMarks& marks, const PictureLook& look, double width) {
    const Sheet sheet(look, width);
    const double rows = static_cast<double>(kSheetFrames) / static_cast<double>(sheet.framesOfRow);
    return {rows * sheet.rowHeight() + sheet.line / 2,
            [marks, totals = totalsOf(marks), sheet, &look](QPainter& painter) {
                painter.save();
                painter.translate(look.hair(), 0);
                double left = 0;
                for (std::size_t frame = 0; frame < kSheetFrames; ++frame) {
                    if (frame == sheet.framesOfRow) {
                        painter.translate(-left, sheet.rowHeight());
                        left = 0;
                    }
                    drawFrame(painter, {frame, marks[frame], totals[frame]}, sheet, look);
                    painter.translate(ballBoxes(frame) * sheet.box, 0);
                    left += ballBoxes(frame) * sheet.box;
                }
                painter.restore();
            },
            spotsOf(sheet, look)};
}

QString headingOf(const GameFigures& game, Rank rank) {
    return nameOf(game) + (rank == Rank::Usual ? QString() : " \u2013 " + wordsFor(rank));
}

constexpr const char* kNoFrames = "There are no frames in the report.";

Strips stripsOf(const GameFigures& game, Rank rank, const PictureLook& look, double width) {
    Strip below = game.frames ? sheetStrip(*game.frames, look, width) : noteStrip(kNoFrames, look, width);
    return {underHeading(headingOf(game, rank), std::move(below), look, width)};
}

QString framesTold(const SheetMarks& marks) {
    const SheetTotals totals = totalsOf(marks);
    QStringList told;
    for (std::size_t frame = 0; frame < kSheetFrames; ++frame) {
        if (marks[frame].isEmpty())
            continue;
        const QString total = totals[frame] ? QString(", total %1").arg(*totals[frame]) : QString();
        told += QString("Frame %1: %2").arg(frame + 1).arg(marks[frame]) + total;
    }
    return told.join(". ");
}

PictureTable tableOf(const GameFigures& game) {
    PictureTable table{{"Frame", "Marks", "Total", "Left"}, {}};
    const SheetMarks marks = game.frames.value_or(SheetMarks());
    const SheetTotals totals = totalsOf(marks);
    for (std::size_t frame = 0; frame < kSheetFrames; ++frame)
        table.rows.push_back({QString("Frame %1").arg(frame + 1), marks[frame],
                              totals[frame] ? QString::number(*totals[frame]) : QString(),
                              game.leaves[frame]});
    return table;
}

}  // namespace

ReportPicture sheetPicture(const GameFigures& game, Rank rank) {
    QStringList told{wordsFor(rank), game.frames ? framesTold(*game.frames) : QString(kNoFrames)};
    told.removeAll(QString());
    return {nameOf(game), told.join(". "),
            [game, rank](const PictureLook& look, double width, const PictureView&) {
                return stripsOf(game, rank, look, width);
            },
            [game](const PictureView&) { return tableOf(game); }};
}

}  // namespace tallybrook
