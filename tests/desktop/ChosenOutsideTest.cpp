#include "Lists.h"

#include <QAccessible>

namespace tallybrook::test {

/// What assistive technology chooses in lists and grids.
class ChosenOutsideTest : public Lists {
protected:
    ChosenOutsideTest() : Lists(3) {
        display.perform([this] {
            lists().adoEvents.setRecordSource("SELECT * FROM tblEventInfo");
            lists().adoEvents.Refresh();
            lists().dirFolder.setPath(at(""));
            lists().lstNames.pick(0);
        });
        lists().log.clear();
    }
    static QAccessibleInterface& told(QWidget& widget) {
        return *QAccessible::queryAccessibleInterface(&widget);
    }
    static void chooseRow(QWidget& table, int row) {
        told(table).tableInterface()->selectRow(row);
        QTest::qWait(0);
    }
    /// Presses an item, which chooses it or lets it go.
    static void pressRow(QWidget& table, int row) {
        told(table).tableInterface()->cellAt(row, 0)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
        QTest::qWait(0);
    }
    QAbstractItemView& grid() { return widget<QAbstractItemView>(lists().dgdEvents); }
};

TEST_F(ChosenOutsideTest, RowOfAGridIsTheCurrentOne) {
    chooseRow(grid(), 2);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 3);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got dgdEvents"}));
    EXPECT_EQ(focused(), "dgdEvents");
    pressRow(grid(), 1);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 2);
    EXPECT_EQ(selectedIn(grid()), std::vector<int>{1});
}

TEST_F(ChosenOutsideTest, ItemOfAListIsPicked) {
    chooseRow(names(), 3);
    EXPECT_EQ(lists().lstNames.pickedIndex(), 3);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got lstNames", "click lstNames"}));
    pressRow(names(), 1);
    EXPECT_EQ(lists().lstNames.pickedIndex(), 1);
    EXPECT_EQ(selectedIn(names()), std::vector<int>{1});
}

TEST_F(ChosenOutsideTest, FolderIsPicked) {
    chooseRow(tree(), rowOf("c"));
    EXPECT_EQ(lists().dirFolder.path(), at("c"));
    EXPECT_EQ(focused(), "dirFolder");
}

TEST_F(ChosenOutsideTest, ItemOfAListThatOpensIsPicked) {
    pressRow(*kind().view(), 1);
    EXPECT_EQ(lists().cboKind.pickedIndex(), 1);
    EXPECT_EQ(kind().currentIndex(), 1);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cboKind", "click cboKind"}));

    kind().showPopup();
    chooseRow(*kind().view(), 2);
    EXPECT_EQ(lists().cboKind.pickedIndex(), 2);
    EXPECT_EQ(log(), Lines{"click cboKind"});
    EXPECT_FALSE(kind().view()->isVisible());
}

TEST_F(ChosenOutsideTest, WhatIsLetGoOfIsChosenStill) {
    chooseRow(grid(), 2);
    pressRow(grid(), 2);
    EXPECT_EQ(lists().dgdEvents.currentRow(), 3);
    EXPECT_EQ(selectedIn(grid()), std::vector<int>{2});
    pressRow(names(), 0);
    EXPECT_EQ(lists().lstNames.pickedIndex(), 0);
    EXPECT_EQ(selectedIn(names()), std::vector<int>{0});
}

TEST_F(ChosenOutsideTest, NothingIsChosenWhereTheLeavingKeepsTheFocus) {
    lists().leaving = [this] { lists().txtName.focus(); };
    chooseRow(names(), 3);
    chooseRow(grid(), 2);
    EXPECT_EQ(lists().lstNames.pickedIndex(), 0);
    EXPECT_EQ(selectedIn(names()), std::vector<int>{0});
    EXPECT_EQ(lists().dgdEvents.currentRow(), 1);
    EXPECT_EQ(selectedIn(grid()), std::vector<int>{0});
    EXPECT_EQ(focused(), "txtName");
}

}  // namespace tallybrook::test
