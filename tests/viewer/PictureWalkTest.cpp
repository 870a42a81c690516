#include "style/Colours.h"
#include "viewer/PictureWidget.h"

#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

// What each key and each turn of the mouse makes of a picture of which every place is known.
namespace tallybrook::test {

namespace {

constexpr int kRows = 11;
constexpr QRectF kPlot(100, 10, 200, 100);
constexpr double kAbove = 10;  // what stands above the strip of the plot

/// A picture of marks at all tenths of its range.
ReportPicture tenths(const QStringList& choices = {}) {
    const auto lay = [](const PictureLook&, double, const PictureView& view) {
        Strip strip{120.4, [](QPainter&) {}};
        strip.plot = kPlot;
        for (int row = 0; row < kRows; ++row) {
            const double share = (row / 10.0 - view.from) / view.span();
            if (share > -1e-9 && share < 1 + 1e-9)
                strip.spots.push_back(
                    {{kPlot.left() + share * kPlot.width() - 2, 50, 4, 4}, static_cast<std::size_t>(row)});
        }
        return Strips{gapStrip(kAbove), strip};
    };
    const auto table = [](const PictureView& view) {
        PictureTable all{{"Mark"}, {}};
        for (int row = 0; row < kRows; ++row)
            all.rows.push_back({QString("%1%2").arg(view.choice == 0 ? "" : "other ").arg(row)});
        return all;
    };
    return {"Tenths", "Eleven marks.", lay, table, choices};
}

class PictureWalk : public testing::Test {
protected:
    PictureWalk() {
        widget.resize(400, 131);
        widget.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
        widget.setFocus();
    }
    /// The range that is seen in percent, and the mark that is read.
    [[nodiscard]] std::string told() const {
        const QString range =
            QString("%1-%2").arg(100 * widget.view().from, 0, 'f', 1).arg(100 * widget.view().to, 0, 'f', 1);
        return (range + " " + widget.read().join(", ")).trimmed().toStdString();
    }
    /// Gives the picture what somebody does; returns whether it took that for itself.
    template <typename Event>
    bool send(Event event) {
        event.setAccepted(true);
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    }
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return send(QKeyEvent(QEvent::KeyPress, key, modifiers));
    }
    bool mouse(QEvent::Type type, double x, Qt::MouseButton button = Qt::LeftButton) {
        const QPointF place(x, kAbove + 80);
        return send(QMouseEvent(type, place, widget.mapToGlobal(place), button, button, Qt::NoModifier));
    }
    std::string afterDrag(double from, double to) {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, to);
        mouse(QEvent::MouseButtonRelease, to);
        return told();
    }
    bool turn(QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return send(QWheelEvent({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, angle, Qt::NoButton, modifiers,
                                Qt::NoScrollPhase, false));
    }

    PictureWidget widget{tenths()};
};

struct Step {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* then;
};

}  // namespace

TEST_F(PictureWalk, KeysLeadFromMarkToMarkAndCloser) {
    const auto plain = Qt::NoModifier;
    const auto shift = Qt::ShiftModifier;
    const std::vector<Step> walk{
        {Qt::Key_Right, plain, "0.0-100.0 0"}, {Qt::Key_Right, plain, "0.0-100.0 1"},
        {Qt::Key_End, plain, "0.0-100.0 10"},  {Qt::Key_Right, plain, "0.0-100.0 10"},
        {Qt::Key_Left, plain, "0.0-100.0 9"},  {Qt::Key_Home, plain, "0.0-100.0 0"},
        {Qt::Key_Left, plain, "0.0-100.0 0"},  {Qt::Key_Escape, plain, "0.0-100.0"},
        {Qt::Key_Left, plain, "0.0-100.0 10"}, {Qt::Key_Escape, plain, "0.0-100.0"},
        {Qt::Key_Plus, plain, "25.0-75.0"},    {Qt::Key_Right, plain, "25.0-75.0 3"},
        {Qt::Key_Equal, plain, "17.5-42.5 3"}, {Qt::Key_Right, shift, "22.5-47.5 3"},
        {Qt::Key_Left, shift, "17.5-42.5 3"},  {Qt::Key_Minus, plain, "5.0-55.0 3"},
        {Qt::Key_Minus, plain, "0.0-100.0 3"}, {Qt::Key_Minus, plain, "0.0-100.0 3"},
        {Qt::Key_Right, plain, "0.0-100.0 4"}, {Qt::Key_Plus, shift, "15.0-65.0 4"},
        {Qt::Key_Left, plain, "15.0-65.0 3"},  {Qt::Key_Left, plain, "15.0-65.0 2"},
        {Qt::Key_Left, plain, "5.0-55.0 2"},   {Qt::Key_Left, plain, "5.0-55.0 1"},
        {Qt::Key_Left, plain, "0.0-50.0 1"},   {Qt::Key_Left, plain, "0.0-50.0 0"},
        {Qt::Key_Left, plain, "0.0-50.0 0"},   {Qt::Key_End, plain, "0.0-50.0 5"},
        {Qt::Key_Right, plain, "10.0-60.0 5"}, {Qt::Key_Escape, plain, "0.0-100.0 5"},
        {Qt::Key_Escape, plain, "0.0-100.0"},
    };
    for (std::size_t step = 0; step < walk.size(); ++step) {
        EXPECT_TRUE(press(walk[step].key, walk[step].modifiers)) << step;
        EXPECT_EQ(told(), walk[step].then) << step;
    }
}

TEST_F(PictureWalk, OtherKeysArePassedOn) {
    for (const Qt::KeyboardModifiers modifiers : {Qt::ControlModifier, Qt::AltModifier}) {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Plus, Qt::Key_Home})
            EXPECT_FALSE(press(key, modifiers)) << key;
    }
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Down, Qt::Key_Return})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_EQ(told(), "0.0-100.0");
}

TEST_F(PictureWalk, NothingLeadsAnywhereWhereThereAreNoMarksAndNoPlot) {
    ReportPicture words = tenths();
    words.lay = [](const PictureLook&, double, const PictureView&) { return Strips{gapStrip(kAbove)}; };
    widget.setPicture(words);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Home, Qt::Key_Plus, Qt::Key_Minus})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_FALSE(mouse(QEvent::MouseButtonPress, 150));
    EXPECT_EQ(told(), "0.0-100.0");
}

TEST_F(PictureWalk, EscapeIsItsOwnAsLongAsItLeadsBack) {
    const auto isItsOwn = [this](Qt::Key key) {
        QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(isItsOwn(Qt::Key_Escape));
    press(Qt::Key_Right);
    EXPECT_TRUE(isItsOwn(Qt::Key_Escape));
    EXPECT_FALSE(isItsOwn(Qt::Key_F3));
    press(Qt::Key_Escape);
    press(Qt::Key_Plus);
    EXPECT_TRUE(isItsOwn(Qt::Key_Escape));
}

TEST_F(PictureWalk, DraggingLooksAtThatPart) {
    EXPECT_EQ(afterDrag(150, 250), "25.0-75.0");
    EXPECT_EQ(afterDrag(200, 100), "25.0-50.0");
    press(Qt::Key_Escape);
    EXPECT_EQ(afterDrag(200, 900), "50.0-100.0");
    press(Qt::Key_Escape);
    EXPECT_EQ(afterDrag(200, 0), "0.0-50.0");
    press(Qt::Key_Escape);
    EXPECT_FALSE(mouse(QEvent::MouseButtonPress, 99)) << "beside the plot";
    EXPECT_FALSE(mouse(QEvent::MouseButtonPress, 150, Qt::RightButton));
    mouse(QEvent::MouseMove, 250);
    EXPECT_FALSE(mouse(QEvent::MouseButtonRelease, 250));
    EXPECT_EQ(told(), "0.0-100.0");
}

TEST_F(PictureWalk, DragIsShadedAndEndsWithItsButton) {
    press(Qt::Key_End);
    mouse(QEvent::MouseButtonPress, 150);
    mouse(QEvent::MouseMove, 250);
    EXPECT_EQ(told(), "0.0-100.0");
    mouse(QEvent::MouseButtonRelease, 250, Qt::RightButton);
    const QImage dragged = widget.grab().toImage();
    const auto isShaded = [&](int x, int y) {
        return dragged.pixelColor(x, y) != dragged.pixelColor(20, 60);
    };
    for (const QPoint place : {QPoint(151, 25), QPoint(248, 25), QPoint(151, 117), QPoint(248, 117)})
        EXPECT_TRUE(isShaded(place.x(), place.y())) << place.x() << ", " << place.y();
    for (const QPoint place : {QPoint(148, 60), QPoint(252, 60), QPoint(200, 17), QPoint(200, 122)})
        EXPECT_FALSE(isShaded(place.x(), place.y())) << place.x() << ", " << place.y();
    mouse(QEvent::MouseButtonRelease, 250);
    EXPECT_EQ(told(), "25.0-75.0");
}

TEST_F(PictureWalk, ShortDragReads) {
    const double digit = PictureLook(widget.font(), widget.palette()).digit();
    ASSERT_GT(digit, 4);
    const auto drag = [&](double way) {
        mouse(QEvent::MouseButtonPress, 200 - way);
        widget.readAt({200, kAbove + 52});  // as if it had been there before
        const QPointF place(200, kAbove + 52);
        send(QMouseEvent(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier));
        EXPECT_EQ(told(), "0.0-100.0");
        send(QMouseEvent(QEvent::MouseButtonRelease, place, widget.mapToGlobal(place), Qt::LeftButton,
                         Qt::NoButton, Qt::NoModifier));
        return told();
    };
    EXPECT_EQ(drag(digit - 1), "0.0-100.0 5");
    EXPECT_NE(drag(digit + 1).substr(0, 9), "0.0-100.0");
}

TEST_F(PictureWalk, PointingReadsWhatIsALineAwayAtMost) {
    const double line = PictureLook(widget.font(), widget.palette()).lineHeight();
    const auto at = [this](double x, double y) {
        widget.readAt({x, y});
        return told();
    };
    for (const double away : {line - 0.1, line + 0.1}) {
        const std::string mark = away < line ? "0.0-100.0 " : "0.0-100.0";
        const bool isNear = away < line;
        EXPECT_EQ(at(200, kAbove + 50 - away), mark + (isNear ? "5" : "")) << away;
        EXPECT_EQ(at(200, kAbove + 54 + away), mark + (isNear ? "5" : "")) << away;
        EXPECT_EQ(at(98 - away, kAbove + 52), mark + (isNear ? "0" : "")) << away;
        EXPECT_EQ(at(302 + away, kAbove + 52), mark + (isNear ? "10" : "")) << away;
    }
    EXPECT_EQ(at(209, kAbove + 45), "0.0-100.0 5");
    EXPECT_EQ(at(211, kAbove + 45), "0.0-100.0 6");
}

TEST_F(PictureWalk, WheelToTheSideMovesAlong) {
    EXPECT_FALSE(turn({120, 0})) << "all is seen";
    press(Qt::Key_Plus);
    EXPECT_FALSE(turn({0, 120})) << "the pane scrolls";
    EXPECT_EQ(told(), "25.0-75.0");
    EXPECT_TRUE(turn({0, 120}, Qt::ShiftModifier));
    EXPECT_EQ(told(), "15.0-65.0");
    EXPECT_TRUE(turn({-240, 120}));
    EXPECT_EQ(told(), "35.0-85.0");
}

TEST_F(PictureWalk, ReadingEndsWhereItIsLeft) {
    const auto leave = [this] { send(QEvent(QEvent::Leave)); };
    press(Qt::Key_Home);
    leave();
    EXPECT_EQ(told(), "0.0-100.0 0") << "the keys read it";
    for (const Qt::FocusReason menu : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        send(QFocusEvent(QEvent::FocusOut, menu));
        EXPECT_EQ(told(), "0.0-100.0 0") << menu;
    }
    send(QFocusEvent(QEvent::FocusOut, Qt::TabFocusReason));
    EXPECT_EQ(told(), "0.0-100.0");
    widget.clearFocus();
    press(Qt::Key_Home);
    leave();
    EXPECT_EQ(told(), "0.0-100.0");
}

TEST_F(PictureWalk, RingIsAroundWhatIsRead) {
    press(Qt::Key_Right);
    const QImage read = widget.grab().toImage();
    const QColor ring = focusColour(widget.palette());
    const QColor ground = read.pixelColor(20, 60);
    for (const QPoint place : {QPoint(96, 62), QPoint(104, 62), QPoint(100, 58), QPoint(100, 66)})
        EXPECT_NE(read.pixelColor(place), ground) << place.x() << ", " << place.y();
    EXPECT_EQ(read.pixelColor(100, 58), ring);
    for (const QPoint place : {QPoint(93, 62), QPoint(100, 62), QPoint(100, 55)})
        EXPECT_EQ(read.pixelColor(place), ground) << place.x() << ", " << place.y();
}

TEST_F(PictureWalk, ChoiceBeginsAnew) {
    widget.setPicture(tenths({"All", "Other"}));
    press(Qt::Key_Plus);
    press(Qt::Key_Right);
    EXPECT_EQ(widget.accessibleName(), "Tenths: 3");
    widget.setChoice(1);
    EXPECT_EQ(told(), "0.0-100.0");
    EXPECT_EQ(widget.accessibleName(), "Tenths");
    press(Qt::Key_Right);
    EXPECT_EQ(told(), "0.0-100.0 other 0");
    widget.setPicture(tenths({"All", "Other"}));
    EXPECT_EQ(told(), "0.0-100.0");
    EXPECT_EQ(widget.view().choice, 1);
    ReportPicture another = tenths({"All"});
    another.summary = "Twelve marks.";
    widget.setPicture(another);
    EXPECT_EQ(widget.view().choice, 0);
    EXPECT_EQ(widget.accessibleDescription(), "Twelve marks.");
    press(Qt::Key_Right);
    EXPECT_EQ(told(), "0.0-100.0 0");
}

TEST_F(PictureWalk, TakesTheRoomOfItsStrips) {
    const PictureLook look(widget.font(), widget.palette());
    EXPECT_EQ(widget.heightForWidth(400), 131);
    EXPECT_EQ(widget.minimumSizeHint(), QSize(qCeil(look.leastWidth()), static_cast<int>(look.lineHeight())));
    EXPECT_EQ(widget.sizeHint(), QSize(2 * widget.minimumSizeHint().width(), 131));
    EXPECT_TRUE(widget.sizePolicy().hasHeightForWidth());
    EXPECT_TRUE(widget.hasMouseTracking());
    QFont large = widget.font();
    large.setPointSizeF(2 * large.pointSizeF());
    widget.setFont(large);
    EXPECT_GT(widget.minimumSizeHint().width(), 1.8 * look.leastWidth());
}

}  // namespace tallybrook::test
