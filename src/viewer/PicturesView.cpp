#include "viewer/PicturesView.h"

#include "viewer/PictureWidget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFontInfo>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace tallybrook {

namespace {

constexpr int kBesidePictures = 16;  // pixels

/// Whether a picture can take the place of another without a change around it.
bool isAlike(const PictureWidget* shown, const ReportPicture& picture) {
    return shown->picture().name == picture.name && shown->picture().choices == picture.choices;
}

}  // namespace

PicturesView::PicturesView() {
    setAccessibleName("Pictures");
    setWidgetResizable(true);
    setFocusPolicy(Qt::StrongFocus);  // so that keys scroll it
    setBackgroundRole(QPalette::Base);
    setPictures({});
    showFont();
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget* /*before*/, const QWidget* now) { noteFocus(now); });
}

void PicturesView::setPictures(std::vector<ReportPicture> pictures) {
    if (!pictures.empty() && takePlaces(pictures))
        return;
    pictures_.clear();
    auto* const page = new QWidget;
    page->setBackgroundRole(QPalette::Base);
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(kBesidePictures, 12, kBesidePictures, 12);
    column->setSpacing(20);
    for (ReportPicture& picture : pictures)
        addPicture(std::move(picture), *column);
    column->addStretch(1);
    setWidget(page);
    page->show();
}

std::vector<ReportPicture> PicturesView::shown() const {
    std::vector<ReportPicture> pictures;
    for (const PictureWidget* const widget : pictures_)
        pictures.push_back(widget->picture());
    return pictures;
}

/// Gives each picture to the widget of its name; returns false, and takes none, where they are others.
bool PicturesView::takePlaces(std::vector<ReportPicture>& pictures) {
    if (!std::ranges::equal(pictures_, pictures, isAlike))
        return false;
    for (std::size_t index = 0; index < pictures.size(); ++index)
        pictures_[index]->setPicture(std::move(pictures[index]));
    return true;
}

void PicturesView::addPicture(ReportPicture picture, QBoxLayout& column) {
    const QStringList choices = picture.choices;
    const QString name = picture.name;
    auto* const widget = new PictureWidget(std::move(picture));
    pictures_.push_back(widget);
    if (!choices.isEmpty()) {
        auto* const row = new QHBoxLayout;
        auto* const box = new QComboBox;
        auto* const label = new QLabel("Sho&w:");
        label->setBuddy(box);
        box->addItems(choices);
        box->setAccessibleName("Show in " + name);
        box->view()->setAccessibleName(box->accessibleName());  // it has the focus as long as it is open
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(10);
        row->addWidget(label);
        row->addWidget(box, 1);
        row->addStretch(1);
        column.addLayout(row);
        connect(box, &QComboBox::currentIndexChanged, widget, &PictureWidget::setChoice);
    }
    column.addWidget(widget);
}

PictureWidget* PicturesView::current() const {
    if (touched_)
        return touched_;
    const int top = verticalScrollBar()->value();
    const auto inSight = std::ranges::find_if(
        pictures_, [top](const PictureWidget* picture) { return picture->geometry().bottom() > top; });
    return inSight == pictures_.end() ? nullptr : *inSight;
}

void PicturesView::noteFocus(const QWidget* focused) {
    const auto found = std::ranges::find(pictures_, focused);
    if (found != pictures_.end())
        touched_ = *found;
}

void PicturesView::setZoom(Zoom zoom) {
    zoom_ = zoom;
    showFont();
}

/// The width that the view takes where its pictures have a font.
int PicturesView::widthFor(const QFont& font) const {
    const double pictures = std::ceil(PictureLook(font, palette()).leastWidth());
    const int around = 2 * (kBesidePictures + frameWidth()) + verticalScrollBar()->sizeHint().width();
    return static_cast<int>(pictures) + around;
}

/// The font of the zoom, or the largest one below it in which the pictures fit. Actual size always fits.
void PicturesView::showFont() {
    constexpr double kStep = 0.98;
    QFont font = QApplication::font();
    const double actual = QFontInfo(font).pointSizeF();
    font.setPointSizeF(actual);
    setMinimumWidth(widthFor(font));
    font.setPointSizeF(actual * zoom_.percent() / 100);
    while (widthFor(font) > width() && font.pointSizeF() > actual)
        font.setPointSizeF(std::max(font.pointSizeF() * kStep, actual));
    setFont(font);
    verticalScrollBar()->setSingleStep(QFontMetrics(font).lineSpacing());
}

void PicturesView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange)
        showFont();
    QScrollArea::changeEvent(event);
}

void PicturesView::resizeEvent(QResizeEvent* event) {
    showFont();
    QScrollArea::resizeEvent(event);
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
