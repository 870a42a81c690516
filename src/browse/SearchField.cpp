#include "browse/SearchField.h"

#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

struct Operator {
    std::string_view words;
    std::string_view sql;
};

constexpr std::array<Operator, 12> kOperators{{
    {"is equal to", "="},
    {"is", "="},
    {"is on", "="},
    {"is on or before", "<="},
    {"is less or equal to", "<="},
    {"is on or after", ">="},
    {"is greater or equal to", ">="},
    {"is less than", "<"},
    {"is before", "<"},
    {"is after", ">"},
    {"is greater than", ">"},
    {"contains", "LIKE"},
}};

}  // namespace

std::vector<std::string> operatorWords(FieldKind kind) {
    switch (kind) {
        case FieldKind::Date:
            return {"is on", "is on or before", "is on or after", "is before", "is after"};
        case FieldKind::Number:
            return {"is equal to", "is less or equal to", "is greater or equal to", "is less than",
                    "is greater than"};
        case FieldKind::Text:
            return {"is", "contains"};
        case FieldKind::FreeText:
            return {"contains"};
        case FieldKind::EventType:
        case FieldKind::LanePair:
            break;
    }
    return {"is"};
}

std::string sqlOperator(std::string_view words) {
    const auto* const found = std::ranges::find(kOperators, words, &Operator::words);
    return found == kOperators.end() ? std::string{} : std::string(found->sql);
}

}  // namespace tallybrook
