#pragma once

#include "runtime/Value.h"
#include "store/Store.h"
#include "store/file/Statement.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

struct Column;
struct UnderstoodStatement;

/// The rows that a statement of the subset finds, taken one after another and kept by nobody, for a walk over
/// any number of them. Nothing may be stored meanwhile.
class RowStream {
public:
    /// Reads these fields; stands before the first row. Errors as Recordset::Open(), and 3265 for an unknown
    /// field.
    RowStream(Store& store, const std::string& sql, std::initializer_list<std::string_view> fields);

    /// Goes to the next row; false behind the last one. Error -2147467259 for what SQLite reports.
    bool next();
    /// A field of the row, by its place among those asked for.
    [[nodiscard]] Value operator[](std::size_t field) const;

private:
    RowStream(Store& store, const UnderstoodStatement& statement,
              std::initializer_list<std::string_view> fields);

    std::vector<const Column*> fields_;
    Statement statement_;
};

/// How many rows a statement of the subset finds. Errors as Recordset::Open(), and -2147467259 for what
/// SQLite reports.
int countRows(Store& store, const std::string& sql);

}  // namespace tallybrook
