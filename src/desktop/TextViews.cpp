#include "desktop/TextViews.h"

#include "desktop/BoxEdits.h"
#include "desktop/Ground.h"
#include "desktop/QtText.h"

#include <QSignalBlocker>
#include <cstdint>
#include <optional>
#include <utility>

namespace tallybrook {

namespace {

/// As much of a text as a box shows. The toolkit lays all of it out anew at each key.
constexpr qsizetype kMostShown = 100'000;

qsizetype endOfBeginning(const QString& text) {
    if (text.size() <= kMostShown)
        return text.size();
    return text[kMostShown].isLowSurrogate() ? kMostShown - 1 : kMostShown;
}

/// What boxes of one and of several lines have in common. `Edit` is the toolkit's widget, which shows the
/// beginning of a text that nobody could have typed; what stands behind it belongs to the box, and goes when
/// all is typed over.
template <typename Edit>
class TextBoxView : public ControlView {
public:
    TextBoxView(TextBox& box, Edit* edit, ViewListener& listener)
        : ControlView(box), box_(box), edit_(edit), listener_(listener) {
        edit_->setReadOnly(box.options().readOnly);
        edit_->setAcceptDrops(false);
        edit_->whenEdited([this](const QString& text) {
            shown_.reset();
            if (edit_->hasReplacedAll(box_))
                behind_.clear();
            listener_.edited(box_, text + behind_);
        });
        QObject::connect(edit_, &Edit::selectionChanged, edit_, [this] { noteSelection(); });
    }
    /// The widget outlives its view, and must tell it nothing more.
    ~TextBoxView() override { edit_->blockSignals(true); }
    TextBoxView(const TextBoxView&) = delete;
    TextBoxView& operator=(const TextBoxView&) = delete;

    [[nodiscard]] QWidget& widget() const override { return *edit_; }
    /// All but Alt with a character, which writes nothing.
    [[nodiscard]] bool takesKey(const person::Key& key) const override {
        return !key.alt || key.name.size() != 1;
    }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(edit_);
        // A long text takes its time, and most actions leave it alone.
        if (const std::optional<std::uint64_t> changes = box_.changes();
            std::exchange(shown_, changes) != changes)
            showText();
        if (!box_.hasFocus())
            edit_->selectNothing();
        else if (box_.isAllSelected())
            edit_->selectAll();
        drawBoxGround(*edit_, box_.options().readOnly || !box_.isEnabled());
    }

    [[nodiscard]] std::string shownTip() const override {
        return behind_.isEmpty() ? ControlView::shownTip()
                                 : "Only the beginning of this very long text is shown. What follows stays "
                                   "as it is, unless all is typed over.";
    }

private:
    void showText() {
        const QString text = Edit::textOf(box_);
        QString part = edit_->shown();
        if (text != part + behind_ || (part.isEmpty() && !behind_.isEmpty())) {
            const qsizetype end = endOfBeginning(text);
            behind_ = text.sliced(end);
            part = text.first(end);
        }
        edit_->show(part, box_.options().maxLength);
    }

    /// A box that the toolkit deselects because a menu has the keyboard meanwhile keeps its selection.
    void noteSelection() {
        if (edit_->window()->focusWidget() == edit_)
            listener_.selected(box_, edit_->isAllSelected());
    }

    TextBox& box_;
    Edit* edit_;
    ViewListener& listener_;
    QString behind_;  // what follows of the box's text
    std::optional<std::uint64_t>
        shown_;  // which of its texts the widget shows, unless it has been edited since
};

}  // namespace

std::unique_ptr<ControlView> makeTextBoxView(Control& control, QWidget& parent, ViewListener& listener) {
    auto& box = static_cast<TextBox&>(control);
    if (box.options().multiline)
        return std::make_unique<TextBoxView<LinesEdit>>(box, new LinesEdit(parent, box), listener);
    return std::make_unique<TextBoxView<LineEdit>>(box, new LineEdit(parent, box), listener);
}

}  // namespace tallybrook
