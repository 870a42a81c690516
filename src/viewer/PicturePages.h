#pragma once

#include "viewer/ReportPicture.h"

#include <QSizeF>

namespace tallybrook {

/// The pictures of a report laid out on pages. A picture that fits on a page is not parted.
class PicturePages {
public:
    /// `page` is the room on a page, in the device's units.
    PicturePages(const std::vector<ReportPicture>& pictures, const QFont& font, const QPaintDevice& device,
                 QSizeF page);
    PicturePages(const PicturePages&) = delete;
    PicturePages& operator=(const PicturePages&) = delete;

    [[nodiscard]] std::size_t count() const { return pages_.size(); }
    /// Draws a page, from 0, with its upper left corner at the painter's origin.
    void draw(QPainter& painter, std::size_t page) const;

private:
    struct Placed {
        double top;
        Strip strip;
    };

    void add(Strips strips);

    PictureLook look_;  // the strips keep hold of it
    double roomOfPage_;
    double top_ = 0;  // of what comes next
    std::vector<std::vector<Placed>> pages_;
};

}  // namespace tallybrook
