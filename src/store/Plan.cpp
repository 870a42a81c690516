#include "store/Plan.h"

#include "runtime/TextCompare.h"
#include "store/Connection.h"
#include "store/Query.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// A statement for SQLite but for its list of fields, with one parameter for the last key and others for the
/// values of the criteria.
class Compiled {
public:
    explicit Compiled(const Select& select) : select_(select) {
        sql_ = " FROM " + select.table->name + " WHERE " + condition() + ending();
    }

    [[nodiscard]] const std::string& sql() const { return sql_; }
    [[nodiscard]] const std::vector<Plan::Parameter>& parameters() const { return parameters_; }

private:
    [[nodiscard]] std::string key() const { return select_.table->key().name; }

    std::string condition() {
        // The plus keeps SQLite from walking the keys where an index would serve better.
        std::string all = "+" + key() + " <= ?";
        std::string any;
        for (const auto& group : select_.anyOf) {
            any += any.empty() ? "(" : " OR (";
            for (std::size_t i = 0; i < group.size(); ++i, ++value_)
                any += (i == 0 ? "" : " AND ") + compared(group[i]);
            any += ")";
        }
        return any.empty() ? all : all + " AND (" + any + ")";
    }

    /// Rows whose value is of another kind than the column are no hit: SQLite would order them by kind.
    std::string compared(const Criterion& criterion) {
        const std::string& column = criterion.column->name;
        if (criterion.column->isLookedUp && criterion.comparator == Comparator::Equal)
            return lookedUp(criterion);
        addParameter(Plan::Form::AsIs);
        if (criterion.comparator == Comparator::Like)
            return fmt::format("tbk_like({}, ?, {})", column, static_cast<int>(criterion.column->type));
        const std::string_view sign = signOf(criterion.comparator);
        switch (criterion.column->type) {
            case FieldType::Text:
                return fmt::format("tbk_compare({}, ?) {} 0", column, sign);
            case FieldType::Date:
                // Counted through, a day that does not exist becomes another one.
                return fmt::format("({0} {1} ? AND date({0}, '+0 days') = {0})", column, sign);
            default:
                return fmt::format("({0} {1} ? AND typeof({0}) IN ('integer', 'real'))", column, sign);
        }
    }

    /// Equality without case by way of the indexes. A plain ASCII value can only equal a text that folds to
    /// plain ASCII, and NOCASE compares the two; every other value is in the second index.
    std::string lookedUp(const Criterion& criterion) {
        addParameter(Plan::Form::Folded);
        addParameter(Plan::Form::AsIs);
        return fmt::format(
            "{0} IN (SELECT {0} FROM {1} WHERE {2} = ? COLLATE NOCASE"
            " UNION ALL SELECT {0} FROM {1} WHERE {3} AND tbk_compare({2}, ?) = 0)",
            key(), select_.table->name, criterion.column->name, isBeyondNocase(*criterion.column));
    }

    static std::string_view signOf(Comparator comparator) {
        switch (comparator) {
            case Comparator::GreaterEqual:
                return ">=";
            case Comparator::LessEqual:
                return "<=";
            case Comparator::Greater:
                return ">";
            case Comparator::Less:
                return "<";
            default:
                return "=";
        }
    }

    [[nodiscard]] std::string ending() const {
        std::string order;
        const auto append = [&](const Column& column) {
            order += column.name + (column.type == FieldType::Text ? " COLLATE tbk, " : ", ");
        };
        for (const Column* column : select_.orderBy)
            append(*column);
        if (!select_.distinct)
            return " ORDER BY " + order + key();
        std::string group;
        for (const Column* field : select_.fields) {
            append(*field);
            group += (group.empty() ? "" : ", ") + field->name +
                     (field->type == FieldType::Text ? " COLLATE tbk" : "");
        }
        return " GROUP BY " + group + " ORDER BY " + order + "1";
    }

    void addParameter(Plan::Form form) { parameters_.push_back({value_, form}); }

    const Select& select_;
    std::string sql_;
    std::vector<Plan::Parameter> parameters_;
    std::size_t value_ = 0;  // the index of the criterion at hand
};

}  // namespace

void ReadRows::erase(std::size_t row) {
    const std::size_t width = projection->fields.size();
    keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(row));
    const auto first = values.begin() + static_cast<std::ptrdiff_t>(row * width);
    values.erase(first, first + static_cast<std::ptrdiff_t>(width));
}

Plan::Plan(SQLite::Database& database, Select select)
    : database_(database), select_(std::move(select)), wanted_(select_.fields.size()) {
    const Compiled compiled(select_);
    source_ = compiled.sql();
    parameters_ = compiled.parameters();
}

Plan::Reader Plan::prepare(const std::vector<bool>& fields) const {
    Projection projection;
    projection.places.resize(fields.size());
    // Of equal rows SQLite gives the one with the lowest key for its minimum.
    const std::string& key = select_.table->key().name;
    std::string list = select_.distinct ? "min(" + key + ")" : key;
    for (std::size_t field = 0; field < fields.size(); ++field) {
        if (!fields[field])
            continue;
        projection.places[field] = projection.fields.size();
        projection.fields.push_back(field);
        list += ", " + select_.fields[field]->name;
    }
    return {.fields = fields,
            .projection = std::make_shared<const Projection>(std::move(projection)),
            .statement = std::make_unique<SQLite::Statement>(database_, "SELECT " + list + source_)};
}

Plan::Reader& Plan::readerOf(bool all) {
    Reader& reader = all ? whole_ : narrow_;
    const std::vector<bool> fields = all ? std::vector<bool>(fieldCount(), true) : wanted_;
    if (!reader.statement || reader.fields != fields)
        reader = prepare(fields);
    return reader;
}

void Plan::bind(SQLite::Statement& statement, const Question& question) const {
    int index = 1;
    statement.bind(index, question.lastKey);
    for (const Parameter& parameter : parameters_) {
        const Value& value = question.values[parameter.value];
        if (parameter.form == Form::Folded)
            statement.bind(++index, foldCase(std::get<std::string>(value)));
        else
            bindValue(statement, ++index, value);
    }
}

ReadRows Plan::run(Reader& reader, const Question& question) {
    StatementUse use(*reader.statement);
    bind(*use, question);
    ReadRows rows{.projection = reader.projection, .keys = {}, .values = {}};
    while (use->executeStep()) {
        rows.keys.push_back(use->getColumn(0).getInt64());
        int index = 0;
        for (const std::size_t field : reader.projection->fields)
            rows.values.push_back(columnValue(*use, ++index, select_.fields[field]->type));
    }
    return rows;
}

ReadRows Plan::read(const Question& question, bool all) {
    return onFile([&] {
        Reader& reader = readerOf(all || select_.distinct);
        if (lastAnswer_ && lastAnswer_->projection == reader.projection && lastQuestion_ == question)
            return *lastAnswer_;
        ReadRows rows = run(reader, question);
        lastAnswer_.reset();
        if (rows.size() <= 1) {
            lastQuestion_ = question;
            lastAnswer_ = rows;
        }
        return rows;
    });
}

}  // namespace tallybrook
