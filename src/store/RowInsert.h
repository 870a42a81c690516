#pragma once

#include "runtime/Value.h"
#include "store/Store.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

struct Column;
struct Table;

/// Adds rows to a table, each put together whole and stored by one insert.
class RowInsert {
public:
    /// `fields` are those of the table that every row gets; the others get what the table has for them. The
    /// store must outlive this.
    RowInsert(Store& store, std::string_view table, const std::vector<std::string_view>& fields);

    /// Stores a row with these values, one for each field in order, converted as a recordset converts them;
    /// returns its key. Errors: -2147217887 for a value that a field cannot take, -2147467259 for what SQLite
    /// reports.
    template <typename... Values>
    std::int64_t add(const Values&... values) {
        return insert({&static_cast<const Value&>(values)...});
    }

private:
    std::int64_t insert(std::initializer_list<const Value*> values);

    Store& store_;
    const Table& table_;
    std::vector<const Column*> fields_;
    std::string sql_;
};

}  // namespace tallybrook
