#include "store/CommitAtEnd.h"

#include "store/file/Connection.h"

#include <sqlite3.h>

namespace tallybrook {

namespace {

/// Whether a transaction is open; a failure that the disk is to blame for can have ended it.
bool isWithin(Connection& connection) {
    return sqlite3_get_autocommit(connection.database().getHandle()) == 0;
}

}  // namespace

CommitAtEnd::CommitAtEnd(Store& store) : connection_(store.connection()) {
    begin();
}

void CommitAtEnd::begin() {
    if (isWithin(connection_))
        return;
    onFile([this] { connection_.database().exec("BEGIN"); });
    isOpen_ = true;
}

CommitAtEnd::~CommitAtEnd() {
    try {
        commit();
    } catch (
        const std::exception&) {  // NOLINT(bugprone-empty-catch): the failure on its way out tells the cause
    }
}

void CommitAtEnd::commit() {
    if (!isOpen_)
        return;
    isOpen_ = false;
    if (!isWithin(connection_))
        return;
    try {
        onFile([this] { connection_.database().exec("COMMIT"); });
    } catch (const std::exception&) {
        giveUp();
        throw;
    }
}

void CommitAtEnd::commitSoFar() {
    commit();
    begin();
}

/// Ends what cannot be brought to the disk, so that whatever is stored next does not wait for it.
void CommitAtEnd::giveUp() {
    if (isWithin(connection_))
        connection_.database().tryExec("ROLLBACK");
}

}  // namespace tallybrook
