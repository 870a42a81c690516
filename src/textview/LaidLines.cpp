#include "textview/LaidLines.h"

#include "readers/ReportText.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tallybrook {

LaidLines::LaidLines(const QFont& font, const QPaintDevice& device) : device_(device) {
    option_.setWrapMode(QTextOption::NoWrap);
    option_.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    setFont(font);
}

void LaidLines::setLines(TextLines lines) {
    lines_ = std::move(lines);
    forget();
}

void LaidLines::setFont(const QFont& font) {
    const QFontMetricsF metrics(font, &device_);
    font_ = font;
    option_.setTabStopDistance(kTabWidth * metrics.horizontalAdvance(' '));
    ascent_ = metrics.ascent();
    height_ = std::ceil(metrics.height());
    forget();
}

void LaidLines::forget() {
    laid_.clear();
    width_ = lines_.columns() * tabWidth() / kTabWidth;
}

const QTextLayout& LaidLines::layoutOf(int line) const {
    constexpr double kEndless = 1 << 24;  // pixels
    std::unique_ptr<QTextLayout>& laid = laid_[line];
    if (laid)
        return *laid;
    laid = std::make_unique<QTextLayout>(lines_.line(line).toString(), font_, &device_);
    laid->setTextOption(option_);
    laid->beginLayout();
    QTextLine only = laid->createLine();
    only.setLineWidth(kEndless);
    only.setPosition({0, ascent_ - only.ascent()});  // letters of another font stand on the same line
    laid->endLayout();
    width_ = std::max(width_, only.naturalTextWidth());
    return *laid;
}

double LaidLines::xOf(int place) const {
    const int line = lines_.lineOf(place);
    return layoutOf(line).lineAt(0).cursorToX(place - lines_.span(line).begin);
}

int LaidLines::placeAt(int line, double x) const {
    return lines_.span(line).begin + layoutOf(line).lineAt(0).xToCursor(x);
}

void LaidLines::keep(int first, int last) {
    std::erase_if(laid_, [=](const auto& laid) { return laid.first < first || laid.first > last; });
}

}  // namespace tallybrook
