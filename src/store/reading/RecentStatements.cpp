#include "store/reading/RecentStatements.h"

#include "runtime/Ascii.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

bool isPlainNumber(const Literal& literal) {
    return literal.kind == Literal::Kind::Number && std::ranges::all_of(literal.text, isDigit);
}

}  // namespace

std::optional<UnderstoodStatement> RecentStatements::find(std::string_view sql) const {
    std::vector<Value> values;
    for (const Recent& recent : statements_) {
        values.clear();
        if (recent.plan && recent.reads(sql, values))
            return UnderstoodStatement{.plan = recent.plan, .values = std::move(values)};
    }
    return std::nullopt;
}

void RecentStatements::keep(const std::string& sql, const std::vector<Literal>& literals,
                            const UnderstoodStatement& statement) {
    if (!std::ranges::all_of(literals, isPlainNumber))
        return;
    Recent recent{.parts = {}, .plan = statement.plan};
    std::size_t end = 0;
    for (const Literal& literal : literals) {
        recent.parts.push_back(sql.substr(end, literal.position - end));
        end = literal.position + literal.text.size();
    }
    recent.parts.push_back(sql.substr(end));
    statements_[std::exchange(next_, (next_ + 1) % statements_.size())] = std::move(recent);
}

/// Between the same parts, digits are a number as they were before: what follows a number is never a digit, a
/// point or a letter.
bool RecentStatements::Recent::reads(std::string_view sql, std::vector<Value>& values) const {
    for (std::size_t part = 0;; ++part) {
        if (!sql.starts_with(parts[part]))
            return false;
        sql.remove_prefix(parts[part].size());
        if (part + 1 == parts.size())
            return sql.empty();
        const auto digits = static_cast<std::size_t>(std::ranges::find_if_not(sql, isDigit) - sql.begin());
        if (digits == 0)
            return false;
        values.emplace_back(leadingNumber(sql.substr(0, digits)));
        sql.remove_prefix(digits);
    }
}

}  // namespace tallybrook
