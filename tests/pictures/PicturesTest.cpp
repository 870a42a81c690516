#include "pictures/Pictures.h"
#include "readers/Golden.h"
#include "readers/Mutations.h"
#include "style/Colours.h"
#include "support/Drawing.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

QPalette paletteOf(const QColor& ground, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    return palette;
}

const std::vector<QPalette>& palettes() {
    static const std::vector<QPalette> all{
        paletteOf(Qt::white, Qt::black), paletteOf({239, 240, 241}, {35, 38, 41}),
        paletteOf({27, 30, 32}, {252, 252, 252}), paletteOf(Qt::black, Qt::yellow),
        paletteOf({253, 246, 227}, {88, 110, 117})};
    return all;
}

QFont fontOf(double scale) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * scale);
    return font;
}

std::vector<ReportPicture> picturesIn(const QString& report) {
    return picturesOf(readFigures(report));
}

/// What the picture of a name tells in words.
QString summaryOf(const std::vector<ReportPicture>& pictures, const QString& name) {
    const auto found = std::ranges::find(pictures, name, &ReportPicture::name);
    return found == pictures.end() ? QString() : found->summary;
}

QStringList namesOf(const std::vector<ReportPicture>& pictures) {
    QStringList names;
    for (const ReportPicture& picture : pictures)
        names += picture.name;
    return names;
}

/// Draws a picture on a ground that is wider than it on both sides.
QImage drawn(const ReportPicture& picture, const PictureLook& look, int width, int beside) {
    const Strips strips = picture.strips(look, width);
    double height = 0;
    for (const Strip& strip : strips)
        height += strip.height;
    QImage image(width + 2 * beside, static_cast<int>(height) + 1, QImage::Format_RGB32);
    image.fill(look.ground());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(beside, 0);
    for (const Strip& strip : strips) {
        strip.draw(painter);
        painter.translate(0, strip.height);
    }
    return image;
}

bool isEmpty(const QImage& image, const QColor& ground) {
    QImage blank(image.size(), image.format());
    blank.fill(ground);
    return image == blank;
}

}  // namespace

// --- Which pictures ----------------------------------------------------------------------------------------

TEST(Pictures, ComeInTheOrderOfTheText) {
    EXPECT_EQ(namesOf(picturesIn(goldenReport("statistics.txt"))),
              (QStringList{"Averages over time", "The year at a glance", "Scores of the games",
                           "High and low series", "Strikes, spares and open frames", "Spares, by attempts"}));
    EXPECT_EQ(namesOf(picturesIn(goldenReport("full.txt"))),
              (QStringList{"Game 1: 118", "Game 2: 117", "Where the pins went", "Leaves that cost most",
                           "Strikes, spares and open frames", "Spares, by attempts"}));
    EXPECT_EQ(namesOf(picturesIn(kGameReport)), (QStringList{"Game 2: 117", "Where the pins went"}));
    EXPECT_EQ(namesOf(picturesIn("no report")), QStringList());
}

TEST(Pictures, TellAllInWords) {
    const std::vector<ReportPicture> pictures = picturesIn(goldenReport("statistics.txt"));
    EXPECT_EQ(
        summaryOf(pictures, "Scores of the games"),
        "Under 100: 1 game. 100 - 119: 8 games. 120 - 139: 11 games. 140 - 159: 5 games. 160 - 179: 6 games. "
        "High game 172 on 10/23/2024, Low game 99 on 11/21/2024");
    EXPECT_TRUE(summaryOf(pictures, "High and low series")
                    .endsWith("Series of 6 games: high 867 on 10/23/2024, low 843 on 11/7/2024"));
    EXPECT_EQ(summaryOf(pictures, "Strikes, spares and open frames"),
              "Strikes: 25, 9% (9.2% of first balls). Spares: 47, 18% (19.4% of spare chances). Open frames: "
              "195, 73%. "
              "Frames recorded as line scores count as open. Single pin spares: 30 of 90 made. "
              "First ball average: 7 pins.");
    EXPECT_TRUE(summaryOf(pictures, "Spares, by attempts")
                    .startsWith("All ten pins: 12 attempts, 6 made, 50%. 2: 8 attempts, 2 made, 25%. "
                                "8: 8 attempts, 2 made, 25%. 6: 8 attempts"));
}

TEST(Pictures, SheetsTellHighAndLowInWords) {
    const std::vector<ReportPicture> pictures = picturesIn(goldenReport("full.txt"));
    EXPECT_EQ(pictures[0].summary, "High game of the event. There are no frames in the report.");
    EXPECT_TRUE(pictures[1].summary.startsWith(
        "Low game of the event. Frame 1: 81, total 9. Frame 2: 0/, total 27. "));
    EXPECT_TRUE(pictures[1].summary.endsWith("Frame 10: 90, total 117"));
    EXPECT_TRUE(
        picturesIn(kGameReport)[0].summary.startsWith("Frame 1: 81, total 9. "));  // alone it is neither
}

TEST(Pictures, NothingCountedIsNothing) {
    const StrikeFigures none{0, "0", 0, "0", 0, 0, {}, {}};
    EXPECT_EQ(strikesPicture(none).summary,
              "Strikes: 0, 0% (0% of first balls). Spares: 0, 0% (0% of spare chances). Open frames: 0, 0%.");
    EXPECT_EQ(leavesPicture({{"", std::nullopt, 0, 0}}).summary, "Not recorded: 0 attempts, 0 made, 0%");
    EXPECT_EQ(leavesPicture({{"", std::nullopt, 0, 3}}).summary, "Not recorded: 0 attempts, 3 made, 0%");
}

// --- How they look -----------------------------------------------------------------------------------------

TEST(Pictures, TextsStandOutFromTheGround) {
    for (const QPalette& palette : palettes()) {
        const PictureLook look(fontOf(1), palette);
        EXPECT_GE(contrast(look.ink(), look.ground()), 4.5);
        EXPECT_GE(contrast(look.quiet(), look.ground()), 4.5);
        EXPECT_GE(contrast(look.fill(), look.ground()), 4.5);
    }
}

TEST(Pictures, KeepWithinTheirWidthInEverySize) {
    constexpr int kBeside = 200;
    for (const char* const report : {"statistics.txt", "full.txt"}) {
        for (const double scale : {0.5, 1.0, 2.0}) {
            const PictureLook look(fontOf(scale), palettes().front());
            for (const double share : {1.0, 1.5, 3.0}) {
                const int width = static_cast<int>(look.leastWidth() * share) + 1;
                for (const ReportPicture& picture : picturesIn(goldenReport(report))) {
                    const QImage image = drawn(picture, look, width, kBeside);
                    const QString where = picture.name + QString(" at %1, %2").arg(scale).arg(share);
                    const QRect left(0, 0, kBeside - 1, image.height());
                    const QRect right(kBeside + width + 1, 0, kBeside - 1, image.height());
                    EXPECT_TRUE(isEmpty(image.copy(left), look.ground())) << where.toStdString();
                    EXPECT_TRUE(isEmpty(image.copy(right), look.ground())) << where.toStdString();
                    EXPECT_FALSE(isEmpty(image, look.ground())) << where.toStdString();
                }
            }
        }
    }
}

/// Where the last strike of a game stands whose tenth frame has these marks, as in "490.8 55".
QString lastStrike(const QString& tenth) {
    ReportFigures figures = readFigures(kGameReport);
    figures.games.front().frames->back() = tenth;
    const PictureLook look(Drawing::font(9), paperPalette());
    Drawing drawing;
    QPainter painter(&drawing);
    picturesOf(figures).front().strips(look, 800)[0].draw(painter);
    painter.end();
    return QString::fromStdString(drawing.told()).section(" \"X\"", -2, -2).section(": ", -1);
}

TEST(Pictures, StrikeOfATenthFrameStandsInItsFirstBox) {
    EXPECT_NE(lastStrike("X"), "");
    EXPECT_EQ(lastStrike("X"), lastStrike("X8/"));
}

TEST(Pictures, SheetIsHalvedWhereAHairIsMissing) {
    const PictureLook look(Drawing::font(9), paperPalette());
    const ReportPicture sheet = picturesIn(kGameReport).front();
    const auto isHalved = [&](double width) {
        const std::vector<Spot> frames = sheet.strips(look, width)[0].spots;
        return frames.at(9).place.top() > frames.at(0).place.top();
    };
    const double whole = 21 * 2.1 * look.digit() + look.hair();
    EXPECT_FALSE(isHalved(whole + look.hair() / 4));
    EXPECT_TRUE(isHalved(whole - look.hair() / 4));
}

TEST(Pictures, MarksOfScoresAreCutShortRatherThanOff) {
    const PictureLook look(fontOf(1), palettes().front());
    const int narrow = static_cast<int>(look.leastWidth()) + 1;
    const auto bar = [&](int high, int low, int width) {
        const ScoreRange range{"180 - 199", 180, 199, 2};
        const DatedScore highest{high, "11/12/2026"};
        const DatedScore lowest{low, "11/12/2026"};
        const ReportPicture picture = scoresPicture({{range}, highest, lowest});
        const Strips strips = picture.strips(look, width);
        QImage image(width + 200, static_cast<int>(strips.front().height), QImage::Format_RGB32);
        image.fill(look.ground());
        QPainter painter(&image);
        strips.front().draw(painter);
        painter.end();
        return image;
    };
    const QImage drawn = bar(199, 186, narrow);
    EXPECT_TRUE(isEmpty(drawn.copy(narrow + 1, 0, 199, drawn.height()), look.ground()));
    EXPECT_EQ(drawn, bar(198, 187, narrow)) << "without scores";
    EXPECT_NE(bar(199, 186, 3 * narrow), bar(198, 187, 3 * narrow)) << "with scores";
}

TEST(Pictures, PinsTellThemselvesByShapeToo) {
    const PictureLook look(fontOf(1), palettes().front());
    const auto rack = [&](const char* pins) {
        return drawn(leavesPicture({{"1", readPins(QString(pins).toStdString()), 4, 2}}), look, 400, 0);
    };
    EXPECT_NE(rack("1"), rack("10"));
    EXPECT_NE(rack("1").convertToFormat(QImage::Format_Mono),
              rack("10").convertToFormat(QImage::Format_Mono));
}

TEST(Pictures, PartsOfTheBarHavePatterns) {
    const PictureLook look(fontOf(1), palettes().front());
    const auto bar = [&](int strikes, int spares, int opens) {
        const ReportPicture picture = strikesPicture({strikes, "", spares, "", opens, 0, {}, {}});
        const Strips strips = picture.strips(look, 400);
        QImage image(400, static_cast<int>(strips.front().height), QImage::Format_Grayscale8);
        image.fill(Qt::white);
        QPainter painter(&image);
        strips.front().draw(painter);
        painter.end();
        return image;
    };
    EXPECT_NE(bar(1, 0, 0), bar(0, 1, 0));
    EXPECT_NE(bar(0, 1, 0), bar(0, 0, 1));
    EXPECT_NE(bar(0, 0, 1), bar(1, 0, 0));
    EXPECT_EQ(bar(3, 0, 0), bar(5, 0, 0));
}

RC_GTEST_PROP(Pictures, AnyTextIsDrawn, ()) {
    const PictureLook look(fontOf(1), palettes().front());
    for (const ReportPicture& picture : picturesIn(mutatedReport())) {
        RC_ASSERT(!picture.name.isEmpty());
        RC_ASSERT(!drawn(picture, look, static_cast<int>(look.leastWidth()) + 1, 0).isNull());
    }
}

}  // namespace tallybrook::test
