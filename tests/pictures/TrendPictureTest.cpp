#include "pictures/EventMark.h"
#include "pictures/Pictures.h"
#include "pictures/TrendSeries.h"
#include "readers/Events.h"

#include <QApplication>
#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <algorithm>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

ReportPicture trendOf(const std::vector<WrittenEvent>& events) {
    return trendPicture(readFigures(reportOf(events)).events);
}

constexpr int kWidth = 700;

/// The plot of a picture, drawn in such a width.
QImage drawnPlot(const std::vector<WrittenEvent>& events, const PictureLook& look) {
    const Strips strips = trendOf(events).strips(look, kWidth);
    QImage image(kWidth, static_cast<int>(strips[1].height), QImage::Format_RGB32);
    image.fill(look.ground());
    QPainter painter(&image);
    strips[1].draw(painter);
    return image;
}

double number(const QStringList& row, qsizetype column) {
    return row.at(column).toDouble();
}

}  // namespace

TEST(TrendPicture, TellsTheSeasonInWords) {
    const ReportPicture picture = trendPicture(readFigures(goldenReport("statistics.txt")).events);
    EXPECT_EQ(picture.summary.section(". ", 0, 0), "10 events from 9/12/2024 to 11/22/2024");
    EXPECT_TRUE(picture.summary.contains("High series of 1 game: ") ||
                picture.summary.contains("High series of 2 games: "))
        << picture.summary.toStdString();
    EXPECT_TRUE(picture.summary.endsWith(" 2 events without a score are left out."));
}

TEST(TrendPicture, TableHasEveryEvent) {
    const PictureTable table = trendPicture(readFigures(goldenReport("statistics.txt")).events).table({});
    ASSERT_EQ(table.rows.size(), 10U);
    EXPECT_EQ(table.rows.front(), (QStringList{"9/12/2024", "City Open", "TOURNAMENT", "2", "283", "141.5",
                                               "141.5", "2024/25", "141.5"}));
    EXPECT_TRUE(
        table.asText().startsWith("Date\tEvent\tType\tGames\tPinfall\tAverage\tLast 12 events\tSeason\t"));
    EXPECT_EQ(table.told(0).mid(0, 2), (QStringList{"9/12/2024", "Event: City Open"}));
}

/// The table's figures counted anew from what was written into the report.
RC_GTEST_PROP(TrendPicture, TableIsThatOfTheEvents, ()) {
    std::vector<WrittenEvent> written = randomWrittenEvents(1);
    std::erase_if(written, std::not_fn(&WrittenEvent::isScored));
    if (written.empty())
        written = weeklyEvents(30);
    const PictureTable table = trendOf(written).table({});
    RC_ASSERT(table.rows.size() == written.size());
    for (std::size_t last = 0; last < written.size(); ++last) {
        double pins = 0;
        double games = 0;
        for (std::size_t index = last < 11 ? 0 : last - 11; index <= last; ++index) {
            pins += written[index].pinfall;
            games += written[index].recorded;
        }
        RC_ASSERT(std::abs(number(table.rows[last], 6) - pins / games) <= 0.0501);
        RC_ASSERT(table.rows[last][0] == dayText(written[last].day));
        RC_ASSERT(number(table.rows[last], 4) == written[last].pinfall);
    }
}

TEST(TrendPicture, LeaguesMayBePickedOut) {
    const ReportPicture picture = trendOf(weeklyEvents(30));
    EXPECT_EQ(picture.choices, (QStringList{"All events", "Thursday League", "City Open"}));
    EXPECT_EQ(picture.table({0, 1, 0}).rows.size(), 30U);
    EXPECT_EQ(picture.table({0, 1, 1}).rows.size(), 20U);
    for (const QStringList& row : picture.table({0, 1, 2}).rows)
        EXPECT_EQ(row[1], "City Open");
    std::vector<WrittenEvent> one = weeklyEvents(3);
    for (WrittenEvent& event : one)
        event.name = "Practice";
    EXPECT_EQ(trendOf(one).choices, QStringList());
}

TEST(TrendPicture, SeasonIsSeenWhereItLiesOnTheOtherLine) {
    std::vector<WrittenEvent> events = weeklyEvents(38);
    for (WrittenEvent& event : events)
        event.pinfall = 450;
    const PictureLook look(QApplication::font(), QPalette(Qt::white));
    const QImage image = drawnPlot(events, look);
    int darkest = qGray(look.fill().rgb());
    for (int y = 0; y < image.height() / 2; ++y) {
        for (int x = kWidth / 2; x < kWidth; ++x)
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
    }
    EXPECT_LT(darkest, qGray(look.fill().rgb()) / 2);
}

/// Its words stand above it where there is no room below.
TEST(TrendPicture, LowSeriesIsToldWithinThePlot) {
    std::vector<WrittenEvent> events = weeklyEvents(40);
    events[20].pinfall = 180;
    events[30].pinfall = 780;
    const PictureLook look(QApplication::font(), QPalette(Qt::white));
    const QImage image = drawnPlot(events, look);
    const QRectF plot = *trendOf(events).strips(look, kWidth)[1].plot;
    for (int y = qFloor(plot.bottom()) + 1; y < plot.bottom() + look.lineHeight() / 3; ++y) {
        for (int x = 0; x < kWidth; ++x)
            EXPECT_GT(qGray(image.pixel(x, y)), 40) << x << ", " << y;
    }
}

/// One of the strips of a trend, as SVG, in which its words can be found.
QByteArray drawnStrip(std::size_t strip, const std::vector<WrittenEvent>& events) {
    const PictureLook look(QApplication::font(), QPalette(Qt::white));
    QByteArray svg;
    QBuffer stream(&svg);
    QSvgGenerator generator;
    generator.setOutputDevice(&stream);
    QPainter painter(&generator);
    trendOf(events).strips(look, kWidth)[strip].draw(painter);
    painter.end();
    return svg;
}

TEST(TrendPicture, EventThatIsTheOnlyOneIsNeitherHighNorLow) {
    const auto ends = [](const std::vector<WrittenEvent>& events) {
        const QByteArray plot = drawnStrip(1, events);
        return std::pair(plot.contains("High 4"), plot.contains("Low 4"));
    };
    EXPECT_EQ(ends(weeklyEvents(1)), std::pair(false, false));
    EXPECT_EQ(ends(weeklyEvents(2)), std::pair(true, true));
    std::vector<WrittenEvent> ofOtherLengths = weeklyEvents(2);
    ofOtherLengths.back().planned = ofOtherLengths.back().recorded = 2;
    EXPECT_EQ(ends(ofOtherLengths), std::pair(false, false));
}

TEST(TrendPicture, LegendNamesTheLinesThatAreDrawn) {
    const auto lines = [](int events) {
        const QByteArray legend = drawnStrip(0, weeklyEvents(events));
        return std::pair(legend.contains("Season so far"), legend.contains("Last 12 events"));
    };
    EXPECT_EQ(lines(3), std::pair(false, false));
    EXPECT_EQ(lines(4), std::pair(true, false));
    EXPECT_EQ(lines(12), std::pair(true, false));
    EXPECT_EQ(lines(13), std::pair(true, true));
}

TEST(TrendPicture, LegendNamesOthersWhereThereAreMoreLeaguesThanMarks) {
    const auto namesOthers = [](int leagues) {
        std::vector<WrittenEvent> events = weeklyEvents(leagues);
        for (int event = 0; event < leagues; ++event)
            events[static_cast<std::size_t>(event)].name = QString("League %1").arg(event);
        return drawnStrip(0, events).contains("Others");
    };
    EXPECT_FALSE(namesOthers(kEventMarks - 1));
    EXPECT_TRUE(namesOthers(kEventMarks));
}

TEST(TrendPicture, LeaguesBeyondTheMarksShareTheLastOne) {
    const Day day = std::chrono::local_days(std::chrono::year(2020) / 1 / 5);
    BowledEvents events;
    for (const char* const name : {"A", "B", "C", "D", "E", "F", "G", "H", "I"})
        events.push_back({name, "", day, 1, 150, 150});
    EXPECT_EQ(TrendChoices(events).at(0)->marks, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 6, 6}));
}

TEST(TrendPicture, LeagueOfBlanksHasNoName) {
    const Day day = std::chrono::local_days(std::chrono::year(2020) / 1 / 5);
    const BowledEvents events{{"  ", "", day, 1, 150, 150}, {"Open", "", day, 1, 160, 160}};
    EXPECT_EQ(trendPicture({events, 0}).choices, (QStringList{"All events", "Without a name", "Open"}));
}

TEST(TrendPicture, BarOfASingleMonthIsNoBlock) {
    const PictureLook look(QApplication::font(), QPalette(Qt::white));
    const QImage image = drawnPlot(weeklyEvents(1), look);
    const int row = image.height() - static_cast<int>(look.lineHeight());
    int filled = 0;
    for (int x = 0; x < kWidth; ++x)
        filled += image.pixelColor(x, row) == look.fill() ? 1 : 0;
    EXPECT_GT(filled, 0);
    EXPECT_LT(filled, kWidth / 6);
}

TEST(TrendPicture, TenThousandEventsAreDrawnInFewMarks) {
    const ReportPicture picture = trendOf(weeklyEvents(10000));
    const PictureLook look(QApplication::font(), QPalette());
    const Strips strips = picture.strips(look, 640);
    EXPECT_EQ(strips[1].spots.size(), 10000U);
    const Strips closer = picture.strips(look, 640, PictureView().over(0.5, 0.51));
    EXPECT_LT(closer[1].spots.size(), 120U);
    EXPECT_EQ(dayText(std::chrono::local_days(std::chrono::year(1990) / 9 / 6)), "9/6/1990");
}

}  // namespace tallybrook::test
