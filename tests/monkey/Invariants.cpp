#include "monkey/Invariants.h"

#include "controls/Grid.h"
#include "controls/Lists.h"
#include "controls/Screen.h"
#include "runtime/RunTimeError.h"
#include "store/file/Connection.h"
#include "store/sql/Schema.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include <fmt/format.h>

namespace tallybrook::test {

namespace {

/// A failure that nothing catches, and the screen that it is known from.
struct KnownEnd {
    int number;
    std::string_view screen;
};

// Each of them ends the program by design.
constexpr std::array kKnownEnds{
    KnownEnd{error::kStatementNotUnderstood, "frmEvent"},        // an apostrophe in the name of a center
    KnownEnd{error::kOverflow, "frmEvent"},                      // a number of games beyond 16 bits
    KnownEnd{error::kOverflow, "frmFrame"},                      // a lane that no number can hold
    KnownEnd{error::kNoControlArrayElement, "frmFrame"},         // a row whose frame is not on the sheet
    KnownEnd{error::kSubscriptOutOfRange, "frmSearchEvents"},    // a field beyond those that there are
    KnownEnd{error::kSubscriptOutOfRange, "frmSearchGames"},     // the same
    KnownEnd{error::kTypeMismatch, "frmSearchEvents"},           // a date that cannot be read
    KnownEnd{error::kOverflow, "frmSearchEvents"},               // a number beyond 16 bits
    KnownEnd{error::kOverflow, "frmSearchGames"},                // a lane beyond 16 bits
    KnownEnd{error::kNoControlArrayElement, "frmSearchEvents"},  // the value of the fifth row
    KnownEnd{error::kPathNotFound, "frmMain"},                   // a synchronization directory that is gone
    KnownEnd{error::kBadFileNameOrNumber, "frmSyncPDA"},         // the log of a run that has failed
};

std::string_view sqlTypeOf(FieldType type) {
    switch (type) {
        case FieldType::Number16:
        case FieldType::Number32:
            return "'integer'";
        case FieldType::Double:
            return "'real', 'integer'";
        case FieldType::Text:
        case FieldType::Date:
            break;
    }
    return "'text'";
}

/// How many values of a table are neither Null nor of their column's type.
int straysIn(Store& store, const Table& table) {
    std::string strays;
    for (const Column& column : table.columns)
        strays += fmt::format("{}(typeof({}) NOT IN ('null', {}))", strays.empty() ? "" : " + ", column.name,
                              sqlTypeOf(column.type));
    return store.connection()
        .database()
        .execAndGet(fmt::format("SELECT coalesce(sum({}), 0) FROM {}", strays, table.name))
        .getInt();
}

int straysIn(Store& store) {
    int strays = 0;
    for (const Table& table : tables())
        strays += straysIn(store, table);
    return strays;
}

std::optional<std::string> brokenControl(const Control& control) {
    if (control.kind() == Control::Kind::Grid) {
        const auto& grid = static_cast<const Grid&>(control);
        if (const int row = grid.currentRow(); row < 0 || row > grid.rowCount())
            return fmt::format("{} has the current row {} of {}", grid.name(), row, grid.rowCount());
    }
    if (control.isList()) {
        const auto& list = static_cast<const ItemList&>(control);
        if (list.pickedIndex() && static_cast<std::size_t>(*list.pickedIndex()) >= list.items().size())
            return list.name() + " shows an item that it does not have";
    }
    if (control.kind() == Control::Kind::OptionButton) {
        const auto& options = static_cast<const OptionButton&>(control).group().options();
        if (std::ranges::count_if(options, &OptionButton::value) > 1)
            return control.name() + " is on beside another of its group";
    }
    return std::nullopt;
}

std::optional<std::string> brokenControls(const Screen& screen) {
    if (const Control* const focused = screen.focused(); focused != nullptr && !focused->canTakeFocus())
        return fmt::format("{}.{} has the focus and cannot be used", screen.name(), focused->name());
    for (const Control* control : screen.controls())
        if (auto broken = brokenControl(*control))
            return broken;
    return std::nullopt;
}

}  // namespace

Invariants::Invariants(Program& program) : program_(program), strays_(straysIn(program.store())) {}

std::optional<std::string> Invariants::broken() {
    auto broken = brokenScreen();
    return broken ? broken : brokenRows();
}

std::optional<std::string> Invariants::brokenScreen() const {
    const Screen* const front = program_.screens.front();
    if (front == nullptr)
        return "the program goes on without a screen";
    if (!front->isVisible())
        return front->name() + " is in front and not visible";
    for (const Screen* screen : program_.screens.loaded())
        if (auto broken = brokenControls(*screen))
            return broken;
    return std::nullopt;
}

std::optional<std::string> Invariants::brokenRows() {
    const int changes = program_.store().connection().database().getTotalChanges();
    if (changes == std::exchange(changes_, changes))
        return std::nullopt;
    const int strays = straysIn(program_.store());
    if (strays > strays_)
        return fmt::format("{} values have lost the type of their column", strays - strays_);
    strays_ = strays;
    return std::nullopt;
}

std::optional<std::string> wrongInTranscript(std::string_view line, std::string_view where) {
    static constexpr std::string_view kFailure = "run-time error ";
    if (line.find(" title=\"\"") < line.find(" text=") &&
        (line.starts_with("box ") || line.starts_with("input ")))
        return "a box has no title";
    if (!line.starts_with(kFailure))
        return std::nullopt;
    int number = 0;
    std::from_chars(line.data() + kFailure.size(), line.data() + line.size(), number);
    if (std::ranges::any_of(kKnownEnds,
                            [&](const KnownEnd& end) { return end.number == number && end.screen == where; }))
        return std::nullopt;
    return fmt::format("{} on {}", line, where);
}

}  // namespace tallybrook::test
