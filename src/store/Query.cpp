#include "store/Query.h"

#include "runtime/TextCompare.h"
#include "store/FieldValue.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

/// The statement for SQLite, with a parameter for each value of the criteria and one for the last key.
class Compiled {
public:
    explicit Compiled(const Select& select) : select_(select) {
        sql_ = "SELECT " + fieldList() + " FROM " + select.table->name + " WHERE " + condition() + ending();
    }

    [[nodiscard]] const std::string& sql() const { return sql_; }
    [[nodiscard]] const std::vector<Value>& values() const { return values_; }

private:
    [[nodiscard]] std::string key() const { return select_.table->key().name; }

    [[nodiscard]] std::string fieldList() const {
        // Of equal rows SQLite then gives the one with the lowest key.
        std::string list = select_.distinct ? fmt::format("min({})", key()) : key();
        for (const Column* field : select_.fields)
            list += ", " + field->name;
        return list;
    }

    std::string condition() {
        // The plus keeps SQLite from walking the keys where an index would serve better.
        std::string all = "+" + key() + " <= ?";
        std::string any;
        for (const auto& group : select_.anyOf) {
            any += any.empty() ? "(" : " OR (";
            for (std::size_t i = 0; i < group.size(); ++i)
                any += (i == 0 ? "" : " AND ") + compared(group[i]);
            any += ")";
        }
        return any.empty() ? all : all + " AND (" + any + ")";
    }

    /// Rows whose value is of another kind than the column are no hit: SQLite would order them by kind.
    std::string compared(const Criterion& criterion) {
        const std::string& column = criterion.column->name;
        if (criterion.column->isLookedUp && criterion.comparator == Comparator::Equal)
            return lookedUp(criterion);
        values_.push_back(criterion.value);
        if (criterion.comparator == Comparator::Like)
            return fmt::format("tbk_like({}, ?, {})", column, static_cast<int>(criterion.column->type));
        const std::string_view sign = signOf(criterion.comparator);
        switch (criterion.column->type) {
            case FieldType::Text:
                return fmt::format("tbk_compare({}, ?) {} 0", column, sign);
            case FieldType::Date:
                // Counted through, a day that does not exist becomes another one.
                return fmt::format("({0} {1} ? AND date({0}, '+0 days') = {0})", column, sign);
            default:
                return fmt::format("({0} {1} ? AND typeof({0}) IN ('integer', 'real'))", column, sign);
        }
    }

    /// Equality without case by way of the indexes. A plain ASCII value can only equal a text that folds to
    /// plain ASCII, and NOCASE compares the two; every other value is in the second index.
    std::string lookedUp(const Criterion& criterion) {
        const auto& wanted = std::get<std::string>(criterion.value);
        values_.emplace_back(foldCase(wanted));
        values_.emplace_back(wanted);
        return fmt::format(
            "{0} IN (SELECT {0} FROM {1} WHERE {2} = ? COLLATE NOCASE"
            " UNION ALL SELECT {0} FROM {1} WHERE {3} AND tbk_compare({2}, ?) = 0)",
            key(), select_.table->name, criterion.column->name, isBeyondNocase(*criterion.column));
    }

    static std::string_view signOf(Comparator comparator) {
        switch (comparator) {
            case Comparator::GreaterEqual:
                return ">=";
            case Comparator::LessEqual:
                return "<=";
            case Comparator::Greater:
                return ">";
            case Comparator::Less:
                return "<";
            default:
                return "=";
        }
    }

    [[nodiscard]] std::string ending() const {
        std::string order;
        const auto append = [&](const Column& column) {
            order += column.name + (column.type == FieldType::Text ? " COLLATE tbk, " : ", ");
        };
        for (const Column* column : select_.orderBy)
            append(*column);
        if (!select_.distinct)
            return " ORDER BY " + order + key();
        std::string group;
        for (const Column* field : select_.fields) {
            append(*field);
            group += (group.empty() ? "" : ", ") + field->name +
                     (field->type == FieldType::Text ? " COLLATE tbk" : "");
        }
        return " GROUP BY " + group + " ORDER BY " + order + "1";
    }

    const Select& select_;
    std::string sql_;
    std::vector<Value> values_;
};

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

std::vector<Value> valuesOf(SQLite::Statement& statement, const std::vector<const Column*>& fields) {
    std::vector<Value> values;
    values.reserve(fields.size());
    int index = 1;  // behind the key
    for (const Column* field : fields)
        values.push_back(decoded(FromColumn(statement.getColumn(index++)), field->type));
    return values;
}

}  // namespace

Value valueOfColumn(sqlite3_value* stored, FieldType type) {
    return decoded(FromArgument(stored), type);
}

void bindValue(SQLite::Statement& statement, int index, const Value& value) {
    if (const auto* const number = std::get_if<std::int64_t>(&value))
        statement.bind(index, *number);
    else if (const auto* const real = std::get_if<double>(&value))
        statement.bind(index, *real);
    else if (const auto* const text = std::get_if<std::string>(&value))
        statement.bind(index, *text);
    else if (const auto* const date = std::get_if<DateTime>(&value))
        statement.bind(index, storedDate(*date));
    else
        statement.bind(index);
}

std::int64_t highestKey(Store::Connection& connection, const Table& table) {
    return onFile([&] {
        StatementUse use(
            connection.prepared(fmt::format("SELECT max({}) FROM {}", table.key().name, table.name)));
        use->executeStep();
        return use->getColumn(0).getInt64();
    });
}

std::vector<StoredRow> runSelect(Store::Connection& connection, const Select& select, std::int64_t lastKey) {
    return onFile([&] {
        const Compiled compiled(select);
        StatementUse use(connection.prepared(compiled.sql()));
        use->bind(1, lastKey);
        int index = 2;
        for (const Value& value : compiled.values())
            bindValue(*use, index++, value);
        std::vector<StoredRow> rows;
        while (use->executeStep())
            rows.push_back({use->getColumn(0).getInt64(), valuesOf(*use, select.fields)});
        return rows;
    });
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
        row.values = valuesOf(*use, fields);
        return true;
    });
}

}  // namespace tallybrook
