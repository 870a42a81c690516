#pragma once

#include <QGroupBox>

namespace tallybrook {

/// A titled border around widgets, which stands out while the focus is in it.
class TitledBox : public QGroupBox {
public:
    enum class Standing {
        Off,  // nothing in it can be used now
        Ready,
        Current,  // the focus is in it
    };

    using QGroupBox::QGroupBox;
    void setStanding(Standing standing);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Standing standing_ = Standing::Ready;
};

}  // namespace tallybrook
