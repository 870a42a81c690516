#include "desktop/Heard.h"
#include "readers/Printing.h"
#include "textview/ReportView.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

// How a report is read and parts of it are selected, with keys, with the mouse and by ear.
namespace tallybrook::test {

namespace {

const QString kHebrew = QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D");

class ReportReadingTest : public testing::Test {
protected:
    ReportReadingTest() {
        view.resize(400, 300);
        view.show();
        view.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }
    void show(const QString& text) { view.showText(text, ReportView::Place::Beginning); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, key, modifiers);
    }
    int caretAfter(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(key, modifiers);
        return view.caret();
    }
    /// A point on the left half of the character at a place.
    [[nodiscard]] QPoint at(int place) const {
        return view.placeOf(place).toAlignedRect().topLeft() + QPoint(2, 3);
    }
    void mouse(QEvent::Type type, const QPoint& point, ulong time = 0,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, point, view.viewport()->mapToGlobal(point),
                          isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, modifiers);
        event.setTimestamp(time);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void click(const QPoint& point, ulong time = 0, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        mouse(QEvent::MouseButtonPress, point, time, modifiers);
        mouse(QEvent::MouseButtonRelease, point, time, modifiers);
    }
    void doubleClick(const QPoint& point, ulong time = 0) {
        click(point, time);
        mouse(QEvent::MouseButtonDblClick, point, time);
        mouse(QEvent::MouseButtonRelease, point, time);
    }
    [[nodiscard]] std::string selected() const { return view.selectedText().toStdString(); }
    [[nodiscard]] int firstLine() const { return view.verticalScrollBar()->value(); }
    [[nodiscard]] int page() const { return view.verticalScrollBar()->pageStep(); }

    ReportView view;
};

}  // namespace

// --- Keys --------------------------------------------------------------------------------------------------

TEST_F(ReportReadingTest, ArrowsLeadFromCharacterToCharacterAndLineToLine) {
    show("abc\nab\nabcd");
    EXPECT_EQ(caretAfter(Qt::Key_Right), 1);
    EXPECT_EQ(caretAfter(Qt::Key_Left), 0);
    EXPECT_EQ(caretAfter(Qt::Key_Left), 0);
    EXPECT_EQ(caretAfter(Qt::Key_End), 3);
    EXPECT_EQ(caretAfter(Qt::Key_Down), 6);
    EXPECT_EQ(caretAfter(Qt::Key_Down), 10);  // the column of the first line
    EXPECT_EQ(caretAfter(Qt::Key_Down), 10);
    EXPECT_EQ(caretAfter(Qt::Key_Home), 7);
    EXPECT_EQ(caretAfter(Qt::Key_Up), 4);
    EXPECT_EQ(caretAfter(Qt::Key_Left), 3);  // over the end of the line
    EXPECT_EQ(caretAfter(Qt::Key_End, Qt::ControlModifier), 11);
    EXPECT_EQ(caretAfter(Qt::Key_Home, Qt::ControlModifier), 0);
    EXPECT_EQ(caretAfter(Qt::Key_Right, Qt::ControlModifier), 3);
}

TEST_F(ReportReadingTest, ShiftSelectsOnTheWay) {
    show("Game 1\nGame 2");
    press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(selected(), "Game ");
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "Game 1");
    press(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(selected(), "Game 1\nGame 2");
    press(Qt::Key_Home);
    EXPECT_EQ(selected(), "");
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "Game 1\n");
    EXPECT_EQ(view.caret(), 0);
}

TEST_F(ReportReadingTest, ArrowLeavesASelectionAtItsEnd) {
    show("abcdefgh");
    view.select(2, 4);
    EXPECT_EQ(caretAfter(Qt::Key_Left), 2);
    view.select(2, 4);
    EXPECT_EQ(caretAfter(Qt::Key_Right), 6);
    EXPECT_TRUE(view.selected().isEmpty());
}

TEST_F(ReportReadingTest, ArrowsLeadThroughLinesFromTheRightAsTheyAreWritten) {
    show(kHebrew + "\nabc");
    EXPECT_EQ(caretAfter(Qt::Key_Right), 0);
    EXPECT_EQ(caretAfter(Qt::Key_Left), 1);
    EXPECT_EQ(caretAfter(Qt::Key_Left, Qt::ControlModifier), 4);
    EXPECT_GT(view.laid().xOf(0), view.laid().xOf(4));
    view.select(1, 2);
    EXPECT_EQ(caretAfter(Qt::Key_Right), 1);  // and leave what is selected there
    view.select(1, 2);
    EXPECT_EQ(caretAfter(Qt::Key_Left), 3);
}

TEST_F(ReportReadingTest, PagesScrollAndTakeTheCaretAlong) {
    show(QString("line\n").repeated(500));
    press(Qt::Key_Down);
    press(Qt::Key_PageDown);
    EXPECT_EQ(firstLine(), page());
    EXPECT_EQ(view.lines().lineOf(view.caret()), page() + 1);
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(view.selected().length(), 5 * page());
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(firstLine(), 0);
    EXPECT_EQ(view.lines().lineOf(view.caret()), 1);
}

TEST_F(ReportReadingTest, SpaceScrollsAndLeavesTheCaret) {
    show(QString("line\n").repeated(500));
    press(Qt::Key_Space);
    EXPECT_EQ(firstLine(), page());
    press(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(firstLine(), 0);
    EXPECT_EQ(view.caret(), 0);
}

TEST_F(ReportReadingTest, CaretIsBroughtIntoSight) {
    show(QString("line\n").repeated(500) + QString(400, 'x'));
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(firstLine(), view.verticalScrollBar()->maximum());
    EXPECT_EQ(view.horizontalScrollBar()->value(), view.horizontalScrollBar()->maximum());
    EXPECT_TRUE(view.viewport()->rect().contains(view.placeOf(view.caret()).toAlignedRect().topLeft()));
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(firstLine(), 0);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 0);
}

TEST_F(ReportReadingTest, CopiesWhatIsSelectedAlone) {
    show("abc");
    QApplication::clipboard()->setText("before");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "before");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "abc");
}

TEST_F(ReportReadingTest, TellsWhenSomethingElseIsSelected) {
    show("abc");
    int told = 0;
    view.onSelected = [&] { ++told; };
    press(Qt::Key_Right);
    EXPECT_EQ(told, 0);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(told, 1);
    press(Qt::Key_Right);
    EXPECT_EQ(told, 2);
}

// --- Mouse -------------------------------------------------------------------------------------------------

TEST_F(ReportReadingTest, ClickPutsTheCaretAndShiftSelectsFromIt) {
    show("abc\ndefghi");
    click(at(5));
    EXPECT_EQ(view.caret(), 5);
    click(at(8), 0, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "efg");
    click(at(1), 0, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "bc\nd");
    EXPECT_EQ(view.caret(), 1);
    click({390, 290});
    EXPECT_EQ(view.caret(), 10);  // behind the last line
}

TEST_F(ReportReadingTest, ShiftMakesASelectionSmallerByAClickIntoIt) {
    show("abcdefghi");
    view.select(2, 6);
    click(at(4), 0, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "cd");
    EXPECT_EQ(view.caret(), 4);
}

TEST_F(ReportReadingTest, DraggingSelectsInBothDirections) {
    show("abc\ndefghi");
    mouse(QEvent::MouseButtonPress, at(5));
    mouse(QEvent::MouseMove, at(8));
    EXPECT_EQ(selected(), "efg");
    mouse(QEvent::MouseMove, at(2));
    EXPECT_EQ(selected(), "c\nd");
    mouse(QEvent::MouseButtonRelease, at(2));
    mouse(QEvent::MouseMove, at(8));
    EXPECT_EQ(selected(), "c\nd");
}

TEST_F(ReportReadingTest, DoubleClickSelectsAWordAndDraggingWords) {
    show("one two three four");
    doubleClick(at(5));
    EXPECT_EQ(selected(), "two");
    mouse(QEvent::MouseButtonDblClick, at(5));
    mouse(QEvent::MouseMove, at(6));
    EXPECT_EQ(view.caret(), 7);
    mouse(QEvent::MouseMove, at(10));
    EXPECT_EQ(selected(), "two three");
    mouse(QEvent::MouseMove, at(1));
    EXPECT_EQ(selected(), "one two");
}

TEST_F(ReportReadingTest, TripleClickSelectsALine) {
    show("one two\nthree\nfour");
    doubleClick(at(1), 1000);
    click(at(1), 1100);
    EXPECT_EQ(selected(), "one two\n");
    click(at(10), 1200);
    EXPECT_EQ(selected(), "");
    doubleClick(at(1), 2000);
    click(at(10), 2100);  // at another place
    EXPECT_EQ(selected(), "");
    doubleClick(at(1), 3000);
    click(at(1), 3000 + static_cast<ulong>(QApplication::doubleClickInterval()));  // too late
    EXPECT_EQ(selected(), "");
    doubleClick(at(1), 4000);
    click(at(1), 4010);
    click(at(1), 4020);  // one too many
    EXPECT_EQ(selected(), "");
}

TEST_F(ReportReadingTest, ClickOnWhatIsSelectedSelectsNothing) {
    show("one two");
    view.selectAll();
    mouse(QEvent::MouseButtonPress, at(2));
    EXPECT_EQ(selected(), "one two");  // it may be dragged away
    mouse(QEvent::MouseButtonRelease, at(2));
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(view.caret(), 2);
}

TEST_F(ReportReadingTest, DraggingBeyondTheEdgeScrolls) {
    show(QString("line\n").repeated(500));
    mouse(QEvent::MouseButtonPress, at(0));
    mouse(QEvent::MouseMove, {20, 330});
    const int once = firstLine();
    EXPECT_GT(once, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return firstLine() > once; }));  // by itself
    mouse(QEvent::MouseButtonRelease, {20, 330});
    EXPECT_GT(view.selected().length(), 5 * page());
}

TEST_F(ReportReadingTest, ScrollsByItselfOnlyWhileTheMouseIsBeyondTheEdge) {
    show(QString("line\n").repeated(500));
    const auto timers = [this] {
        return QAbstractEventDispatcher::instance()->registeredTimers(&view).size();
    };
    const auto before = timers();
    mouse(QEvent::MouseButtonPress, at(0));
    EXPECT_EQ(timers(), before);
    for (int round = 0; round < 2; ++round) {
        mouse(QEvent::MouseMove, {20, 330});
        EXPECT_EQ(timers(), before + 1);
        mouse(QEvent::MouseMove, {20, 150});
        EXPECT_EQ(timers(), before);
    }
    mouse(QEvent::MouseMove, {20, -30});
    EXPECT_EQ(timers(), before + 1);
    mouse(QEvent::MouseButtonRelease, {20, -30});
    EXPECT_EQ(timers(), before);
}

TEST_F(ReportReadingTest, WhatIsSelectedCanBeDraggedAway) {
    show("one two");
    view.select(0, 3);
    QTimer::singleShot(0, &QDrag::cancel);  // where the drag waits for its end
    mouse(QEvent::MouseButtonPress, at(1));
    mouse(QEvent::MouseMove, at(1) + QPoint(QApplication::startDragDistance() - 1, 0));
    EXPECT_EQ(view.findChild<QDrag*>(), nullptr);
    mouse(QEvent::MouseMove, at(1) + QPoint(QApplication::startDragDistance(), 0));
    const auto* const drag = view.findChild<QDrag*>();
    ASSERT_NE(drag, nullptr);
    ASSERT_NE(drag->mimeData(), nullptr);
    EXPECT_EQ(drag->mimeData()->text(), "one");
    mouse(QEvent::MouseButtonRelease, at(5));
    EXPECT_EQ(selected(), "one");
}

TEST_F(ReportReadingTest, OtherButtonsLeaveTheSelection) {
    show("one two");
    view.select(0, 3);
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, at(5));
    QTest::mouseDClick(view.viewport(), Qt::RightButton, {}, at(5));
    EXPECT_EQ(selected(), "one");
}

// --- What it takes -----------------------------------------------------------------------------------------

TEST_F(ReportReadingTest, TextIsSharedAndOnlyWhatIsInSightIsLaidOut) {
    const QString text = QString("11/14/2026\tThursday League\t601\r").repeated(20000).replace('\r', '\n');
    show(text);
    EXPECT_EQ(view.text().constData(), text.constData());
    view.grab();
    const std::size_t mostInSight = static_cast<std::size_t>(page()) + 3;
    EXPECT_LE(view.laid().countLaid(), mostInSight);
    press(Qt::Key_End, Qt::ControlModifier);
    view.grab();
    EXPECT_GT(view.laid().countLaid(), 1);
    EXPECT_LE(view.laid().countLaid(), mostInSight);
}

TEST_F(ReportReadingTest, LinesWiderThanTheirColumnsCanBeScrolledTo) {
    const QString wide = QString::fromUtf8("\xE4\xBF\x9D\xE9\xBE\x84").repeated(60);
    show(wide);
    view.grab();
    const int width = view.viewport()->width();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return view.horizontalScrollBar()->maximum() + width >
               view.laid().layoutOf(0).lineAt(0).naturalTextWidth();
    }));
}

TEST_F(ReportReadingTest, CaretIsShownWhereTheFocusIs) {
    show("abc");
    const QRect caret = QRectF(view.placeOf(0).topLeft(), QSizeF(1, 6)).toAlignedRect();
    const QImage with = view.viewport()->grab(caret).toImage();
    view.clearFocus();
    EXPECT_NE(view.viewport()->grab(caret).toImage(), with);
    view.select(1, 0);
    view.select(0, 0);  // as the find bar does
    EXPECT_NE(view.viewport()->grab(caret).toImage(), with);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorRectangle).toRectF().topLeft(), view.placeOf(0).topLeft());
}

TEST_F(ReportReadingTest, SelectionIsSeenWithoutTheFocusToo) {
    show("    ");
    view.select(0, 4);
    const auto ground = [&] { return view.viewport()->grab().toImage().pixelColor(at(1)); };
    EXPECT_EQ(ground(), view.palette().color(QPalette::Active, QPalette::Highlight));
    view.clearFocus();
    EXPECT_EQ(ground(), view.palette().color(QPalette::Inactive, QPalette::Highlight));
}

// --- Where it stands ---------------------------------------------------------------------------------------

TEST_F(ReportReadingTest, EndOfALineIsSeenToBeSelectedThoughNothingElseOfItIs) {
    show("ab\ncd");
    const auto behindFirstLine = [&] { return view.viewport()->grab().toImage().pixelColor(at(2)); };
    EXPECT_EQ(behindFirstLine(), view.palette().color(QPalette::Base));
    view.select(2, 2);
    EXPECT_EQ(behindFirstLine(), view.palette().color(QPalette::Active, QPalette::Highlight));
}

TEST_F(ReportReadingTest, TextStandsWithinItsMargins) {
    show(QString("line\n").repeated(99) + QString(400, 'x'));
    const double height = view.laid().height();
    EXPECT_EQ(view.placeOf(0).topLeft(), QPointF(12, 12));
    EXPECT_EQ(view.placeOf(5).topLeft(), QPointF(12, 12 + height));
    EXPECT_EQ(view.placeOf(5).height(), height);
    EXPECT_EQ(view.placeAt({0, 11 + height}), 0);
    EXPECT_EQ(view.placeAt({0, 12 + height}), 5);
    const QSize room = view.viewport()->size() - QSize(24, 24);
    EXPECT_EQ(page(), static_cast<int>(room.height() / height));
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 100 - page());
    const QScrollBar& columns = *view.horizontalScrollBar();
    EXPECT_EQ(columns.pageStep(), room.width());
    EXPECT_EQ(columns.maximum(), qCeil(view.laid().width()) - room.width());
    EXPECT_EQ(columns.singleStep(), static_cast<int>(height));
    view.resize(400, 10);
    EXPECT_EQ(page(), 1);
}

TEST_F(ReportReadingTest, WhatIsSelectedComesIntoSightFromAllSides) {
    show((QString(400, 'x') + '\n').repeated(500));
    QScrollBar& columns = *view.horizontalScrollBar();
    const auto linesAfter = [this](int line, int count) {
        view.select(401 * line, 401 * count);
        return std::pair(firstLine(), firstLine() + page() - 1);
    };
    EXPECT_EQ(linesAfter(100, 0).second, 100);
    EXPECT_EQ(linesAfter(102, 0).second, 102);
    EXPECT_EQ(linesAfter(101, 0).second, 102) << "it was in sight";
    EXPECT_EQ(linesAfter(50, 3).first, 50);
    EXPECT_EQ(linesAfter(200, 3).second, 203);
    EXPECT_EQ(linesAfter(300, 100).second, 400);
    view.select(401 * 400 + 399, 0);
    const int right = qCeil(view.laid().xOf(401 * 400 + 399));
    EXPECT_EQ(columns.value(), right - columns.pageStep());
    view.select(401 * 400 + 10, 0);
    EXPECT_EQ(columns.value(), qCeil(view.laid().xOf(10)));
}

TEST_F(ReportReadingTest, TextShownAnewStaysWhereItWas) {
    const QString text = (QString(400, 'x') + '\n').repeated(500);
    show(text);
    const auto standing = [this] {
        return std::vector{firstLine(), view.horizontalScrollBar()->value(), view.selected().begin,
                           view.selected().end, view.caret()};
    };
    view.select(1000, -7);
    view.verticalScrollBar()->setValue(200);
    view.horizontalScrollBar()->setValue(30);
    view.showText("one more\n" + text, ReportView::Place::Same);
    EXPECT_EQ(standing(), (std::vector{200, 30, 993, 1000, 993}));
    view.showText(text, ReportView::Place::Beginning);
    EXPECT_EQ(standing(), (std::vector{0, 0, 0, 0, 0}));
    view.select(1000, 0);
    view.showText("short", ReportView::Place::Same);
    EXPECT_EQ(standing(), (std::vector{0, 0, 5, 5, 5}));
}

// --- By ear ------------------------------------------------------------------------------------------------

class HeardReportTest : public ReportReadingTest {
protected:
    HeardReportTest() { show("Game 1: 201\n\nGame 2"); }
    QAccessibleInterface& heard() { return *QAccessible::queryAccessibleInterface(&view); }
    QAccessibleTextInterface& text() { return *heard().textInterface(); }

    struct Unit {
        std::string text;
        int begin;
        int end;

        bool operator==(const Unit&) const = default;
    };
    using Asked = QString (QAccessibleTextInterface::*)(int, QAccessible::TextBoundaryType, int*, int*) const;
    Unit ask(Asked asked, int offset, QAccessible::TextBoundaryType type) {
        Unit answer{};
        answer.text = (text().*asked)(offset, type, &answer.begin, &answer.end).toStdString();
        return answer;
    }
    Unit here(int offset, QAccessible::TextBoundaryType type) {
        return ask(&QAccessibleTextInterface::textAtOffset, offset, type);
    }
    Unit before(int offset, QAccessible::TextBoundaryType type) {
        return ask(&QAccessibleTextInterface::textBeforeOffset, offset, type);
    }
    Unit after(int offset, QAccessible::TextBoundaryType type) {
        return ask(&QAccessibleTextInterface::textAfterOffset, offset, type);
    }
};

TEST_F(HeardReportTest, IsATextThatIsNotWrittenIn) {
    EXPECT_EQ(heard().role(), QAccessible::EditableText);
    const QAccessible::State state = heard().state();
    EXPECT_TRUE(state.readOnly && state.multiLine && state.selectableText && state.focusable);
    EXPECT_FALSE(state.editable);
    EXPECT_EQ(heard().text(QAccessible::Name), "Report");
    EXPECT_EQ(heard().text(QAccessible::Value), view.text());
    EXPECT_EQ(heard().editableTextInterface(), nullptr);
}

TEST_F(HeardReportTest, IsReadByCharactersWordsAndLines) {
    EXPECT_EQ(text().characterCount(), 19);
    EXPECT_EQ(text().text(5, 11).toStdString(), "1: 201");
    EXPECT_EQ(text().text(17, 99).toStdString(), " 2");
    EXPECT_EQ(here(1, QAccessible::CharBoundary), (Unit{"a", 1, 2}));
    EXPECT_EQ(here(1, QAccessible::WordBoundary), (Unit{"Game", 0, 4}));
    EXPECT_EQ(here(9, QAccessible::LineBoundary), (Unit{"Game 1: 201", 0, 11}));
    EXPECT_EQ(here(11, QAccessible::LineBoundary), (Unit{"Game 1: 201", 0, 11}));
    EXPECT_EQ(here(12, QAccessible::LineBoundary), (Unit{"", 12, 12}));
    EXPECT_EQ(here(15, QAccessible::ParagraphBoundary), (Unit{"Game 2", 13, 19}));
    EXPECT_EQ(here(99, QAccessible::SentenceBoundary), (Unit{"Game 2", 13, 19}));
    EXPECT_EQ(here(3, QAccessible::NoBoundary), (Unit{view.text().toStdString(), 0, 19}));
}

TEST_F(HeardReportTest, IsReadForthAndBack) {
    EXPECT_EQ(after(1, QAccessible::CharBoundary), (Unit{"m", 2, 3}));
    EXPECT_EQ(before(1, QAccessible::CharBoundary), (Unit{"G", 0, 1}));
    EXPECT_EQ(after(1, QAccessible::WordBoundary), (Unit{"1", 5, 6}));
    EXPECT_EQ(before(5, QAccessible::WordBoundary), (Unit{"Game", 0, 4}));
    EXPECT_EQ(before(9, QAccessible::WordBoundary), (Unit{"1", 5, 6}));  // from within a word
    EXPECT_EQ(after(3, QAccessible::LineBoundary), (Unit{"", 12, 12}));
    EXPECT_EQ(after(12, QAccessible::LineBoundary), (Unit{"Game 2", 13, 19}));
    EXPECT_EQ(before(15, QAccessible::LineBoundary), (Unit{"", 12, 12}));
    EXPECT_EQ(before(3, QAccessible::LineBoundary), (Unit{"", 0, 0}));
    EXPECT_EQ(after(18, QAccessible::LineBoundary), (Unit{"", 19, 19}));
    EXPECT_EQ(after(3, QAccessible::NoBoundary), (Unit{"", 19, 19}));
}

TEST_F(HeardReportTest, CaretAndSelectionAreHeardAndSet) {
    text().setCursorPosition(5);
    EXPECT_EQ(view.caret(), 5);
    EXPECT_EQ(text().cursorPosition(), 5);
    EXPECT_EQ(text().selectionCount(), 0);
    text().addSelection(5, 6);
    EXPECT_EQ(view.selected(), (TextSpan{5, 6}));
    EXPECT_EQ(text().selectionCount(), 1);
    text().setSelection(0, 13, 19);
    int begin = 0;
    int end = 0;
    text().selection(0, &begin, &end);
    EXPECT_EQ(view.selected(), (TextSpan{begin, end}));
    EXPECT_EQ(begin, 13);
    text().removeSelection(0);
    EXPECT_TRUE(view.selected().isEmpty());
}

TEST_F(HeardReportTest, PlacesAreToldAndFound) {
    for (const int place : {0, 7, 13, 18}) {
        const QRect shown = text().characterRect(place);
        EXPECT_EQ(text().offsetAtPoint(shown.topLeft() + QPoint(1, 2)), place);
        EXPECT_GT(shown.width(), 2);
    }
    int begin = -1;
    int end = -1;
    EXPECT_TRUE(text().attributes(3, &begin, &end).contains("font-family"));
    EXPECT_EQ(begin, 0);
    EXPECT_EQ(end, 19);
}

TEST_F(HeardReportTest, ThereIsOneSelection) {
    text().setSelection(0, 5, 8);
    text().setSelection(1, 0, 2);
    text().removeSelection(1);
    EXPECT_EQ(view.selected(), (TextSpan{5, 8}));
    int begin = -1;
    int end = -1;
    text().selection(1, &begin, &end);
    EXPECT_EQ(begin, 0);
    EXPECT_EQ(end, 0);
    text().selection(0, &begin, &end);
    EXPECT_EQ(end, 8);
    EXPECT_EQ(text().text(8, 5), QString());
}

TEST_F(HeardReportTest, FontIsTold) {
    int begin = 0;
    int end = 0;
    const QFontInfo font(view.font());
    EXPECT_EQ(text().attributes(0, &begin, &end),
              QString("font-family:\"%1\";font-size:%2pt;").arg(font.family()).arg(font.pointSizeF()));
}

TEST_F(HeardReportTest, BeginningOfWhatIsAskedForIsInSight) {
    show(QString("line\n").repeated(500));
    text().scrollToSubstring(1000, 2000);
    EXPECT_EQ(firstLine(), 200);
}

/// What was told last of the text, its selection and its caret.
struct LastTold {
    QString before;
    QString after;
    std::vector<int> places;
};
LastTold& lastTold() {
    static LastTold told;
    return told;
}

void noteLast(QAccessibleEvent* event) {
    LastTold& last = lastTold();
    if (const auto* const text = dynamic_cast<QAccessibleTextUpdateEvent*>(event))
        last = {text->textRemoved(), text->textInserted(), {text->changePosition()}};
    else if (const auto* const part = dynamic_cast<QAccessibleTextSelectionEvent*>(event))
        last.places = {part->selectionStart(), part->selectionEnd(), part->cursorPosition()};
    else if (const auto* const caret = dynamic_cast<QAccessibleTextCursorEvent*>(event))
        last.places.push_back(caret->cursorPosition());
}

TEST_F(HeardReportTest, TellsWhatHasBecomeOfThem) {
    const Heard heard;
    const auto before = QAccessible::installUpdateHandler(noteLast);
    view.select(9, -4);
    EXPECT_EQ(lastTold().places, (std::vector{5, 9, 5, 5}));
    view.showText("another", ReportView::Place::Same);
    EXPECT_EQ(lastTold().before, "Game 1: 201\n\nGame 2");
    EXPECT_EQ(lastTold().after, "another");
    EXPECT_EQ(lastTold().places.front(), 5) << "what stays selected";
    QAccessible::installUpdateHandler(before);
}

TEST_F(HeardReportTest, WhatIsAskedForIsBroughtIntoSight) {
    show(QString("line\n").repeated(500));
    text().scrollToSubstring(2000, 2004);
    EXPECT_EQ(firstLine() + page() - 1, 400);
}

TEST_F(HeardReportTest, TellsOfTheCaretTheSelectionAndTheText) {
    const Heard heard;
    view.setObjectName("view");
    const std::vector<std::string> once{"view"};
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Heard::take(QAccessible::TextCaretMoved), once);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Heard::take(QAccessible::TextSelectionChanged), once);
    show("another");
    EXPECT_EQ(Heard::take(QAccessible::TextUpdated), once);
}

}  // namespace tallybrook::test
