#pragma once

#include "runtime/Value.h"
#include "store/sql/Schema.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

enum class Comparator { Equal, GreaterEqual, LessEqual, Greater, Less, Like };

/// One criterion: a column compared with a value of the column's own kind (LIKE: with a text pattern).
struct Criterion {
    const Column* column;
    Comparator comparator;
    Value value;
};

/// A statement of the subset: rows of one table that meet all criteria of any one group, in order.
struct Select {
    const Table* table = nullptr;
    bool distinct = false;
    std::vector<const Column*> fields;
    std::vector<std::vector<Criterion>> anyOf;  // no group: every row
    std::vector<const Column*> orderBy;
};

/// A value as it is written in a statement.
struct Literal {
    enum class Kind { Number, Text, Date };
    Kind kind = Kind::Number;
    std::string text;          // a text without its quotes, a date without its hash marks
    std::size_t position = 0;  // of the text in the statement
};

/// A statement taken apart: statements of one shape differ in nothing but their values.
struct StatementShape {
    std::string text;
    std::vector<Literal> literals;
};

/// Takes a statement apart; error -2147217900 where it does not even consist of words, signs and values.
StatementShape shapeOf(std::string_view sql);

/// What a literal stands for; error -2147217900 for a date that is none.
Value valueOf(const Literal& literal, int currentYear);

/// Understands a statement of the subset. `currentYear` is taken for dates without a year. Errors:
/// -2147217900 for what is not in the subset, -2147217904 for an unknown column, -2147217913 for a value of
/// the wrong kind.
Select parseSelect(const std::string& sql, int currentYear);

}  // namespace tallybrook
