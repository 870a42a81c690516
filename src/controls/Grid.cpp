#include "controls/Grid.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

std::string cellText(const Value& value, int decimals) {
    if (decimals < 0 || isNull(value) || std::holds_alternative<std::string>(value))
        return toText(value);
    std::string text = formatNumber(toDouble(value), decimals);
    std::erase(text, ',');
    return text;
}

}  // namespace

Grid::Grid(Place place, std::string name, std::string title, DataControl& source,
           std::vector<GridColumn> columns)
    : Control(Kind::Grid, place, std::move(name), std::move(title)),
      source_(source),
      columns_(std::move(columns)) {
    source_.onRefresh([this] { row_ = 1; });
}

int Grid::rowCount() const {
    try {
        return source_.recordset().RecordCount();
    } catch (const RunTimeError&) {
        return 0;  // what cannot be read is told by the procedure that refreshes the source
    }
}

std::string Grid::cell(int row, int column) const {
    try {
        return cellText(valueAt(row, column), columns_[static_cast<std::size_t>(column)].decimals);
    } catch (const RunTimeError&) {
        return {};
    }
}

bool Grid::isNumber(int row, int column) const {
    try {
        const Value value = valueAt(row, column);
        return std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
    } catch (const RunTimeError&) {
        return false;
    }
}

Value Grid::valueAt(int row, int column) const {
    return source_.recordset().valueAt(row - 1, columns_[static_cast<std::size_t>(column)].field);
}

int Grid::currentRow() const {
    return std::min(row_, rowCount());
}

void Grid::selectRow(int row) {
    if (row < 1 || row > rowCount())
        throw RunTimeError(error::kSubscriptOutOfRange);
    row_ = row;
}

std::string Grid::text(int column) const {
    if (column < 0 || column >= static_cast<int>(columns_.size()))
        throw RunTimeError(error::kSubscriptOutOfRange);
    const int row = currentRow();
    return row == 0 ? std::string{} : cell(row, column);
}

}  // namespace tallybrook
