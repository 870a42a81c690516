#include "pictures/SeasonPictures.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tallybrook {

namespace {

constexpr const char* kAveragesHeading = "Averages side by side";
constexpr auto kLeftMiddle = Qt::AlignLeft | Qt::AlignVCenter;

/// Where the parts of a season's line stand.
struct SeasonLine {
    SeasonLine(const PictureLook& look, double width, double text)
        : number(2.5 * look.digit()),
          track(std::clamp(width - number - text - look.digit(), 6 * look.digit(), 60 * look.digit())) {}

    double number;
    double track;

    [[nodiscard]] double placeOf(double share) const { return number + share * track; }
    [[nodiscard]] double text(const PictureLook& look) const { return number + track + look.digit(); }
};

QString shareText(const Proportion& counted) {
    if (counted.attempts <= 0)
        return "not told";
    return QString("%1%  %2 of %3")
        .arg(std::lround(100 * counted.share()))
        .arg(counted.made)
        .arg(counted.attempts);
}

/// The season's number, a line for the interval, a disc for the share: filled for the last season alone.
void drawSeason(QPainter& painter, const Proportion& counted, std::size_t season, bool isLast,
                const SeasonLine& place, const PictureLook& look, double width) {
    const double line = look.lineHeight();
    const double middle = line / 2;
    drawText(painter, {0, 0, place.number, line}, kLeftMiddle, QString::number(season + 1), look.font(),
             look.quiet());
    painter.setPen(QPen(look.line(), look.hair()));
    painter.drawLine(QPointF(place.placeOf(0), middle), QPointF(place.placeOf(1), middle));
    if (counted.attempts > 0) {
        const Interval interval = intervalOf(counted);
        painter.setPen(QPen(look.fill(), 3 * look.hair()));
        painter.drawLine(QPointF(place.placeOf(interval.low), middle),
                         QPointF(place.placeOf(interval.high), middle));
        painter.setPen(QPen(look.fill(), 1.5 * look.hair()));
        painter.setBrush(isLast ? look.fill() : look.ground());
        painter.drawEllipse(QPointF(place.placeOf(counted.share()), middle), 0.28 * line, 0.28 * line);
    }
    drawText(painter, {place.text(look), 0, width - place.text(look), line}, kLeftMiddle, shareText(counted),
             look.font(), look.ink());
}

void drawWords(QPainter& painter, const QRectF& place, const QString& text, const PictureLook& look) {
    painter.setFont(look.font());
    painter.setPen(look.quiet());
    painter.drawText(place, Qt::TextWordWrap, text);
}

void drawShares(QPainter& painter, const SharesRow& row, double wordsHeight, const PictureLook& look,
                double width) {
    const double line = look.lineHeight();
    const double name = std::min(look.widthOf(row.name + "   ", true), width);
    drawText(painter, {0, 0, name, line}, kLeftMiddle, row.name, look.boldFont(), look.ink());
    drawText(painter, {name, 0, width - name, line}, kLeftMiddle, row.change, look.boldFont(), look.ink());
    drawWords(painter, {0, line, width, wordsHeight}, row.words, look);
    const SeasonLine place(look, width, look.widthOf("100%  1000 of 1000", false));
    painter.save();
    painter.translate(0, line + wordsHeight);
    for (std::size_t season = 0; season < row.seasons.size(); ++season) {
        drawSeason(painter, row.seasons[season], season, season + 1 == row.seasons.size(), place, look,
                   width);
        painter.translate(0, line);
    }
    painter.restore();
}

Strip sharesStrip(const SharesRow& row, std::size_t index, const PictureLook& look, double width) {
    const double words = look.heightOf(row.words, width, PictureLook::Text::Usual) + 0.2 * look.lineHeight();
    const double height = (1 + static_cast<double>(row.seasons.size())) * look.lineHeight() + words;
    return {height + 0.8 * look.lineHeight(),
            [row, words, &look, width](QPainter& painter) { drawShares(painter, row, words, look, width); },
            {{QRectF(0, 0, width - look.hair(), height), index}}};
}

void addNames(const QStringList& names, const PictureLook& look, double width, Strips& strips) {
    for (qsizetype season = 0; season < names.size(); ++season)
        strips.push_back(noteStrip(QString("%1: %2").arg(season + 1).arg(names[season]), look, width));
}

Strips sharesStrips(const SharesShown& shown, const PictureLook& look, double width) {
    Strips strips;
    for (const SharesRow& row : shown.rows)
        strips.push_back(sharesStrip(row, strips.size(), look, width));
    strips.front() = underHeading(shown.heading, strips.front(), look, width);
    strips.push_back(noteStrip("The thick line is where chance alone may put a share, in nine of ten cases.",
                               look, width));
    addNames(shown.names, look, width, strips);
    return strips;
}

// --- Averages ----------------------------------------------------------------------------------------------

QString averageText(const PinsOverGames& total) {
    return QString::number(total.average(), 'f', 1) + "  " +
           counted(static_cast<int>(total.games), "game", "games");
}

Strip averageStrip(const std::vector<PinsOverGames>& totals, std::size_t season, const PictureLook& look,
                   double width) {
    const double most = std::max(std::ranges::max(totals, {}, &PinsOverGames::average).average(), 1.0);
    const double share = totals[season].average() / most;
    const QString text = averageText(totals[season]);
    const SeasonLine place(look, width, look.widthOf("200.0  1000 games", true));
    return {1.3 * look.lineHeight(),
            [season, share, text, place, &look, width](QPainter& painter) {
                const double line = look.lineHeight();
                drawText(painter, {0, 0, place.number, line}, kLeftMiddle, QString::number(season + 1),
                         look.font(), look.quiet());
                painter.fillRect(QRectF(place.number, 0.1 * line, share * place.track, 0.8 * line),
                                 look.fill());
                drawText(painter, {place.text(look), 0, width - place.text(look), line}, kLeftMiddle, text,
                         look.boldFont(), look.ink());
            },
            {{QRectF(0, 0, width - look.hair(), look.lineHeight()), season}}};
}

}  // namespace

ReportPicture averagesPicture(const std::vector<PinsOverGames>& totals, const QStringList& names) {
    PictureTable table{{"Report", "Average", "Games", "Pinfall"}, {}};
    QStringList told;
    for (std::size_t season = 0; season < totals.size(); ++season) {
        const QString name = names.value(static_cast<qsizetype>(season));
        table.rows.push_back({name, QString::number(totals[season].average(), 'f', 1),
                              QString::number(totals[season].games), QString::number(totals[season].pins)});
        told += QString("%1: %2").arg(name, averageText(totals[season]));
    }
    return {kAveragesHeading, told.join(". ") + ".",
            [totals, names](const PictureLook& look, double width, const PictureView&) {
                Strips strips;
                for (std::size_t season = 0; season < totals.size(); ++season)
                    strips.push_back(averageStrip(totals, season, look, width));
                strips.front() = underHeading(kAveragesHeading, strips.front(), look, width);
                addNames(names, look, width, strips);
                return strips;
            },
            [table](const PictureView&) { return table; }};
}

ReportPicture sharesPicture(const SharesShown& shown, const QString& summary, const PictureTable& table) {
    return {shown.heading, summary,
            [shown](const PictureLook& look, double width, const PictureView&) {
                return sharesStrips(shown, look, width);
            },
            [table](const PictureView&) { return table; }};
}

}  // namespace tallybrook
