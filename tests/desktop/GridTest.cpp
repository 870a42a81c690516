#include "Lists.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <initializer_list>

namespace tallybrook::test {

namespace {

using Rows = std::vector<int>;

class GridTest : public Lists {
protected:
    using Lists::Lists;
    void fill(int count) {
        Recordset rows(program.store());
        rows.Open("SELECT * FROM tblEventInfo");
        for (int event = 1; event <= count; ++event) {
            rows.AddNew();
            rows["fldEventName"] = fmt::format("Event {}", event);
            rows["fldDateBowled"] = makeDate(2026, 11, static_cast<unsigned>(event));
            rows["fldSeriesAvg"] = event * 10.5;
            rows["fldComment"] = std::string("two\r\nlines");
            rows.Update();
        }
        refresh();
    }
    void refresh(const std::string& where = "") {
        display.perform([&] {
            lists().adoEvents.setRecordSource("SELECT * FROM tblEventInfo" + where);
            lists().adoEvents.Refresh();
        });
    }
    QTableView& table() { return widget<QTableView>(lists().dgdEvents); }
    Lines row(int number) {
        Lines cells;
        for (int column = 0; column < table().model()->columnCount(); ++column)
            cells.push_back(table().model()->index(number - 1, column).data().toString().toStdString());
        return cells;
    }
    void clickRow(int number) { clickItem(table(), table().model()->index(number - 1, 1)); }
    bool isInView(int number) {
        return table().viewport()->rect().contains(
            table().visualRect(table().model()->index(number - 1, 0)).center());
    }
};

TEST_F(GridTest, ShowsTitleHeadersAndCells) {
    fill(2);
    const auto* const title = table().parentWidget()->findChild<QLabel*>();
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->text(), "Event List");
    EXPECT_LT(title->geometry().bottom(), table().geometry().top());
    const QRect place = table().parentWidget()->rect();
    EXPECT_EQ(title->geometry().topLeft(), place.topLeft());
    EXPECT_EQ(table().geometry().bottomRight(), place.bottomRight()) << "no room is lost around it";
    EXPECT_EQ(table().accessibleName(), "Event List");
    Lines headers;
    for (int column = 0; column < 5; ++column)
        headers.push_back(table().model()->headerData(column, Qt::Horizontal).toString().toStdString());
    EXPECT_EQ(headers, (Lines{"Event", "Event Name", "Date Bowled", "Series Avg.", "Comment"}));
    EXPECT_EQ(table().model()->headerData(0, Qt::Vertical), QVariant());
    EXPECT_EQ(row(1), (Lines{"1", "Event 1", "11/1/2026", "10.50", "two lines"}));
    EXPECT_EQ(row(2), (Lines{"2", "Event 2", "11/2/2026", "21.00", "two lines"}));
}

TEST_F(GridTest, LongTextIsCopiedWhole) {
    fill(1);
    const std::string comment(3000, 'c');
    Recordset rows(program.store());
    rows.Open("SELECT * FROM tblEventInfo");
    rows["fldComment"] = comment;
    rows.Update();
    refresh();
    EXPECT_EQ(row(1).at(4), comment.substr(0, 2000));
    clickRow(1);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().section('\t', 4).toStdString(), comment);
}

TEST_F(GridTest, TitleFollowsTheScreen) {
    const auto* const title = table().parentWidget()->findChild<QLabel*>();
    display.perform([this] { lists().dgdEvents.setCaption("<b>Games</b>"); });
    EXPECT_EQ(title->text(), "<b>Games</b>");
    display.perform([this] { lists().dgdEvents.setCaption(""); });
    EXPECT_FALSE(title->isVisible());
    display.perform([this] { lists().dgdEvents.setVisible(false); });
    EXPECT_FALSE(table().isVisible());
}

TEST_F(GridTest, NumbersStandAtTheRight) {
    fill(1);
    for (const auto& [column, side] : std::initializer_list<std::pair<int, Qt::AlignmentFlag>>{
             {0, Qt::AlignRight}, {1, Qt::AlignLeft}, {2, Qt::AlignLeft}, {3, Qt::AlignRight}}) {
        const int expected = static_cast<int>(side | Qt::AlignVCenter);
        EXPECT_EQ(table().model()->index(0, column).data(Qt::TextAlignmentRole).toInt(), expected) << column;
        EXPECT_EQ(table().model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
                  expected);
    }
}

TEST_F(GridTest, ColumnsAreAsWideAsTheyAskForAndAsTheirCaptions) {
    const int character = table().fontMetrics().averageCharWidth();
    EXPECT_GE(table().columnWidth(1), 24 * character);
    EXPECT_LT(table().columnWidth(1), 28 * character);
    EXPECT_GE(table().columnWidth(2), table().fontMetrics().horizontalAdvance("Date Bowled"));
    EXPECT_GE(table().columnWidth(4), 60 * character);
}

TEST_F(GridTest, ColumnsGiveWayOnlyWhereThatSavesTheScrolling) {
    const QHeaderView& header = *table().horizontalHeader();
    table().resize(10'000, 200);
    const int wanted = header.sectionSize(4);
    const int all = header.length();
    table().resize(all - wanted / 10, 200);
    EXPECT_LT(header.sectionSize(4), wanted);
    EXPECT_LE(header.length(), table().viewport()->width());
    table().resize(all / 4, 200);
    EXPECT_EQ(header.sectionSize(4), wanted);
}

TEST_F(GridTest, LargerFontMakesRowsAndColumnsLarger) {
    const int width = table().columnWidth(1);
    const int height = table().verticalHeader()->defaultSectionSize();
    QFont font = table().font();
    font.setPointSizeF(font.pointSizeF() * 2);
    table().setFont(font);
    EXPECT_GT(table().columnWidth(1), width);
    EXPECT_GE(table().columnWidth(1), table().horizontalHeader()->sectionSizeHint(1));
    EXPECT_GT(table().verticalHeader()->defaultSectionSize(), height * 3 / 2);
}

TEST_F(GridTest, CurrentRowIsSelectedAsAWhole) {
    fill(3);
    EXPECT_EQ(selectedIn(table()), Rows{0});
    clickRow(3);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 3);
    EXPECT_EQ(selectedIn(table()), Rows{2});
    EXPECT_EQ(log(), (Lines{"lost txtName", "got dgdEvents"}));
    EXPECT_EQ(focused(), "dgdEvents");
    EXPECT_TRUE(table().alternatingRowColors());
}

TEST_F(GridTest, DoubleClickIsAClick) {
    fill(3);
    doubleClick(table(), placeOf(table(), table().model()->index(1, 1)));
    EXPECT_EQ(lists().dgdEvents.currentRow(), 2);
}

TEST_F(GridTest, RowStaysWhereTheFocusDoesNotArrive) {
    fill(3);
    for (Control* const rest : std::initializer_list<Control*>{&lists().txtName, &lists().cmdGo}) {
        lists().leaving = nullptr;
        display.perform([this] { lists().txtName.focus(); });
        lists().leaving = [rest] { rest->focus(); };
        clickRow(2);
        EXPECT_EQ(selectedIn(table()), Rows{0});
    }
    lists().leaving = nullptr;
    display.perform([this] { lists().dgdEvents.setEnabled(false); });
    clickRow(2);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 1);
}

TEST_F(GridTest, KeysMoveTheRow) {
    fill(30);
    display.perform([this] { lists().dgdEvents.focus(); });
    press(Qt::Key_Down);
    EXPECT_EQ(selectedIn(table()), Rows{1});
    press(Qt::Key_PageDown);
    EXPECT_EQ(selectedIn(table()), Rows{11});
    press(Qt::Key_End);
    EXPECT_EQ(selectedIn(table()), Rows{29});
    EXPECT_TRUE(isInView(30));
    press(Qt::Key_A);
    press(Qt::Key_Space);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedIn(table()), Rows{29});
}

TEST_F(GridTest, KeysScrollSidewaysAndTheRowsStayThere) {
    fill(30);
    display.perform([this] { lists().dgdEvents.focus(); });
    const QScrollBar& sideways = *table().horizontalScrollBar();
    table().window()->resize(320, 400);
    QTest::qWait(1);
    ASSERT_GT(sideways.maximum(), 0);
    press(Qt::Key_Right);
    const int scrolled = sideways.value();
    EXPECT_GT(scrolled, 0);
    press(Qt::Key_End);
    EXPECT_EQ(sideways.value(), scrolled);
    press(Qt::Key_Left);
    EXPECT_LT(sideways.value(), scrolled);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 30);
}

TEST_F(GridTest, HeadersSelectNothing) {
    fill(3);
    QHeaderView& header = *table().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, header.height() / 2));
    EXPECT_EQ(selectedIn(table()), Rows{0});
    EXPECT_EQ(table().selectionModel()->selectedColumns().size(), 0);
    EXPECT_EQ(log(), Lines{});
}

TEST_F(GridTest, RefreshShowsOtherRows) {
    fill(3);
    clickRow(3);
    refresh(" WHERE fldSessionNum > 1");
    EXPECT_EQ(table().model()->rowCount(), 2);
    EXPECT_EQ(row(1)[1], "Event 2");
    EXPECT_EQ(selectedIn(table()), Rows{0});
    refresh(" WHERE fldSessionNum < 3");  // as many as before
    EXPECT_EQ(row(1)[1], "Event 1");
    refresh(" WHERE fldSessionNum = 99");
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_EQ(selectedIn(table()), Rows{});
    clickItem(table(), QModelIndex());
    press(Qt::Key_Down);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 0);
}

TEST_F(GridTest, ScreenWithAGridGoes) {
    fill(3);
    const QPointer<QTableView> lasting(&table());
    display.perform([this] { program.screens.goBackFrom(lists()); });
    ASSERT_FALSE(lasting.isNull());
    EXPECT_EQ(lasting->model()->index(0, 1).data(), QVariant());  // it asks the screen for nothing any more
    EXPECT_EQ(lasting->model()->headerData(0, Qt::Horizontal), QVariant());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(lasting.isNull());
}

class ManyRowsTest : public GridTest {
protected:
    static constexpr int kMany = 10'000;
    ManyRowsTest() : GridTest(kMany) { refresh(); }
};

TEST_F(ManyRowsTest, ComeIntoView) {
    EXPECT_EQ(table().model()->rowCount(), kMany);
    display.perform([this] { lists().dgdEvents.focus(); });
    press(Qt::Key_End);
    EXPECT_TRUE(isInView(kMany));
    EXPECT_FALSE(isInView(1));
    EXPECT_EQ(row(kMany)[1], "Event 10000");
    clickRow(5000);
    EXPECT_EQ(lists().dgdEvents.text(1), "Event 5000");
}

}  // namespace

}  // namespace tallybrook::test
