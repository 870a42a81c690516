#include "Desktop.h"
#include "Fonts.h"

#include <QScreen>
#include <QScrollArea>

namespace tallybrook::test {

class LayoutTest : public Desktop {
protected:
    LayoutTest() {
        window().resize(900, 600);
        QTest::qWait(1);
    }
    /// Where a control stands on the window.
    QRect place(const Control& control) {
        QWidget& shown = widget(control);
        return {shown.mapTo(&window(), QPoint()), shown.size()};
    }
};

TEST_F(LayoutTest, RowsGoFromLeftToRight) {
    EXPECT_LT(place(screen().imgLogo).right(), place(screen().lblTitle).left());
    EXPECT_LT(place(screen().optYes).right(), place(screen().optNo).left());
}

TEST_F(LayoutTest, ColumnsGoDown) {
    EXPECT_LT(place(screen().lblTitle).bottom(), place(screen().txtName).top());
    EXPECT_LT(place(screen().txtName).bottom(), place(screen().txtLines).top());
    EXPECT_LT(place(screen().txtLines).bottom(), place(screen().fraAnswers).top());
}

TEST_F(LayoutTest, FormsAlignTheirLabelsAndBoxes) {
    EXPECT_EQ(place(screen().lblName).left(), place(screen().lblShown).left());
    EXPECT_EQ(place(screen().txtName).left(), place(screen().txtShown).left());
    EXPECT_EQ(place(screen().txtName).width(), place(screen().txtShown).width());
    EXPECT_LT(place(screen().lblName).right(), place(screen().txtName).left());
}

TEST_F(LayoutTest, ButtonsAreOfOneWidth) {
    EXPECT_EQ(place(screen().cmdGo).width(), place(screen().cmdStop).width());
    EXPECT_EQ(place(screen().cmdGo).left(), place(screen().cmdOff).left());
    EXPECT_LT(place(screen().cmdGo).bottom(), place(screen().cmdStop).top());
}

TEST_F(LayoutTest, GroupHoldsItsParts) {
    EXPECT_TRUE(place(screen().fraAnswers).contains(place(screen().optYes)));
    EXPECT_FALSE(place(screen().fraAnswers).contains(place(screen().chkPlain)));
}

TEST_F(LayoutTest, TableHasColumnsOfOneWidth) {
    EXPECT_NEAR(place(screen().cellOne).width(), place(screen().cellTwo).width(), 1);
    EXPECT_NEAR(place(screen().cellTwo).width(), place(screen().cellThree).width(), 1);
    EXPECT_NEAR(place(screen().lblCell).center().x(), place(screen().cellOne).center().x(), 1);
    EXPECT_EQ(place(screen().cellOne).top(), place(screen().cellThree).top());
    EXPECT_GT(place(screen().txtShort).left(), place(screen().cellTwo).right());  // after the space
}

TEST_F(LayoutTest, CentredPartsStandInTheMiddle) {
    const QRect pins = place(screen().chkPin).united(place(screen().chkOther));
    EXPECT_NEAR(pins.center().x(), place(screen().txtLines).center().x(), 1);
    EXPECT_LT(pins.width(), place(screen().txtLines).width() / 2);
}

TEST_F(LayoutTest, BoxIsAsWideAsItsCharacters) {
    const QFontMetrics metrics(widget(screen().txtShort).font());
    EXPECT_GE(place(screen().txtShort).width(), metrics.horizontalAdvance("MMMM"));
    EXPECT_LT(place(screen().txtShort).width(), metrics.horizontalAdvance("MMMMMMMMMM"));
}

TEST_F(LayoutTest, LayoutMayBeASingleControl) {
    load("frmOther");
    auto& other = screen<frmOther>("frmOther");
    EXPECT_TRUE(widget(other.cmdBack).isVisible());
    EXPECT_FALSE(widget(other.cmdBack).size().isEmpty());
}

TEST_F(LayoutTest, NothingIsCutOffWithLargeFonts) {
    const LargeFonts fonts;
    display.perform([this] {
        program.screens.load("frmOther");
        program.screens.unload(screen());
        program.screens.load("frmMain");
    });
    auto& area = dynamic_cast<QScrollArea&>(*window().centralWidget());
    EXPECT_TRUE(window().screen()->availableGeometry().contains(window().geometry()));
    for (const Control* const control : screen().controls()) {
        const QWidget* const shown = display.widgetOf(*control);
        if (shown == nullptr)
            continue;
        EXPECT_GE(shown->width(), shown->minimumSizeHint().width()) << control->name();
        EXPECT_GE(shown->height(), shown->minimumSizeHint().height()) << control->name();
        EXPECT_TRUE(area.widget()->rect().contains({shown->mapTo(area.widget(), QPoint()), shown->size()}))
            << control->name();
    }
}

TEST_F(LayoutTest, FocusInAGroupComesWithItsTitle) {
    window().resize(320, 260);
    QTest::qWait(1);
    display.perform([this] { screen().optNo.focus(); });
    QWidget* const viewport = dynamic_cast<QScrollArea&>(*window().centralWidget()).viewport();
    EXPECT_GE(widget(screen().fraAnswers).mapTo(viewport, QPoint()).y(), 0);
    display.perform([this] { screen().cmdGo.focus(); });
    display.perform([this] { screen().optYes.focus(); });
    const QPoint title = widget(screen().fraAnswers).mapTo(viewport, QPoint());
    EXPECT_GE(title.y(), 0);
    EXPECT_LT(title.y(), viewport->height());
}

TEST_F(LayoutTest, FocusIsScrolledIntoView) {
    window().resize(320, 200);
    QTest::qWait(1);
    display.perform([this] { screen().chkOther.focus(); });
    const QRect seen = dynamic_cast<QScrollArea&>(*window().centralWidget()).viewport()->rect();
    QWidget* const viewport = dynamic_cast<QScrollArea&>(*window().centralWidget()).viewport();
    EXPECT_TRUE(seen.contains(widget(screen().chkOther).mapTo(viewport, QPoint(5, 5))));
}

}  // namespace tallybrook::test
