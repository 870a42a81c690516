#include "store/RowInsert.h"

#include "store/file/Connection.h"
#include "store/reading/Reading.h"
#include "store/sql/FieldValue.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

std::string insertInto(std::string_view table, const std::vector<std::string_view>& fields) {
    std::string columns;
    std::string parameters;
    for (const std::string_view field : fields) {
        columns.append(columns.empty() ? "" : ", ").append(field);
        parameters.append(parameters.empty() ? "?" : ", ?");
    }
    return fmt::format("INSERT INTO {} ({}) VALUES ({})", table, columns, parameters);
}

}  // namespace

RowInsert::RowInsert(Store& store, std::string_view table, const std::vector<std::string_view>& fields)
    : store_(store), table_(*findTable(table)), sql_(insertInto(table, fields)) {
    for (const std::string_view field : fields)
        fields_.push_back(table_.find(field));
}

std::int64_t RowInsert::insert(std::initializer_list<const Value*> values) {
    store_.noteWork();
    Connection& connection = store_.connection();
    return onFile([&] {
        Statement::Use row(connection.prepared(sql_));
        const int year = store_.reading().currentYear();
        int parameter = 0;
        for (const Value* const value : values) {
            const FieldType type = fields_[static_cast<std::size_t>(parameter++)]->type;
            if (const auto* const text = std::get_if<std::string>(value);
                text != nullptr && type == FieldType::Text)
                row->bindWithoutCopy(parameter, *text);
            else
                row->bind(parameter, toFieldValue(*value, type, year));
        }
        connection.forgetKey(table_);  // until the row is there
        row->exec();
        const std::int64_t key = sqlite3_last_insert_rowid(connection.database().getHandle());
        connection.noteKey(table_, key);
        return key;
    });
}

}  // namespace tallybrook
