#pragma once

#include "store/Store.h"

namespace tallybrook {

/// Keeps what is stored meanwhile together, so that it goes to the disk at once at the end instead of row by
/// row. However the scope is left, what was stored is kept; only what the disk itself refuses is lost. One
/// inside another one adds nothing.
class Transaction {
public:
    /// Errors: -2147467259 for what SQLite reports.
    explicit Transaction(Store& store);
    /// Keeps what was stored, where commit() was not reached.
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Brings what was stored to the disk; errors as the constructor.
    void commit();

private:
    void giveUp();

    Store::Connection& connection_;
    bool isOpen_;
};

}  // namespace tallybrook
