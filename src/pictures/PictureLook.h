#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPalette>

class QPaintDevice;

namespace tallybrook {

/// Black on white, for whatever leaves the display.
QPalette paperPalette();

/// Fonts, colours and measures of pictures, the same for all of them on one device. Lengths are the device's.
class PictureLook {
public:
    /// The colours of the palette's texts; `device` is what will be painted on, or null for the screen.
    PictureLook(const QFont& font, const QPalette& palette, const QPaintDevice* device = nullptr);

    [[nodiscard]] const QFont& font() const { return font_; }
    [[nodiscard]] const QFont& boldFont() const { return boldFont_; }
    [[nodiscard]] const QFont& headingFont() const { return headingFont_; }
    [[nodiscard]] const QFont& smallFont() const { return smallFont_; }

    [[nodiscard]] QColor ground() const { return ground_; }
    [[nodiscard]] QColor ink() const { return ink_; }      ///< of texts
    [[nodiscard]] QColor quiet() const { return quiet_; }  ///< of texts that matter less
    [[nodiscard]] QColor line() const { return line_; }    ///< of what frames other things
    [[nodiscard]] QColor fill() const { return fill_; }    ///< of bars
    [[nodiscard]] QColor mark() const { return mark_; }    ///< of marks that are many

    [[nodiscard]] double lineHeight() const { return lineHeight_; }
    /// The thickness of thin lines.
    [[nodiscard]] double hair() const { return hair_; }
    /// The width of a text, in the bold font where asked.
    [[nodiscard]] double widthOf(const QString& text, bool isBold = false) const;
    enum class Text { Usual, Heading };
    /// The height of a text on as many lines as it takes in a width.
    [[nodiscard]] double heightOf(const QString& text, double width, Text kind) const;
    /// The width of a bold digit, the measure of all widths.
    [[nodiscard]] double digit() const { return widthOf("0", true); }
    /// Whatever is drawn fits into this width.
    [[nodiscard]] double leastWidth() const { return 27 * digit(); }

private:
    QFont font_;
    QFont boldFont_;
    QFont headingFont_;
    QFont smallFont_;
    QColor ground_;
    QColor ink_;
    QColor quiet_;
    QColor line_;
    QColor fill_;
    QColor mark_;
    QFontMetricsF metrics_;
    QFontMetricsF boldMetrics_;
    QFontMetricsF headingMetrics_;
    double lineHeight_;
    double hair_;
};

}  // namespace tallybrook
