#include "store/file/Transaction.h"

#include "store/file/Statement.h"

#include <exception>
#include <utility>

#include <sqlite3.h>

namespace tallybrook {

bool Transaction::isOpen() const {
    return sqlite3_get_autocommit(database_.getHandle()) == 0;
}

void Transaction::begin() {
    database_.exec("BEGIN");
    isKept_ = true;
}

void Transaction::commit() {
    if (!std::exchange(isKept_, false))
        return;
    try {
        database_.exec("COMMIT");
    } catch (const SQLite::Exception&) {
        if (isOpen())
            database_.tryExec("ROLLBACK");
        if (wasKept() || !storeAgain()) {
            forget();
            throw;
        }
    }
    forget();
}

void Transaction::commitSoFar() {
    if (!isKept_)
        return;
    commit();
    begin();
}

void Transaction::noteChange(std::string_view sql, std::vector<Value> values) {
    if (texts_.empty() || texts_.back() != sql)
        texts_.emplace_back(sql);
    changes_.push_back({.sql = texts_.size() - 1, .values = std::move(values)});
}

void Transaction::noteSuccess() {
    constexpr std::size_t kMostKept = 4000;  // changes
    if (isKept_ && !firstRow_)
        noteAddedRow();
    if (changes_.size() >= kMostKept)
        commitSoFar();
}

void Transaction::noteFailure(bool isChange) noexcept {
    if (!isKept_)
        return;
    if (isChange)
        changes_.pop_back();
    if (isOpen())
        return;
    isKept_ = false;
    static_cast<void>(storeAgain());  // the failure itself is told
}

void Transaction::noteAddedRow() {
    constexpr std::string_view kInsert = "INSERT INTO ";
    const std::string& text = texts_.back();
    if (text.starts_with(kInsert))
        firstRow_ = {.table = text.substr(kInsert.size(), text.find(' ', kInsert.size()) - kInsert.size()),
                     .key = sqlite3_last_insert_rowid(database_.getHandle())};
}

/// Whether the disk has kept all, which rows tell that were added: to change and to delete once more does no
/// harm.
bool Transaction::wasKept() const {
    try {
        return firstRow_ && database_
                                    .execAndGet("SELECT count(*) FROM " + firstRow_->table +
                                                " WHERE rowid = " + std::to_string(firstRow_->key))
                                    .getInt() > 0;
    } catch (const std::exception&) {
        return true;  // it cannot be read, let alone written
    }
}

/// False where a change fails again. Those behind it would get other keys, so they are not tried.
bool Transaction::storeAgain() {
    const std::vector<std::string> texts = std::exchange(texts_, {});
    const std::vector<Change> changes = std::exchange(changes_, {});
    firstRow_.reset();
    try {
        for (const Change& change : changes) {
            Statement statement(database_, texts[change.sql]);
            for (std::size_t at = 0; at < change.values.size(); ++at)
                statement.bind(static_cast<int>(at) + 1, change.values[at]);
            statement.exec();
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void Transaction::forget() {
    texts_.clear();
    changes_.clear();
    firstRow_.reset();
}

}  // namespace tallybrook
