#pragma once

#include "store/file/Statement.h"
#include "store/reading/PackedRows.h"
#include "store/sql/SelectText.h"
#include "store/sql/Sql.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// What the rows that a statement of some shape finds depend on besides the shape.
struct Question {
    const std::vector<Value>& values;  // of the criteria
    std::int64_t lastKey = 0;          // only rows whose keys are at most this one
    std::uint64_t version = 0;         // of the tables; grows with each change
};

/// How all statements of one shape are run: the statement for SQLite, prepared once, and the fields that are
/// worth reading, which are those that somebody has asked for.
class Plan {
public:
    /// For any statement of the shape.
    Plan(Transaction& transaction, Select select);
    Plan(const Plan&) = delete;
    Plan& operator=(const Plan&) = delete;

    [[nodiscard]] const Select& select() const { return select_; }
    [[nodiscard]] std::size_t fieldCount() const { return select_.fields.size(); }

    /// Tells that a field was asked for.
    void want(std::size_t field);

    /// Runs the statement and reads all fields of the rows that it finds, or those that are worth it.
    std::shared_ptr<const PackedRows> read(const Question& question, bool all);
    /// Reads all fields of the rows of these keys, in their order; nothing if one of them is not there.
    std::shared_ptr<const PackedRows> readRows(const std::vector<std::int64_t>& keys);
    /// A statement for itself that reads `what` of the rows, a list in SQL; to be stepped through. Errors:
    /// SQLite::Exception.
    [[nodiscard]] Statement ready(const std::string& what, const Question& question) const;

private:
    /// A statement that reads certain fields.
    struct Reader {
        std::shared_ptr<const Projection> projection;
        std::optional<Statement> statement;
    };
    Reader& readerOf(bool all);
    /// A statement that reads a key and these fields of the rows that `rest` tells.
    [[nodiscard]] Reader prepare(const std::string& key, const std::vector<bool>& fields,
                                 const std::string& rest) const;
    void bind(Statement& statement, const Question& question) const;
    /// The last answer, if it answers this as well; nullptr if not.
    [[nodiscard]] std::shared_ptr<const PackedRows> answeredBefore(const Question& question,
                                                                   const Projection& projection) const;
    std::shared_ptr<const PackedRows> run(Reader& reader, const Question& question) const;

    Transaction& transaction_;
    Select select_;
    SelectText text_;
    std::vector<bool> wanted_;  // by field
    Reader whole_;
    Reader narrow_;  // of the fields wanted
    Reader single_;  // of the row of one key
    // The last answer while somebody still has it: a search and the list of its hits ask the same.
    struct Answer {
        std::vector<Value> values;
        std::int64_t lastKey = 0;
        std::uint64_t version = 0;
        std::weak_ptr<const PackedRows> rows;
    };
    Answer lastAnswer_;
};

/// A statement of the subset, understood: how it is run, and its values.
struct UnderstoodStatement {
    std::shared_ptr<Plan> plan;
    std::vector<Value> values;
};

}  // namespace tallybrook
