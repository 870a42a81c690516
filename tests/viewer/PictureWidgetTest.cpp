#include "pictures/Pictures.h"
#include "readers/Events.h"
#include "viewer/PictureWidget.h"

#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

// How a picture is read and looked at closer, with keys and with the mouse.
namespace tallybrook::test {

namespace {

/// The picture of so many events, used with mouse and keys.
struct Shown {
    explicit Shown(int events) : widget(trendPicture(readFigures(reportOf(weeklyEvents(events))).events)) {
        widget.resize(700, widget.heightForWidth(700));
        widget.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
        widget.setFocus();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&widget, key, modifiers);
    }
    /// Drags over the middle of the picture, between two shares of its width.
    void drag(double from, double to) {
        const auto place = [&](double share) { return QPoint(qRound(share * widget.width()), 200); };
        QTest::mousePress(&widget, Qt::LeftButton, {}, place(from));
        QTest::mouseMove(&widget, place((from + to) / 2));
        QTest::mouseMove(&widget, place(to));
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, place(to));
    }
    QString date() { return widget.read().value(0); }

    PictureWidget widget;
};

/// A picture of a plot that counts how often it is drawn.
ReportPicture countedPicture(int& draws) {
    const auto lay = [&draws](const PictureLook& look, double width, const PictureView&) {
        const QRectF plot(0.3, 0.3, width - 1, 200);
        Strip strip{210.4, [&draws, plot, look](QPainter& painter) {
                        ++draws;
                        painter.fillRect(plot, look.fill());
                    }};
        strip.spots = {{{20, 20, 5, 5}, 0}, {{20, 90, 5, 5}, 1}};
        strip.plot = plot;
        return Strips{gapStrip(10.7), strip};
    };
    PictureTable table{{"Day"}, {{"first"}, {"second"}}};
    return {"Plot", "A plot.", lay, [table = std::move(table)](const PictureView&) { return table; }};
}

}  // namespace

TEST(PictureWidget, PlotIsDrawnOnceForAllThatIsPointedAt) {
    int draws = 0;
    PictureWidget widget(countedPicture(draws));
    widget.resize(400, 230);
    widget.setPalette(QPalette(Qt::white));  // as in the pane, its ground is that of texts
    const QImage before = widget.grab().toImage();
    draws = 0;
    for (const QString day : {"first", "second", "first"}) {
        widget.readAt({22, day == "first" ? 33.0 : 103.0});
        EXPECT_EQ(widget.read(), QStringList(day));
        const QImage pointed = widget.grab().toImage();
        const QRect beside(300, 0, 100, 230);  // where neither ring nor box is
        EXPECT_EQ(pointed.copy(beside), before.copy(beside));
    }
    EXPECT_EQ(draws, 1);
    widget.setChoice(1);
    widget.readAt({22, 33});
    widget.grab();
    EXPECT_EQ(draws, 2) << "another picture is drawn anew";
}

TEST(PictureWidget, FollowsTheColoursOfTheDesktop) {
    int draws = 0;
    PictureWidget widget(countedPicture(draws));
    widget.resize(400, 230);
    const auto colourOfPlot = [&widget] { return widget.grab().toImage().pixelColor(300, 100); };
    widget.setPalette(QPalette(Qt::white));
    const QColor onWhite = colourOfPlot();
    QPalette dark(Qt::black);
    dark.setColor(QPalette::Highlight, Qt::yellow);
    widget.setPalette(dark);
    EXPECT_EQ(colourOfPlot(), PictureLook(widget.font(), dark).fill());
    EXPECT_NE(colourOfPlot(), onWhite);
}

TEST(PictureWidget, OneEventIsEnough) {
    Shown shown(1);
    EXPECT_FALSE(shown.widget.grab().isNull());
    shown.press(Qt::Key_Right);
    EXPECT_EQ(shown.date(), "9/6/1990");
    shown.press(Qt::Key_Right);
    EXPECT_EQ(shown.date(), "9/6/1990");
}

TEST(PictureWidget, KeysReadEventByEvent) {
    Shown shown(40);
    EXPECT_EQ(shown.widget.read(), QStringList());
    shown.press(Qt::Key_Right);
    EXPECT_EQ(shown.date(), "9/6/1990");
    EXPECT_EQ(shown.widget.read().at(1), "Event: City Open");
    shown.press(Qt::Key_Right);
    EXPECT_EQ(shown.date(), "9/13/1990");
    EXPECT_TRUE(
        shown.widget.accessibleName().startsWith("Averages over time: 9/13/1990, Event: Thursday League"));
    shown.press(Qt::Key_End);
    EXPECT_EQ(shown.date(), "6/6/1991");
    shown.press(Qt::Key_Home);
    shown.press(Qt::Key_Left);
    EXPECT_EQ(shown.date(), "9/6/1990");
    shown.press(Qt::Key_Escape);
    EXPECT_EQ(shown.widget.read(), QStringList());
    EXPECT_EQ(shown.widget.accessibleName(), "Averages over time");
}

TEST(PictureWidget, PointingReadsTheNearestEvent) {
    Shown shown(40);
    const Strips strips =
        shown.widget.picture().strips(PictureLook(shown.widget.font(), shown.widget.palette()), 700);
    const Spot& spot = strips[1].spots.at(7);
    shown.widget.readAt(spot.place.center() + QPointF(1, strips[0].height + 1));
    EXPECT_EQ(shown.date(), "10/25/1990");
    shown.widget.readAt({-500, -500});
    EXPECT_EQ(shown.widget.read(), QStringList());
}

TEST(PictureWidget, DraggingLooksCloserAndEscapeLeadsBack) {
    Shown shown(400);
    shown.drag(0.4, 0.6);
    EXPECT_NEAR(shown.widget.view().span(), 0.2, 0.04);
    EXPECT_NEAR(shown.widget.view().from, 0.38, 0.05);
    const PictureView once = shown.widget.view();
    shown.drag(0.25, 0.75);
    EXPECT_LT(shown.widget.view().span(), 0.6 * once.span());
    EXPECT_GT(shown.widget.view().from, once.from);
    shown.press(Qt::Key_Escape);
    EXPECT_TRUE(shown.widget.view().isWhole());
}

TEST(PictureWidget, ClickIsNoDrag) {
    Shown shown(400);
    shown.drag(0.5, 0.5);
    EXPECT_TRUE(shown.widget.view().isWhole());
    QTest::mouseClick(&shown.widget, Qt::LeftButton, {}, {350, 200});  // without a move in between
    EXPECT_TRUE(shown.widget.view().isWhole());
}

TEST(PictureWidget, ClickBesideAnyPlotDoesNothing) {
    const auto lay = [](const PictureLook&, double, const PictureView&) { return Strips{gapStrip(100)}; };
    PictureWidget widget({"Gap", "A gap.", lay, [](const PictureView&) { return PictureTable{}; }});
    widget.resize(200, 100);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {50, 50});
    EXPECT_TRUE(widget.view().isWhole());
    EXPECT_EQ(widget.read(), QStringList());
}

TEST(PictureWidget, KeysLookCloserAndMoveAlong) {
    Shown shown(400);
    shown.press(Qt::Key_Plus);
    EXPECT_DOUBLE_EQ(shown.widget.view().span(), 0.5);
    const double before = shown.widget.view().from;
    shown.press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_GT(shown.widget.view().from, before);
    shown.press(Qt::Key_Minus);
    EXPECT_TRUE(shown.widget.view().isWhole());
}

TEST(PictureWidget, ReadingGoesOnBeyondWhatIsInSight) {
    Shown shown(400);
    shown.press(Qt::Key_Home);
    for (int times = 0; times < 5; ++times)
        shown.press(Qt::Key_Plus);
    EXPECT_EQ(shown.date(), "9/6/1990");
    for (int steps = 0; steps < 1200 && shown.date() != "4/30/1998"; ++steps)
        shown.press(Qt::Key_Right);
    EXPECT_EQ(shown.date(), "4/30/1998") << "the last of the 400 weeks";
}

}  // namespace tallybrook::test
