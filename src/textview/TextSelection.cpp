#include "textview/TextSelection.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

/// Where a key is pressed.
struct Standing {
    const LaidLines& laid;
    int caret;
    double column;  ///< in pixels
    int linesOfPage;
    TextSpan left;  ///< what is no longer selected after the key

    [[nodiscard]] const TextLines& lines() const { return laid.lines(); }
    [[nodiscard]] int line() const { return lines().lineOf(caret); }
    [[nodiscard]] TextSpan span() const { return lines().span(line()); }
};

/// To either side of the caret, as the line is written. A selection that is left is left at its end.
int characterAside(const Standing& at, bool isRight) {
    const bool isForward = isRight != at.lines().line(at.line()).isRightToLeft();
    if (!at.left.isEmpty())
        return isForward ? at.left.end : at.left.begin;
    return isForward ? at.lines().nextCharacter(at.caret) : at.lines().previousCharacter(at.caret);
}

int wordAside(const Standing& at, bool isRight) {
    const bool isForward = isRight != at.lines().line(at.line()).isRightToLeft();
    return isForward ? at.lines().nextWord(at.caret) : at.lines().previousWord(at.caret);
}

int linesAway(const Standing& at, int lines) {
    return at.laid.placeAt(std::clamp(at.line() + lines, 0, at.lines().count() - 1), at.column);
}

/// The keys that lead somewhere, alone and selecting on the way.
struct Move {
    QKeySequence::StandardKey go;
    QKeySequence::StandardKey select;
    int (*target)(const Standing& at);
    bool keepsColumn = false;
};

constexpr std::array<Move, 14> kMoves{{
    {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar,
     [](const Standing& at) { return characterAside(at, true); }},
    {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar,
     [](const Standing& at) { return characterAside(at, false); }},
    {QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord,
     [](const Standing& at) { return wordAside(at, true); }},
    {QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord,
     [](const Standing& at) { return wordAside(at, false); }},
    {QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine,
     [](const Standing& at) { return at.span().begin; }},
    {QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine,
     [](const Standing& at) { return at.span().end; }},
    {QKeySequence::MoveToStartOfBlock, QKeySequence::SelectStartOfBlock,
     [](const Standing& at) { return at.span().begin; }},
    {QKeySequence::MoveToEndOfBlock, QKeySequence::SelectEndOfBlock,
     [](const Standing& at) { return at.span().end; }},
    {QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument,
     [](const Standing& /*at*/) { return 0; }},
    {QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument,
     [](const Standing& at) { return at.lines().length(); }},
    {QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine,
     [](const Standing& at) { return linesAway(at, 1); }, true},
    {QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine,
     [](const Standing& at) { return linesAway(at, -1); }, true},
    {QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage,
     [](const Standing& at) { return linesAway(at, at.linesOfPage); }, true},
    {QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage,
     [](const Standing& at) { return linesAway(at, -at.linesOfPage); }, true},
}};

}  // namespace

TextSpan TextSelection::span() const {
    return {std::min(anchor_, caret_), std::max(anchor_, caret_)};
}

void TextSelection::set(int anchor, int caret) {
    const int end = laid_.lines().length();
    anchor_ = std::clamp(anchor, 0, end);
    caret_ = std::clamp(caret, 0, end);
    column_.reset();
}

bool TextSelection::follow(const QKeyEvent& key, int linesOfPage) {
    const auto* const move = std::ranges::find_if(
        kMoves, [&](const Move& one) { return key.matches(one.go) || key.matches(one.select); });
    if (move == kMoves.end())
        return false;
    const bool isSelecting = key.matches(move->select);
    const double column = column_ ? *column_ : laid_.xOf(caret_);
    moveTo(move->target({laid_, caret_, column, linesOfPage, isSelecting ? TextSpan() : span()}),
           isSelecting);
    if (move->keepsColumn)
        column_ = column;
    return true;
}

void TextSelection::begin(Unit unit, int place) {
    unit_ = unit;
    first_ = unitAt(place);
    set(first_.begin, first_.end);
}

void TextSelection::begin(int place, bool isSelecting) {
    unit_ = nullptr;
    moveTo(place, isSelecting);
    first_ = {anchor_, anchor_};
}

void TextSelection::extendTo(int place) {
    const TextSpan unit = unitAt(place);
    if (unit.begin < first_.begin)
        set(first_.end, unit.begin);
    else
        set(first_.begin, unit.end);
}

TextSpan TextSelection::unitAt(int place) const {
    return unit_ == nullptr ? TextSpan{place, place} : (laid_.lines().*unit_)(place);
}

}  // namespace tallybrook
