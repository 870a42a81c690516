#pragma once

#include "runtime/Value.h"
#include "store/file/PackedValues.h"
#include "store/file/Statement.h"
#include "store/sql/Schema.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tallybrook {

/// Some fields of a statement, and where their values stand in a row that holds just these.
struct Projection {
    std::vector<std::size_t> fields;                 // indexes into the statement's fields, in their order
    std::vector<std::optional<std::size_t>> places;  // by field; nothing for one that is left out

    /// Whether the field is among them.
    [[nodiscard]] bool holds(std::size_t field) const { return places[field].has_value(); }
    [[nodiscard]] bool holdsAll(const Projection& other) const {
        return std::ranges::all_of(other.fields, [this](std::size_t field) { return holds(field); });
    }
};

/// Rows with their keys, packed into few bytes, since a report may walk over all frames of a life of bowling.
/// Values are taken out one by one as they are asked for.
class PackedRows {
public:
    explicit PackedRows(std::shared_ptr<const Projection> projection) : projection_(std::move(projection)) {}

    [[nodiscard]] const Projection& projection() const { return *projection_; }
    [[nodiscard]] std::size_t size() const { return starts_.size(); }

    /// Adds the row that a statement has come to: its key stands in the first column, the fields of the
    /// projection, which are some of these, in the columns from `firstField` on.
    void addRow(const Statement& statement, int firstField, const std::vector<const Column*>& fields);

    [[nodiscard]] std::int64_t key(std::size_t row) const;
    /// The value of a field of the statement, which the projection must hold.
    [[nodiscard]] Value value(std::size_t row, std::size_t field) const;

private:
    std::shared_ptr<const Projection> projection_;
    PackedValues values_;              // of each row the key, then the fields
    std::vector<std::size_t> starts_;  // of each row
};

}  // namespace tallybrook
