#pragma once

#include "textview/Matches.h"
#include "textview/TextSelection.h"
#include "textview/WheelTurn.h"
#include "textview/Zoom.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <functional>
#include <optional>

class QPainter;

namespace tallybrook {

/// The colour behind a match: one that is seen on the ground, and on which the palette's text is readable.
QColor colourOfMatches(const QPalette& palette);

/// Shows a text in a fixed-width font, unwrapped, with its matches marked; it can be selected and copied.
/// Assistive programs take it for a text that is not written in.
///
/// It is no editor of the toolkit, which would keep many times the text: the text is shared with whoever gave
/// it, and only the lines in sight are laid out.
class ReportView : public QAbstractScrollArea {
public:
    ReportView();

    /// Where the reader is once a text is shown: at its beginning, or at the line where they were, as far as
    /// there is one.
    enum class Place { Beginning, Same };
    void showText(const QString& text, Place place);
    [[nodiscard]] const QString& text() const { return lines().text(); }
    [[nodiscard]] const TextLines& lines() const { return laid_.lines(); }
    [[nodiscard]] const LaidLines& laid() const { return laid_; }

    void setZoom(Zoom zoom);
    [[nodiscard]] Zoom zoom() const { return zoom_; }
    /// Called after the zoom has changed.
    std::function<void()> onZoomed;

    /// Marks all matches of a search in the text.
    void mark(Matches matches);
    [[nodiscard]] const Matches& marked() const { return marked_; }

    /// Selects so many characters, backward where negative, and brings them into sight.
    void select(int place, int length);
    void selectAll();
    /// Puts what is selected onto the clipboard as it stands in the report.
    void copy() const;
    [[nodiscard]] TextSpan selected() const { return selection_.span(); }
    [[nodiscard]] QString selectedText() const { return lines().part(selected()).toString(); }
    [[nodiscard]] int caret() const { return selection_.caret(); }
    /// Called after something else has been selected, or nothing any more.
    std::function<void()> onSelected;

    /// Where the character at a place stands in the viewport, in sight or not.
    [[nodiscard]] QRectF placeOf(int place) const;
    /// The place that is nearest to a point of the viewport.
    [[nodiscard]] int placeAt(const QPointF& point) const;
    void bringIntoSight(int place);

    /// Tells where the caret is.
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void showZoom();
    void fitScrollBars();
    [[nodiscard]] int linesOfPage() const;
    [[nodiscard]] int lineAt(double y) const;
    [[nodiscard]] QPointF originOf(int line) const;

    template <typename Change>
    void changeSelection(Change change);
    [[nodiscard]] bool goBy(const QKeyEvent& key);
    template <typename Begin>
    void startSelecting(const QMouseEvent& event, Begin begin);
    [[nodiscard]] bool isTripleClick(const QMouseEvent& event);
    void selectToMouse();
    void dragSelection();
    void offerSelection() const;

    [[nodiscard]] QRectF placeOfCaret() const;
    void showCaret(bool isShown);
    void paintLine(QPainter& painter, int line) const;
    void paintMarks(QPainter& painter, int line) const;
    [[nodiscard]] QTextLayout::FormatRange selectionIn(const TextSpan& line) const;

    /// A click, and when it was, in milliseconds.
    struct Click {
        QPointF point;
        ulong time;
    };

    double actualSize_;  // of the font in points
    Zoom zoom_;
    WheelTurn wheel_;
    LaidLines laid_;
    Matches marked_;
    TextSelection selection_;

    std::optional<QPointF> pressed_;    // on what is selected, which may be dragged from there
    std::optional<QPointF> selecting_;  // where the mouse is that selects
    std::optional<Click> doubleClick_;  // the last one
    QBasicTimer scrolling_;             // while the mouse selects beyond the edge
    QBasicTimer blinking_;
    bool isCaretShown_ = false;
};

}  // namespace tallybrook
