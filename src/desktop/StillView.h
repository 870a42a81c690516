#pragma once

#include "controls/Keyboard.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMetaObject>
#include <QMouseEvent>
#include <QPersistentModelIndex>
#include <QScrollBar>
#include <QStringList>
#include <functional>
#include <utility>

namespace tallybrook {

/// Whether such a view does something with a key: it copies its row, and can be activated.
inline bool isKeyOfRows(const person::Key& key) {
    return !key.alt && (key.control ? key.name == "C" : key.name == "Return");
}

/// One of the toolkit's views of items that changes nothing by itself: it tells what was clicked, or chosen
/// by assistive technology, and selects what it is told to.
template <typename View>
class StillView : public View {
public:
    using View::View;

    /// Called with the item that the mouse was pressed and released on, and where in the view that was.
    std::function<void(const QModelIndex& index, QPoint place)> whenClicked;
    /// Called when an item was clicked twice, or Return was pressed.
    std::function<void()> whenActivated = [] {};
    /// Called when what is selected was taken away by other than chooseBy().
    std::function<void()> whenDisturbed = [] {};

    /// Lets a function select what is to be seen as chosen.
    template <typename Select>
    void chooseBy(Select select) {
        isShowing_ = true;
        select();
        isShowing_ = false;
    }

    /// Brings an item into view; sideways nothing moves.
    virtual void bringIntoView(const QModelIndex& item, QAbstractItemView::ScrollHint hint) {
        const int sideways = this->horizontalScrollBar()->value();
        this->scrollTo(item, hint);
        this->horizontalScrollBar()->setValue(sideways);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        pressed_ = this->indexAt(event->pos());
        last_ = pressed_;
    }
    /// A second click counts only where the first one has not put another item under the mouse.
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        isTwice_ = last_.isValid() && last_ == this->indexAt(event->pos());
        if (isTwice_)
            pressed_ = last_;
    }
    void mouseMoveEvent(QMouseEvent* /*event*/) override {}
    void mouseReleaseEvent(QMouseEvent* event) override {
        const QPersistentModelIndex pressed = std::exchange(pressed_, {});
        const bool isTwice = std::exchange(isTwice_, false);
        if (event->button() != Qt::LeftButton || !pressed.isValid() || pressed != this->indexAt(event->pos()))
            return;
        whenClicked(pressed, event->pos());
        if (isTwice)
            whenActivated();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy))
            return copyRow();
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            return whenActivated();
        event->ignore();
    }

    // The frame shows the focus.
    void focusInEvent(QFocusEvent* event) override {
        View::focusInEvent(event);
        this->update();
    }
    void focusOutEvent(QFocusEvent* event) override {
        View::focusOutEvent(event);
        this->update();
    }
    /// Before this its size is not known.
    void showEvent(QShowEvent* event) override {
        View::showEvent(event);
        bringIntoView(this->currentIndex(), QAbstractItemView::PositionAtCenter);
    }

    /// What changes here and not by chooseBy() is chosen from outside, where no mouse or key is, and is taken
    /// as a click once the change is over.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override {
        View::selectionChanged(selected, deselected);
        if (!isShowing_ && !std::exchange(isDisturbed_, true))
            QMetaObject::invokeMethod(
                this, [this] { takeChoice(); }, Qt::QueuedConnection);
    }

private:
    void takeChoice() {
        isDisturbed_ = false;
        const QModelIndexList chosen = this->selectedIndexes();
        if (chosen.isEmpty())
            whenDisturbed();
        else
            whenClicked(chosen.front(), this->visualRect(chosen.front()).center());
    }

    /// Puts the texts of the current row on the clipboard, with tabs between them.
    void copyRow() const {
        const QModelIndex current = this->currentIndex();
        QStringList texts;
        for (int column = 0; current.isValid() && column < this->model()->columnCount(); ++column)
            texts << current.siblingAtColumn(column).data(Qt::EditRole).toString();
        if (!texts.isEmpty())
            QGuiApplication::clipboard()->setText(texts.join('\t'));
    }

    QPersistentModelIndex pressed_;  // where the mouse is down
    QPersistentModelIndex last_;     // where it was pressed last
    bool isTwice_ = false;           // whether that is the second press of a double click
    bool isShowing_ = true;          // whether what changes is our own doing; before anything is shown it is
    bool isDisturbed_ = false;       // whether another change has not been taken yet
};

}  // namespace tallybrook
