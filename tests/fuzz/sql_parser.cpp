// Whatever the text, the parser of the statements either refuses it with one of its own errors, or has taken
// one SELECT of the subset: nothing but the words, signs and values of the subset stands in the text, and
// what the parser has understood, written down again, means the same.

#include "runtime/Ascii.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"
#include "store/sql/Sql.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

using namespace tallybrook;

namespace {

constexpr int kYear = 2026;

void require(bool holds, const char* what, std::string_view sql) {
    if (holds)
        return;
    std::cerr << what << ": " << sql << '\n';
    std::abort();
}

/// What the parser makes of a text; nothing where it refuses it.
std::optional<Select> parsed(const std::string& sql) {
    try {
        return parseSelect(sql, kYear);
    } catch (const RunTimeError& failure) {
        const int number = failure.number();
        require(number == error::kStatementNotUnderstood || number == error::kUnknownColumn ||
                    number == error::kCriteriaOfWrongType || number == error::kOverflow,
                "an error of its own was expected", sql);
        return std::nullopt;
    }
}

/// The text without its quoted texts and its dates.
std::string withoutLiterals(std::string_view sql) {
    std::string rest;
    for (std::size_t at = 0; at < sql.size(); ++at) {
        const char c = sql[at];
        if (c == '\'' || c == '#')
            at = std::min(sql.find(c, at + 1), sql.size());
        else
            rest += c;
    }
    return rest;
}

bool isOfTheSubset(char c) {
    return isLetter(c) || isDigit(c) ||
           std::string_view("_ \t\r\n*.,=<>+-").find(c) != std::string_view::npos;
}

std::string written(const Value& value) {
    if (const auto* const number = std::get_if<double>(&value))
        return plainDecimal(*number);
    if (const auto* const date = std::get_if<DateTime>(&value))
        return "#" + shortDate(*date) + "#";
    std::string text = "'";
    for (const char c : std::get<std::string>(value))
        text += c == '\'' ? "''" : std::string(1, c);
    return text + "'";
}

std::string written(const Criterion& criterion) {
    static constexpr std::string_view kSigns[] = {" = ", " >= ", " <= ", " > ", " < ", " LIKE "};
    return criterion.column->name + std::string(kSigns[static_cast<std::size_t>(criterion.comparator)]) +
           written(criterion.value);
}

std::string names(const std::vector<const Column*>& columns) {
    std::string text;
    for (const Column* column : columns)
        text += (text.empty() ? "" : ",") + column->name;
    return text;
}

/// The statement written down.
std::string written(const Select& select) {
    std::string sql = std::string("SELECT ") + (select.distinct ? "DISTINCT " : "") + names(select.fields) +
                      " FROM " + select.table->name;
    for (const auto& group : select.anyOf) {
        sql += &group == &select.anyOf.front() ? " WHERE " : " OR ";
        for (const Criterion& criterion : group)
            sql += (&criterion == &group.front() ? "" : " AND ") + written(criterion);
    }
    return sql + (select.orderBy.empty() ? "" : " ORDER BY " + names(select.orderBy));
}

bool isComplete(const Select& select) {
    return select.table != nullptr && !select.fields.empty() && select.orderBy.size() <= 2 &&
           std::ranges::none_of(select.anyOf, [](const auto& group) { return group.empty(); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string sql(reinterpret_cast<const char*>(data), size);
    const std::optional<Select> select = parsed(sql);
    if (!select)
        return 0;
    require(isComplete(*select), "the statement is not complete", sql);
    require(std::ranges::all_of(withoutLiterals(sql), isOfTheSubset), "the text holds more", sql);
    const std::string plainly = written(*select);
    const std::optional<Select> again = parsed(plainly);
    require(again.has_value(), "what was understood is refused", plainly);
    require(written(*again) == plainly, "what was understood means something else", plainly);
    return 0;
}
