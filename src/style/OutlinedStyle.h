#pragma once

#include <QProxyStyle>

namespace tallybrook {

/// The desktop's own style. The toolkit's plain one, which draws its outlines hardly darker than the window
/// whatever the colours, gets outlines that are seen on any window, a mark around whatever has the focus, and
/// some room around the texts of lists and grids. Marks to tick grow with the font, and message boxes have
/// crisp icons. What empty boxes say, what is off and what is chosen is readable whatever the desktop's
/// colours. The lists of a file dialog are read aloud by their labels.
class OutlinedStyle : public QProxyStyle {
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                     const QWidget* widget) const override;

private:
    [[nodiscard]] bool isPlain() const { return baseStyle()->name() == QLatin1String("fusion"); }
};

}  // namespace tallybrook
