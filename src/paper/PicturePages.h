#pragma once

#include "paper/Pages.h"
#include "pictures/ReportPicture.h"

#include <QSizeF>
#include <memory>

namespace tallybrook {

/// The room for pictures on pages, in the device's units.
struct PictureRoom {
    QSizeF page;
    double begin = 0;  ///< what is taken already of the first page, from its top
};

/// The pictures of a report laid out on pages. A picture that fits on a page is not parted. Where the last
/// page would be almost empty all are drawn a little smaller, if that saves the page.
class PicturePages {
public:
    PicturePages(const std::vector<ReportPicture>& pictures, const QFont& font, const QPaintDevice& device,
                 const PictureRoom& room);
    PicturePages(const PicturePages&) = delete;
    PicturePages& operator=(const PicturePages&) = delete;

    [[nodiscard]] std::size_t count() const { return pages_.size(); }
    /// Whether there is anything on the first page, below what was taken of it.
    [[nodiscard]] bool usesFirst() const { return !pages_.empty() && !pages_.front().empty(); }
    /// Where each picture begins: its name, and the page, from 0.
    [[nodiscard]] const std::vector<SectionPlace>& sections() const { return sections_; }
    /// Draws a page, from 0, with its upper left corner at the painter's origin.
    void draw(QPainter& painter, std::size_t page) const;

private:
    struct Placed {
        double top;
        Strip strip;
    };

    void layOut(const std::vector<ReportPicture>& pictures);
    void add(const QString& name, Strips strips);
    [[nodiscard]] bool isLastAlmostEmpty() const;

    std::unique_ptr<PictureLook> look_;  // the strips keep hold of it
    PictureRoom room_;
    double top_ = 0;  // of what comes next
    std::vector<std::vector<Placed>> pages_;
    std::vector<SectionPlace> sections_;
};

}  // namespace tallybrook
