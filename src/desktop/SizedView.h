#pragma once

#include "controls/Lists.h"
#include "desktop/StillView.h"

#include <algorithm>

namespace tallybrook {

inline constexpr int kUsualWidth = 20;  // of a list that does not say, in characters

/// How wide a list asks to be, in characters.
inline int widthOf(const ListOptions& options) {
    return options.width == 0 ? kUsualWidth : options.width;
}

/// A view as large as its list asks for.
template <typename View>
class SizedView : public StillView<View> {
public:
    SizedView(QWidget& parent, const ListOptions& options)
        : StillView<View>(&parent), size_(widthOf(options), options.lines) {
        this->setEditTriggers(QAbstractItemView::NoEditTriggers);
        this->setSelectionMode(QAbstractItemView::SingleSelection);
        this->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        this->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    }
    [[nodiscard]] QSize sizeHint() const override { return sizeOf(size_.width(), size_.height()); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        constexpr int kFewestLines = 4;
        return sizeOf(kUsualWidth, std::min(size_.height(), kFewestLines));
    }

private:
    [[nodiscard]] QSize sizeOf(int characters, int lines) const {
        constexpr int kRoom = 5;  // pixels around the text of a line
        const int line = std::max(this->sizeHintForRow(0), this->fontMetrics().lineSpacing() + kRoom);
        return QSize(this->fontMetrics().averageCharWidth() * characters, line * lines) +
               QSize(2, 2) * this->frameWidth();
    }

    QSize size_;  // in characters and lines
};

}  // namespace tallybrook
