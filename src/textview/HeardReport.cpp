#include "textview/HeardReport.h"

#include "textview/ReportView.h"

#include <QAccessibleWidget>
#include <QFontInfo>
#include <algorithm>

namespace tallybrook {

namespace {

/// A view of a report as assistive programs read it. Offsets are places of the text.
class HeardReport : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit HeardReport(ReportView& view)
        : QAccessibleWidget(&view, QAccessible::EditableText), view_(view) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? view_.text() : QAccessibleWidget::text(kind);
    }

    // --- The text ---

    [[nodiscard]] int characterCount() const override { return lines().length(); }
    [[nodiscard]] QString text(int begin, int end) const override {
        return lines().part({inText(begin), std::max(inText(begin), inText(end))}).toString();
    }
    [[nodiscard]] QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* begin,
                                       int* end) const override {
        return told(unitAt(type, inText(offset)), begin, end);
    }
    [[nodiscard]] QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* begin,
                                           int* end) const override {
        return told(unitBefore(type, inText(offset)), begin, end);
    }
    [[nodiscard]] QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* begin,
                                          int* end) const override {
        return told(unitAfter(type, inText(offset)), begin, end);
    }
    [[nodiscard]] QString attributes(int /*offset*/, int* begin, int* end) const override {
        *begin = 0;
        *end = characterCount();
        const QFontInfo font(view_.font());
        return QString("font-family:\"%1\";font-size:%2pt;").arg(font.family()).arg(font.pointSizeF());
    }

    // --- Caret and selection ---

    [[nodiscard]] int cursorPosition() const override { return view_.caret(); }
    void setCursorPosition(int place) override { view_.select(inText(place), 0); }
    [[nodiscard]] int selectionCount() const override { return view_.selected().isEmpty() ? 0 : 1; }
    void selection(int index, int* begin, int* end) const override {
        const TextSpan span = index == 0 ? view_.selected() : TextSpan();
        *begin = span.begin;
        *end = span.end;
    }
    void setSelection(int index, int begin, int end) override {
        if (index == 0)
            view_.select(inText(begin), inText(end) - inText(begin));
    }
    void addSelection(int begin, int end) override { setSelection(0, begin, end); }
    void removeSelection(int index) override {
        if (index == 0)
            view_.select(view_.caret(), 0);
    }

    // --- Places on the screen ---

    [[nodiscard]] QRect characterRect(int offset) const override {
        const QRect place = view_.placeOf(inText(offset)).toAlignedRect();
        return {view_.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override {
        return view_.placeAt(view_.viewport()->mapFromGlobal(point));
    }
    void scrollToSubstring(int begin, int end) override {
        view_.bringIntoSight(inText(end));
        view_.bringIntoSight(inText(begin));
    }

private:
    [[nodiscard]] const TextLines& lines() const { return view_.lines(); }
    [[nodiscard]] int inText(int offset) const { return std::clamp(offset, 0, characterCount()); }

    [[nodiscard]] QString told(TextSpan span, int* begin, int* end) const {
        *begin = span.begin;
        *end = span.end;
        return lines().part(span).toString();
    }

    /// A character, a word, a line or the text: a sentence or paragraph of a report is a line.
    [[nodiscard]] TextSpan unitAt(QAccessible::TextBoundaryType type, int place) const {
        switch (type) {
            case QAccessible::CharBoundary:
                return lines().characterAt(place);
            case QAccessible::WordBoundary:
                return lines().wordAt(place);
            case QAccessible::NoBoundary:
                return {0, characterCount()};
            default:
                return lines().span(lines().lineOf(place));
        }
    }
    [[nodiscard]] TextSpan unitBefore(QAccessible::TextBoundaryType type, int place) const {
        const int begin = unitAt(type, place).begin;
        if (begin == 0)
            return {};
        return unitAt(type, type == QAccessible::WordBoundary ? lines().previousWord(begin) : begin - 1);
    }
    [[nodiscard]] TextSpan unitAfter(QAccessible::TextBoundaryType type, int place) const {
        const int next = type == QAccessible::WordBoundary   ? lines().nextWord(place)
                         : type == QAccessible::CharBoundary ? lines().nextCharacter(place)
                                                             : lines().wholeLineAt(place).end;
        const bool isAtEnd = next == characterCount() || type == QAccessible::NoBoundary;
        return isAtEnd ? TextSpan{characterCount(), characterCount()} : unitAt(type, next);
    }

    ReportView& view_;
};

QAccessibleInterface* heardReportFor(const QString& /*key*/, QObject* object) {
    auto* const view = dynamic_cast<ReportView*>(object);
    return view == nullptr ? nullptr : new HeardReport(*view);
}

}  // namespace

void announceHeardReports() {
    static const bool isAnnounced = [] {
        QAccessible::installFactory(heardReportFor);
        return true;
    }();
    Q_UNUSED(isAnnounced);
}

void tellOfText(ReportView& view, const QString& before) {
    QAccessibleTextUpdateEvent changed(&view, 0, before, view.text());
    QAccessible::updateAccessibility(&changed);
}

void tellOfSelection(ReportView& view) {
    const TextSpan span = view.selected();
    QAccessibleTextSelectionEvent selected(&view, span.begin, span.end);
    selected.setCursorPosition(view.caret());
    QAccessible::updateAccessibility(&selected);
    QAccessibleTextCursorEvent moved(&view, view.caret());
    QAccessible::updateAccessibility(&moved);
}

}  // namespace tallybrook
