#include "JetSample.h"

#include "Plain.h"
#include "carry/OldLogbooks.h"
#include "runtime/DateTime.h"

namespace tallybrook::bench {

namespace {

/// The value of a column of the row at hand, as an old logbook has it.
carry::Cell cellOf(const PlainStatement& row, int column, FieldType type) {
    if (row.isNull(column))
        return Null{};
    switch (type) {
        case FieldType::Number16:
        case FieldType::Number32:
            return std::int64_t{row.number(column)};
        case FieldType::Double:
        case FieldType::Date:  // by the statement: days
            return row.real(column);
        case FieldType::Text:
            break;
    }
    return std::string(row.text(column));
}

/// All columns; dates as days since the day that such files count from.
std::string selectFrom(const Table& table) {
    std::string columns;
    for (const Column& column : table.columns) {
        columns += columns.empty() ? "" : ", ";
        columns +=
            column.type == FieldType::Date ? "julianday(" + column.name + ") - 2415018.5" : column.name;
    }
    return "SELECT " + columns + " FROM " + table.name;
}

}  // namespace

void writeJetSample(const std::filesystem::path& logbook, const std::filesystem::path& old) {
    const PlainDatabase database(logbook);
    std::vector<test::JetTableText> texts = test::emptyOldTables();
    for (std::size_t at = 0; at < texts.size(); ++at) {
        const Table& table = tables()[at];
        PlainStatement rows(database, selectFrom(table).c_str());
        while (rows.step()) {
            test::JetRow& row = texts[at].rows.emplace_back();
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                row.cells.push_back(cellOf(rows, static_cast<int>(column), table.columns[column].type));
        }
    }
    test::writeBytes(old, test::jetFile(texts));
}

}  // namespace tallybrook::bench
