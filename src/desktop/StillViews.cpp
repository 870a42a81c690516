#include "desktop/StillViews.h"

#include "controls/Screen.h"
#include "desktop/QtText.h"
#include "desktop/Spoken.h"
#include "desktop/SvgPicture.h"
#include "desktop/TitledBox.h"

#include <QFileInfo>
#include <QLabel>
#include <algorithm>

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

/// A label with room for what the toolkit does not reckon with: it draws a text in pieces, around its Alt
/// letter.
class WholeLabel : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize sizeHint() const override { return QLabel::sizeHint() + kRoom; }
    [[nodiscard]] QSize minimumSizeHint() const override { return QLabel::minimumSizeHint() + kRoom; }

private:
    static constexpr QSize kRoom{2, 0};
};

/// A label. One that names a control shows its Alt letter; which of the widgets it names, the window knows.
class LabelView : public ControlView {
public:
    LabelView(Label& label, QWidget& parent)
        : ControlView(label), label_(new WholeLabel(&parent)), names_(label.names() != nullptr) {
        label_->setTextFormat(Qt::PlainText);
    }
    [[nodiscard]] QWidget& widget() const override { return *label_; }

protected:
    void refreshContent() override {
        const std::string& caption = label().caption();
        label_->setFont(fontFor(label().look(), label_->parentWidget()->font()));
        if (const bool isCurrent = label().look() == LabelLook::Current;
            isCurrent || label_->autoFillBackground())
            showWhetherCurrent(isCurrent);
        label_->setText(names_ ? toQt(caption).trimmed() : spoken(caption));
    }

private:
    void showWhetherCurrent(bool isCurrent) {
        constexpr int kAround = 2;      // pixels around the text
        constexpr int kCharacters = 5;  // that its ground is wide at least
        label_->setAutoFillBackground(isCurrent);
        label_->setBackgroundRole(isCurrent ? QPalette::Highlight : QPalette::NoRole);
        label_->setForegroundRole(isCurrent ? QPalette::HighlightedText : QPalette::NoRole);
        label_->setMargin(isCurrent ? kAround : 0);
        label_->setAlignment(isCurrent ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
        label_->setMinimumWidth(isCurrent ? kCharacters * label_->fontMetrics().averageCharWidth() : 0);
    }
    [[nodiscard]] const Label& label() const { return static_cast<const Label&>(control()); }

    QLabel* label_;
    bool names_;
};

class GroupBoxView : public ControlView {
public:
    GroupBoxView(Control& frame, QWidget& parent) : ControlView(frame), box_(new TitledBox(&parent)) {}
    [[nodiscard]] QWidget& widget() const override { return *box_; }

protected:
    void refreshContent() override {
        box_->setTitle(toQt(control().caption()).trimmed());
        box_->setStanding(standing());
        if (!control().caption().empty())
            tellName(*box_, spoken(control().caption()));
    }
    [[nodiscard]] bool isShownAsOn() const override { return standing() != TitledBox::Standing::Off; }

private:
    [[nodiscard]] TitledBox::Standing standing() const {
        const Screen& screen = control().screen();
        if (screen.focused() != nullptr && screen.focused()->standsIn(control()))
            return TitledBox::Standing::Current;
        const bool isReady = std::ranges::any_of(screen.controls(), [this](const Control* other) {
            return other->canTakeFocus() && other->standsIn(control());
        });
        return isReady ? TitledBox::Standing::Ready : TitledBox::Standing::Off;
    }

    TitledBox* box_;
};

class PictureView : public ControlView {
public:
    PictureView(Picture& picture, QWidget& parent)
        : ControlView(picture), picture_(new SvgPicture(":/pictures/" + toQt(picture.file()), &parent)) {
        picture_->setFixedSize(picture.size(), picture.size());
        tellName(*picture_, QFileInfo(toQt(picture.file())).baseName());
    }
    [[nodiscard]] QWidget& widget() const override { return *picture_; }

protected:
    void refreshContent() override {}

private:
    SvgPicture* picture_;
};

}  // namespace

std::unique_ptr<ControlView> makeLabelView(Control& control, QWidget& parent, ViewListener& /*listener*/) {
    return std::make_unique<LabelView>(static_cast<Label&>(control), parent);
}

std::unique_ptr<ControlView> makeGroupBoxView(Control& control, QWidget& parent, ViewListener& /*listener*/) {
    return std::make_unique<GroupBoxView>(control, parent);
}

std::unique_ptr<ControlView> makePictureView(Control& control, QWidget& parent, ViewListener& /*listener*/) {
    return std::make_unique<PictureView>(static_cast<Picture&>(control), parent);
}

}  // namespace tallybrook
