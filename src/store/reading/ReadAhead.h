#pragma once

#include "store/file/Statement.h"
#include "store/reading/PackedRows.h"
#include "store/sql/Sql.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// What the rows that a statement of some shape finds depend on besides the shape.
struct Question {
    const std::vector<Value>& values;  // of the criteria
    std::int64_t lastKey = 0;          // only rows whose keys are at most this one
    std::uint64_t version = 0;         // of the tables; grows with each change
};

/// Walks over the logbook ask for the games of one event after another, and for the frames of each game.
/// Where such a walk shows, the rows of the next events are read as well, of ever more of them the longer it
/// lasts. They are kept as long as nothing changes: the walk that follows often asks for the same rows again.
class ReadAhead {
public:
    /// Whether statements of that shape select rows of one event by whole numbers, so that they can be
    /// served.
    static bool serves(const Select& select);

    /// For statements of a shape that is served; the Select must outlive this.
    ReadAhead(SQLite::Database& database, const Select& select);
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// The rows that answer the question, with the fields of the projection, if they were read ahead or will
    /// be worth it; nothing where the statement should be run by itself. Errors: SQLite::Exception.
    std::optional<RowRange> find(const Question& question,
                                 const std::shared_ptr<const Projection>& projection);

private:
    /// What a statement's criteria ask for, the event first.
    using Wanted = std::vector<std::int64_t>;
    /// The rows of some events on end, in groups of those that meet the same criteria.
    struct Block {
        std::int64_t endEvent = 0;  // the first one behind
        std::shared_ptr<PackedRows> rows;
        std::vector<Wanted> groups;  // in ascending order
        std::vector<std::size_t> starts;

        [[nodiscard]] RowRange find(const Wanted& wanted) const;
        [[nodiscard]] std::size_t bytes() const;
    };

    [[nodiscard]] const Column& columnOf(std::size_t criterion) const {
        return *select_.anyOf.front()[criterion].column;
    }
    [[nodiscard]] bool takeWanted(const std::vector<Value>& values);
    void startAnew(const Question& question, const std::shared_ptr<const Projection>& projection);
    [[nodiscard]] const Block* blockOf(std::int64_t event) const;
    [[nodiscard]] bool goesOn(std::int64_t event) const;
    const Block& readFrom(std::int64_t event);
    [[nodiscard]] Block read(std::int64_t firstEvent, std::int64_t endEvent);
    [[nodiscard]] std::string sql() const;
    [[nodiscard]] bool takeGroup(Wanted& group) const;
    void addRow(Block& block, const Wanted& group) const;
    const Block& keep(std::int64_t firstEvent, Block block);

    SQLite::Database& database_;
    const Select& select_;
    std::vector<std::size_t> criteria_;  // their indexes, that of the event first
    Wanted wanted_;                      // by the question at hand

    std::shared_ptr<const Projection> projection_;
    std::optional<Statement> statement_;
    std::int64_t lastKey_ = 0;
    std::uint64_t version_ = 0;
    std::optional<std::int64_t> lastEvent_;  // asked for
    std::int64_t reach_ = 0;                 // how many events to read at once
    std::map<std::int64_t, Block> kept_;     // by their first event
    std::size_t keptBytes_ = 0;
    std::map<std::int64_t, Block> passing_;  // the last one that there was no room for
};

}  // namespace tallybrook
