#pragma once

#include <QPushButton>

namespace tallybrook {

/// A button with some room around its caption.
class RoomyButton : public QPushButton {
public:
    using QPushButton::QPushButton;
    [[nodiscard]] QSize sizeHint() const override { return QPushButton::sizeHint() + QSize(16, 4); }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace tallybrook
