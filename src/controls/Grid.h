#pragma once

#include "controls/Control.h"
#include "store/DataControl.h"

#include <string>
#include <vector>

namespace tallybrook {

/// One column of a grid.
struct GridColumn {
    std::string caption;
    std::string field;
    int decimals = -1;       // places after the point; -1 for the value's usual text form
    int width = 10;          // in characters, a hint for drawing
    int longest = 0;         // what it can do with where there is more room; 0 for no more than `width`
    bool takesRoom = false;  // whether it is drawn in all the room that the others leave
};

/// The rows of a data control as a table of texts with a current row. Cells are made when they are asked for.
class Grid : public Control {
public:
    /// A grid with a title above it, which is its caption.
    Grid(Place place, std::string name, std::string title, DataControl& source,
         std::vector<GridColumn> columns);

    [[nodiscard]] const std::vector<GridColumn>& columns() const { return columns_; }
    /// 0 also where the data control has no recordset.
    [[nodiscard]] int rowCount() const;
    /// The text of a cell, its row counted from 1 and its column from 0; empty for a Null.
    [[nodiscard]] std::string cell(int row, int column) const;
    /// Whether a cell holds a number, counted in the same way.
    [[nodiscard]] bool isNumber(int row, int column) const;

    /// The current row, from 1; 0 where there are no rows. The first one after each refresh of the source.
    [[nodiscard]] int currentRow() const;
    /// A person makes a row the current one; error 9 where there is no such row.
    void selectRow(int row);
    /// The text in a column of the current row; empty where there is none. Error 9 beyond the columns.
    [[nodiscard]] std::string text(int column) const;

private:
    [[nodiscard]] Value valueAt(int row, int column) const;

    DataControl& source_;
    std::vector<GridColumn> columns_;
    int row_ = 1;
};

}  // namespace tallybrook
