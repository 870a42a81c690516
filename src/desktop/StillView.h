#pragma once

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPersistentModelIndex>
#include <QScrollBar>
#include <functional>
#include <utility>

namespace tallybrook {

/// One of the toolkit's views of items that changes nothing by itself: it tells what was clicked, and selects
/// what it is told to.
template <typename View>
class StillView : public View {
public:
    using View::View;

    /// Called with the item that the mouse was pressed and released on, and where in the view that was.
    std::function<void(const QModelIndex& index, QPoint place)> whenClicked;

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
        if (last_.isValid() && last_ == this->indexAt(event->pos()))
            pressed_ = last_;
    }
    void mouseMoveEvent(QMouseEvent* /*event*/) override {}
    void mouseReleaseEvent(QMouseEvent* event) override {
        const QPersistentModelIndex pressed = std::exchange(pressed_, {});
        if (event->button() == Qt::LeftButton && pressed.isValid() && pressed == this->indexAt(event->pos()))
            whenClicked(pressed, event->pos());
    }
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

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

private:
    QPersistentModelIndex pressed_;  // where the mouse is down
    QPersistentModelIndex last_;     // where it was pressed last
};

}  // namespace tallybrook
