#include "viewer/PictureWidget.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>
#include <numeric>

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

}  // namespace

PictureWidget::PictureWidget(ReportPicture picture) : picture_(std::move(picture)) {
    announceGraphics();
    setAccessibleName(picture_.name);
    setAccessibleDescription(picture_.summary);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int PictureWidget::heightForWidth(int width) const {
    const Strips& strips = laidFor(width).strips;
    const double height = std::accumulate(strips.begin(), strips.end(), 0.0,
                                          [](double sum, const Strip& strip) { return sum + strip.height; });
    return static_cast<int>(std::ceil(height));
}

QSize PictureWidget::sizeHint() const {
    const QSize least = minimumSizeHint();
    return {2 * least.width(), heightForWidth(2 * least.width())};
}

QSize PictureWidget::minimumSizeHint() const {
    const PictureLook look(font(), palette());
    return {static_cast<int>(std::ceil(look.leastWidth())), static_cast<int>(look.lineHeight())};
}

void PictureWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    double top = 0;
    for (const Strip& strip : laidFor(width()).strips) {
        if (event->rect().intersects(QRectF(0, top, width(), strip.height).toAlignedRect())) {
            painter.save();
            painter.translate(0, top);
            strip.draw(painter);
            painter.restore();
        }
        top += strip.height;
    }
}

void PictureWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        laid_.reset();
        updateGeometry();
        update();
    }
    QWidget::changeEvent(event);
}

const PictureWidget::Laid& PictureWidget::laidFor(int width) const {
    if (!laid_ || laid_->width != width) {
        laid_ = std::make_unique<Laid>(Laid{PictureLook(font(), palette()), width, {}});
        laid_->strips = picture_.strips(laid_->look, width);  // which keep hold of the look
    }
    return *laid_;
}

}  // namespace tallybrook
