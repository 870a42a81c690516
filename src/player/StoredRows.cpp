#include "player/StoredRows.h"

#include "player/Moment.h"
#include "runtime/TextForms.h"

#include <variant>

#include <fmt/format.h>

namespace tallybrook {

namespace {

struct ValueText {
    const Transcript& transcript;

    std::string operator()(Null) const { return "null"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return doubleText(number); }
    std::string operator()(const std::string& text) const { return transcript.text(text); }
    std::string operator()(DateTime when) const { return plainDate(when); }
};

std::string rowText(const std::vector<std::string>& fields, const Store::Row& row,
                    const Transcript& transcript) {
    std::string written;
    for (std::size_t at = 0; at < fields.size(); ++at) {
        written += fmt::format("{}{}={}", at == 0 ? "" : " ", fields[at],
                               std::visit(ValueText{transcript}, row.values.at(at)));
    }
    return written;
}

}  // namespace

std::vector<std::string> storedRows(Store& store, const std::string& table, const Transcript& transcript) {
    const std::vector<std::string> fields = Store::fieldNames(table);
    std::vector<std::string> written;
    for (const Store::Row& row : store.rows(table))
        written.push_back(rowText(fields, row, transcript));
    return written;
}

}  // namespace tallybrook
