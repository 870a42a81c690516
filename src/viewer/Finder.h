#pragma once

#include "textview/ReportView.h"
#include "viewer/FindBar.h"

namespace tallybrook {

/// Finds in a view what is typed into a find bar. Where the search stands is told by the view's selection.
class Finder {
public:
    /// Both must outlive it. The bar starts hidden.
    Finder(ReportView& view, FindBar& bar);

    /// Searches anew: another text is in the view from now on.
    void renew();
    /// Shows the bar, with what is selected in the view if that is on one line.
    void open();
    /// Hides the bar and the marks; returns false where it was hidden already.
    bool close();
    /// Goes to the next match, round the end of the text. Opens the bar where it is closed.
    void next();
    /// Goes to the match before, round the beginning of the text. Opens the bar where it is closed.
    void previous();

private:
    void search();
    void searchAsTyped();
    void step(bool isForward);
    void go(const std::optional<Matches::Found>& found, const QString& wrapped);

    ReportView& view_;
    FindBar& bar_;
};

}  // namespace tallybrook
