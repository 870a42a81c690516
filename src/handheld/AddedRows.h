#pragma once

#include "runtime/Integer.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace tallybrook {

/// The rows that a run has added to one table: their keys by the handheld's own identifiers. Nobody asks for
/// more of them, nor for their order, but for which came first with an identifier.
class AddedRows {
public:
    /// Notes an added row. Of several with one identifier the first is found.
    void add(const std::string& handheldId, Int32 key) { keys_.emplace(handheldId, key); }

    /// The key of the row with just this identifier; nothing if none was added.
    [[nodiscard]] std::optional<Int32> find(const std::string& handheldId) const {
        const auto found = keys_.find(handheldId);
        return found == keys_.end() ? std::nullopt : std::optional(found->second);
    }

private:
    std::unordered_map<std::string, Int32> keys_;
};

}  // namespace tallybrook
