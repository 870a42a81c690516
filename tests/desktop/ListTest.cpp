#include "Lists.h"
#include "runtime/EndProgram.h"
#include "style/Colours.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>
#include <QWheelEvent>
#include <QWindow>

namespace tallybrook::test {

namespace {

using ListTest = Lists;
using Rows = std::vector<int>;

// --- Showing -----------------------------------------------------------------------------------------------

TEST_F(ListTest, ShowsWhatTheListsHold) {
    EXPECT_EQ(textsIn(*kind().model()), (Lines{"Center Name", "Comment", "Date Bowled"}));
    EXPECT_EQ(kind().currentIndex(), -1);
    EXPECT_FALSE(kind().isEditable());
    EXPECT_EQ(textsIn(*names().model()), (Lines{"Ann", "Bob", "Emil", "Ben"}));
    EXPECT_EQ(selectedIn(names()), Rows{});
    EXPECT_EQ(textsIn(*widget<QComboBox>(lists().drvDrive).model()), lists().drvDrive.items());
    EXPECT_EQ(widget<QComboBox>(lists().cboEmpty).count(), 0);
}

TEST_F(ListTest, FollowsTheProgramsOwnChanges) {
    display.perform([this] {
        lists().cboKind.fill({"one", "two & <b>three</b>"});
        lists().cboKind.pick(1);
        lists().lstNames.add("Zoe");
        lists().lstNames.pick(4);
        lists().drvDrive.showVolumeOf("/");
    });
    EXPECT_EQ(kind().currentText(), "two & <b>three</b>");
    EXPECT_EQ(names().model()->rowCount(), 5);
    EXPECT_EQ(selectedIn(names()), Rows{4});
    EXPECT_EQ(widget<QComboBox>(lists().drvDrive).currentIndex(), 0);
    display.perform([this] { lists().cboKind.fill({"three", "four"}); });  // as many as before
    EXPECT_EQ(textsIn(*kind().model()), (Lines{"three", "four"}));
    display.perform([this] {
        lists().cboKind.clear();
        lists().lstNames.fill({"Ann"});
    });
    EXPECT_EQ(kind().count(), 0);
    EXPECT_EQ(textsIn(*names().model()), Lines{"Ann"});
    EXPECT_EQ(selectedIn(names()), Rows{});
}

TEST_F(ListTest, NamesAreReadAloudFromTheLabels) {
    EXPECT_EQ(kind().accessibleName(), "Kind");
    EXPECT_EQ(names().accessibleName(), "Names");
    EXPECT_EQ(tree().accessibleName(), "Folder");
    EXPECT_EQ(widget(lists().cboEmpty).accessibleName(), "Nothing <b>yet</b>");
    EXPECT_EQ(widget<QLabel>(lists().lblFolder).buddy(), &tree());
}

TEST_F(ListTest, FolderPickedIsMarkedFromEdgeToEdge) {
    const auto& folders = dynamic_cast<QTreeView&>(tree());
    EXPECT_GE(folders.header()->sectionSize(0), folders.viewport()->width());
}

TEST_F(ListTest, WhatIsOffIsSeenToBeOff) {
    for (Control* const control :
         std::initializer_list<Control*>{&lists().cboKind, &lists().lstNames, &lists().drvDrive,
                                         &lists().dirFolder, &lists().dgdEvents}) {
        const QImage on = widget(*control).grab().toImage();
        display.perform([&] { control->setEnabled(false); });
        EXPECT_FALSE(widget(*control).isEnabled());
        EXPECT_NE(widget(*control).grab().toImage(), on) << control->name();
        display.perform([&] { control->setVisible(false); });
        EXPECT_FALSE(widget(*control).isVisible());
    }
}

TEST_F(ListTest, FocusIsSeen) {
    for (Control* const control : std::initializer_list<Control*>{&lists().cboKind, &lists().lstNames,
                                                                  &lists().dirFolder, &lists().dgdEvents}) {
        const QImage without = widget(*control).grab().toImage();
        display.perform([&] { control->focus(); });
        EXPECT_NE(widget(*control).grab().toImage(), without) << control->name();
    }
}

TEST_F(ListTest, LabelOfATallListStandsAtItsTop) {
    const QWidget& label = widget(lists().lblNames);
    EXPECT_LT(label.mapTo(&listWindow(), QPoint(0, label.height())).y(),
              names().mapTo(&listWindow(), QPoint(0, names().height() / 2)).y());
}

TEST_F(ListTest, TallListOfAFormTakesTheRoomThereIs) {
    const int before = names().height();
    listWindow().resize(listWindow().size() + QSize(0, 200));
    QCoreApplication::processEvents();
    EXPECT_GT(names().height(), before + 40);
    EXPECT_LT(kind().height(), 2 * kind().sizeHint().height());
}

TEST_F(ListTest, ListsAreAsLargeAsTheyAskFor) {
    EXPECT_GE(names().viewport()->height(), 4 * names().sizeHintForRow(0));
    EXPECT_GE(tree().viewport()->height(), 4 * tree().sizeHintForRow(0));
    EXPECT_GE(kind().width(), 18 * kind().fontMetrics().averageCharWidth());
}

// --- Lists that open ---------------------------------------------------------------------------------------

TEST_F(ListTest, PicksFromAnOpenedList) {
    Desktop::click(lists().cboKind);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cboKind"}));
    EXPECT_TRUE(kind().view()->isVisible());
    clickOpened(kind(), 1);
    EXPECT_FALSE(kind().view()->isVisible());
    EXPECT_EQ(lists().cboKind.picked(), "Comment");
    EXPECT_EQ(kind().currentIndex(), 1);
    EXPECT_EQ(log(), Lines{"click cboKind"});
    EXPECT_EQ(focused(), "cboKind");
}

TEST_F(ListTest, PicksTheItemThatIsPickedAlready) {
    pickFrom(lists().cboKind, 0);
    log();
    pickFrom(lists().cboKind, 0);
    EXPECT_EQ(log(), Lines{"click cboKind"});
}

TEST_F(ListTest, PicksADrive) {
    pickFrom(lists().drvDrive, 0);
    EXPECT_EQ(lists().drvDrive.picked(), "/");
    EXPECT_EQ(log(), (Lines{"lost txtName", "got drvDrive", "change drvDrive"}));
}

TEST_F(ListTest, ClosingAListPicksNothing) {
    Desktop::click(lists().cboKind);
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_FALSE(kind().view()->isVisible());
    EXPECT_EQ(kind().currentIndex(), -1);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cboKind"}));
}

TEST_F(ListTest, KeysOpenAndPick) {
    display.perform([this] { lists().cboKind.focus(); });
    for (const auto& [key, modifiers] :
         std::initializer_list<std::pair<Qt::Key, Qt::KeyboardModifiers>>{{Qt::Key_Down, Qt::AltModifier},
                                                                          {Qt::Key_F4, Qt::NoModifier},
                                                                          {Qt::Key_Space, Qt::NoModifier}}) {
        log();
        press(key, modifiers);
        ASSERT_TRUE(kind().view()->isVisible()) << key;
        press(Qt::Key_End);
        EXPECT_EQ(log(), Lines{}) << key;
        press(Qt::Key_Return);
        EXPECT_EQ(log(), Lines{"click cboKind"}) << key;
        EXPECT_EQ(lists().cboKind.pickedIndex(), 2);
    }
}

TEST_F(ListTest, KeysPickWithoutOpening) {
    display.perform([this] { lists().cboKind.focus(); });
    log();
    press(Qt::Key_Down);
    EXPECT_EQ(kind().currentIndex(), 0);
    press(Qt::Key_D);
    EXPECT_EQ(kind().currentIndex(), 2);
    press(Qt::Key_PageUp);
    EXPECT_EQ(kind().currentIndex(), 0);
    press(Qt::Key_Up);
    press(Qt::Key_Right);
    EXPECT_EQ(kind().currentIndex(), 0);
    EXPECT_EQ(log(), (Lines{"click cboKind", "click cboKind", "click cboKind"}));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(ListTest, WheelPicksNothing) {
    display.perform([this] { lists().cboKind.focus(); });
    QWheelEvent turned(QPointF(5, 5), kind().mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                       Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&kind(), &turned);
    EXPECT_FALSE(turned.isAccepted());
    EXPECT_EQ(kind().currentIndex(), -1);
}

TEST_F(ListTest, EmptyListDoesNotOpen) {
    Desktop::click(lists().cboEmpty);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(focused(), "cboEmpty");
}

TEST_F(ListTest, OpenedListShowsItsWidestItem) {
    QFont small = kind().font();
    small.setPixelSize(5);  // for which the display is wide enough
    kind().setFont(small);
    display.perform([this] { lists().cboKind.add(std::string(100, 'W')); });
    Desktop::click(lists().cboKind);
    EXPECT_GE(kind().view()->sizeHintForColumn(0), 100 * QFontMetrics(small).horizontalAdvance('W'));
    EXPECT_GE(kind().view()->viewport()->width(), kind().view()->sizeHintForColumn(0));
    press(Qt::Key_Escape);
}

TEST_F(ListTest, OpenedListIsNearlyAsWideAsADisplayThatIsTooNarrow) {
    display.perform([this] { lists().cboKind.add(std::string(300, 'W')); });
    Desktop::click(lists().cboKind);
    const int widest = listWindow().screen()->availableSize().width();
    ASSERT_GT(kind().view()->sizeHintForColumn(0), widest);
    EXPECT_GE(kind().view()->width(), widest * 4 / 5);
    EXPECT_LE(kind().view()->window()->width(), widest);
    press(Qt::Key_Escape);
}

// --- Focus -------------------------------------------------------------------------------------------------

TEST_F(ListTest, VeryLongTextsTakeALineEach) {
    display.perform([this] {
        for (ItemList* const list :
             {static_cast<ItemList*>(&lists().cboKind), static_cast<ItemList*>(&lists().lstNames)})
            list->fill({std::string(1'000'000, 'n'), "two\r\nlines"});
    });
    for (const QAbstractItemModel* const model : {kind().model(), names().model()})
        EXPECT_EQ(textsIn(*model), (Lines{std::string(2000, 'n'), "two lines"}));
    Desktop::click(lists().cboKind);
    EXPECT_TRUE(listWindow().screen()->availableGeometry().contains(kind().view()->window()->geometry()));
    press(Qt::Key_Escape);
}

TEST_F(ListTest, NothingOpensOrIsPickedWhereTheFocusDoesNotArrive) {
    const auto keep = [this] { lists().txtName.focus(); };
    const auto deflect = [this] { lists().cmdGo.focus(); };
    for (const auto& [leaving, arrival] : std::vector<std::pair<std::function<void()>, Arrival>>{
             {keep, Arrival::Kept}, {deflect, Arrival::Elsewhere}}) {
        for (const Control* const target : std::initializer_list<const Control*>{
                 &lists().cboKind, &lists().lstNames, &lists().drvDrive, &lists().dirFolder}) {
            lists().leaving = nullptr;
            display.perform([this] { lists().txtName.focus(); });
            lists().leaving = leaving;
            Desktop::click(*target);
            EXPECT_EQ(display.lastArrival(), arrival) << target->name();
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << target->name();
        }
    }
    lists().leaving = nullptr;
    EXPECT_EQ(lists().lstNames.pickedIndex(), std::nullopt);
    EXPECT_EQ(lists().dirFolder.path(), "/");
    EXPECT_EQ(selectedIn(names()), Rows{});
}

TEST_F(ListTest, NothingOpensOnceALeavingHasPutItOff) {
    lists().leaving = [this] { lists().cboKind.setEnabled(false); };
    Desktop::click(lists().cboKind);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(display.lastArrival(), Arrival::Refused);
}

TEST_F(ListTest, NothingOpensOnceALeavingHasHiddenTheScreen) {
    lists().leaving = [this] { program.screens.hide(lists()); };
    Desktop::click(lists().cboKind);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_FALSE(listWindow().isVisible());
}

TEST_F(ListTest, OpensWithWhatALeavingHasFilledIn) {
    lists().leaving = [this] { lists().cboEmpty.fill({"one", "two"}); };
    pickFrom(lists().cboEmpty, 1);
    EXPECT_EQ(lists().cboEmpty.picked(), "two");
}

/// What is off has the ground of the window, and its choice is pale.
TEST_F(ListTest, DisabledListIsQuiet) {
    const QColor window = QApplication::palette().color(QPalette::Active, QPalette::Window);
    const QColor text = QApplication::palette().color(QPalette::Active, QPalette::WindowText);
    for (const QWidget* const list :
         {static_cast<QWidget*>(&names()), static_cast<QWidget*>(&tree()), &widget(lists().dgdEvents)}) {
        const auto off = [list](QPalette::ColorRole role) {
            return list->palette().color(QPalette::Disabled, role);
        };
        EXPECT_EQ(off(QPalette::Base), window);
        EXPECT_EQ(off(QPalette::AlternateBase), window);
        EXPECT_EQ(off(QPalette::Highlight), between(window, text, 0.15));
        EXPECT_EQ(off(QPalette::HighlightedText), between(window, text, 0.55));
    }
}

TEST_F(ListTest, DisabledListTakesNoClick) {
    display.perform([this] {
        lists().cboKind.setEnabled(false);
        lists().lstNames.setEnabled(false);
    });
    Desktop::click(lists().cboKind);
    clickItem(names(), names().model()->index(1, 0));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(focused(), "txtName");
}

TEST_F(ListTest, AltLetterOfALabelReachesItsList) {
    press(Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(focused(), "lstNames");
    press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(focused(), "dirFolder");
}

// --- What a click may do -----------------------------------------------------------------------------------

TEST_F(ListTest, ClickMovesTheFocusElsewhere) {
    lists().cboKind.onClick = [this] {
        lists().cboEmpty.fill({"is", "contains"});
        lists().cboEmpty.focus();
    };
    pickFrom(lists().cboKind, 1);
    EXPECT_EQ(focused(), "cboEmpty");
    EXPECT_EQ(kind().currentText(), "Comment");
    EXPECT_EQ(widget<QComboBox>(lists().cboEmpty).count(), 2);
    lists().lstNames.onClick = [this] { lists().cmdGo.focus(); };
    clickItem(names(), names().model()->index(1, 0));
    EXPECT_EQ(focused(), "cmdGo");
    EXPECT_EQ(selectedIn(names()), Rows{1});
}

TEST_F(ListTest, ClickRefillsItsOwnList) {
    lists().cboKind.onClick = [this] { lists().cboKind.fill({"new"}); };
    pickFrom(lists().cboKind, 2);
    EXPECT_EQ(textsIn(*kind().model()), Lines{"new"});
    EXPECT_EQ(kind().currentIndex(), -1);
    lists().lstNames.onClick = [this] { lists().lstNames.clear(); };
    clickItem(names(), names().model()->index(3, 0));
    EXPECT_EQ(names().model()->rowCount(), 0);
}

TEST_F(ListTest, ClickPutsItsOwnListOff) {
    lists().cboKind.onClick = [this] { lists().cboKind.setEnabled(false); };
    pickFrom(lists().cboKind, 2);
    EXPECT_FALSE(kind().isEnabled());
    EXPECT_EQ(kind().currentIndex(), 2);
    EXPECT_EQ(focused(), "cboEmpty");
    lists().lstNames.onClick = [this] { lists().lstNames.setVisible(false); };
    clickItem(names(), names().model()->index(0, 0));
    EXPECT_FALSE(names().isVisible());
}

TEST_F(ListTest, ClickShowsABox) {
    for (Control* const list : std::initializer_list<Control*>{&lists().cboKind, &lists().lstNames}) {
        list->onClick = [this] { display.messageBox({.text = "Well?"}); };
        answerNext(Answer::OK);
        if (list == &lists().cboKind)
            pickFrom(*list, 1);
        else
            clickItem(names(), names().model()->index(1, 0));
        EXPECT_EQ(static_cast<ItemList*>(list)->pickedIndex(), 1);
        EXPECT_EQ(focused(), list->name());
    }
}

TEST_F(ListTest, ClickUnloadsTheScreen) {
    lists().cboKind.onClick = [this] { program.screens.goBackFrom(lists()); };
    const QPointer<QWidget> going = &listWindow();
    pickFrom(lists().cboKind, 1);
    EXPECT_EQ(program.screens.find("frmLists"), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(going.isNull());
    EXPECT_TRUE(window().isVisible());
}

TEST_F(ListTest, ClickInAnOpenListUnloadsTheScreen) {
    const QPointer<QWidget> going = &listWindow();
    for (ItemList* const list : std::initializer_list<ItemList*>{&lists().lstNames})
        list->onClick = [this] { program.screens.goBackFrom(lists()); };
    clickItem(names(), names().model()->index(0, 0));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(going.isNull());
}

TEST_F(ListTest, ChangeOfAFolderUnloadsTheScreen) {
    display.perform([this] { lists().dirFolder.setPath(at("a")); });
    lists().dirFolder.onChange = [this] { program.screens.goBackFrom(lists()); };
    const QPointer<QWidget> going = &listWindow();
    clickItem(tree(), folderAt("b"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(going.isNull());
}

TEST_F(ListTest, ClickEndsTheProgram) {
    lists().cboKind.onClick = [] { throw EndProgram{}; };
    pickFrom(lists().cboKind, 0);
    EXPECT_TRUE(program.hasEnded());
}

TEST_F(ListTest, ClickIsGivenUp) {
    lists().cboKind.onClick = [] { throw EndHandler{}; };
    pickFrom(lists().cboKind, 0);
    EXPECT_EQ(kind().currentIndex(), 0);
}

// --- Lists that are open -----------------------------------------------------------------------------------

TEST_F(ListTest, PicksFromAListBox) {
    clickItem(names(), names().model()->index(2, 0));
    EXPECT_EQ(lists().lstNames.picked(), "Emil");
    EXPECT_EQ(selectedIn(names()), Rows{2});
    EXPECT_EQ(log(), (Lines{"lost txtName", "got lstNames", "click lstNames"}));
    clickItem(names(), names().model()->index(2, 0));
    EXPECT_EQ(log(), Lines{"click lstNames"});
}

TEST_F(ListTest, MouseThatIsReleasedElsewherePicksNothing) {
    const QPoint first = placeOf(names(), names().model()->index(0, 0));
    const QPoint second = placeOf(names(), names().model()->index(1, 0));
    QTest::mousePress(names().viewport(), Qt::LeftButton, Qt::NoModifier, first);
    QMouseEvent move(QEvent::MouseMove, second, names().viewport()->mapToGlobal(second), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(names().viewport(), &move);
    QTest::mouseRelease(names().viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(lists().lstNames.pickedIndex(), std::nullopt);
    EXPECT_EQ(selectedIn(names()), Rows{});
    EXPECT_EQ(focused(), "lstNames");
}

TEST_F(ListTest, OtherButtonsAndTheRoomBelowPickNothing) {
    QTest::mouseClick(names().viewport(), Qt::RightButton, Qt::NoModifier,
                      placeOf(names(), names().model()->index(0, 0)));
    EXPECT_EQ(log(), Lines{});
    display.perform([this] { lists().lstNames.fill({"one"}); });
    QTest::mouseClick(names().viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(5, names().viewport()->height() - 3));
    EXPECT_EQ(log(), (Lines{"lost txtName", "got lstNames"}));
    EXPECT_EQ(selectedIn(names()), Rows{});
}

TEST_F(ListTest, DoubleClickPicksToo) {
    const QPoint bob = placeOf(names(), names().model()->index(1, 0));
    doubleClick(names(), bob);
    EXPECT_EQ(lists().lstNames.picked(), "Bob");
    lists().lstNames.onClick = [this] { lists().lstNames.fill({"Zoe", "Yan"}); };
    doubleClick(names(), bob);  // the second click is not for the item that is there now
    EXPECT_EQ(lists().lstNames.pickedIndex(), std::nullopt);
}

TEST_F(ListTest, ItemOfAListBoxIsCopied) {
    clickItem(names(), names().model()->index(2, 0));
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Emil");
}

TEST_F(ListTest, ReturnAndADoubleClickInAListPressTheFirstButton) {
    lists().setPrimary(lists().cmdGo);
    clickItem(names(), names().model()->index(2, 0));
    log();
    press(Qt::Key_Return);
    EXPECT_EQ(log(), (Lines{"lost lstNames", "got cmdGo", "click cmdGo"}));
    display.perform([this] { lists().lstNames.focus(); });
    press(Qt::Key_Enter);
    EXPECT_EQ(log().back(), "click cmdGo");
    doubleClick(names(), placeOf(names(), names().model()->index(1, 0)));
    EXPECT_EQ(log(), (Lines{"lost cmdGo", "got lstNames", "click lstNames", "click lstNames", "lost lstNames",
                            "got cmdGo", "click cmdGo"}));
    EXPECT_EQ(lists().lstNames.picked(), "Bob");
}

TEST_F(ListTest, DoubleClickThatLeadsElsewherePressesNothing) {
    lists().setPrimary(lists().cmdGo);
    lists().lstNames.onClick = [this] { lists().cboKind.focus(); };
    doubleClick(names(), placeOf(names(), names().model()->index(1, 0)));
    EXPECT_EQ(focused(), "cboKind");
    EXPECT_EQ(std::ranges::count(log(), "click cmdGo"), 0);
}

TEST_F(ListTest, KeysPickInAListBox) {
    display.perform([this] { lists().lstNames.focus(); });
    press(Qt::Key_End);
    EXPECT_EQ(selectedIn(names()), Rows{3});
    press(Qt::Key_B);
    EXPECT_EQ(selectedIn(names()), Rows{1});
    press(Qt::Key_Space);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedIn(names()), Rows{1});
    EXPECT_EQ(log(), (Lines{"lost txtName", "got lstNames", "click lstNames", "click lstNames"}));
}

TEST_F(ListTest, ReleaseThatABoxHasTakenStillPicks) {
    lists().leaving = [this] { display.messageBox({.text = "Well?"}); };
    answerNext(Answer::OK);
    pressLate(*names().viewport(), placeOf(names(), names().model()->index(1, 0)));
    QCoreApplication::processEvents();
    EXPECT_EQ(lists().lstNames.picked(), "Bob");
    EXPECT_EQ(log(), (Lines{"lost txtName", "got lstNames", "click lstNames"}));
}

TEST_F(ListTest, ReleaseThatABoxHasTakenStillOpens) {
    lists().leaving = [this] { display.messageBox({.text = "Well?"}); };
    answerNext(Answer::OK);
    pressLate(kind(), kind().rect().center());
    QCoreApplication::processEvents();
    EXPECT_TRUE(kind().view()->isVisible());
    lists().leaving = nullptr;
    clickOpened(kind(), 2);
    EXPECT_EQ(lists().cboKind.pickedIndex(), 2);
}

TEST_F(ListTest, ManyItemsComeIntoView) {
    display.perform([this] {
        for (int item = 0; item < 5000; ++item)
            lists().lstNames.add("Name " + std::to_string(item));
        lists().lstNames.focus();
    });
    press(Qt::Key_End);
    const QModelIndex last = names().model()->index(5003, 0);
    EXPECT_TRUE(names().viewport()->rect().contains(names().visualRect(last).center()));
}

// --- Folders -----------------------------------------------------------------------------------------------

class FolderTest : public Lists {
protected:
    FolderTest() {
        display.perform([this] { lists().dirFolder.setPath(at("")); });
    }
    /// Whether a folder's name, or the beginning of it, is seen.
    bool isInView(const QModelIndex& index) {
        const QRect place = tree().visualRect(index);
        return tree().viewport()->rect().contains(place.left() + 8, place.center().y());
    }
    /// Clicks what stands beside a folder's name.
    void clickBeside(const std::string& inside) {
        const QPoint name = placeOf(tree(), folderAt(inside));
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(tree().visualRect(folderAt(inside)).left() - 10, name.y()));
    }
    [[nodiscard]] Lines below(const std::string& inside) {
        Lines names;
        const QModelIndex index = folderAt(inside);
        for (int row = 0; row < tree().model()->rowCount(index); ++row)
            names.push_back(tree().model()->index(row, 0, index).data().toString().toStdString());
        return names;
    }
    [[nodiscard]] int selected() {
        const QModelIndexList rows = tree().selectionModel()->selectedRows();
        return rows.size() == 1 ? rows[0].data(Qt::UserRole).toInt() : -1;
    }
};

TEST_F(FolderTest, IsOpenDownToTheFolderPicked) {
    EXPECT_EQ(tree().model()->headerData(0, Qt::Horizontal), "Folder");  // is read aloud
    EXPECT_EQ(tree().iconSize(), QSize(1, 1) * tree().fontMetrics().height());
    EXPECT_EQ(tree().model()->index(0, 0).data(), "/");
    EXPECT_EQ(below(""), (Lines{"a", "b", "c"}));
    EXPECT_EQ(below("b"), Lines{});
    EXPECT_EQ(selected(), rowOf(""));
    EXPECT_TRUE(isInView(folderAt("")));
}

TEST_F(FolderTest, OpeningPicksNothing) {
    clickBeside("b");
    EXPECT_EQ(below("b"), Lines{"inner"});
    clickBeside("a");
    EXPECT_EQ(below("a"), Lines{});
    EXPECT_TRUE(lists().dirFolder.rows()[static_cast<std::size_t>(rowOf("a"))].isEmpty);
    EXPECT_EQ(lists().dirFolder.path(), at(""));
    EXPECT_EQ(log(), (Lines{"lost txtName", "got dirFolder"}));
    clickBeside("b");
    EXPECT_EQ(below("b"), Lines{});
}

TEST_F(FolderTest, ClickOnANamePicks) {
    clickItem(tree(), folderAt("b"));
    EXPECT_EQ(lists().dirFolder.path(), at("b"));
    EXPECT_EQ(below("b"), Lines{"inner"});
    EXPECT_EQ(selected(), rowOf("b"));
    EXPECT_EQ(log(), (Lines{"lost txtName", "got dirFolder", "change dirFolder"}));
    clickItem(tree(), folderAt("b"));
    EXPECT_EQ(log(), Lines{"change dirFolder"});
}

TEST_F(FolderTest, FolderThatWasClickedStaysUnderTheMouse) {
    clickBeside("b");
    const QPoint place = placeOf(tree(), folderAt("c"));
    log();
    doubleClick(tree(), place);
    EXPECT_EQ(lists().dirFolder.path(), at("c"));
    EXPECT_EQ(log(), Lines{"change dirFolder"});
    EXPECT_EQ(below("b"), Lines{"inner"});
    EXPECT_EQ(tree().indexAt(place), folderAt("c"));
}

TEST_F(FolderTest, KeysMoveTheCursorAndSpacePicks) {
    display.perform([this] { lists().dirFolder.focus(); });
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(tree().currentIndex(), folderAt("b"));
    EXPECT_EQ(selected(), rowOf(""));
    press(Qt::Key_Right);
    EXPECT_EQ(below("b"), Lines{"inner"});
    press(Qt::Key_Right);
    EXPECT_EQ(tree().currentIndex(), folderAt("b/inner"));
    log();
    press(Qt::Key_Space);
    EXPECT_EQ(lists().dirFolder.path(), at("b/inner"));
    EXPECT_EQ(selected(), rowOf("b/inner"));
    EXPECT_EQ(log(), Lines{"change dirFolder"});
    press(Qt::Key_Home);
    EXPECT_EQ(tree().currentIndex(), tree().model()->index(0, 0));
    EXPECT_TRUE(isInView(tree().currentIndex()));
}

TEST_F(FolderTest, NameAtTheCursorIsCopied) {
    display.perform([this] { lists().dirFolder.focus(); });
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "b");
}

TEST_F(FolderTest, StaysWhereItIsScrolledWhileAFolderOpens) {
    QScrollBar& rows = *tree().verticalScrollBar();
    rows.setValue(rows.value() + 3);
    const int scrolled = rows.value();
    ASSERT_GT(scrolled, 3);
    display.perform([this] { lists().dirFolder.open(rowOf("b")); });
    EXPECT_EQ(below("b"), Lines{"inner"});
    EXPECT_EQ(rows.value(), scrolled);
}

TEST_F(FolderTest, FolderThatIsGoneIsNotPicked) {
    std::filesystem::remove(at("c"));
    clickItem(tree(), folderAt("c"));
    EXPECT_EQ(log(), (Lines{"lost txtName", "got dirFolder"}));
}

TEST_F(FolderTest, KeptFocusOpensNothing) {
    lists().leaving = [this] { lists().txtName.focus(); };
    clickBeside("b");
    EXPECT_EQ(below("b"), Lines{});
    lists().leaving = nullptr;
}

TEST_F(FolderTest, HiddenFolderIsShownWhereItIsPicked) {
    std::filesystem::create_directories(at(".hidden"));
    display.perform([this] { lists().dirFolder.setPath(at(".hidden")); });
    EXPECT_EQ(below(""), (Lines{".hidden", "a", "b", "c"}));
    EXPECT_EQ(selected(), rowOf(".hidden"));
}

}  // namespace

}  // namespace tallybrook::test
