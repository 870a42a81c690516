#pragma once

#include <QProxyStyle>

namespace tallybrook {

/// The desktop's own style. The toolkit's plain one, which draws its outlines darker than the window whatever
/// the colours, gets outlines that are seen on a dark window too; and lists and grids get a mark where the
/// focus is, and some room around their texts. What empty boxes say is readable whatever the desktop's
/// colours.
class OutlinedStyle : public QProxyStyle {
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;

private:
    [[nodiscard]] bool isPlain() const { return baseStyle()->name() == "fusion"; }
};

}  // namespace tallybrook
