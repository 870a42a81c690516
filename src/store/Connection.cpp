#include "store/Connection.h"

#include "runtime/TextCompare.h"
#include "store/Query.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

std::string_view bytesOf(sqlite3_value* value) {
    const void* const bytes = sqlite3_value_blob(value);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// Gives a function's whole number back. No exception may pass through the engine.
template <typename Compute>
void answer(sqlite3_context* context, Compute compute) noexcept {
    try {
        sqlite3_result_int(context, compute());
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

/// tbk_compare(a, b): the order of two texts without case; Null if either is Null.
void compareFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    for (int i = 0; i < 2; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            return sqlite3_result_null(context);
    }
    answer(context, [&] { return compareText(bytesOf(arguments[0]), bytesOf(arguments[1])); });
}

/// tbk_like(value, pattern, type): whether the text form of a field's value is like the pattern.
void likeFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    answer(context, [&] {
        const auto type = static_cast<FieldType>(sqlite3_value_int(arguments[2]));
        return likeText(toText(valueOfColumn(arguments[0], type)), bytesOf(arguments[1])) ? 1 : 0;
    });
}

int collate(void*, int leftSize, const void* left, int rightSize, const void* right) noexcept {
    return compareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

/// What the queries need beyond SQLite's own. Nothing in the file refers to it.
void addTextFunctions(sqlite3* handle) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(handle, "tbk_compare", 2, kFlags, nullptr, compareFunction, nullptr, nullptr);
    sqlite3_create_function(handle, "tbk_like", 3, kFlags, nullptr, likeFunction, nullptr, nullptr);
    sqlite3_create_collation(handle, "tbk", SQLITE_UTF8, nullptr, collate);
}

}  // namespace

Store::Connection::Connection(const std::filesystem::path& file, const Clock& clock)
    : clock_(clock), database_(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX) {
    // A save is done once the journal is cut to nothing, which happens whole or not at all. Set before the
    // file is locked for good, so that the journal of a save that was cut off goes as it is rolled back.
    database_.exec("PRAGMA journal_mode = TRUNCATE");
    database_.exec("PRAGMA locking_mode = EXCLUSIVE");
    database_.exec("PRAGMA synchronous = FULL");
    database_.exec("PRAGMA cache_size = -8192");  // KiB: a life of bowling mostly fits
    addTextFunctions(database_.getHandle());
    sqlite3_rollback_hook(database_.getHandle(), noteRollback, this);
    database_.exec("BEGIN EXCLUSIVE");  // takes the lock for as long as the connection lives
    database_.exec("COMMIT");
}

/// Takes the empty journal along, as long as the lock keeps others out. One that is not empty is needed by
/// the next opening.
Store::Connection::~Connection() {
    const fs::path journal = database_.getFilename() + "-journal";
    std::error_code ignored;
    if (fs::exists(journal, ignored) && fs::is_empty(journal, ignored))
        fs::remove(journal, ignored);
}

SQLite::Statement& Store::Connection::prepared(const std::string& sql) {
    if (beforeFirstWrite_ && !sql.starts_with("SELECT"))
        std::exchange(beforeFirstWrite_, {})();
    return ready(sql);
}

SQLite::Statement& Store::Connection::ready(const std::string& sql) {
    constexpr std::size_t kMostStatements = 200;
    const auto found = prepared_.find(sql);
    if (found != prepared_.end())
        return *found->second;
    if (prepared_.size() >= kMostStatements)
        prepared_.clear();
    return *prepared_.emplace(sql, std::make_unique<SQLite::Statement>(database_, sql)).first->second;
}

UnderstoodStatement Store::Connection::understand(const std::string& sql) {
    constexpr std::size_t kMostPlans = 200;
    if (std::optional<UnderstoodStatement> known = recent_.find(sql))
        return *std::move(known);
    StatementShape shape = shapeOf(sql);
    auto found = plans_.find(shape.text);
    if (found == plans_.end()) {
        auto plan =
            onFile([&] { return std::make_shared<Plan>(database_, parseSelect(sql, currentYear())); });
        if (plans_.size() >= kMostPlans)
            plans_.clear();
        found = plans_.emplace(std::move(shape.text), std::move(plan)).first;
    }
    UnderstoodStatement understood{.plan = found->second, .values = {}};
    for (const Literal& literal : shape.literals)
        understood.values.push_back(valueOf(literal, currentYear()));
    recent_.keep(sql, shape.literals, understood);
    return understood;
}

std::int64_t Store::Connection::highestKey(const Table& table) {
    const auto known = highestKeys_.find(&table);
    if (known != highestKeys_.end())
        return known->second;
    const std::int64_t key = onFile([&] {
        StatementUse use(prepared(fmt::format("SELECT max({}) FROM {}", table.key().name, table.name)));
        use->executeStep();
        return use->getColumn(0).getInt64();
    });
    highestKeys_[&table] = key;
    return key;
}

std::uint64_t Store::Connection::version() const {
    constexpr int kChangesBits = 32;
    return (rollbacks_ << kChangesBits) +
           static_cast<std::uint32_t>(sqlite3_total_changes(database_.getHandle()));
}

/// Rows that were added are gone again, and their keys with them.
void Store::Connection::noteRollback(void* connection) {
    auto* const self = static_cast<Connection*>(connection);
    ++self->rollbacks_;
    self->highestKeys_.clear();
}

void Store::Connection::readBeforeChange(const Table& table, std::int64_t key) {
    for (UnreadRows* const rows : unread_)
        rows->readBeforeChange(table, key);
}

}  // namespace tallybrook
