#include "store/sql/SelectText.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

std::string_view signOf(Comparator comparator) {
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

}  // namespace

std::string ordering(const Column& column) {
    return column.name + (column.type == FieldType::Text ? " COLLATE tbk" : "");
}

SelectText::SelectText(const Select& select) : select_(select) {
    sql_ = " FROM " + select.table->name + " WHERE " + condition() + ending();
}

std::string SelectText::condition() {
    std::string any;
    for (const auto& group : select_.anyOf) {
        any += any.empty() ? "(" : " OR (";
        for (std::size_t i = 0; i < group.size(); ++i, ++value_)
            any += (i == 0 ? "" : " AND ") + compared(group[i]);
        any += ")";
    }
    // The plus keeps SQLite from walking the keys where an index would serve better.
    const std::string all = "+" + select_.table->key().name + " <= ?";
    return any.empty() ? all : all + " AND (" + any + ")";
}

/// Rows whose value is of another kind than the column are no hit: SQLite would order them by kind.
std::string SelectText::compared(const Criterion& criterion) {
    const std::string& column = criterion.column->name;
    if (criterion.column->isLookedUp && criterion.comparator == Comparator::Equal)
        return lookedUp(criterion);
    addParameter(ParameterForm::AsIs);
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

/// Equality without case by way of the indexes. A plain ASCII value can only equal a text that folds to plain
/// ASCII, and NOCASE compares the two; every other value is in the second index.
std::string SelectText::lookedUp(const Criterion& criterion) {
    addParameter(ParameterForm::Folded);
    addParameter(ParameterForm::AsIs);
    return fmt::format(
        "{0} IN (SELECT {0} FROM {1} WHERE {2} = ? COLLATE NOCASE"
        " UNION ALL SELECT {0} FROM {1} WHERE {3} AND tbk_compare({2}, ?) = 0)",
        select_.table->key().name, select_.table->name, criterion.column->name,
        isBeyondNocase(*criterion.column));
}

std::string SelectText::ending() const {
    std::string order;
    for (const Column* column : select_.orderBy)
        order += ordering(*column) + ", ";
    if (!select_.distinct)
        return " ORDER BY " + order + select_.table->key().name;
    std::string group;
    for (const Column* field : select_.fields) {
        order += ordering(*field) + ", ";
        group += (group.empty() ? "" : ", ") + ordering(*field);
    }
    return " GROUP BY " + group + " ORDER BY " + order + "1";
}

}  // namespace tallybrook
