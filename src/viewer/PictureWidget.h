#pragma once

#include "viewer/ReportPicture.h"

#include <QWidget>
#include <memory>

namespace tallybrook {

/// One picture, as wide as there is room. Assistive programs take it for a graphic.
class PictureWidget : public QWidget {
public:
    explicit PictureWidget(ReportPicture picture);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// The picture laid out for a width.
    struct Laid {
        PictureLook look;
        int width;
        Strips strips;
    };
    const Laid& laidFor(int width) const;

    ReportPicture picture_;
    mutable std::unique_ptr<Laid> laid_;
};

}  // namespace tallybrook
