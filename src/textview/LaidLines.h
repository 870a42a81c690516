#pragma once

#include "textview/TextLines.h"

#include <QFont>
#include <QTextLayout>
#include <QTextOption>
#include <map>
#include <memory>

namespace tallybrook {

/// The lines of a text laid out in a font: those alone that are asked for, each once. They begin at 0 in both
/// directions and are not wrapped; tabs lead to every eighth blank.
class LaidLines {
public:
    /// The font is for `device`, which must outlive the object.
    LaidLines(const QFont& font, const QPaintDevice& device);

    /// Lines of another text or in another font; those laid out are forgotten.
    void setLines(TextLines lines);
    void setFont(const QFont& font);
    [[nodiscard]] const TextLines& lines() const { return lines_; }

    /// In pixels.
    [[nodiscard]] double height() const { return height_; }
    /// The width of the widest line, as far as it is known.
    [[nodiscard]] double width() const { return width_; }
    [[nodiscard]] double tabWidth() const { return option_.tabStopDistance(); }

    [[nodiscard]] const QTextLayout& layoutOf(int line) const;
    /// How far from the beginning of its line a place is, and the place of a line that is nearest to that.
    [[nodiscard]] double xOf(int place) const;
    [[nodiscard]] int placeAt(int line, double x) const;

    /// Forgets the lines before `first` and behind `last`.
    void keep(int first, int last);
    /// How many lines are laid out at present.
    [[nodiscard]] std::size_t countLaid() const { return laid_.size(); }

private:
    void forget();

    const QPaintDevice& device_;
    TextLines lines_;
    QFont font_;
    QTextOption option_;
    double ascent_ = 0;
    double height_ = 0;
    mutable double width_ = 0;
    mutable std::map<int, std::unique_ptr<QTextLayout>> laid_;  // by the number of the line
};

}  // namespace tallybrook
