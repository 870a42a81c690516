#include "desktop/TextViews.h"

#include "desktop/BoxEdits.h"
#include "desktop/QtText.h"

#include <QApplication>
#include <QSignalBlocker>

namespace tallybrook {

namespace {

/// What the user cannot write into is drawn on the window's own ground, and as readable as the rest.
void drawQuiet(QWidget& widget, bool quiet) {
    const QPalette usual = QApplication::palette();
    QPalette palette = widget.palette();
    const auto take = [&](QPalette::ColorRole role, QPalette::ColorRole from) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setColor(group, role, usual.color(quiet ? QPalette::Active : group, quiet ? from : role));
    };
    take(QPalette::Base, QPalette::Window);
    take(QPalette::Text, QPalette::WindowText);
    if (palette != widget.palette())
        widget.setPalette(palette);
}

/// What boxes of one and of several lines have in common. `Edit` is the toolkit's widget.
template <typename Edit>
class TextBoxView : public ControlView {
public:
    TextBoxView(TextBox& box, Edit* edit, ViewListener& listener)
        : ControlView(box), box_(box), edit_(edit), listener_(listener) {
        edit_->setReadOnly(box.options().readOnly);
        edit_->setAcceptDrops(false);
        edit_->whenEdited([this](const QString& text) { listener_.edited(box_, text); });
        QObject::connect(edit_, &Edit::selectionChanged, edit_, [this] { noteSelection(); });
    }
    [[nodiscard]] QWidget& widget() const override { return *edit_; }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(edit_);
        edit_->showText(box_);
        if (!box_.hasFocus())
            edit_->selectNothing();
        else if (box_.isAllSelected())
            edit_->selectAll();
        drawQuiet(*edit_, box_.options().readOnly || !box_.isEnabled());
    }

private:
    /// A box that the toolkit deselects because a menu has the keyboard meanwhile keeps its selection.
    void noteSelection() {
        if (edit_->window()->focusWidget() == edit_)
            listener_.selected(box_, edit_->isAllSelected());
    }

    TextBox& box_;
    Edit* edit_;
    ViewListener& listener_;
};

}  // namespace

std::unique_ptr<ControlView> makeTextBoxView(Control& control, QWidget& parent, ViewListener& listener) {
    auto& box = static_cast<TextBox&>(control);
    if (box.options().multiline)
        return std::make_unique<TextBoxView<LinesEdit>>(box, new LinesEdit(parent), listener);
    return std::make_unique<TextBoxView<LineEdit>>(box, new LineEdit(parent, box), listener);
}

}  // namespace tallybrook
