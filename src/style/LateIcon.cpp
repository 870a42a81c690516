#include "style/LateIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <utility>

namespace tallybrook {

namespace {

class LateIconEngine : public QIconEngine {
public:
    explicit LateIconEngine(std::function<QIcon()> make) : make_(std::move(make)) {}

    [[nodiscard]] QIconEngine* clone() const override { return new LateIconEngine(make_); }
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        icon().paint(painter, place, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().pixmap(size, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().actualSize(size, mode, state);
    }

private:
    const QIcon& icon() {
        if (icon_.isNull())
            icon_ = make_();
        return icon_;
    }

    std::function<QIcon()> make_;
    QIcon icon_;
};

}  // namespace

QIcon lateIcon(std::function<QIcon()> make) {
    return QIcon(new LateIconEngine(std::move(make)));
}

}  // namespace tallybrook
