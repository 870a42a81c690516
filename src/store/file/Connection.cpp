#include "store/file/Connection.h"

#include "store/file/Distrust.h"
#include "store/file/Journal.h"
#include "store/file/TextFunctions.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace fs = std::filesystem;

Connection::Connection(const fs::path& file)
    : database_(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX) {
    // A save is done once the journal is cut to nothing, which happens whole or not at all. Set before the
    // file is locked for good, so that the journal of a save that was cut off goes as it is rolled back.
    database_.exec("PRAGMA journal_mode = TRUNCATE");
    database_.exec("PRAGMA locking_mode = EXCLUSIVE");
    database_.exec("PRAGMA synchronous = FULL");
    database_.exec("PRAGMA cache_size = -8192");  // KiB: a life of bowling mostly fits
    distrust(database_);
    addTextFunctions(database_);
    sqlite3_rollback_hook(database_.getHandle(), noteRollback, this);
    database_.exec("BEGIN EXCLUSIVE");  // takes the lock for as long as the connection lives
    database_.exec("COMMIT");
}

/// Takes the empty journal along, as long as the lock keeps others out. One that is not empty is needed by
/// the next opening.
Connection::~Connection() {
    const fs::path journal = journalOf(database_.getFilename());
    std::error_code ignored;
    if (fs::exists(journal, ignored) && fs::is_empty(journal, ignored))
        fs::remove(journal, ignored);
}

Statement& Connection::prepared(const std::string& sql) {
    if (beforeFirstDeletion_ && sql.starts_with("DELETE") && !isWithinTransaction())
        std::exchange(beforeFirstDeletion_, {})();
    return ready(sql);
}

void Connection::beforeOverwriting(WriteWatch::Show show) {
    writes_.reset();
    if (show)
        writes_ = std::make_unique<WriteWatch>(database_.getHandle(), std::move(show));
}

Statement& Connection::ready(const std::string& sql) {
    constexpr std::size_t kMostStatements = 200;
    const auto found = prepared_.find(sql);
    if (found != prepared_.end())
        return *found->second;
    if (prepared_.size() >= kMostStatements)
        std::erase_if(prepared_, [](const auto& known) { return !known.second->isInUse(); });
    return *prepared_.emplace(sql, std::make_unique<Statement>(transaction_, sql)).first->second;
}

std::int64_t Connection::highestKey(const Table& table) {
    const auto known = highestKeys_.find(&table);
    if (known != highestKeys_.end())
        return known->second;
    const std::int64_t key = onFile([&] {
        Statement::Use use(prepared(fmt::format("SELECT max({}) FROM {}", table.key().name, table.name)));
        use->executeStep();
        return use->number(0);
    });
    highestKeys_[&table] = key;
    return key;
}

std::uint64_t Connection::version() const {
    constexpr int kChangesBits = 32;
    return (rollbacks_ << kChangesBits) +
           static_cast<std::uint32_t>(sqlite3_total_changes(database_.getHandle()));
}

/// Rows that were added are gone again, and their keys with them.
void Connection::noteRollback(void* connection) {
    auto* const self = static_cast<Connection*>(connection);
    ++self->rollbacks_;
    self->highestKeys_.clear();
}

}  // namespace tallybrook
