#include "store/Query.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

/// A stored value as it comes in a row.
class FromColumn {
public:
    explicit FromColumn(const SQLite::Column& column) : column_(column) {}
    [[nodiscard]] int type() const { return column_.getType(); }
    [[nodiscard]] std::int64_t number() const { return column_.getInt64(); }
    [[nodiscard]] double real() const { return column_.getDouble(); }
    [[nodiscard]] const void* bytes() const { return column_.getBlob(); }
    [[nodiscard]] int size() const { return column_.getBytes(); }

private:
    const SQLite::Column& column_;
};

/// A stored value as it comes to a function.
class FromArgument {
public:
    explicit FromArgument(sqlite3_value* value) : value_(value) {}
    [[nodiscard]] int type() const { return sqlite3_value_type(value_); }
    [[nodiscard]] std::int64_t number() const { return sqlite3_value_int64(value_); }
    [[nodiscard]] double real() const { return sqlite3_value_double(value_); }
    [[nodiscard]] const void* bytes() const { return sqlite3_value_blob(value_); }
    [[nodiscard]] int size() const { return sqlite3_value_bytes(value_); }

private:
    sqlite3_value* value_;
};

template <typename Source>
Value decoded(const Source& stored, FieldType type) {
    switch (stored.type()) {
        case SQLITE_NULL:
            return Null{};
        case SQLITE_INTEGER:
            return stored.number();
        case SQLITE_FLOAT:
            return stored.real();
        default:
            break;
    }
    const auto* const bytes = static_cast<const char*>(stored.bytes());
    std::string text =
        bytes == nullptr ? std::string{} : std::string(bytes, static_cast<std::size_t>(stored.size()));
    return type == FieldType::Date ? fromStoredDate(text) : Value{std::move(text)};
}

}  // namespace

Value columnValue(const SQLite::Statement& statement, int index, FieldType type) {
    return decoded(FromColumn(statement.getColumn(index)), type);
}

Value valueOfColumn(sqlite3_value* stored, FieldType type) {
    return decoded(FromArgument(stored), type);
}

bool readRow(Store::Connection& connection, const Table& table, const std::vector<const Column*>& fields,
             StoredRow& row) {
    return onFile([&] {
        std::string list = table.key().name;
        for (const Column* field : fields)
            list += ", " + field->name;
        StatementUse use(connection.prepared(
            fmt::format("SELECT {} FROM {} WHERE {} = ?", list, table.name, table.key().name)));
        use->bind(1, row.key);
        if (!use->executeStep())
            return false;
        row.values.clear();
        int index = 1;  // behind the key
        for (const Column* field : fields)
            row.values.push_back(columnValue(*use, index++, field->type));
        return true;
    });
}

}  // namespace tallybrook
