#include "textview/ReportView.h"

#include "style/ReportFont.h"
#include "textview/HeardReport.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QFontInfo>
#include <QMimeData>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tallybrook {

namespace {

constexpr int kAroundText = 12;   // pixels
constexpr int kScrollEvery = 50;  // milliseconds

/// Whether the mouse has been moved on purpose.
bool isAway(const QPointF& from, const QPointF& to) {
    return (to - from).manhattanLength() >= QApplication::startDragDistance();
}

}  // namespace

QColor colourOfMatches(const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
    return isDark ? QColor(110, 82, 0) : QColor(255, 226, 120);
}

ReportView::ReportView()
    : actualSize_(QFontInfo(reportFont()).pointSizeF()), laid_(reportFont(), *viewport()), selection_(laid_) {
    announceHeardReports();
    setAccessibleName("Report");
    setFocusPolicy(Qt::WheelFocus);
    setFrameShape(NoFrame);
    viewport()->setCursor(Qt::IBeamCursor);
    showZoom();
}

void ReportView::showText(const QString& text, Place place) {
    const QString before = this->text();
    const bool isSame = place == Place::Same;
    const QPoint seen =
        isSame ? QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value()) : QPoint();
    laid_.setLines(TextLines(text));
    tellOfText(*this, before);
    changeSelection([this, isSame] {
        isSame ? selection_.set(selection_.anchor(), selection_.caret()) : selection_.set(0, 0);
    });
    fitScrollBars();
    horizontalScrollBar()->setValue(seen.x());
    verticalScrollBar()->setValue(seen.y());
    viewport()->update();
}

void ReportView::setZoom(Zoom zoom) {
    zoom_ = zoom;
    showZoom();
    if (onZoomed)
        onZoomed();
}

void ReportView::showZoom() {
    QFont font = reportFont();
    font.setPointSizeF(actualSize_ * zoom_.percent() / 100);
    setFont(font);
    laid_.setFont(font);
    fitScrollBars();
    viewport()->update();
}

void ReportView::mark(Matches matches) {
    marked_ = std::move(matches);
    viewport()->update();
}

// --- What is in sight --------------------------------------------------------------------------------------

/// The lines that are seen whole.
int ReportView::linesOfPage() const {
    return std::max(static_cast<int>((viewport()->height() - 2 * kAroundText) / laid_.height()), 1);
}

void ReportView::fitScrollBars() {
    const int width = viewport()->width() - 2 * kAroundText;
    verticalScrollBar()->setPageStep(linesOfPage());
    verticalScrollBar()->setRange(0, lines().count() - linesOfPage());
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(static_cast<int>(laid_.height()));
    horizontalScrollBar()->setRange(0, static_cast<int>(std::ceil(laid_.width())) - width);
}

void ReportView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fitScrollBars();
}

void ReportView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (const int notches = wheel_.notches(*event); notches != 0)
        setZoom(zoom_.stepped(notches));
    event->accept();
}

/// The line at a height of the viewport; the first or the last where there is none.
int ReportView::lineAt(double y) const {
    const auto below = static_cast<int>(std::floor((y - kAroundText) / laid_.height()));
    return std::clamp(verticalScrollBar()->value() + below, 0, lines().count() - 1);
}

QPointF ReportView::originOf(int line) const {
    return {kAroundText + 0.0 - horizontalScrollBar()->value(),
            kAroundText + (line - verticalScrollBar()->value()) * laid_.height()};
}

QRectF ReportView::placeOf(int place) const {
    const int line = lines().lineOf(place);
    const double left = laid_.xOf(place);
    const double right = laid_.xOf(std::min(lines().nextCharacter(place), lines().span(line).end));
    return QRectF(left, 0, right - left, laid_.height()).normalized().translated(originOf(line));
}

int ReportView::placeAt(const QPointF& point) const {
    const int line = lineAt(point.y());
    return laid_.placeAt(line, point.x() - originOf(line).x());
}

void ReportView::bringIntoSight(int place) {
    const int line = lines().lineOf(place);
    const auto x = static_cast<int>(std::ceil(laid_.xOf(place)));
    fitScrollBars();  // the line may be wider than was known
    QScrollBar& rows = *verticalScrollBar();
    rows.setValue(std::clamp(rows.value(), line - linesOfPage() + 1, line));
    QScrollBar& columns = *horizontalScrollBar();
    columns.setValue(std::clamp(columns.value(), x - columns.pageStep(), x));
}

// --- What is selected --------------------------------------------------------------------------------------

/// Changes the selection, and tells everybody if it has become another.
template <typename Change>
void ReportView::changeSelection(Change change) {
    const TextSpan before = selected();
    const int caret = selection_.caret();
    change();
    if (selected() == before && selection_.caret() == caret)
        return;
    isCaretShown_ = hasFocus();  // and not just off by its blinking
    viewport()->update();
    tellOfSelection(*this);
    const bool isNothing = before.isEmpty() && selected().isEmpty();
    if (selected() != before && !isNothing && onSelected)
        onSelected();
}

void ReportView::select(int place, int length) {
    changeSelection([=, this] { selection_.set(place, place + length); });
    bringIntoSight(selection_.anchor());
    bringIntoSight(selection_.caret());
}

void ReportView::selectAll() {
    changeSelection([this] { selection_.set(0, lines().length()); });
    offerSelection();
}

void ReportView::copy() const {
    if (!selected().isEmpty())
        QApplication::clipboard()->setText(selectedText());
}

/// For the middle button of the mouse, where the desktop has that.
void ReportView::offerSelection() const {
    QClipboard& clipboard = *QApplication::clipboard();
    if (clipboard.supportsSelection() && !selected().isEmpty())
        clipboard.setText(selectedText(), QClipboard::Selection);
}

void ReportView::keyPressEvent(QKeyEvent* event) {
    const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else if (event->key() == Qt::Key_Space)
        verticalScrollBar()->triggerAction(isShifted ? QScrollBar::SliderPageStepSub
                                                     : QScrollBar::SliderPageStepAdd);
    else if (!goBy(*event))
        QAbstractScrollArea::keyPressEvent(event);
}

/// Goes where a key leads; returns false for any other key. The caret of a page further stands where it
/// stood.
bool ReportView::goBy(const QKeyEvent& key) {
    const int line = lines().lineOf(caret());
    bool isFollowed = false;
    changeSelection([&] { isFollowed = selection_.follow(key, linesOfPage()); });
    if (!isFollowed)
        return false;
    const int way = lines().lineOf(caret()) - line;
    if (std::abs(way) >= linesOfPage())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + way);
    bringIntoSight(caret());
    offerSelection();
    return true;
}

void ReportView::mousePressEvent(QMouseEvent* event) {
    const int place = placeAt(event->position());
    const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->button() != Qt::LeftButton)
        return QAbstractScrollArea::mousePressEvent(event);
    if (isTripleClick(*event))
        return startSelecting(*event, [=, this] { selection_.begin(&TextLines::wholeLineAt, place); });
    if (!isShifted && selected().holds(place))
        pressed_ = event->position();
    else
        startSelecting(*event, [=, this] { selection_.begin(place, isShifted); });
}

void ReportView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return QAbstractScrollArea::mouseDoubleClickEvent(event);
    doubleClick_ = Click{event->position(), event->timestamp()};
    const int place = placeAt(event->position());
    startSelecting(*event, [=, this] { selection_.begin(&TextLines::wordAt, place); });
}

/// Whether a click follows a double click at once and at the same place.
bool ReportView::isTripleClick(const QMouseEvent& event) {
    const std::optional<Click> before = std::exchange(doubleClick_, std::nullopt);
    const auto atOnce = static_cast<ulong>(QApplication::doubleClickInterval());
    return before && event.timestamp() - before->time < atOnce && !isAway(before->point, event.position());
}

template <typename Begin>
void ReportView::startSelecting(const QMouseEvent& event, Begin begin) {
    pressed_.reset();
    selecting_ = event.position();
    changeSelection(begin);
}

void ReportView::mouseMoveEvent(QMouseEvent* event) {
    if (pressed_ && isAway(*pressed_, event->position())) {
        pressed_.reset();
        dragSelection();
    } else if (selecting_) {
        selecting_ = event->position();
        selectToMouse();
    }
}

/// As far as the mouse is, and further as long as it is beyond the edge.
void ReportView::selectToMouse() {
    changeSelection([this] { selection_.extendTo(placeAt(*selecting_)); });
    bringIntoSight(caret());
    if (viewport()->rect().contains(selecting_->toPoint()))
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start(kScrollEvery, this);
}

void ReportView::mouseReleaseEvent(QMouseEvent* event) {
    if (pressed_)
        changeSelection([&] { selection_.moveTo(placeAt(event->position()), false); });
    else if (selecting_)
        offerSelection();
    pressed_.reset();
    selecting_.reset();
    scrolling_.stop();
}

void ReportView::dragSelection() {
    auto* const drag = new QDrag(this);
    auto* const dragged = new QMimeData;
    dragged->setText(selectedText());
    drag->setMimeData(dragged);
    drag->exec(Qt::CopyAction);
}

// --- The caret ---------------------------------------------------------------------------------------------

QRectF ReportView::placeOfCaret() const {
    const QPointF line = originOf(lines().lineOf(caret()));
    return {line.x() + laid_.xOf(caret()), line.y(), 1, laid_.height()};
}

void ReportView::showCaret(bool isShown) {
    isCaretShown_ = isShown;
    viewport()->update(placeOfCaret().toAlignedRect());
}

/// The looks of the selection tell the focus too.
void ReportView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (const int flash = QApplication::cursorFlashTime(); flash > 0)
        blinking_.start(flash / 2, this);
    showCaret(true);
    viewport()->update();
}

void ReportView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    blinking_.stop();
    showCaret(false);
    viewport()->update();
}

void ReportView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == blinking_.timerId())
        showCaret(!isCaretShown_);
    else if (event->timerId() == scrolling_.timerId())
        selectToMouse();
    else
        QAbstractScrollArea::timerEvent(event);
}

QVariant ReportView::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImCursorRectangle)
        return placeOfCaret().translated(viewport()->pos());
    return QAbstractScrollArea::inputMethodQuery(query);
}

// --- Painting ----------------------------------------------------------------------------------------------

void ReportView::paintEvent(QPaintEvent* event) {
    const double width = laid_.width();
    laid_.keep(lineAt(0), lineAt(viewport()->height()));
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    for (int line = lineAt(event->rect().top()); line <= lineAt(event->rect().bottom()); ++line)
        paintLine(painter, line);
    if (laid_.width() > width)  // a line is wider than was known
        QTimer::singleShot(0, this, [this] { fitScrollBars(); });
}

void ReportView::paintLine(QPainter& painter, int line) const {
    const TextSpan span = lines().span(line);
    const QTextLayout& layout = laid_.layoutOf(line);
    paintMarks(painter, line);
    const bool isSelected = selected().begin <= span.end && selected().end > span.begin;
    layout.draw(&painter, originOf(line),
                isSelected ? QList{selectionIn(span)} : QList<QTextLayout::FormatRange>());
    if (isCaretShown_ && line == lines().lineOf(caret()))
        layout.drawCursor(&painter, originOf(line), caret() - span.begin);
}

/// The marks come below the text.
void ReportView::paintMarks(QPainter& painter, int line) const {
    const QColor colour = colourOfMatches(palette());
    const TextSpan span = lines().span(line);
    for (const int place : marked_.within(span.begin, span.end)) {
        const double left = laid_.xOf(place);
        const double right = laid_.xOf(std::min(place + marked_.length(), span.end));
        const QRectF mark(left, 0, right - left, laid_.height());
        painter.fillRect(mark.normalized().translated(originOf(line)), colour);
    }
}

/// What is selected as a line has it; the line's end is seen to be part of it too.
QTextLayout::FormatRange ReportView::selectionIn(const TextSpan& line) const {
    const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    QTextLayout::FormatRange range{selected().begin - line.begin, selected().length(), {}};
    range.format.setBackground(palette().brush(group, QPalette::Highlight));
    range.format.setForeground(palette().brush(group, QPalette::HighlightedText));
    return range;
}

}  // namespace tallybrook
