#pragma once

#include "store/Transaction.h"

#include <optional>

namespace tallybrook {

/// The rows that a reader adds. Row by row they would take the disk many times as long, so they go there
/// together. What is promised all the same: whenever a person is asked or told something, and before the
/// summary of a file is logged, all rows added so far are on the disk, or it is told that they are not. A
/// program that is killed in between can have logged rows that it takes with it; the handheld's files are
/// untouched by then, so the next run adds them.
class RowBatch {
public:
    /// Errors as Transaction raises them, here and below.
    explicit RowBatch(Store& store) : store_(store), rows_(std::in_place, store) {}

    /// Brings the rows added so far to the disk; those to come are kept together anew.
    void bringToDisk() {
        if (rows_)
            rows_->commit();
        rows_.emplace(store_);
    }

private:
    Store& store_;
    std::optional<Transaction> rows_;  // nothing where one could not be begun
};

}  // namespace tallybrook
