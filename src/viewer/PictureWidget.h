#pragma once

#include "pictures/ReportPicture.h"

#include <QPixmap>
#include <QWidget>
#include <memory>
#include <optional>

namespace tallybrook {

/// One picture, as wide as there is room. Assistive programs take it for a graphic.
///
/// What it shows can be read place by place, by pointing or by the arrow keys. A picture with a range can be
/// looked at closer: by dragging over a part of it, or by + and -; Escape leads back.
class PictureWidget : public QWidget {
public:
    explicit PictureWidget(ReportPicture picture);

    [[nodiscard]] const ReportPicture& picture() const { return picture_; }
    /// Shows another picture of the same kind, at the same range and choice.
    void setPicture(ReportPicture picture);

    [[nodiscard]] const PictureView& view() const { return view_; }
    void setChoice(int choice);
    /// What the spot says that is read at present, in lines; empty where none is.
    [[nodiscard]] QStringList read() const;
    /// The table that is shown, all of it.
    [[nodiscard]] const PictureTable& table() const;
    /// Reads the spot that is nearest to a place, if one is near.
    void readAt(QPointF place);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// The picture laid out for a width.
    struct Laid {
        PictureLook look;
        int width;
        Strips strips;
        std::vector<Spot> spots;     ///< of all strips, in the widget's own measures
        std::optional<QRectF> plot;  ///< in the same
        QPixmap drawn;               ///< the strip of the plot as it was drawn; null where it is not kept
    };
    /// A drag over the plot, from one place to another.
    struct Drag {
        double from;
        double to;
    };

    const Laid& laidFor(int width) const;
    const Laid& laid() const { return laidFor(width()); }
    void layAnew();
    void setView(const PictureView& view);

    void readSpot(std::optional<std::size_t> spot);
    void step(int steps);
    [[nodiscard]] bool isReading() const { return spot_ < laid().spots.size(); }
    void zoomBy(double factor);
    void panBy(double share);
    [[nodiscard]] bool leads(int key) const;
    [[nodiscard]] bool goBack();

    [[nodiscard]] bool isPointedAt() const { return isReading() || drag_ || underMouse(); }
    void paintPlot(QPainter& painter, const Strip& strip, double top) const;
    void paintReading(QPainter& painter) const;
    void paintDrag(QPainter& painter) const;

    static constexpr std::size_t kNoSpot = static_cast<std::size_t>(-1);

    ReportPicture picture_;
    PictureView view_;
    std::size_t spot_ = kNoSpot;
    std::optional<Drag> drag_;
    mutable std::unique_ptr<Laid> laid_;
    mutable std::optional<PictureTable> table_;
};

}  // namespace tallybrook
