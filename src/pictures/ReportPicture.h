#pragma once

#include "pictures/PictureLook.h"

#include <QRectF>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

class QPainter;

namespace tallybrook {

/// A place in a picture that can be pointed at, and which row of the picture's table tells of it.
struct Spot {
    QRectF place;
    std::size_t row;
};

/// A part of a picture that stays in one piece where pages part it. It is drawn with its upper left corner at
/// the painter's origin.
struct Strip {
    double height;
    std::function<void(QPainter& painter)> draw;
    std::vector<Spot> spots = {};     ///< in the order in which keys go through them
    std::optional<QRectF> plot = {};  ///< the place that has the picture's range from left to right
};

using Strips = std::vector<Strip>;

/// What a picture shows as a table, for those who would copy it or hear a part of it.
struct PictureTable {
    QStringList head;
    std::vector<QStringList> rows;

    /// The table as text: tabs between its columns, which every spreadsheet takes.
    [[nodiscard]] QString asText() const;
    /// A row in lines: its first cell, and the others behind their heads.
    [[nodiscard]] QStringList told(std::size_t row) const;
};

/// How somebody looks at a picture: at which share of its range, and at which of its choices.
struct PictureView {
    double from = 0;
    double to = 1;
    int choice = 0;

    [[nodiscard]] double span() const { return to - from; }
    [[nodiscard]] bool isWhole() const { return from <= 0 && to >= 1; }
    /// Another range of the same width or another one, kept within the whole.
    [[nodiscard]] PictureView over(double first, double last) const;
    bool operator==(const PictureView&) const = default;
};

/// A picture for a place of any width, on any device. The first of its strips has its heading.
struct ReportPicture {
    QString name;
    QString summary;  ///< all that it shows, in words
    /// Lays it out in a width of at least PictureLook::leastWidth(). The look must outlive the strips.
    std::function<Strips(const PictureLook& look, double width, const PictureView& view)> lay;
    /// What it shows as a table: all of its range, of the choice alone.
    std::function<PictureTable(const PictureView& view)> table;
    /// What may be picked out; the first is all. None where there is nothing to pick.
    QStringList choices = {};

    [[nodiscard]] Strips strips(const PictureLook& look, double width, const PictureView& view = {}) const {
        return lay(look, width, view);
    }
};

/// The heights of strips, added up.
double heightOf(const Strips& strips);

/// Puts a heading into a strip, above what it has.
Strip underHeading(const QString& heading, Strip strip, const PictureLook& look, double width);

/// Room between what stands above and below.
Strip gapStrip(double height);

/// A note on what is shown, on as many lines as it takes.
Strip noteStrip(const QString& text, const PictureLook& look, double width);

/// Draws a text on one line, shortened where it is too wide.
void drawText(QPainter& painter, const QRectF& place, Qt::Alignment alignment, const QString& text,
              const QFont& font, const QColor& colour);

/// "1 game", "2 games".
QString counted(int count, const QString& one, const QString& many);

}  // namespace tallybrook
