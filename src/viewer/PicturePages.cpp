#include "viewer/PicturePages.h"

#include <QPainter>
#include <utility>

namespace tallybrook {

PicturePages::PicturePages(const std::vector<ReportPicture>& pictures, const QFont& font,
                           const QPaintDevice& device, QSizeF page)
    : look_(font, paperPalette(), &device), roomOfPage_(page.height()) {
    const double width = std::max(page.width(), look_.leastWidth());
    for (const ReportPicture& picture : pictures)
        add(picture.strips(look_, width));
}

void PicturePages::add(Strips strips) {
    if (const double height = heightOf(strips); height <= roomOfPage_ && top_ + height > roomOfPage_)
        top_ = roomOfPage_;
    for (Strip& strip : strips) {
        if (pages_.empty() || top_ + strip.height > roomOfPage_) {
            pages_.emplace_back();
            top_ = 0;
        }
        const double top = std::exchange(top_, top_ + strip.height);
        pages_.back().push_back({top, std::move(strip)});
    }
    top_ += look_.lineHeight();
}

void PicturePages::draw(QPainter& painter, std::size_t page) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Placed& placed : pages_.at(page)) {
        painter.save();
        painter.translate(0, placed.top);
        placed.strip.draw(painter);
        painter.restore();
    }
    painter.restore();
}

}  // namespace tallybrook
