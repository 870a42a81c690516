#pragma once

#include <QCheckBox>

namespace tallybrook {

/// A pin of the rack, seen from above: checked while it is standing.
class PinButton : public QCheckBox {
public:
    explicit PinButton(QWidget* parent);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& place) const override;
};

}  // namespace tallybrook
