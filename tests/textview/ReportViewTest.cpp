#include "readers/Printing.h"
#include "textview/ReportView.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

QPalette darkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(27, 29, 33));
    palette.setColor(QPalette::Text, QColor(235, 235, 235));
    return palette;
}

/// How bright a colour is seen, from 0 to 1.
double luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& first, const QColor& second) {
    const auto [low, high] = std::minmax({luminance(first), luminance(second)});
    return (high + 0.05) / (low + 0.05);
}

}  // namespace

class ReportViewTest : public testing::Test {
protected:
    ReportViewTest() {
        view.resize(900, 500);
        view.show();
    }
    void show(const QString& text) { view.showText(text, ReportView::Place::Beginning); }
    /// Where the last character of a line stands, in pixels from the line's beginning.
    double lastPlace(int line) { return view.laid().xOf(view.lines().span(line).end - 1); }
    void turnWheel(int angle, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QWheelEvent event({50, 50}, view.viewport()->mapToGlobal(QPointF(50, 50)), {}, {0, angle},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
    }
    /// The colour in the upper left corner of a character, where no letter has ink.
    QColor groundAt(int line, int column) {
        const QPointF corner = view.placeOf(view.lines().span(line).begin + column).topLeft();
        return view.viewport()->grab().toImage().pixelColor(corner.toPoint() + QPoint(2, 1));
    }

    ReportView view;
};

TEST_F(ReportViewTest, TabLeadsToEveryEighthCharacterAtEveryZoom) {
    show(
        "\tX\n"
        "1\tX\n"
        "1234567\tX\n"
        "12345678\tX\n"
        "iiii\tWWWW\tX\n"
        "1\t2\t3\t4\t5\t6\t7\t8\t9\t10\tX\n"
        "        X\n"
        "                X\n" +
        QString(80, ' ') + "X");
    const double shortest = 6;
    for (Zoom zoom = Zoom(0);; zoom = zoom.stepped(1)) {
        view.setZoom(zoom);
        const double eight = lastPlace(6);
        EXPECT_GT(eight, shortest) << zoom.percent();
        EXPECT_DOUBLE_EQ(view.laid().tabWidth(), eight) << zoom.percent();
        for (const int line : {0, 1, 2})
            EXPECT_DOUBLE_EQ(lastPlace(line), eight) << line << " at " << zoom.percent();
        EXPECT_DOUBLE_EQ(lastPlace(3), lastPlace(7)) << zoom.percent();
        EXPECT_DOUBLE_EQ(lastPlace(4), lastPlace(7)) << zoom.percent();
        EXPECT_DOUBLE_EQ(lastPlace(5), lastPlace(8)) << zoom.percent();
        if (zoom.percent() == zoom.stepped(1).percent())
            break;
    }
}

TEST_F(ReportViewTest, TextIsLargerByItsZoom) {
    show("        X");
    const double actual = lastPlace(0);
    view.setZoom(Zoom(200));
    EXPECT_NEAR(lastPlace(0), 2 * actual, 0.1 * actual);
    view.setZoom(Zoom());
    EXPECT_DOUBLE_EQ(lastPlace(0), actual);
}

TEST_F(ReportViewTest, LinesAreNotWrappedAndNotWritten) {
    show(QString(2000, 'x'));
    view.grab();
    EXPECT_EQ(view.laid().layoutOf(0).lineCount(), 1);
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
    QTest::keyClicks(&view, "y");
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(view.text(), QString(2000, 'x'));
}

TEST_F(ReportViewTest, AnotherTextIsShownFromItsBeginning) {
    const QString text = (QString(300, 'x') + '\n').repeated(100);
    show(text);
    const auto place = [this] {
        return QPoint(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
    };
    view.horizontalScrollBar()->setValue(30);
    view.verticalScrollBar()->setValue(20);
    view.showText(text + "more", ReportView::Place::Same);
    EXPECT_EQ(place(), QPoint(30, 20));
    show(text);
    EXPECT_EQ(place(), QPoint(0, 0));
}

TEST_F(ReportViewTest, CopiesTextWithItsTabsAndBlanks) {
    const QString text = QString("1\t2\n\t3 ") + QChar(0xA0) + "4";
    show(text);
    view.selectAll();
    view.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    EXPECT_EQ(QApplication::clipboard()->mimeData()->formats(), QStringList{"text/plain"});
}

TEST_F(ReportViewTest, SelectsWithKeys) {
    show("Game 1\nGame 2");
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(view.selectedText(), "Game 1\n");
}

TEST_F(ReportViewTest, WheelZoomsWithCtrlAlone) {
    int zoomed = 0;
    view.onZoomed = [&] { ++zoomed; };
    turnWheel(120);
    EXPECT_EQ(view.zoom().percent(), 110);
    turnWheel(-240);
    EXPECT_EQ(view.zoom().percent(), 90);
    EXPECT_EQ(zoomed, 2);
    turnWheel(120, Qt::NoModifier);
    EXPECT_EQ(view.zoom().percent(), 90);
}

TEST_F(ReportViewTest, SmallTurnsOfTheWheelAddUp) {
    for (int i = 0; i < 3; ++i)
        turnWheel(30);
    EXPECT_EQ(view.zoom().percent(), 100);
    turnWheel(30);
    EXPECT_EQ(view.zoom().percent(), 110);
    turnWheel(-60);
    EXPECT_EQ(view.zoom().percent(), 110);
    turnWheel(-60);
    EXPECT_EQ(view.zoom().percent(), 100);
}

TEST_F(ReportViewTest, WheelScrollsWithoutCtrl) {
    show(QString("line\n").repeated(500));
    view.grab();
    turnWheel(-120, Qt::NoModifier);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
}

TEST_F(ReportViewTest, MarksEveryMatch) {
    const QString text = "a game\nno\ngame game";
    show(text);
    const QColor marked = colourOfMatches(view.palette());
    EXPECT_NE(groundAt(0, 2), marked);
    view.mark(Matches(text, "game", Qt::CaseSensitive));
    EXPECT_EQ(groundAt(0, 2), marked);
    EXPECT_NE(groundAt(0, 0), marked);
    EXPECT_NE(groundAt(1, 0), marked);
    EXPECT_EQ(groundAt(2, 0), marked);
    EXPECT_NE(groundAt(2, 4), marked);
    EXPECT_EQ(groundAt(2, 8), marked);
    view.mark({});
    EXPECT_NE(groundAt(2, 8), marked);
}

TEST_F(ReportViewTest, MarksFollowTheScrolledText) {
    const QString text = QString("line\n").repeated(500) + "game";
    show(text);
    view.mark(Matches(text, "game", Qt::CaseSensitive));
    view.select(500 * 5, 0);
    EXPECT_EQ(groundAt(500, 1), colourOfMatches(view.palette()));
}

TEST_F(ReportViewTest, MarksFollowThePalette) {
    show("game");
    view.mark(Matches("game", "game", Qt::CaseSensitive));
    view.setPalette(darkPalette());
    EXPECT_EQ(groundAt(0, 0), colourOfMatches(darkPalette()));
}

TEST_F(ReportViewTest, MarkedTextIsReadableInLightAndDark) {
    QPalette light;
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    for (const QPalette& palette : {light, darkPalette()}) {
        EXPECT_GT(contrast(colourOfMatches(palette), palette.color(QPalette::Text)), 4.5);
        EXPECT_GT(contrast(colourOfMatches(palette), palette.color(QPalette::Base)), 1.2);
    }
}

TEST_F(ReportViewTest, HasANameForThoseWhoHearIt) {
    EXPECT_EQ(view.accessibleName(), "Report");
}

}  // namespace tallybrook::test
