#pragma once

#include "store/Sql.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// Some fields of a statement, and where their values stand in a row that holds just these.
struct Projection {
    std::vector<std::size_t> fields;                 // indexes into the statement's fields, in their order
    std::vector<std::optional<std::size_t>> places;  // by field; nothing for one that is left out
};

/// Rows as they were read.
struct ReadRows {
    std::shared_ptr<const Projection> projection;
    std::vector<std::int64_t> keys;
    std::vector<Value> values;  // those of the projection, row after row

    [[nodiscard]] std::size_t size() const { return keys.size(); }
    /// Whether the field was read.
    [[nodiscard]] bool holds(std::size_t field) const { return projection->places[field].has_value(); }
    [[nodiscard]] Value& value(std::size_t row, std::size_t field) {
        return values[row * projection->fields.size() + *projection->places[field]];
    }
    void erase(std::size_t row);
};

/// How all statements of one shape are run: the statement for SQLite, prepared once, and the fields that are
/// worth reading, which are those that somebody has asked for.
class Plan {
public:
    /// For any statement of the shape.
    Plan(SQLite::Database& database, Select select);

    [[nodiscard]] const Select& select() const { return select_; }
    [[nodiscard]] std::size_t fieldCount() const { return select_.fields.size(); }

    /// Tells that a field was asked for.
    void want(std::size_t field) { wanted_[field] = true; }

    /// What the rows that a statement finds depend on besides its shape.
    struct Question {
        std::vector<Value> values;
        std::int64_t lastKey = 0;   // only rows whose keys are at most this one
        std::uint64_t version = 0;  // of the tables; grows with each change
        friend bool operator==(const Question&, const Question&) = default;
    };
    /// Runs the statement and reads all fields of the rows that it finds, or those that are worth it.
    ReadRows read(const Question& question, bool all);

    /// How a value of the criteria goes into a parameter.
    enum class Form { AsIs, Folded };
    struct Parameter {
        std::size_t value;  // its index among the values of the statement
        Form form;
    };

private:
    /// A statement that reads certain fields.
    struct Reader {
        std::vector<bool> fields;
        std::shared_ptr<const Projection> projection;
        std::unique_ptr<SQLite::Statement> statement;
    };
    Reader& readerOf(bool all);
    [[nodiscard]] Reader prepare(const std::vector<bool>& fields) const;
    void bind(SQLite::Statement& statement, const Question& question) const;
    ReadRows run(Reader& reader, const Question& question);

    SQLite::Database& database_;
    Select select_;
    std::string source_;  // the statement but for its list of fields
    std::vector<Parameter> parameters_;
    std::vector<bool> wanted_;  // by field
    Reader whole_;
    Reader narrow_;
    Question lastQuestion_;
    std::optional<ReadRows> lastAnswer_;  // of one row at most: an event that is looked for again and again
};

}  // namespace tallybrook
