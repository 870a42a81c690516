#include "store/CommitAtEnd.h"

#include "store/file/Connection.h"

namespace tallybrook {

CommitAtEnd::CommitAtEnd(Store& store) : connection_(store.connection()) {
    begin();
}

void CommitAtEnd::begin() {
    if (connection_.isWithinTransaction())
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
    if (!connection_.isWithinTransaction())
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
    if (connection_.isWithinTransaction())
        connection_.database().tryExec("ROLLBACK");
}

}  // namespace tallybrook
