#include "pictures/Pictures.h"
#include "pictures/SeasonsSideBySide.h"
#include "readers/Events.h"
#include "support/Drawing.h"
#include "support/WrittenDown.h"

#include <QPainter>
#include <algorithm>
#include <tuple>

#include <gtest/gtest.h>

// What pictures of a few reports show, down to the last line that is drawn. After a wanted change write them
// anew with TALLYBROOK_WRITE_EXPECTED, and read the difference.
namespace tallybrook::test {

namespace {

using PicturesOf = std::vector<ReportPicture> (*)();

struct Drawn {
    const char* name;
    PicturesOf pictures;
};

/// One picture by its name.
ReportPicture namedPicture(const QString& report, const QString& name) {
    const std::vector<ReportPicture> pictures = picturesOf(readFigures(report));
    return *std::ranges::find(pictures, name, &ReportPicture::name);
}

/// A report without most of its leaves, which all look alike.
ReportFigures withFewLeaves(const QString& report) {
    ReportFigures figures = readFigures(report);
    figures.leaves.resize(std::min(figures.leaves.size(), std::size_t{5}));
    return figures;
}

Day makeDay(int year, unsigned month, unsigned day) {
    return Day{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day}};
}

/// Two seasons of more leagues than there are marks.
std::vector<WrittenEvent> manyLeagues() {
    std::vector<WrittenEvent> events = weeklyEvents(60);
    for (std::size_t event = 0; event < events.size(); ++event)
        events[event].name = QString("League %1").arg(event * event % 11);
    events[20].name = "";
    return events;
}

SeasonsSideBySide seasonsSideBySide() {
    const auto of = [](const QString& name, const QString& report) {
        return ComparedReport{name, withFewLeaves(report)};
    };
    return SeasonsSideBySide({of("later.txt", goldenReport("league.txt")), of("empty.txt", reportOf({})),
                              of("earlier.txt", reportOf(weeklyEvents(40)))});
}

std::vector<ReportPicture> seasons() {
    return seasonsSideBySide().pictures();
}

/// So many events, some of them alike, that marks and lines lie on each other.
std::vector<ReportPicture> crowd() {
    std::vector<WrittenEvent> events = weeklyEvents(520);
    for (std::size_t event = 0; event < events.size(); ++event)
        events[event].day = events.front().day + std::chrono::days(event / 2);
    events[301] = events[300];
    ReportPicture picture = namedPicture(reportOf(events), "Averages over time");
    picture.table = [](const PictureView&) { return PictureTable(); };  // which would be long
    return {picture};
}

/// Three games with their frames, two of which have the same score.
std::vector<ReportPicture> games() {
    ReportFigures figures = readFigures(kGameReport);
    const GameFigures first = figures.games.front();
    for (const auto& [number, score, tenth] :
         {std::tuple("3", "127", "X9/"), std::tuple("4", "117", "X8/")}) {
        GameFigures& game = figures.games.emplace_back(first);
        game.number = number;
        game.score = score;
        game.frames->back() = tenth;
        game.leaves[3] = "7-10";
    }
    return picturesOf(figures);
}

/// The pictures of what reports leave out, and of what they tell too much of.
std::vector<ReportPicture> others() {
    const BowledEvent extreme{"Open", "", makeDay(2020, 1, 5), 1, 5000, 5000};
    const BowledEvent poor{"Open", "", makeDay(2020, 1, 6), 1, 1, 1};
    const BowledEvent early{"Open", "", makeDay(1995, 2, 3), 3, 450, 150};
    const BowledEvent later{"Open", "", makeDay(2008, 6, 7), 3, 600, 200};
    return {trendPicture({{extreme, poor}, 1}),
            trendPicture({{early, later, extreme}, 0}),
            leavesPicture({{"", std::nullopt, 0, 0}, {"1", readPins("1"), 1, 1}}),
            strikesPicture({3, "", std::nullopt, "", 4, 1, {{2, 5}}, 1}),
            strikesPicture({0, "0", 0, "0", 0, 0, {}, {}}),
            scoresPicture({{{"180 - 199", 180, 199, 0}}, {}, {}}),
            seriesPicture({{3, {}, DatedScore{400, ""}}, {1, DatedScore{990, "1/2/2020"}, {}}}),
            sheetPicture({"7", "", {}}, Rank::Usual)};
}

const std::vector<Drawn> kDrawn{
    {"games", games},
    {"others", others},
    {"season", [] { return picturesOf(withFewLeaves(goldenReport("statistics.txt"))); }},
    {"event", [] { return picturesOf(readFigures(goldenReport("full.txt"))); }},
    {"leagues", [] { return std::vector{namedPicture(reportOf(manyLeagues()), "Averages over time")}; }},
    {"seasons", seasons},
    {"crowd", crowd},
};

/// A picture as it is seen, with the places that can be pointed at.
std::string drawn(const ReportPicture& picture, const PictureLook& look, double width,
                  const PictureView& view) {
    Drawing drawing;
    std::string spots;
    double top = 0;
    QPainter painter(&drawing);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Strip& strip : picture.strips(look, width, view)) {
        strip.draw(painter);
        for (const auto& [place, row] : strip.spots)
            spots += QString(" %1:%2,%3-%4,%5")
                         .arg(row)
                         .arg(qRound(place.left()))
                         .arg(qRound(top + place.top()))
                         .arg(qRound(place.right()))
                         .arg(qRound(top + place.bottom()))
                         .toStdString();
        top += strip.height;
        painter.translate(0, strip.height);
    }
    painter.end();
    return drawing.told() + "high: " + QString::number(top, 'f', 1).toStdString() + "\nspots:" + spots + "\n";
}

std::string told(const ReportPicture& picture) {
    const PictureLook wide(Drawing::font(9), paperPalette());
    const PictureLook narrow(Drawing::font(20), QPalette(QColor(52, 55, 61), QColor(27, 29, 33)));
    return "==== " + picture.name.toStdString() + "\n" + picture.summary.toStdString() + "\n" +
           picture.choices.join(", ").toStdString() + "\n" + picture.table({}).asText().toStdString() +
           "---- wide\n" + drawn(picture, wide, 800, {}) + "---- narrow\n" +
           drawn(picture, narrow, narrow.leastWidth(),
                 PictureView{0.2, 0.7, picture.choices.isEmpty() ? 0 : 1});
}

}  // namespace

class DrawnPictures : public testing::TestWithParam<Drawn> {};

INSTANTIATE_TEST_SUITE_P(Of, DrawnPictures, testing::ValuesIn(kDrawn),
                         [](const auto& drawn) { return drawn.param.name; });

TEST_P(DrawnPictures, AreAsTheyWereWanted) {
    std::string all;
    for (const ReportPicture& picture : GetParam().pictures())
        all += told(picture);
    EXPECT_TRUE(isAsWrittenDown(all, std::string("pictures/drawn/") + GetParam().name + ".txt"));
}

TEST(DrawnSeasons, TextIsAsItWasWanted) {
    EXPECT_TRUE(isAsWrittenDown(seasonsSideBySide().text().toStdString(), "pictures/drawn/seasons-text.txt"));
}

}  // namespace tallybrook::test
