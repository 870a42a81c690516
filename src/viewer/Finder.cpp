#include "viewer/Finder.h"

namespace tallybrook {

Finder::Finder(ReportView& view, FindBar& bar) : view_(view), bar_(bar) {
    bar_.onChanged = [this] { searchAsTyped(); };
    bar_.onNext = [this] { next(); };
    bar_.onPrevious = [this] { previous(); };
    bar_.onClose = [this] { close(); };
    bar_.hide();
}

void Finder::renew() {
    if (bar_.isVisible())
        searchAsTyped();
}

void Finder::open() {
    const QString selected = view_.selectedText();
    bar_.show();
    if (!selected.isEmpty() && !selected.contains('\n'))
        bar_.setSought(selected);
    searchAsTyped();
    bar_.focusText();
}

bool Finder::close() {
    if (!bar_.isVisible())
        return false;
    bar_.hide();
    view_.mark({});
    view_.setFocus();
    return true;
}

void Finder::next() {
    step(true);
}

void Finder::previous() {
    step(false);
}

void Finder::search() {
    view_.mark(Matches(view_.text(), bar_.sought(), bar_.sensitivity()));
}

/// What is selected may stay selected while more of it is typed.
void Finder::searchAsTyped() {
    search();
    go(view_.marked().from(view_.selected().begin), {});
}

void Finder::step(bool isForward) {
    if (bar_.sought().isEmpty()) {
        open();
        return;
    }
    if (!bar_.isVisible()) {
        bar_.show();
        search();
    }
    if (isForward)
        go(view_.marked().from(view_.selected().end), ", from the top again");
    else
        go(view_.marked().before(view_.selected().begin), ", from the end again");
}

/// Selects what was found and tells which one it is; `wrapped` is added where the search went round. Where
/// nothing was found nothing stays selected, and the next search starts at the same place.
void Finder::go(const std::optional<Matches::Found>& found, const QString& wrapped) {
    if (bar_.sought().isEmpty()) {
        bar_.tell({});
        return;
    }
    if (!found) {
        view_.select(view_.selected().begin, 0);
        bar_.tell("Not found");
        return;
    }
    view_.select(found->place, view_.marked().length());
    bar_.tell(QString("%1 of %2").arg(found->index + 1).arg(view_.marked().count()) +
              (found->hasWrapped ? wrapped : QString()));
}

}  // namespace tallybrook
