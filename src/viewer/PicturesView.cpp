#include "viewer/PicturesView.h"

#include "viewer/PictureWidget.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tallybrook {

PicturesView::PicturesView() {
    setAccessibleName("Pictures");
    setWidgetResizable(true);
    setFocusPolicy(Qt::StrongFocus);  // so that keys scroll it
    setBackgroundRole(QPalette::Base);
    setPictures({});
    showFont();
}

void PicturesView::setPictures(std::vector<ReportPicture> pictures) {
    isEmpty_ = pictures.empty();
    auto* const page = new QWidget;
    page->setBackgroundRole(QPalette::Base);
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(20);
    for (ReportPicture& picture : pictures)
        column->addWidget(new PictureWidget(std::move(picture)));
    column->addStretch(1);
    setWidget(page);
    page->show();
}

void PicturesView::setZoom(Zoom zoom) {
    zoom_ = zoom;
    showFont();
}

void PicturesView::showFont() {
    QFont font = QApplication::font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * zoom_.percent() / 100);
    setFont(font);
    verticalScrollBar()->setSingleStep(QFontMetrics(font).lineSpacing());
}

void PicturesView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange)
        showFont();
    QScrollArea::changeEvent(event);
}

void PicturesView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    if (const int notches = wheel_.notches(*event); notches != 0 && onZoomWanted)
        onZoomWanted(zoom_.stepped(notches));
    event->accept();
}

QSize PicturesView::sizeHint() const {
    return widget()->sizeHint();
}

}  // namespace tallybrook
