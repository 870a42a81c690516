#include "paper/PicturePages.h"

#include <QFontInfo>
#include <QPainter>
#include <array>
#include <utility>

namespace tallybrook {

PicturePages::PicturePages(const std::vector<ReportPicture>& pictures, const QFont& font,
                           const QPaintDevice& device, const PictureRoom& room)
    : room_(room) {
    constexpr std::array kSizes{1.0, 0.96, 0.92, 0.88, 0.84};
    std::size_t first = 0;
    for (const double size : kSizes) {
        QFont sized = font;
        sized.setPointSizeF(font.pointSizeF() * size);
        look_ = std::make_unique<PictureLook>(sized, paperPalette(), &device);
        layOut(pictures);
        first = size == 1.0 ? count() : first;
        if (size == 1.0 ? !isLastAlmostEmpty() : count() < first)
            return;
    }
    look_ = std::make_unique<PictureLook>(font, paperPalette(), &device);
    layOut(pictures);
}

void PicturePages::layOut(const std::vector<ReportPicture>& pictures) {
    pages_.assign(pictures.empty() ? 0 : 1, {});
    sections_.clear();
    top_ = room_.begin;
    const double width = std::max(room_.page.width(), look_->leastWidth());
    for (const ReportPicture& picture : pictures)
        add(picture.name, picture.strips(*look_, width));
}

void PicturePages::add(const QString& name, Strips strips) {
    const double whole = heightOf(strips);
    if (whole <= room_.page.height() && top_ + whole > room_.page.height())
        top_ = room_.page.height();
    bool isFirst = true;
    for (Strip& strip : strips) {
        if (top_ > 0 && top_ + strip.height > room_.page.height()) {
            pages_.emplace_back();
            top_ = 0;
        }
        if (std::exchange(isFirst, false))
            sections_.push_back({name, static_cast<int>(pages_.size() - 1)});
        const double top = std::exchange(top_, top_ + strip.height);
        pages_.back().push_back({top, std::move(strip)});
    }
    top_ += look_->lineHeight();
}

bool PicturePages::isLastAlmostEmpty() const {
    constexpr double kAlmostEmpty = 0.35;
    return pages_.size() > 1 && top_ < kAlmostEmpty * room_.page.height();
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
