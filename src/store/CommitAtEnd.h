#pragma once

#include "runtime/Handler.h"
#include "store/Store.h"

#include <optional>

namespace tallybrook {

/// Keeps what is stored meanwhile together, so that it goes to the disk at once at the end instead of row by
/// row. The end is that of its scope, and it always commits: where a failure leaves the scope too, or undoes
/// the transaction, what was stored is kept, as it would have been row by row. Only what the disk itself
/// refuses is lost. One inside another one adds nothing. Errors: -2147467259 for what SQLite reports.
class CommitAtEnd {
public:
    explicit CommitAtEnd(Store& store);
    ~CommitAtEnd();
    CommitAtEnd(const CommitAtEnd&) = delete;
    CommitAtEnd& operator=(const CommitAtEnd&) = delete;

    /// Brings what was stored to the disk now; what is stored later goes there row by row.
    void commit();
    /// Brings what was stored so far to the disk; what is stored later is kept together anew.
    void commitSoFar();

private:
    void begin();

    Connection& connection_;
    bool isOpen_ = false;
};

/// Does some of a procedure's work, and brings all that it stores to the disk at once. To begin and to commit
/// are statements of the procedure like others: a failure is told by `step`, and the work is done all the
/// same.
template <typename Work>
void storeAtOnce(Store& store, const Handler& step, Work work) {
    std::optional<CommitAtEnd> rows;
    step([&] { rows.emplace(store); });
    work();
    if (rows)
        step([&] { rows->commit(); });
}

}  // namespace tallybrook
