#pragma once

#include <QPushButton>

namespace tallybrook {

/// A button with some room around its caption, where there is some. The one that most people look for stands
/// out from the others of its window.
class RoomyButton : public QPushButton {
public:
    explicit RoomyButton(QWidget* parent = nullptr) : QPushButton(parent) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        setAttribute(Qt::WA_Hover);
    }
    void setStandsOut(bool standsOut);

    [[nodiscard]] QSize sizeHint() const override { return QPushButton::sizeHint() + QSize(16, kAbove); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return QPushButton::sizeHint() + QSize(0, kAbove);
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr int kAbove = 4;  // pixels, above and below together

    bool standsOut_ = false;
};

}  // namespace tallybrook
