#include "viewer/ReportView.h"

#include "viewer/ReportText.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

namespace tallybrook {

QFont reportFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setKerning(false);
    return font;
}

QColor colourOfMatches(const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
    return isDark ? QColor(110, 82, 0) : QColor(255, 226, 120);
}

ReportView::ReportView() : actualSize_(QFontInfo(reportFont()).pointSizeF()) {
    setAccessibleName("Report");
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    setAcceptDrops(false);  // the window takes them
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    document()->setDocumentMargin(12);
    showZoom();
}

void ReportView::showText(const QString& text, Place place) {
    const int line = verticalScrollBar()->value();
    const int column = horizontalScrollBar()->value();
    const auto last = static_cast<int>(text.size());
    const int anchor = std::min(textCursor().anchor(), last);
    const int position = std::min(textCursor().position(), last);
    setPlainText(text);
    if (place == Place::Beginning)
        return;
    select(anchor, position - anchor);
    verticalScrollBar()->setValue(line);
    horizontalScrollBar()->setValue(column);
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
    setTabStopDistance(kTabWidth * QFontMetricsF(font, this).horizontalAdvance(' '));
}

void ReportView::mark(Matches matches) {
    marked_ = std::move(matches);
    viewport()->update();
}

void ReportView::select(int place, int length) {
    QTextCursor cursor(document());
    cursor.setPosition(place);
    cursor.setPosition(place + length, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void ReportView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > event->rect().bottom())
            break;
        paintMarks(painter, block, place.topLeft());
    }
    painter.end();
    QPlainTextEdit::paintEvent(event);  // the text comes above its marks
}

void ReportView::paintMarks(QPainter& painter, const QTextBlock& block, const QPointF& origin) const {
    const QColor colour = colourOfMatches(palette());
    const QTextLine line = block.layout()->lineAt(0);  // nothing is wrapped
    if (!line.isValid())
        return;
    for (const int place : marked_.within(block.position(), block.position() + block.length())) {
        const double left = line.cursorToX(place - block.position());
        const double right = line.cursorToX(place - block.position() + marked_.length());
        painter.fillRect(QRectF(left, line.y(), right - left, line.height()).translated(origin), colour);
    }
}

void ReportView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    if (const int notches = wheel_.notches(*event); notches != 0)
        setZoom(zoom_.stepped(notches));
    event->accept();
}

/// The text alone, as it stands in the report: the toolkit would add its looks, and turn some blanks into
/// others.
QMimeData* ReportView::createMimeDataFromSelection() const {
    auto* const copied = new QMimeData;
    copied->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, '\n'));
    return copied;
}

}  // namespace tallybrook
