#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tallybrook {

struct Column;

/// Finds the fields of a recordset by their names. Row after row the same fields are asked for in the same
/// order, so the field that followed the last one before is tried first.
class FieldFinder {
public:
    /// The index of a field by its name, without case. Error 3265 where there is none.
    [[nodiscard]] std::size_t find(const std::vector<const Column*>& fields, std::string_view name);

private:
    std::vector<std::size_t> next_;  // by field: the one asked for after it
    std::size_t last_ = 0;           // asked for
};

}  // namespace tallybrook
