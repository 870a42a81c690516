#include "store/CommitAtEnd.h"

#include "store/file/Connection.h"

#include <utility>

namespace tallybrook {

CommitAtEnd::CommitAtEnd(Store& store) : connection_(store.connection()) {
    begin();
}

void CommitAtEnd::begin() {
    if (connection_.isWithinTransaction())
        return;
    onFile([this] { connection_.transaction().begin(); });
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
    if (std::exchange(isOpen_, false))
        onFile([this] { connection_.transaction().commit(); });
}

void CommitAtEnd::commitSoFar() {
    commit();
    begin();
}

}  // namespace tallybrook
