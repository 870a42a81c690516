#include "store/RowStream.h"

#include "store/file/Connection.h"
#include "store/file/StoredValue.h"
#include "store/reading/Reading.h"

namespace tallybrook {

namespace {

std::vector<const Column*> columnsOf(const Table& table, std::initializer_list<std::string_view> names) {
    std::vector<const Column*> columns;
    for (const std::string_view name : names) {
        columns.push_back(table.find(name));
        if (columns.back() == nullptr)
            throw RunTimeError(error::kUnknownField);
    }
    return columns;
}

std::string listOf(const std::vector<const Column*>& columns) {
    std::string list;
    for (const Column* const column : columns)
        list.append(list.empty() ? "" : ", ").append(column->name);
    return list;
}

/// A statement of its own that tells `what` of the rows.
Statement ready(Store& store, const UnderstoodStatement& statement, const std::string& what) {
    return onFile([&] {
        Connection& connection = store.connection();
        return statement.plan->ready(what, {.values = statement.values,
                                            .lastKey = connection.highestKey(*statement.plan->select().table),
                                            .version = connection.version()});
    });
}

}  // namespace

RowStream::RowStream(Store& store, const std::string& sql, std::initializer_list<std::string_view> fields)
    : RowStream(store, store.reading().understand(sql), fields) {}

RowStream::RowStream(Store& store, const UnderstoodStatement& statement,
                     std::initializer_list<std::string_view> fields)
    : fields_(columnsOf(*statement.plan->select().table, fields)),
      statement_(ready(store, statement, listOf(fields_))) {}

bool RowStream::next() {
    return onFile([this] { return statement_.executeStep(); });
}

Value RowStream::operator[](std::size_t field) const {
    return valueIn(statement_.column(static_cast<int>(field)), fields_[field]->type);
}

int countRows(Store& store, const std::string& sql) {
    Statement count = ready(store, store.reading().understand(sql), "count(*)");
    return onFile([&] {
        count.executeStep();
        return static_cast<int>(count.number(0));
    });
}

}  // namespace tallybrook
