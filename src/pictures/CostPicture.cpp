#include "pictures/Pictures.h"
#include "pictures/RackCards.h"

#include <QPainter>
#include <algorithm>
#include <numeric>

namespace tallybrook {

namespace {

constexpr const char* kCostsHeading = "Where the pins went";
constexpr const char* kLeaveCostsHeading = "Leaves that cost most";

using FrameCosts = std::array<int, kFrames>;

/// A row of the picture: a game, or all of them together.
struct CostRow {
    QString name;
    QString words;
    FrameCosts lost;
};

int sumOf(const FrameCosts& lost) {
    return std::accumulate(lost.begin(), lost.end(), 0);
}

QString pinsTold(int pins) {
    return counted(pins, "pin", "pins");
}

/// A game with its costs, which are there.
struct SettledGame {
    GameFigures figures;
    GameCosts costs;
};

std::vector<SettledGame> settledGames(const std::vector<GameFigures>& games) {
    const std::vector<RecordedGame> recorded = recordedGames(games);
    std::vector<SettledGame> settled;
    for (std::size_t game = 0; game < games.size(); ++game) {
        if (const auto costs = costsOf(recorded[game].cells))
            settled.push_back({games[game], *costs});
    }
    return settled;
}

CostRow rowOf(const SettledGame& game) {
    const GameCosts& costs = game.costs;
    return {"Game " + game.figures.number,
            QString("%1 of %2, %3 lost")
                .arg(costs.score)
                .arg(costs.cleanScore())
                .arg(pinsTold(sumOf(costs.lost))),
            costs.lost};
}

CostRow rowOfAll(const std::vector<SettledGame>& games) {
    FrameCosts lost{};
    for (const SettledGame& game : games)
        std::ranges::transform(lost, game.costs.lost, lost.begin(), std::plus());
    const double perGame = static_cast<double>(sumOf(lost)) / static_cast<double>(games.size());
    return {"All games",
            QString("%1 lost, %2 a game").arg(pinsTold(sumOf(lost)), QString::number(perGame, 'f', 1)), lost};
}

std::vector<CostRow> rowsOf(const std::vector<SettledGame>& games) {
    std::vector<CostRow> rows;
    rows.reserve(games.size() + 1);
    for (const SettledGame& game : games)
        rows.push_back(rowOf(game));
    if (games.size() > 1)
        rows.push_back(rowOfAll(games));
    return rows;
}

// --- Drawing -----------------------------------------------------------------------------------------------

/// The measures of a row of frames.
struct FrameColumns {
    FrameColumns(const PictureLook& look, double width)
        : line(look.lineHeight()), frame(std::min(width / kFrames, 6 * look.digit())), bar(1.6 * line) {}

    double line;
    double frame;  ///< the width of one
    double bar;    ///< the height of the longest

    [[nodiscard]] QRectF place(std::size_t number) const {
        return {static_cast<double>(number) * frame, line, frame, 2 * line + bar};
    }
    [[nodiscard]] double height() const { return 3.6 * line + bar; }
};

/// A frame from the top of its place: what it cost above its bar, and its number below.
void drawCost(QPainter& painter, std::size_t number, const CostRow& row, const FrameColumns& columns,
              const PictureLook& look) {
    const int cost = row.lost[number];
    const int most = std::max(*std::ranges::max_element(row.lost), 1);
    const QRectF place = columns.place(number);
    const double height = columns.bar * cost / most;
    const double floor = place.bottom() - columns.line;
    painter.fillRect(QRectF(place.left(), floor, place.width(), look.hair()), look.line());
    painter.fillRect(QRectF(place.left() + 0.2 * place.width(), floor - height, 0.6 * place.width(), height),
                     look.fill());
    if (cost > 0)
        drawText(painter, {place.left(), floor - height - columns.line, place.width(), columns.line},
                 Qt::AlignCenter, QString::number(cost), cost == most ? look.boldFont() : look.font(),
                 look.ink());
    drawText(painter, {place.left(), floor, place.width(), columns.line}, Qt::AlignCenter,
             QString::number(number + 1), look.smallFont(), look.quiet());
}

void drawRow(QPainter& painter, const CostRow& row, const FrameColumns& columns, const PictureLook& look,
             double width) {
    const double name = look.widthOf(row.name + "  ", true);
    constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
    drawText(painter, {0, 0, name, columns.line}, kLeft, row.name, look.boldFont(), look.ink());
    drawText(painter, {name, 0, width - name, columns.line}, kLeft, row.words, look.font(), look.ink());
    for (std::size_t frame = 0; frame < kFrames; ++frame)
        drawCost(painter, frame, row, columns, look);
}

Strip rowStrip(const CostRow& row, std::size_t index, const PictureLook& look, double width) {
    const FrameColumns columns(look, width);
    std::vector<Spot> spots;
    for (std::size_t frame = 0; frame < kFrames; ++frame)
        spots.push_back({columns.place(frame), index * kFrames + frame});
    return {columns.height(),
            [row, columns, &look, width](QPainter& painter) { drawRow(painter, row, columns, look, width); },
            spots};
}

constexpr const char* kCostsNote =
    "Against the same balls with every spare made. A frame's number stands below its bar.";

Strips stripsOf(const std::vector<CostRow>& rows, const PictureLook& look, double width) {
    Strips strips;
    for (const CostRow& row : rows)
        strips.push_back(rowStrip(row, strips.size(), look, width));
    strips.front() = underHeading(kCostsHeading, strips.front(), look, width);
    strips.push_back(noteStrip(kCostsNote, look, width));
    return strips;
}

// --- In words ----------------------------------------------------------------------------------------------

PictureTable tableOf(const std::vector<SettledGame>& games, const std::vector<CostRow>& rows) {
    PictureTable table{{"Frame", "Pins lost", "Marks", "Left"}, {}};
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const GameFigures figures = row < games.size() ? games[row].figures : GameFigures();
        const SheetMarks marks = figures.frames.value_or(SheetMarks());
        for (std::size_t frame = 0; frame < kFrames; ++frame)
            table.rows.push_back({QString("%1, frame %2").arg(rows[row].name).arg(frame + 1),
                                  QString::number(rows[row].lost[frame]), marks[frame],
                                  figures.leaves[frame]});
    }
    return table;
}

QString toldOf(const CostRow& row) {
    QStringList frames;
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        if (row.lost[frame] > 0)
            frames += QString("frame %1: %2").arg(frame + 1).arg(row.lost[frame]);
    }
    return QString("%1: %2").arg(row.name, row.words) +
           (frames.isEmpty() ? QString() : " (" + frames.join(", ") + ")");
}

RackCards cardsOf(const std::vector<LeaveCost>& leaves) {
    RackCards cards;
    const int most = leaves.front().pins;
    for (const LeaveCost& leave : leaves) {
        const std::optional<Pins> standing = readPins(leave.leave);
        cards.push_back({nameOfLeave(QString::fromStdString(leave.leave), standing), standing,
                         counted(leave.frames, "miss", "misses"), static_cast<double>(leave.pins) / most,
                         QString::number(leave.pins)});
    }
    return cards;
}

}  // namespace

std::vector<RecordedGame> recordedGames(const std::vector<GameFigures>& games) {
    const auto cellsOf = [](const SheetMarks& marks) {
        Cells cells;
        std::ranges::transform(marks, cells.begin(), &QString::toStdString);
        return cells;
    };
    std::vector<RecordedGame> recorded;
    recorded.reserve(games.size());
    for (const GameFigures& game : games)
        recorded.push_back({cellsOf(game.frames.value_or(SheetMarks())), cellsOf(game.leaves)});
    return recorded;
}

ReportPicture costsPicture(const std::vector<GameFigures>& games) {
    const std::vector<SettledGame> settled = settledGames(games);
    const std::vector<CostRow> rows = rowsOf(settled);
    QStringList told;
    for (const CostRow& row : rows)
        told += toldOf(row);
    return {kCostsHeading, told.join(". ") + ".",
            [rows](const PictureLook& look, double width, const PictureView&) {
                return stripsOf(rows, look, width);
            },
            [settled, rows](const PictureView&) { return tableOf(settled, rows); }};
}

ReportPicture leaveCostsPicture(const std::vector<LeaveCost>& leaves) {
    const RackCards cards = cardsOf(leaves);
    PictureTable table{{"Pins", "Pins lost", "Misses"}, {}};
    QStringList told;
    for (std::size_t leave = 0; leave < leaves.size(); ++leave) {
        table.rows.push_back({cards[leave].name, cards[leave].rate, QString::number(leaves[leave].frames)});
        told += QString("%1: %2 lost, %3")
                    .arg(cards[leave].name, pinsTold(leaves[leave].pins), cards[leave].line);
    }
    return {kLeaveCostsHeading, told.join(". ") + ".",
            [cards](const PictureLook& look, double width, const PictureView&) {
                Strips strips = cardStrips(kLeaveCostsHeading, cards, look, width);
                strips.push_back(noteStrip("The bars and their numbers are the pins lost.", look, width));
                return strips;
            },
            [table](const PictureView&) { return table; }};
}

}  // namespace tallybrook
