#pragma once

#include <QPushButton>

namespace tallybrook {

/// A button with some room around its caption, where there is some.
class RoomyButton : public QPushButton {
public:
    explicit RoomyButton(QWidget* parent = nullptr) : QPushButton(parent) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }
    [[nodiscard]] QSize sizeHint() const override { return QPushButton::sizeHint() + QSize(16, kAbove); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return QPushButton::sizeHint() + QSize(0, kAbove);
    }

private:
    static constexpr int kAbove = 4;  // pixels, above and below together
};

}  // namespace tallybrook
