#pragma once

#include "viewer/ReportPicture.h"
#include "viewer/WheelTurn.h"
#include "viewer/Zoom.h"

#include <QScrollArea>
#include <functional>

namespace tallybrook {

/// Shows the pictures of a report below each other. Each is a widget of its own with the picture's name and
/// summary for those who hear it.
class PicturesView : public QScrollArea {
public:
    PicturesView();

    void setPictures(std::vector<ReportPicture> pictures);
    [[nodiscard]] bool isEmpty() const { return isEmpty_; }
    void setZoom(Zoom zoom);
    /// Called with the zoom that a turn of the wheel asks for.
    std::function<void(Zoom zoom)> onZoomWanted;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void showFont();

    bool isEmpty_ = true;
    Zoom zoom_;
    WheelTurn wheel_;
};

}  // namespace tallybrook
