#include "desktop/StillViews.h"

#include "desktop/QtText.h"

#include <QGroupBox>
#include <QLabel>
#include <QSvgWidget>

namespace tallybrook {

namespace {

QFont fontFor(LabelLook look, QFont font) {
    constexpr double kHeading = 1.5;  // of the usual size
    if (look == LabelLook::Heading && font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * kHeading);
    else if (look == LabelLook::Heading)
        font.setPixelSize(static_cast<int>(font.pixelSize() * kHeading));
    if (look != LabelLook::Plain)
        font.setWeight(QFont::DemiBold);
    return font;
}

/// A label. One that names a control shows its Alt letter; which of the widgets it names, the window knows.
class LabelView : public ControlView {
public:
    LabelView(Label& label, QWidget& parent)
        : ControlView(label), label_(new QLabel(&parent)), names_(label.names() != nullptr) {
        label_->setTextFormat(Qt::PlainText);
        label_->setFont(fontFor(label.look(), label_->font()));
    }
    [[nodiscard]] QWidget& widget() const override { return *label_; }

protected:
    void refreshContent() override {
        const std::string& caption = control().caption();
        label_->setText(names_ ? toQt(caption).trimmed() : spoken(caption));
    }

private:
    QLabel* label_;
    bool names_;
};

class FrameView : public ControlView {
public:
    FrameView(Control& frame, QWidget& parent) : ControlView(frame), box_(new QGroupBox(&parent)) {}
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
        picture_->setAccessibleName("Picture");
    }
    [[nodiscard]] QWidget& widget() const override { return *picture_; }

protected:
    void refreshContent() override {}

private:
    QSvgWidget* picture_;
};

}  // namespace

std::unique_ptr<ControlView> makeLabelView(Control& control, QWidget& parent, ViewListener& /*listener*/) {
    return std::make_unique<LabelView>(static_cast<Label&>(control), parent);
}

std::unique_ptr<ControlView> makeFrameView(Control& control, QWidget& parent, ViewListener& /*listener*/) {
    return std::make_unique<FrameView>(control, parent);
}

std::unique_ptr<ControlView> makePictureView(Control& control, QWidget& parent, ViewListener& /*listener*/) {
    return std::make_unique<PictureView>(static_cast<Picture&>(control), parent);
}

}  // namespace tallybrook
