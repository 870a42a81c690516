#pragma once

#include "textview/LaidLines.h"

#include <optional>

class QKeyEvent;

namespace tallybrook {

/// What a reader has selected of a text, and the caret at one of its ends, as keys and the mouse change them.
class TextSelection {
public:
    /// Nothing is selected, and the caret stands at the beginning. `laid` must outlive the object.
    explicit TextSelection(const LaidLines& laid) : laid_(laid) {}

    [[nodiscard]] TextSpan span() const;
    [[nodiscard]] int anchor() const { return anchor_; }
    [[nodiscard]] int caret() const { return caret_; }

    /// Selects from one place to another, where the caret is then. Places beyond the text are its end.
    void set(int anchor, int caret);
    /// Selects nothing, or from the same anchor on.
    void moveTo(int place, bool isSelecting) { set(isSelecting ? anchor_ : place, place); }
    /// Goes where a key leads; returns false for any other key. A page has so many lines.
    bool follow(const QKeyEvent& key, int linesOfPage);

    /// What is selected at once: a character, a word or a line, which lies around a place.
    using Unit = TextSpan (TextLines::*)(int place) const;
    /// Selects a unit and, from then on, all units until another place.
    void begin(Unit unit, int place);
    void extendTo(int place);
    /// The same without a unit: from the anchor, or from a place on.
    void begin(int place, bool isSelecting);

private:
    [[nodiscard]] TextSpan unitAt(int place) const;

    const LaidLines& laid_;
    int anchor_ = 0;
    int caret_ = 0;
    std::optional<double> column_;  // in pixels, which the caret keeps from line to line
    Unit unit_ = nullptr;
    TextSpan first_;  // the unit that was begun with
};

}  // namespace tallybrook
