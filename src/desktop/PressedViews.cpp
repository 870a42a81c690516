#include "desktop/PressedViews.h"

#include "desktop/PinButton.h"
#include "desktop/QtText.h"
#include "desktop/RoomyButton.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSignalBlocker>

namespace tallybrook {

namespace {

bool isOn(const Control& control) {
    return control.kind() == Control::Kind::OptionButton ? static_cast<const OptionButton&>(control).value()
                                                         : static_cast<const CheckBox&>(control).value();
}

class PressedView : public ControlView {
public:
    PressedView(Control& control, QAbstractButton* button, ViewListener& listener)
        : ControlView(control), button_(button) {
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [&control, &listener] { listener.clicked(control); });
    }
    [[nodiscard]] QWidget& widget() const override { return *button_; }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(button_);
        if (const QString caption = toQt(control().caption()); button_->text() != caption)
            button_->setText(caption);
        if (button_->isCheckable())
            button_->setChecked(isOn(control()));
        button_->setAccessibleName(spokenName());
    }
    [[nodiscard]] virtual QString spokenName() const { return spoken(control().caption()); }

private:
    QAbstractButton* button_;
};

class PinView : public PressedView {
public:
    using PressedView::PressedView;

protected:
    [[nodiscard]] QString spokenName() const override {
        return "Pin " + PressedView::spokenName() + (isOn(control()) ? ", standing" : ", knocked down");
    }
};

}  // namespace

std::unique_ptr<ControlView> makeButtonView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<PressedView>(control, new RoomyButton(&parent), listener);
}

std::unique_ptr<ControlView> makeOptionView(Control& control, QWidget& parent, ViewListener& listener) {
    auto* const button = new QRadioButton(&parent);
    button->setAutoExclusive(false);  // which options exclude each other is the screen's business
    return std::make_unique<PressedView>(control, button, listener);
}

std::unique_ptr<ControlView> makeCheckBoxView(Control& control, QWidget& parent, ViewListener& listener) {
    if (static_cast<CheckBox&>(control).look() == CheckBoxLook::Pin)
        return std::make_unique<PinView>(control, new PinButton(&parent), listener);
    return std::make_unique<PressedView>(control, new QCheckBox(&parent), listener);
}

}  // namespace tallybrook
