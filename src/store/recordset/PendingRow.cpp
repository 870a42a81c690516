#include "store/recordset/PendingRow.h"

namespace tallybrook {

void PendingRow::begin(Kind kind) {
    written_.assign(fields_.size(), std::nullopt);
    kind_ = kind;
}

/// For a statement's list and for its parameters.
template <typename Each>
void PendingRow::forEachWritten(Each each) const {
    for (std::size_t field = 0; field < written_.size(); ++field) {
        if (written_[field])
            each(fields_[field]->name, *written_[field]);
    }
}

std::string PendingRow::insertStatement() const {
    std::string sql = "INSERT INTO " + table_.name;
    std::string parameters;
    forEachWritten([&](const std::string& name, const Value&) {
        sql.append(parameters.empty() ? " (" : ", ").append(name);
        parameters.append(parameters.empty() ? ") VALUES (?" : ", ?");
    });
    return sql + (parameters.empty() ? " DEFAULT VALUES" : parameters + ")");
}

std::string PendingRow::updateStatement() const {
    std::string sql = "UPDATE " + table_.name;
    const char* before = " SET ";
    forEachWritten([&](const std::string& name, const Value&) {
        sql.append(std::exchange(before, ", ")).append(name).append(" = ?");
    });
    return sql + " WHERE " + table_.key().name + " = ?";
}

/// Binds the values written; returns the index of the next parameter.
int PendingRow::bindTo(Statement& statement) const {
    int index = 1;
    forEachWritten([&](const std::string&, const Value& value) { statement.bind(index++, value); });
    return index;
}

void PendingRow::insert(Connection& connection) const {
    onFile([&] {
        Statement::Use use(connection.prepared(insertStatement()));
        bindTo(*use);
        use->exec();
    });
}

void PendingRow::change(Connection& connection, std::int64_t key) const {
    const int changed = onFile([&] {
        Statement::Use use(connection.prepared(updateStatement()));
        use->bind(bindTo(*use), key);
        return use->exec();
    });
    if (changed == 0)
        throw RunTimeError(error::kRowGone);
}

}  // namespace tallybrook
