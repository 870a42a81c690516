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

void Transaction::noteChange(std::string_view sql, const PackedValues& values) {
    if (!isKept_)
        return;
    if (changes_.empty() || changes_.back().sql != sql)
        changes_.push_back({.sql = std::string(sql), .count = 0});
    sizeBeforeLast_ = values_.size();
    values_.append(values);
    ++changes_.back().count;
    ++count_;
}

void Transaction::noteSuccess() {
    constexpr std::size_t kMostKept = 4000;  // changes
    if (isKept_ && !firstRow_)
        noteAddedRow();
    if (count_ >= kMostKept)
        commitSoFar();
}

void Transaction::noteFailure(bool isChange) noexcept {
    if (!isKept_)
        return;
    if (isChange)
        dropLast();
    if (isOpen())
        return;
    isKept_ = false;
    static_cast<void>(storeAgain());  // the failure itself is told
}

void Transaction::dropLast() {
    values_.cutTo(sizeBeforeLast_);
    --changes_.back().count;
    --count_;
}

void Transaction::noteAddedRow() {
    constexpr std::string_view kInsert = "INSERT INTO ";
    const std::string& text = changes_.back().sql;
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
    const std::vector<Changes> changes = std::exchange(changes_, {});
    const PackedValues kept = std::exchange(values_, {});
    forget();
    try {
        PackedValues::Reader values(kept);
        for (const auto& [sql, count] : changes) {
            Statement statement(database_, sql);
            for (std::size_t change = 0; change < count; ++change)
                statement.runWith(values);
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void Transaction::forget() {
    changes_.clear();
    values_.clear();
    count_ = 0;
    firstRow_.reset();
}

}  // namespace tallybrook
