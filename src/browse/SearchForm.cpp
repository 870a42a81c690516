#include "browse/SearchForm.h"

#include "browse/NoCurrentRow.h"
#include "controls/Screen.h"
#include "shell/TBK_Globals.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

SearchForm::SearchForm(Program& program, Screen& screen, Search search, SearchControls controls,
                       DataControl& hits)
    : program_(program),
      screen_(screen),
      search_(std::move(search)),
      controls_(std::move(controls)),
      hits_(hits),
      choices_(std::vector<Choice>(search_.fields.size())),
      rows_(std::vector<Criterion>(controls_.joins.size() + 1)),
      joins_(std::vector<std::string>(controls_.joins.size() + 1)) {
    std::ranges::transform(search_.fields, choices_.begin(),
                           [](const SearchField& field) { return Choice{field}; });
    for (int row = 0; row <= controls_.fields.lastIndex(); ++row) {
        controls_.fields(row).onClick = [this, row] { chooseField(row); };
        controls_.operators(row).onClick = [this, row] { chooseOperator(row); };
    }
    for (int row = 0; JoinControls & join : controls_.joins) {
        join.optAnd.onClick = [this, row] { joins_[row] = "AND"; };
        join.optOr.onClick = [this, row] { joins_[row] = "OR"; };
        ++row;
    }
}

std::vector<std::string> SearchForm::fieldWords() const {
    std::vector<std::string> words;
    for (const Choice& choice : choices_)
        words.push_back(choice.field.words);
    return words;
}

FieldKind SearchForm::kind(int row) const {
    for (const Choice& choice : choices_) {
        if (choice.field.column == column(row))
            return choice.field.kind;
    }
    return FieldKind::Text;
}

void SearchForm::reset() {
    for (std::string& words : fieldWords())
        controls_.fields(0).add(std::move(words));
    closeRow(0);
    criteriaCount_ = 0;
    for (int row = 1; row <= controls_.fields.lastIndex(); ++row) {
        rows_[row] = {};  // first: without a field it takes no join with it when its check box is cleared
        JoinControls& before = controls_.joins[static_cast<std::size_t>(row) - 1];
        before.optAnd.setEnabled(false);
        before.optOr.setEnabled(false);
        before.more.setEnabled(false);
        before.more.setValue(false);
        controls_.fields(row).setEnabled(false);
        controls_.fields(row).clear();
        closeRow(row);
    }
    for (Choice& choice : choices_)
        choice.used = false;
}

void SearchForm::closeRow(int row) {
    controls_.operators(row).setEnabled(false);
    controls_.operators(row).clear();
    controls_.values(row).setEnabled(false);
    controls_.values(row).setText("");
}

void SearchForm::chooseField(int row) {
    constexpr int kNone = -1;
    Choice& choice = choices_[controls_.fields(row).pickedIndex().value_or(kNone)];
    if (choice.used) {
        program_.display.messageBox({.text = "This search criteria is already in use. Please choose another",
                                     .title = "Select Search Criteria"});
        return;
    }
    rows_[row].column = choice.field.column;
    choice.used = true;
    ComboBox& operators = controls_.operators(row);
    operators.fill(operatorWords(choice.field.kind));
    operators.setEnabled(true);
    operators.focus();
}

void SearchForm::chooseOperator(int row) {
    rows_[row].sqlOperator = tallybrook::sqlOperator(controls_.operators(row).picked());
    controls_.values(row).setEnabled(true);
    controls_.values(row).focus();
}

void SearchForm::addRow(int row) {
    controls_.fields(row + 1).fill(fieldWords());
    controls_.fields(row + 1).setEnabled(true);
    const JoinControls& join = controls_.joins[static_cast<std::size_t>(row)];
    for (OptionButton* option : {&join.optAnd, &join.optOr}) {
        option->setEnabled(true);
        option->setValue(false);
    }
}

void SearchForm::removeRow(int row, int joinRow) {
    Criterion& removed = rows_[row + 1];
    if (removed.column.empty())
        return;
    removed.column.clear();
    controls_.fields(row + 1).clear();
    joins_[joinRow].clear();
    controls_.operators(row + 1).clear();
    removed.sqlOperator.clear();
    controls_.values(row + 1).setText("");
    const JoinControls& join = controls_.joins[static_cast<std::size_t>(row)];
    for (OptionButton* option : {&join.optAnd, &join.optOr}) {
        option->setEnabled(false);
        option->setValue(false);
    }
}

std::string SearchForm::condition(int row) const {
    const auto& [column, sqlOperator, value] = rows_[row];
    if (column.empty() || sqlOperator.empty() || value.empty())
        return {};
    const std::string& join = joins_[row];
    return fmt::format("{} {} {}", column, sqlOperator, value) + (join.empty() ? "" : " " + join + " ");
}

// Rows beyond the lists fail one by one, and the rest of the statement is made all the same.
std::string SearchForm::statement(const Handler& step) const {
    std::string sql = fmt::format("SELECT {0}.* FROM {0} WHERE ", search_.table);
    for (int row = 0; row < criteriaCount_.value(); ++row)
        step([&] { sql += condition(row); });
    return sql + " ORDER BY " + rows_[0].column;
}

void SearchForm::run() {
    const Handler step = handler();
    hits_.setRecordSource(statement(step));
    step([&] { hits_.Refresh(); });
    if (step.test([&] { return hits_.recordset().Bof() || hits_.recordset().Eof(); }))
        return tellNoHits();
    program_.screens.hide(screen_);
    step([&] { program_.screens.load(search_.listScreen); });
}

void SearchForm::tellNoHits() {
    program_.display.messageBox(
        {.text = lines({"No rows returned.", "Returning to search screen."}), .title = search_.noHitsTitle});
    program_.screens.show(screen_);
    reset();
}

Handler SearchForm::handler() const {
    return Handler([this](const RunTimeError& failure, int) {
        if (failure.number() == error::kNoCurrentRow)
            leaveWithoutRecord(program_, screen_, search_.debugModule);
        program_.reporter.databaseError(failure, search_.module);
        return Recovery::GoOn;
    });
}

}  // namespace tallybrook
