#pragma once

#include "pictures/ReportPicture.h"
#include "textview/WheelTurn.h"
#include "textview/Zoom.h"

#include <QPointer>
#include <QScrollArea>
#include <functional>

class QBoxLayout;

namespace tallybrook {

class PictureWidget;

/// Shows the pictures of a report below each other. Each is a widget of its own with the picture's name and
/// summary for those who hear it, below a box for what may be picked out. Where the zoom would make them
/// wider than the view they are as large as there is room.
class PicturesView : public QScrollArea {
public:
    PicturesView();

    /// Pictures of the same names as those that are shown take their places, and all stays where it is.
    void setPictures(std::vector<ReportPicture> pictures);
    [[nodiscard]] std::vector<ReportPicture> shown() const;
    [[nodiscard]] bool isEmpty() const { return pictures_.empty(); }
    void setZoom(Zoom zoom);
    /// Called with the zoom that a turn of the wheel asks for.
    std::function<void(Zoom zoom)> onZoomWanted;
    [[nodiscard]] QSize sizeHint() const override;

    /// The picture that had the focus last, or else the first in sight; null where there is none.
    [[nodiscard]] PictureWidget* current() const;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void showFont();
    [[nodiscard]] int widthFor(const QFont& font) const;
    [[nodiscard]] bool takePlaces(std::vector<ReportPicture>& pictures);
    void addPicture(ReportPicture picture, QBoxLayout& column);
    void noteFocus(const QWidget* focused);

    std::vector<PictureWidget*> pictures_;
    QPointer<PictureWidget> touched_;
    Zoom zoom_;
    WheelTurn wheel_;
};

}  // namespace tallybrook
