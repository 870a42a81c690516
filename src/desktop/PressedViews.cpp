#include "desktop/PressedViews.h"

#include "controls/Screen.h"
#include "desktop/PinButton.h"
#include "desktop/QtText.h"
#include "desktop/RoomyButton.h"
#include "desktop/Spoken.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>
#include <QSignalBlocker>

namespace tallybrook {

namespace {

bool isOn(const Control& control) {
    return control.kind() == Control::Kind::OptionButton ? static_cast<const OptionButton&>(control).value()
                                                         : static_cast<const CheckBox&>(control).value();
}

/// What an option answers, with a blank behind it; empty where nothing asks.
QString questionOf(const Control& control) {
    if (control.kind() != Control::Kind::OptionButton)
        return {};
    const Control* const question = static_cast<const OptionButton&>(control).group().question();
    return question == nullptr ? QString() : spoken(question->caption()) + ' ';
}

class PressedView : public ControlView {
public:
    PressedView(Control& control, QAbstractButton* button, ViewListener& listener)
        : ControlView(control), button_(button) {
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [&control, &listener] { listener.clicked(control); });
        // Assistive technology turns it on or off without a click; by then a click is over, and shown.
        QObject::connect(
            button, &QAbstractButton::toggled, &alive_,
            [&control, button, &listener] {
                if (button->isChecked() != isOn(control))
                    listener.clicked(control);
            },
            Qt::QueuedConnection);
    }
    [[nodiscard]] QWidget& widget() const override { return *button_; }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(button_);
        if (const QString caption = toQt(control().caption()); button_->text() != caption)
            button_->setText(caption);
        if (button_->isCheckable())
            button_->setChecked(isOn(control()));
        tellName(*button_, spokenName());
    }

private:
    [[nodiscard]] QString spokenName() const {
        if (!control().spokenName().empty())
            return toQt(control().spokenName());
        return questionOf(control()) + spoken(control().caption());
    }

    QAbstractButton* button_;
    QObject alive_;  // as long as the control is asked
};

class ButtonView : public PressedView {
public:
    ButtonView(Control& control, RoomyButton* button, ViewListener& listener)
        : PressedView(control, button, listener), button_(button) {}

protected:
    void refreshContent() override {
        PressedView::refreshContent();
        button_->setStandsOut(control().screen().primary() == &control());
    }

private:
    RoomyButton* button_;
};

}  // namespace

std::unique_ptr<ControlView> makeButtonView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<ButtonView>(control, new RoomyButton(&parent), listener);
}

std::unique_ptr<ControlView> makeOptionView(Control& control, QWidget& parent, ViewListener& listener) {
    auto* const button = new QRadioButton(&parent);
    // Which options exclude each other is the screen's business: to the toolkit each is a group by itself.
    auto* const alone = new QButtonGroup(button);
    alone->setExclusive(false);
    alone->addButton(button);
    return std::make_unique<PressedView>(control, button, listener);
}

std::unique_ptr<ControlView> makeCheckBoxView(Control& control, QWidget& parent, ViewListener& listener) {
    if (static_cast<CheckBox&>(control).look() == CheckBoxLook::Pin)
        return std::make_unique<PressedView>(control, new PinButton(&parent), listener);
    return std::make_unique<PressedView>(control, new QCheckBox(&parent), listener);
}

}  // namespace tallybrook
