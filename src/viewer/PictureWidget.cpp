#include "viewer/PictureWidget.h"

#include "style/Colours.h"
#include "viewer/ReadingBox.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tallybrook {

namespace {

QAccessibleInterface* graphicFor(const QString& /*key*/, QObject* object) {
    auto* const picture = dynamic_cast<PictureWidget*>(object);
    return picture == nullptr ? nullptr : new QAccessibleWidget(picture, QAccessible::Graphic);
}

void announceGraphics() {
    static const bool isAnnounced = [] {
        QAccessible::installFactory(graphicFor);
        return true;
    }();
    Q_UNUSED(isAnnounced);
}

/// How far a place is from a rectangle.
double distance(const QPointF& place, const QRectF& rectangle) {
    const double x = std::max({rectangle.left() - place.x(), 0.0, place.x() - rectangle.right()});
    const double y = std::max({rectangle.top() - place.y(), 0.0, place.y() - rectangle.bottom()});
    return std::hypot(x, y);
}

std::size_t countOfSpots(const Strips& strips) {
    std::size_t count = 0;
    for (const Strip& strip : strips)
        count += strip.spots.size();
    return count;
}

void paintStrip(QPainter& painter, const Strip& strip, double top) {
    painter.save();
    painter.translate(0, top);
    strip.draw(painter);
    painter.restore();
}

constexpr double kZoomStep = 2;
constexpr double kPanStep = 0.2;

}  // namespace

PictureWidget::PictureWidget(ReportPicture picture) : picture_(std::move(picture)) {
    announceGraphics();
    setAccessibleName(picture_.name);
    setAccessibleDescription(picture_.summary);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PictureWidget::setPicture(ReportPicture picture) {
    picture_ = std::move(picture);
    if (view_.choice >= picture_.choices.size())
        view_.choice = 0;
    table_.reset();
    readSpot(std::nullopt);
    setAccessibleDescription(picture_.summary);
    layAnew();
}

// --- Its place ---------------------------------------------------------------------------------------------

int PictureWidget::heightForWidth(int width) const {
    return static_cast<int>(std::ceil(heightOf(laidFor(width).strips)));
}

QSize PictureWidget::sizeHint() const {
    const QSize least = minimumSizeHint();
    return {2 * least.width(), heightForWidth(2 * least.width())};
}

QSize PictureWidget::minimumSizeHint() const {
    const PictureLook look(font(), palette());
    return {static_cast<int>(std::ceil(look.leastWidth())), static_cast<int>(look.lineHeight())};
}

void PictureWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        layAnew();
    QWidget::changeEvent(event);
}

void PictureWidget::layAnew() {
    laid_.reset();
    updateGeometry();
    update();
}

const PictureWidget::Laid& PictureWidget::laidFor(int width) const {
    if (laid_ && laid_->width == width)
        return *laid_;
    laid_ = std::make_unique<Laid>(Laid{PictureLook(font(), palette()), width, {}, {}, {}, {}});
    laid_->strips = picture_.strips(laid_->look, width, view_);  // which keep hold of the look
    double top = 0;
    laid_->spots.reserve(countOfSpots(laid_->strips));
    for (Strip& strip : laid_->strips) {
        for (const Spot& spot : std::exchange(strip.spots, {}))
            laid_->spots.push_back({spot.place.translated(0, top), spot.row});
        if (strip.plot)
            laid_->plot = strip.plot->translated(0, top);
        top += strip.height;
    }
    return *laid_;
}

// --- Reading it place by place -----------------------------------------------------------------------------

const PictureTable& PictureWidget::table() const {
    if (!table_)
        table_ = picture_.table ? picture_.table(view_) : PictureTable();
    return *table_;
}

QStringList PictureWidget::read() const {
    return isReading() ? table().told(laid().spots[spot_].row) : QStringList();
}

void PictureWidget::readSpot(std::optional<std::size_t> spot) {
    if (spot.value_or(kNoSpot) == spot_)
        return;
    spot_ = spot.value_or(kNoSpot);
    const QStringList lines = read();
    setAccessibleName(lines.isEmpty() ? picture_.name : picture_.name + ": " + lines.join(", "));
    update();
}

void PictureWidget::readAt(QPointF place) {
    const std::vector<Spot>& spots = laid().spots;
    const auto distanceTo = [&](const Spot& spot) { return distance(place, spot.place); };
    const auto nearest = std::ranges::min_element(spots, {}, distanceTo);
    if (nearest == spots.end() || distanceTo(*nearest) > laid().look.lineHeight())
        readSpot(std::nullopt);
    else
        readSpot(static_cast<std::size_t>(nearest - spots.begin()));
}

/// To the next spot or the one before, over the edge of what is shown where there is more of the range.
void PictureWidget::step(int steps) {
    const auto count = static_cast<std::ptrdiff_t>(laid().spots.size());
    if (count == 0)
        return;
    const std::ptrdiff_t from = isReading() ? static_cast<std::ptrdiff_t>(spot_) : (steps > 0 ? -1 : count);
    const std::ptrdiff_t next = from + steps;
    if ((next < 0 || next >= count) && !view_.isWhole()) {
        panBy(steps > 0 ? kPanStep : -kPanStep);
        return;
    }
    readSpot(static_cast<std::size_t>(std::clamp(next, std::ptrdiff_t{0}, count - 1)));
}

// --- Looking closer ----------------------------------------------------------------------------------------

void PictureWidget::setChoice(int choice) {
    PictureView view;
    view.choice = choice;
    setView(view);
}

/// What was read stays read where it is still to be seen.
void PictureWidget::setView(const PictureView& view) {
    if (view == view_)
        return;
    const std::optional<std::size_t> row =
        isReading() && view.choice == view_.choice ? std::optional(laid().spots[spot_].row) : std::nullopt;
    if (view.choice != view_.choice)
        table_.reset();
    view_ = view;
    layAnew();
    spot_ = kNoSpot;
    const auto same = std::ranges::find_if(laid().spots, [&](const Spot& spot) { return spot.row == row; });
    if (same != laid().spots.end())
        readSpot(static_cast<std::size_t>(same - laid().spots.begin()));
    else
        setAccessibleName(picture_.name);
}

/// Around what is read, or else around the middle.
void PictureWidget::zoomBy(double factor) {
    if (!laid().plot)
        return;
    const QRectF& plot = *laid().plot;
    const double place =
        isReading() ? (laid().spots[spot_].place.center().x() - plot.left()) / plot.width() : 0.5;
    const double middle = view_.from + std::clamp(place, 0.0, 1.0) * view_.span();
    const double span = std::min(view_.span() / factor, 1.0);
    setView(view_.over(middle - span / 2, middle + span / 2));
}

void PictureWidget::panBy(double share) {
    const double way = share * view_.span();
    setView(view_.over(view_.from + way, view_.to + way));
}

/// Out of the zoom, or else out of reading; returns false where there is neither.
bool PictureWidget::goBack() {
    if (!view_.isWhole()) {
        setView(view_.over(0, 1));
        return true;
    }
    const bool wasReading = isReading();
    readSpot(std::nullopt);
    return wasReading;
}

// --- Keys and mouse ----------------------------------------------------------------------------------------

/// Escape belongs to the picture as long as there is something to go back from.
bool PictureWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = dynamic_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape && (!view_.isWhole() || isReading())) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

/// Whether a key leads anywhere in this picture.
bool PictureWidget::leads(int key) const {
    constexpr std::array kSteps{Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End};
    constexpr std::array kZooms{Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus};
    const auto isIn = [key](const auto& keys) { return std::ranges::find(keys, key) != keys.end(); };
    return (isIn(kSteps) && !laid().spots.empty()) || (isIn(kZooms) && laid().plot);
}

void PictureWidget::keyPressEvent(QKeyEvent* event) {
    const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
    const int all = static_cast<int>(laid().spots.size());
    const bool isPlain = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (event->key() == Qt::Key_Escape && goBack())
        return;
    if (!isPlain || !leads(event->key())) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
        case Qt::Key_Left:
            isShifted ? panBy(-kPanStep) : step(-1);
            break;
        case Qt::Key_Right:
            isShifted ? panBy(kPanStep) : step(1);
            break;
        case Qt::Key_Home:
            readSpot(0);
            break;
        case Qt::Key_End:
            readSpot(static_cast<std::size_t>(all - 1));
            break;
        case Qt::Key_Minus:
            zoomBy(1 / kZoomStep);
            break;
        default:
            zoomBy(kZoomStep);
    }
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    const std::optional<QRectF>& plot = laid().plot;
    if (event->button() == Qt::LeftButton && plot && plot->contains(event->position()))
        drag_ = Drag{event->position().x(), event->position().x()};
    else
        QWidget::mousePressEvent(event);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    if (drag_) {
        drag_->to = std::clamp(event->position().x(), laid().plot->left(), laid().plot->right());
        readSpot(std::nullopt);
        update();
    } else {
        readAt(event->position());
    }
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (!drag_ || event->button() != Qt::LeftButton) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    const Drag drag = *std::exchange(drag_, std::nullopt);
    const QRectF plot = *laid().plot;
    update();
    if (std::abs(drag.to - drag.from) < laid().look.digit())
        return readAt(event->position());
    const auto shareAt = [&](double x) {
        return view_.from + (x - plot.left()) / plot.width() * view_.span();
    };
    const auto [left, right] = std::minmax(drag.from, drag.to);
    setView(view_.over(shareAt(left), shareAt(right)));
}

/// A wheel to the side, or one that is turned with Shift, moves along the range.
void PictureWidget::wheelEvent(QWheelEvent* event) {
    const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
    const int turned = event->angleDelta().x() != 0 ? event->angleDelta().x()
                       : isShifted                  ? event->angleDelta().y()
                                                    : 0;
    if (turned == 0 || view_.isWhole()) {
        event->ignore();
        return;
    }
    constexpr double kNotch = 120;
    panBy(-kPanStep * turned / kNotch);
    event->accept();
}

void PictureWidget::leaveEvent(QEvent* event) {
    if (!hasFocus())
        readSpot(std::nullopt);
    QWidget::leaveEvent(event);
}

void PictureWidget::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason)
        readSpot(std::nullopt);
    QWidget::focusOutEvent(event);
}

// --- Painting ----------------------------------------------------------------------------------------------

void PictureWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    double top = 0;
    for (const Strip& strip : laid().strips) {
        if (event->rect().intersects(QRectF(0, top, width(), strip.height).toAlignedRect())) {
            if (strip.plot && isPointedAt())
                paintPlot(painter, strip, top);
            else
                paintStrip(painter, strip, top);
        }
        top += strip.height;
    }
    if (!isPointedAt())
        laid_->drawn = {};
    paintDrag(painter);
    paintReading(painter);
}

/// A plot may have ten thousand marks: it is drawn once, and kept as long as somebody points at it.
void PictureWidget::paintPlot(QPainter& painter, const Strip& strip, double top) const {
    const QRect place = QRectF(0, top, width(), strip.height).toAlignedRect();
    QPixmap& drawn = laid_->drawn;
    if (drawn.isNull() || drawn.devicePixelRatio() != devicePixelRatioF()) {
        drawn = QPixmap((QSizeF(place.size()) * devicePixelRatioF()).toSize());
        drawn.setDevicePixelRatio(devicePixelRatioF());
        drawn.fill(laid_->look.ground());
        QPainter own(&drawn);
        own.setRenderHint(QPainter::Antialiasing);
        paintStrip(own, strip, top - place.top());
    }
    painter.drawPixmap(place.topLeft(), drawn);
}

void PictureWidget::paintDrag(QPainter& painter) const {
    if (!drag_)
        return;
    const QRectF& plot = *laid().plot;
    const auto [left, right] = std::minmax(drag_->from, drag_->to);
    QColor shade = laid().look.fill();
    constexpr float kFaint = 0.2F;
    shade.setAlphaF(kFaint);
    painter.fillRect(QRectF(left, plot.top(), right - left, plot.height()), shade);
}

/// A ring around the spot, and what it says in a box beside it.
void PictureWidget::paintReading(QPainter& painter) const {
    if (!isReading())
        return;
    const PictureLook& look = laid().look;
    const QRectF spot = laid().spots[spot_].place.adjusted(-2, -2, 2, 2);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(focusColour(palette()), 2 * look.hair()));
    painter.drawRoundedRect(spot, 3, 3);
    paintBox(painter, read(), spot, QSizeF(size()), look);
}

}  // namespace tallybrook
