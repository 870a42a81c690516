#pragma once

#include "Desktop.h"
#include "desktop/FolderTreeView.h"
#include "support/StoredEvents.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <algorithm>
#include <filesystem>

namespace tallybrook::test {

/// The test screen with lists and a grid on the real desktop, beside the others.
class Lists : public Desktop {
protected:
    /// The logbook holds so many events from the start, by the names "Event 1" and so on.
    explicit Lists(int events = 0) {
        if (events > 0)
            writeEvents(program.logbookFile(), events, clock);
        for (const char* inside : {"b/inner", "a", "c"})
            std::filesystem::create_directories(folder.path() / "tree" / inside);
        program.openLogbook();
        program.screens.add("frmLists", [this] { return std::make_unique<frmLists>(program); });
        load("frmLists");
        EXPECT_TRUE(QTest::qWaitForWindowActive(&listWindow()));
    }

    frmLists& lists() { return screen<frmLists>("frmLists"); }
    ScreenWindow& listWindow() { return *display.windowOf(lists()); }
    Lines log() { return std::exchange(lists().log, {}); }
    /// A key pressed where the focus is, be it in a list that has been opened.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* const opened = QApplication::activePopupWidget();
        QWidget* const window = opened != nullptr ? opened : &listWindow();
        QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window, key, modifiers);
    }
    [[nodiscard]] std::string focused() { return listWindow().focusWidget()->objectName().toStdString(); }

    QComboBox& kind() { return widget<QComboBox>(lists().cboKind); }
    QAbstractItemView& names() { return widget<QAbstractItemView>(lists().lstNames); }
    QAbstractItemView& tree() { return widget<QAbstractItemView>(lists().dirFolder); }
    [[nodiscard]] std::string at(const std::string& inside) const {
        const std::filesystem::path top = folder.path() / "tree";
        return (inside.empty() ? top : top / inside).string();
    }
    [[nodiscard]] int rowOf(const std::string& inside) { return lists().dirFolder.rowOf(at(inside)).value(); }
    [[nodiscard]] QModelIndex folderAt(const std::string& inside) {
        return folderIndex(tree(), rowOf(inside));
    }

    static QPoint placeOf(QAbstractItemView& items, const QModelIndex& item) {
        items.scrollTo(item);
        const QRect seen = items.visualRect(item).intersected(items.viewport()->rect());
        return {seen.left() + std::min(8, seen.width() / 2), seen.center().y()};
    }
    static void clickItem(QAbstractItemView& items, const QModelIndex& item) {
        QTest::mouseClick(items.viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(items, item));
    }
    static void doubleClick(QAbstractItemView& items, QPoint place) {
        QTest::mouseClick(items.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(items.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseRelease(items.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    /// A click in an opened list, once the mouse has moved there.
    static void clickOpened(QComboBox& combo, int index) {
        QWidget& surface = *combo.view()->viewport();
        for (const QPoint place : {QPoint(300, 300), QPoint(-300, -300)}) {
            QMouseEvent move(QEvent::MouseMove, place, surface.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QApplication::sendEvent(&surface, &move);
        }
        clickItem(*combo.view(), combo.model()->index(index, 0));
    }
    void pickFrom(const Control& control, int index) {
        Desktop::click(control);
        clickOpened(widget<QComboBox>(control), index);
    }
    /// Presses the mouse as the window system tells of it, released already when the window comes to it.
    void pressLate(QWidget& surface, QPoint place) {
        QTest::mousePress(listWindow().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          surface.mapTo(&listWindow(), place));
    }

    static Lines textsIn(const QAbstractItemModel& model) {
        Lines texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.push_back(model.index(row, 0).data().toString().toStdString());
        return texts;
    }
    /// The rows selected, from 0.
    static std::vector<int> selectedIn(const QAbstractItemView& items) {
        std::vector<int> rows;
        for (const QModelIndex& index : items.selectionModel()->selectedRows())
            rows.push_back(index.row());
        return rows;
    }
};

}  // namespace tallybrook::test
