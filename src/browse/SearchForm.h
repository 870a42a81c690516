#pragma once

#include "browse/SearchControls.h"
#include "browse/SearchField.h"
#include "runtime/BoundedList.h"
#include "shell/Program.h"
#include "store/DataControl.h"

#include <string>
#include <vector>

namespace tallybrook {

/// What one search looks for and how it speaks.
struct Search {
    std::string table;
    std::vector<SearchField> fields;
    std::string listScreen;   // shows the hits
    std::string noHitsTitle;  // of the box that says that there are none
    std::string module;       // in the general box of a failure
    std::string debugModule;  // in the box of a record that is not there
};

/// The rows of criteria of a search screen, and the statement that is made of them. What a value may be, and
/// what becomes of a row when its value is left, is the screen's own matter.
class SearchForm {
public:
    SearchForm(Program& program, Screen& screen, Search search, SearchControls controls, DataControl& hits);

    /// Leaves only the field of row 0 open for input. Its list gets the words of all fields once more; the
    /// field, operator and value of row 0 and all joins stay.
    void reset();

    /// The column that a row searches; empty where none is chosen.
    [[nodiscard]] const std::string& column(int row) const { return rows_[row].column; }
    /// The operator of a row's statement; empty where none is chosen.
    [[nodiscard]] const std::string& sqlOperator(int row) const { return rows_[row].sqlOperator; }
    /// What the field of a row holds; text where none is chosen.
    [[nodiscard]] FieldKind kind(int row) const;
    /// Takes the value of a row in its finished form.
    void setValue(int row, std::string sql) { rows_[row].value = std::move(sql); }

    /// Counts that a value was left, which is how many rows the search looks at: at least as many as are
    /// filled in. Error 6 beyond 32767.
    void countCriterion() { ++criteriaCount_; }

    /// Opens the row behind `row`. How the two are joined is left to be chosen.
    void addRow(int row);
    /// Empties the row behind `row`, if its field is chosen, and the join of row `joinRow`. Later rows stay,
    /// and the value and the use of the field are kept.
    void removeRow(int row, int joinRow);

    /// Runs the search, and hands over to the list of its hits or resets the form where there are none.
    void run();

    /// The error path of the search.
    [[nodiscard]] Handler handler() const;

private:
    struct Choice {
        SearchField field;
        bool used = false;
    };
    struct Criterion {
        std::string column;
        std::string sqlOperator;
        std::string value;
    };

    [[nodiscard]] std::vector<std::string> fieldWords() const;
    void chooseField(int row);
    void chooseOperator(int row);
    void closeRow(int row);

    [[nodiscard]] std::string condition(int row) const;
    [[nodiscard]] std::string statement(const Handler& step) const;
    void tellNoHits();

    Program& program_;
    Screen& screen_;
    Search search_;
    SearchControls controls_;
    DataControl& hits_;
    BoundedList<Choice> choices_;
    BoundedList<Criterion> rows_;
    BoundedList<std::string> joins_;  // the join of a row stands behind it
    Int16 criteriaCount_;
};

}  // namespace tallybrook
