#include "store/Transaction.h"

#include "store/Connection.h"

#include <sqlite3.h>

namespace tallybrook {

namespace {

/// Whether a transaction is open; a failure that the disk is to blame for can have ended it.
bool isWithin(Store::Connection& connection) {
    return sqlite3_get_autocommit(connection.database().getHandle()) == 0;
}

}  // namespace

Transaction::Transaction(Store& store) : connection_(store.connection()), isOpen_(!isWithin(connection_)) {
    if (isOpen_)
        onFile([this] { connection_.database().exec("BEGIN"); });
}

Transaction::~Transaction() {
    try {
        commit();
    } catch (
        const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the failure on its way out tells the cause
    }
}

void Transaction::commit() {
    if (!isOpen_)
        return;
    isOpen_ = false;
    if (!isWithin(connection_))
        return;
    try {
        onFile([this] { connection_.database().exec("COMMIT"); });
    } catch (const RunTimeError&) {
        giveUp();
        throw;
    }
}

/// Ends what cannot be brought to the disk, so that whatever is stored next does not wait for it.
void Transaction::giveUp() {
    if (isWithin(connection_))
        connection_.database().tryExec("ROLLBACK");
}

}  // namespace tallybrook
