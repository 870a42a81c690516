#pragma once

#include <QPushButton>

namespace tallybrook {

/// An entry of a menu that stands open on a window: a line of text that can be pressed, without a border. The
/// one that most people look for has a ground of its own.
class MenuEntry : public QPushButton {
public:
    MenuEntry(QWidget* parent, bool standsOut);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QColor ground() const;

    bool standsOut_;
};

}  // namespace tallybrook
