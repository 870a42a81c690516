#include "pictures/EventMark.h"
#include "pictures/ReportPicture.h"
#include "support/Drawing.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

TEST(PictureViewTest, StaysWithinTheWhole) {
    struct Seen {
        double first;
        double last;
        PictureView view;
    };
    for (const auto& [first, last, view] :
         {Seen{0.25, 0.5, {0.25, 0.5, 3}}, Seen{-0.25, 0.25, {0, 0.5, 3}}, Seen{0.75, 1.25, {0.5, 1, 3}},
          Seen{-1, 2, {0, 1, 3}}, Seen{0.5, 0.5, {0.5, 0.5 + 1e-4, 3}},
          Seen{0.5, 0.25, {0.5, 0.5 + 1e-4, 3}}})
        EXPECT_EQ((PictureView{0, 1, 3}.over(first, last)), view) << first << " to " << last;
    EXPECT_EQ((PictureView{0.25, 0.75, 0}.span()), 0.5);
}

TEST(PictureViewTest, IsWholeWhereNothingIsOutOfSight) {
    for (const auto& [view, isWhole] : {std::pair(PictureView{}, true),
                                        {PictureView{0.1, 1, 0}, false},
                                        {PictureView{0, 0.9, 0}, false},
                                        {PictureView{-0.1, 1.1, 0}, true}})
        EXPECT_EQ(view.isWhole(), isWhole) << view.from << " to " << view.to;
}

TEST(PictureTableTest, TellsARowWithoutItsEmptyCells) {
    const PictureTable table{{"Date", "Event", "Games"}, {{"1/5/2020", "", "3", "more"}, {}}};
    EXPECT_EQ(table.told(0), (QStringList{"1/5/2020", "Games: 3", ": more"}));
    EXPECT_EQ(table.told(1), QStringList{""});
    EXPECT_EQ(table.asText(), "Date\tEvent\tGames\n1/5/2020\t\t3\tmore\n\n");
}

TEST(Strips, TakeTheirPlacesAlongBelowAHeading) {
    const PictureLook look(Drawing::font(9), paperPalette());
    const QRectF place(1, 2, 3, 4);
    const Strip strip = underHeading("A heading", {20, [](QPainter&) {}, {{place, 0}}, place}, look, 400);
    const double above = strip.height - 20;
    EXPECT_GT(above, look.lineHeight());
    EXPECT_EQ(strip.plot, place.translated(0, above));
    EXPECT_EQ(strip.spots.at(0).place, place.translated(0, above));
}

TEST(EventMarks, AreSmallerWhereThereAreMany) {
    const PictureLook look(Drawing::font(9), paperPalette());
    EXPECT_DOUBLE_EQ(reachOfMarks(look, 500), 0.22 * look.lineHeight());
    EXPECT_DOUBLE_EQ(reachOfMarks(look, 501), 0.14 * look.lineHeight());
}

}  // namespace tallybrook::test
