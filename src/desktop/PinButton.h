#pragma once

#include <QAbstractButton>

namespace tallybrook {

/// A pin of the rack, seen from above: checked while it is standing.
class PinButton : public QAbstractButton {
public:
    explicit PinButton(QWidget* parent);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallybrook
