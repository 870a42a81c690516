#include "store/file/Statement.h"

#include "store/file/Transaction.h"

#include <type_traits>
#include <utility>
#include <variant>

namespace tallybrook {

// The connection is used by one thread at a time, so a column's value may be looked at as it stands.

namespace {

int bindText(sqlite3_stmt* statement, int index, const std::string& text) {
    return sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// Binds each kind of value; gives SQLite's answer.
struct Binding {
    sqlite3_stmt* statement;
    int index;

    int operator()(Null) const { return sqlite3_bind_null(statement, index); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
    int operator()(const std::string& text) const { return bindText(statement, index, text); }
    int operator()(DateTime date) const { return bindText(statement, index, storedDate(date)); }
};

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(const SQLite::Database& database, const std::string& sql)
    : database_(database.getHandle()) {
    sqlite3_stmt* statement = nullptr;
    const int result =
        sqlite3_prepare_v3(database_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    require(result);
}

Statement::Statement(Transaction& transaction, const std::string& sql)
    : Statement(transaction.database(), sql) {
    transaction_ = &transaction;
    isChange_ = sqlite3_stmt_readonly(statement_.get()) == 0;
}

void Statement::require(int result) const {
    if (result != SQLITE_OK)
        throw SQLite::Exception(database_, result);
}

void Statement::bind(int index, const Value& value) {
    require(std::visit(Binding{.statement = statement_.get(), .index = index}, value));
    if (isChange_)
        boundFrom(index).addValue(value);
}

void Statement::bindWithoutCopy(int index, std::string_view text) {
    require(sqlite3_bind_text(statement_.get(), index, text.data(), static_cast<int>(text.size()),
                              SQLITE_STATIC));
    if (isChange_)
        boundFrom(index).add(text);
}

/// What is bound so far, to which that of a parameter is to be added.
PackedValues& Statement::boundFrom(int index) {
    if (index == 1)
        bound_.clear();
    return bound_;
}

bool Statement::executeStep() {
    const int result = sqlite3_step(statement_.get());
    if (result != SQLITE_DONE && result != SQLITE_ROW) {
        const SQLite::Exception failure(database_, result);  // as long as the engine knows what it was
        if (transaction_ != nullptr)
            transaction_->noteFailure(isChange_);
        throw failure;
    }
    return result == SQLITE_ROW;
}

int Statement::exec() {
    if (isChange_)
        transaction_->noteChange(sqlite3_sql(statement_.get()), bound_);
    executeStep();
    const int changed = sqlite3_changes(database_);
    if (transaction_ != nullptr)
        transaction_->noteSuccess();
    return changed;
}

void Statement::runWith(PackedValues::Reader& values) {
    for (int index = 1; index <= sqlite3_bind_parameter_count(statement_.get()); ++index)
        bind(index, values.take());
    exec();
    reset();
}

void Statement::reset() {
    sqlite3_reset(statement_.get());
}

std::int64_t Statement::number(int index) const {
    return sqlite3_column_int64(statement_.get(), index);
}

}  // namespace tallybrook
