#pragma once

#include <QProxyStyle>

namespace tallybrook {

/// The desktop's own style. The toolkit's plain one, which draws its outlines darker than the window whatever
/// the colours, gets outlines that are seen on a dark window too.
class OutlinedStyle : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace tallybrook
