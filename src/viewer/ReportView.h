#pragma once

#include "viewer/Matches.h"
#include "viewer/WheelTurn.h"
#include "viewer/Zoom.h"

#include <QPlainTextEdit>
#include <functional>

namespace tallybrook {

/// The font of reports: the desktop's own fixed-width one.
QFont reportFont();

/// The colour behind a match: one that is seen on the ground, and on which the palette's text is readable.
QColor colourOfMatches(const QPalette& palette);

/// Shows a text in a fixed-width font, unwrapped, with its matches marked; it can be selected and copied.
class ReportView : public QPlainTextEdit {
public:
    ReportView();

    /// Where the reader is once a text is shown: at its beginning, or at the line where they were, as far as
    /// there is one.
    enum class Place { Beginning, Same };
    void showText(const QString& text, Place place);

    void setZoom(Zoom zoom);
    [[nodiscard]] Zoom zoom() const { return zoom_; }
    /// Called after the zoom has changed.
    std::function<void()> onZoomed;

    /// Marks all matches of a search in the text.
    void mark(Matches matches);
    [[nodiscard]] const Matches& marked() const { return marked_; }
    /// Selects so many characters and brings them into sight.
    void select(int place, int length);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;

private:
    void showZoom();
    void paintMarks(QPainter& painter, const QTextBlock& block, const QPointF& origin) const;

    double actualSize_;  // of the font in points
    Zoom zoom_;
    WheelTurn wheel_;
    Matches marked_;
};

}  // namespace tallybrook
