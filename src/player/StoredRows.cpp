#include "player/StoredRows.h"

#include "player/Moment.h"
#include "runtime/TextForms.h"
#include "store/Recordset.h"

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

void write(Recordset& rows, const std::vector<FieldText>& fields) {
    for (const FieldText& one : fields)
        rows[one.field] = one.value ? Value{*one.value} : Value{Null{}};
    rows.Update();
}

}  // namespace

std::vector<std::string> storedRows(Store& store, const std::string& table, const Transcript& transcript) {
    const std::vector<std::string> fields = Store::fieldNames(table);
    std::vector<std::string> written;
    for (const Store::Row& row : store.rows(table))
        written.push_back(rowText(fields, row, transcript));
    return written;
}

void addRow(Store& store, const std::string& table, const std::vector<FieldText>& fields) {
    Recordset rows(store);
    rows.Open("SELECT * FROM " + table);
    rows.AddNew();
    write(rows, fields);
}

void changeRow(Store& store, const std::string& table, const std::string& key,
               const std::vector<FieldText>& fields) {
    const std::vector<std::string> names = Store::fieldNames(table);
    Recordset rows(store);
    rows.Open("SELECT * FROM " + table + (names.empty() ? "" : " WHERE " + names.front() + " = " + key));
    write(rows, fields);
}

}  // namespace tallybrook
