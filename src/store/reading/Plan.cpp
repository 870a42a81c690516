#include "store/reading/Plan.h"

#include "runtime/TextCompare.h"
#include "store/file/Connection.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

constexpr int kFirstField = 1;  // of a statement's columns, behind the key

}  // namespace

Plan::Plan(Transaction& transaction, Select select)
    : transaction_(transaction), select_(std::move(select)), text_(select_), wanted_(select_.fields.size()) {
    // What rows are ordered by is what they are told apart by, and asked for; and an index has it at hand.
    for (std::size_t field = 0; field < fieldCount(); ++field)
        wanted_[field] = std::ranges::find(select_.orderBy, select_.fields[field]) != select_.orderBy.end();
}

void Plan::want(std::size_t field) {
    if (!wanted_[field])
        narrow_ = {};
    wanted_[field] = true;
}

Plan::Reader Plan::prepare(const std::string& key, const std::vector<bool>& fields,
                           const std::string& rest) const {
    Projection projection;
    projection.places.resize(fields.size());
    std::string list = key;
    for (std::size_t field = 0; field < fields.size(); ++field) {
        if (!fields[field])
            continue;
        projection.places[field] = projection.fields.size();
        projection.fields.push_back(field);
        list += ", " + select_.fields[field]->name;
    }
    return {.projection = std::make_shared<const Projection>(std::move(projection)),
            .statement = Statement(transaction_, "SELECT " + list + rest)};
}

Plan::Reader& Plan::readerOf(bool all) {
    Reader& reader = all ? whole_ : narrow_;
    if (!reader.statement) {
        // Of equal rows SQLite gives the one with the lowest key for its minimum.
        const std::string& key = select_.table->key().name;
        reader = prepare(select_.distinct ? "min(" + key + ")" : key,
                         all ? std::vector<bool>(fieldCount(), true) : wanted_, text_.sql());
    }
    return reader;
}

void Plan::bind(Statement& statement, const Question& question) const {
    int index = 1;
    statement.bind(index, question.lastKey);
    for (const Parameter& parameter : text_.parameters()) {
        const Value& value = question.values[parameter.value];
        if (parameter.form == ParameterForm::Folded)
            statement.bind(++index, foldCase(std::get<std::string>(value)));
        else
            statement.bind(++index, value);
    }
}

Statement Plan::ready(const std::string& what, const Question& question) const {
    Statement statement(transaction_, "SELECT " + what + text_.sql());
    bind(statement, question);
    return statement;
}

std::shared_ptr<const PackedRows> Plan::run(Reader& reader, const Question& question) const {
    Statement::Use use(*reader.statement);
    bind(*use, question);
    auto rows = std::make_shared<PackedRows>(reader.projection);
    while (use->executeStep())
        rows->addRow(*use, kFirstField, select_.fields);
    return rows;
}

std::shared_ptr<const PackedRows> Plan::answeredBefore(const Question& question,
                                                       const Projection& projection) const {
    const auto& [values, lastKey, version, answer] = lastAnswer_;
    if (version != question.version || lastKey != question.lastKey || values != question.values)
        return nullptr;
    std::shared_ptr<const PackedRows> rows = answer.lock();
    return rows && rows->projection().holdsAll(projection) ? rows : nullptr;
}

std::shared_ptr<const PackedRows> Plan::read(const Question& question, bool all) {
    return onFile([&] {
        Reader& reader = readerOf(all || select_.distinct);
        std::shared_ptr<const PackedRows> rows = answeredBefore(question, *reader.projection);
        if (!rows) {
            rows = run(reader, question);
            lastAnswer_ = {question.values, question.lastKey, question.version, rows};
        }
        return rows;
    });
}

std::shared_ptr<const PackedRows> Plan::readRows(const std::vector<std::int64_t>& keys) {
    return onFile([&]() -> std::shared_ptr<const PackedRows> {
        const Table& table = *select_.table;
        if (!single_.statement)
            single_ = prepare(table.key().name, std::vector<bool>(fieldCount(), true),
                              " FROM " + table.name + " WHERE " + table.key().name + " = ?");
        auto rows = std::make_shared<PackedRows>(single_.projection);
        for (const std::int64_t key : keys) {
            Statement::Use use(*single_.statement);
            use->bind(1, key);
            if (!use->executeStep())
                return nullptr;
            rows->addRow(*use, kFirstField, select_.fields);
        }
        return rows;
    });
}

}  // namespace tallybrook
