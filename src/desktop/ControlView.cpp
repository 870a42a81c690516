#include "desktop/ControlView.h"

#include "desktop/PinButton.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSvgWidget>

namespace tallybrook {

namespace {

/// A caption without the mark of its Alt letter, as it is read aloud.
QString spoken(const std::string& caption) {
    return toQt(caption).remove('&').trimmed();
}

/// A line edit that is as wide as a number of characters, where its box says so.
class SizedLineEdit : public QLineEdit {
public:
    SizedLineEdit(QWidget& parent, int characters) : QLineEdit(&parent), characters_(characters) {
        if (characters_ > 0)
            setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    [[nodiscard]] QSize sizeHint() const override {
        const QSize usual = QLineEdit::sizeHint();
        return characters_ == 0
                   ? usual
                   : QSize(fontMetrics().averageCharWidth() * (characters_ + 2) + 14, usual.height());
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return characters_ == 0 ? QLineEdit::minimumSizeHint() : sizeHint();
    }

private:
    int characters_;
};

/// What is only shown is drawn on the window's own ground.
void drawQuiet(QWidget& widget) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
    widget.setPalette(palette);
}

class LineView : public ControlView {
public:
    LineView(TextBox& box, QWidget& parent, ViewListener& listener)
        : ControlView(box), box_(box), edit_(new SizedLineEdit(parent, box.options().width)) {
        edit_->setReadOnly(box.options().readOnly);
        if (box.options().centred)
            edit_->setAlignment(Qt::AlignCenter);
        if (box.options().readOnly)
            drawQuiet(*edit_);
        QObject::connect(edit_, &QLineEdit::textEdited, edit_,
                         [&box, &listener](const QString& text) { listener.edited(box, text); });
    }
    [[nodiscard]] QWidget& widget() const override { return *edit_; }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(edit_);
        if (const QString text = toQt(box_.text()); edit_->text() != text)
            edit_->setText(text);
        if (box_.hasFocus() && box_.isAllSelected())
            edit_->selectAll();
        else if (!box_.hasFocus())
            edit_->deselect();
    }

private:
    TextBox& box_;
    QLineEdit* edit_;
};

class LinesView : public ControlView {
public:
    LinesView(TextBox& box, QWidget& parent, ViewListener& listener)
        : ControlView(box), box_(box), edit_(new QPlainTextEdit(&parent)) {
        edit_->setReadOnly(box.options().readOnly);
        edit_->setTabChangesFocus(true);
        if (box.options().readOnly)
            drawQuiet(*edit_);
        QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_,
                         [this, &listener] { listener.edited(box_, edit_->toPlainText()); });
    }
    [[nodiscard]] QWidget& widget() const override { return *edit_; }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(edit_);
        if (const QString text = toQt(box_.text()).replace("\r\n", "\n"); edit_->toPlainText() != text) {
            edit_->setPlainText(text);
            edit_->moveCursor(QTextCursor::End);
        }
        if (box_.hasFocus() && box_.isAllSelected())
            edit_->selectAll();
    }

private:
    TextBox& box_;
    QPlainTextEdit* edit_;
};

/// Buttons, options and check boxes: what is clicked, and perhaps checked.
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
            button_->setChecked(isOn());
        button_->setAccessibleName(spoken(control().caption()));
    }
    [[nodiscard]] bool isOn() const {
        return control().kind() == Control::Kind::OptionButton ? static_cast<OptionButton&>(control()).value()
                                                               : static_cast<CheckBox&>(control()).value();
    }
    [[nodiscard]] QAbstractButton& button() const { return *button_; }

private:
    QAbstractButton* button_;
};

class PinView : public PressedView {
public:
    using PressedView::PressedView;

protected:
    void refreshContent() override {
        PressedView::refreshContent();
        widget().setAccessibleName("Pin " + spoken(control().caption()) + (isOn() ? ", standing" : ", down"));
    }
};

class LabelView : public ControlView {
public:
    LabelView(Label& label, QWidget& parent) : ControlView(label), label_(new QLabel(&parent)) {
        label_->setTextFormat(Qt::PlainText);
        QFont font = label_->font();
        if (label.look() == LabelLook::Heading)
            font.setPointSizeF(font.pointSizeF() * 1.5);
        font.setBold(label.look() != LabelLook::Plain);
        label_->setFont(font);
    }
    [[nodiscard]] QWidget& widget() const override { return *label_; }

protected:
    void refreshContent() override { label_->setText(spoken(control().caption())); }

private:
    QLabel* label_;
};

/// A label that names a box: its Alt letter is underlined, and the box bears its name.
class NameView : public ControlView {
public:
    NameView(Label& label, QWidget& parent) : ControlView(label), label_(new QLabel(&parent)) {}
    [[nodiscard]] QWidget& widget() const override { return *label_; }

protected:
    void refreshContent() override {
        // A label underlines the letter only where it is some widget's: itself will do, the keys are the
        // screen's.
        label_->setBuddy(label_);
        label_->setText(toQt(control().caption()).trimmed());
    }

private:
    QLabel* label_;
};

class FrameView : public ControlView {
public:
    FrameView(Frame& frame, QWidget& parent) : ControlView(frame), box_(new QGroupBox(&parent)) {}
    [[nodiscard]] QWidget& widget() const override { return *box_; }

protected:
    void refreshContent() override { box_->setTitle(spoken(control().caption())); }

private:
    QGroupBox* box_;
};

class PictureView : public ControlView {
public:
    PictureView(Picture& picture, QWidget& parent)
        : ControlView(picture), picture_(new QSvgWidget(":/pictures/" + toQt(picture.file()), &parent)) {
        picture_->setFixedSize(picture.size(), picture.size());
        picture_->setAccessibleName("Logo of Tallybrook");
    }
    [[nodiscard]] QWidget& widget() const override { return *picture_; }

protected:
    void refreshContent() override {}

private:
    QSvgWidget* picture_;
};

std::unique_ptr<ControlView> makeTextView(TextBox& box, QWidget& parent, ViewListener& listener) {
    if (box.options().multiline)
        return std::make_unique<LinesView>(box, parent, listener);
    return std::make_unique<LineView>(box, parent, listener);
}

std::unique_ptr<ControlView> makeOptionView(Control& option, QWidget& parent, ViewListener& listener) {
    auto* const button = new QRadioButton(&parent);
    button->setAutoExclusive(false);  // which options exclude each other is the screen's business
    return std::make_unique<PressedView>(option, button, listener);
}

std::unique_ptr<ControlView> makeCheckView(CheckBox& box, QWidget& parent, ViewListener& listener) {
    if (box.look() == CheckBoxLook::Pin)
        return std::make_unique<PinView>(box, new PinButton(&parent), listener);
    return std::make_unique<PressedView>(box, new QCheckBox(&parent), listener);
}

std::unique_ptr<ControlView> makeLabelView(Label& label, QWidget& parent) {
    if (label.names() != nullptr)
        return std::make_unique<NameView>(label, parent);
    return std::make_unique<LabelView>(label, parent);
}

}  // namespace

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

void ControlView::refresh() {
    refreshContent();
    QWidget& shown = widget();
    shown.setEnabled(control_.isEnabled());
    shown.setVisible(control_.isVisible());
    shown.setToolTip(toQt(control_.tip()).toHtmlEscaped());
}

std::unique_ptr<ControlView> makeView(Control& control, QWidget& parent, ViewListener& listener) {
    switch (control.kind()) {
        case Control::Kind::TextBox:
            return makeTextView(static_cast<TextBox&>(control), parent, listener);
        case Control::Kind::Button:
            return std::make_unique<PressedView>(control, new QPushButton(&parent), listener);
        case Control::Kind::OptionButton:
            return makeOptionView(control, parent, listener);
        case Control::Kind::CheckBox:
            return makeCheckView(static_cast<CheckBox&>(control), parent, listener);
        case Control::Kind::Label:
            return makeLabelView(static_cast<Label&>(control), parent);
        case Control::Kind::Frame:
            return std::make_unique<FrameView>(static_cast<Frame&>(control), parent);
        case Control::Kind::Picture:
            return std::make_unique<PictureView>(static_cast<Picture&>(control), parent);
        case Control::Kind::Menu:
            break;
    }
    return nullptr;
}

}  // namespace tallybrook
