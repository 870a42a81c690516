#include "store/Recordset.h"

#include "runtime/TextCompare.h"
#include "store/FieldValue.h"
#include "store/Snapshot.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

[[noreturn]] void noCurrentRow() {
    throw RunTimeError(error::kNoCurrentRow);
}

}  // namespace

class Recordset::Implementation {
public:
    explicit Implementation(Store& store) : connection_(store.connection()) {}

    void noteWork() const { connection_.noteWork(); }
    void open(const std::string& sql) {
        if (rows_)
            throw RunTimeError(error::kObjectOpen);
        rows_.emplace(connection_, sql);
        nextField_.resize(std::max(nextField_.size(), rows_->fields().size()));
        place_ = {};
        pending_ = Pending::None;
        rowShown();
    }

    void close() {
        requireOpen();
        rows_.reset();
    }

    [[nodiscard]] bool isOpen() const { return rows_.has_value(); }

    [[nodiscard]] int count() {
        const std::size_t size = opened().size();
        return static_cast<int>(size) - (place_.deleted ? 1 : 0);
    }

    [[nodiscard]] bool isAtEnd() {
        requireOpen();
        return pending_ != Pending::New && (settled().where == Where::PastEnd || isEmpty());
    }

    [[nodiscard]] bool isAtBeginning() {
        requireOpen();
        return pending_ != Pending::New && (settled().where == Where::BeforeFirst || isEmpty());
    }

    void moveFirst() {
        leaveForEnd();
        showAt({.where = Where::OnRow, .index = 0});
    }

    void moveLast() {
        leaveForEnd();
        showAt({.where = Where::OnRow, .index = rows_->size() - 1});
    }

    void moveNext() {
        const bool deleted = leaveRow();
        if (settled().where == Where::PastEnd || (isEmpty() && !deleted))
            nowhereToGo();
        std::size_t next = 0;
        if (place_.where == Where::OnRow)
            next = deleted ? place_.index : place_.index + 1;
        showAt(next < rows_->size() ? Place{.where = Where::OnRow, .index = next}
                                    : Place{.where = Where::PastEnd});
    }

    void movePrevious() {
        const bool deleted = leaveRow();
        if (settled().where == Where::BeforeFirst || (isEmpty() && !deleted))
            nowhereToGo();
        const std::size_t behind = place_.where == Where::PastEnd ? rows_->size() : place_.index;
        showAt(behind > 0 ? Place{.where = Where::OnRow, .index = behind - 1}
                          : Place{.where = Where::BeforeFirst});
    }

    [[nodiscard]] Value read(std::string_view name) {
        const std::size_t field = fieldOf(name);
        if (pending_ != Pending::None && written_[field])
            return *written_[field];
        if (pending_ == Pending::New)
            return Null{};
        return currentValue(field);
    }

    [[nodiscard]] Value readAt(int row, std::string_view name) {
        const std::size_t field = fieldOf(name);
        if (row < 0 || static_cast<std::size_t>(row) >= rows_->size())
            throw RunTimeError(error::kSubscriptOutOfRange);
        return rows_->value(static_cast<std::size_t>(row), field);
    }

    void write(std::string_view name, const Value& value) {
        const std::size_t field = fieldOf(name);
        if (pending_ == Pending::None)
            requireRow();
        const Column& column = *rows_->fields()[field];
        requireUpdatable();
        if (&column == &rows_->table().key())
            throw RunTimeError(error::kValueNotTaken);
        Value taken = toFieldValue(value, column.type, connection_.currentYear());
        if (pending_ == Pending::None)
            begin(Pending::Edit);
        written_[field] = std::move(taken);
    }

    void addNew() {
        requireOpen();
        requireUpdatable();
        begin(Pending::New);
        rowShown();
    }

    void update() {
        requireOpen();
        if (pending_ == Pending::New)
            insertRow();
        else if (pending_ == Pending::Edit)
            changeRow();
        else
            requireRow();  // nothing to store
    }

    void cancelUpdate() {
        requireOpen();
        if (std::exchange(pending_, Pending::None) != Pending::None)
            rowShown();
    }

    void deleteRow() {
        requireOpen();
        if (pending_ == Pending::New)
            return cancelUpdate();
        const std::int64_t key = currentKey();
        requireUpdatable();
        connection_.readBeforeChange(rows_->table(), key);
        settled();
        onFile([&] {
            const Table& table = rows_->table();
            StatementUse use(connection_.prepared(
                fmt::format("DELETE FROM {} WHERE {} = ?", table.name, table.key().name)));
            use->bind(1, key);
            use->exec();
        });
        pending_ = Pending::None;
        place_.deleted = true;
    }

    void resync() {
        requireOpen();
        if (pending_ == Pending::New)
            noCurrentRow();
        StoredRow stored{.key = currentKey(), .values = {}};
        if (!readRow(connection_, rows_->table(), rows_->fields(), stored))
            throw RunTimeError(error::kRowGone);
        for (std::size_t field = 0; field < stored.values.size(); ++field)
            rows_->setValue(settled().index, field, std::move(stored.values[field]));
        pending_ = Pending::None;
    }

    std::function<void()> onRowShown;

private:
    enum class Where {
        AtStart,  // on the first row if there is one; not looked at yet
        OnRow,
        LastAdded,  // on the row added last; its index not counted yet
        BeforeFirst,
        PastEnd,
    };
    struct Place {
        Where where = Where::AtStart;
        std::size_t index = 0;
        bool deleted = false;  // the row was deleted, and stays current until the next move
    };
    enum class Pending { None, Edit, New };

    [[nodiscard]] Snapshot& opened() {
        if (!rows_)
            throw RunTimeError(error::kObjectClosed);
        return *rows_;
    }

    void requireOpen() { static_cast<void>(opened()); }

    void requireUpdatable() const {
        if (!rows_->isUpdatable())
            throw RunTimeError(error::kValueNotTaken);
    }

    void rowShown() const {
        if (onRowShown)
            onRowShown();
    }

    [[nodiscard]] bool isEmpty() { return rows_->size() == 0; }

    /// The place with its index counted.
    Place& settled() {
        if (place_.where == Where::AtStart)
            place_ = isEmpty() ? Place{.where = Where::PastEnd} : Place{.where = Where::OnRow};
        else if (place_.where == Where::LastAdded)
            place_ = {.where = Where::OnRow, .index = rows_->size() - 1};
        return place_;
    }

    /// The index of the current row; error 3021 where there is none.
    [[nodiscard]] std::size_t currentIndex() {
        if (settled().where != Where::OnRow || place_.deleted)
            noCurrentRow();
        return place_.index;
    }

    // The row added last is read without counting the others.
    [[nodiscard]] std::int64_t currentKey() {
        return place_.where == Where::LastAdded ? rows_->lastAddedKey() : rows_->key(currentIndex());
    }
    void requireRow() { static_cast<void>(currentKey()); }
    [[nodiscard]] Value currentValue(std::size_t field) {
        return place_.where == Where::LastAdded ? rows_->lastAddedValue(field)
                                                : rows_->value(currentIndex(), field);
    }

    /// Row after row the same fields are asked for in the same order, so the field that followed the last one
    /// before is tried first.
    [[nodiscard]] std::size_t fieldOf(std::string_view name) {
        const auto& fields = opened().fields();
        std::size_t& next = nextField_[lastField_];
        if (next >= fields.size() || fields[next]->name != name)
            next = find(fields, name);
        return lastField_ = next;
    }

    static std::size_t find(const std::vector<const Column*>& fields, std::string_view name) {
        auto found = std::ranges::find(fields, name, &Column::name);  // as it nearly always is written
        if (found == fields.end())
            found = std::ranges::find_if(
                fields, [name](const Column* field) { return compareText(field->name, name) == 0; });
        if (found != fields.end())
            return static_cast<std::size_t>(found - fields.begin());
        throw RunTimeError(error::kUnknownField);
    }

    void begin(Pending pending) {
        pending_ = pending;
        written_.assign(rows_->fields().size(), std::nullopt);
    }

    /// Ends what is pending before a move: an edit is stored, a new row discarded, a deleted row dropped.
    /// Tells whether it was a deleted one.
    bool leaveRow() {
        if (requireOpen(); pending_ == Pending::Edit)
            changeRow();
        pending_ = Pending::None;
        settled();
        return dropDeletedRow();
    }

    /// The same before a move to the first or last row, which needs one.
    void leaveForEnd() {
        leaveRow();
        if (isEmpty()) {
            place_ = {.where = Where::PastEnd};
            nowhereToGo();
        }
    }

    /// Fails a move; what was pending before it is gone all the same.
    [[noreturn]] void nowhereToGo() const {
        rowShown();
        noCurrentRow();
    }

    bool dropDeletedRow() {
        const bool deleted = std::exchange(place_.deleted, false);
        if (deleted)
            rows_->erase(place_.index);
        return deleted;
    }

    void showAt(Place place) {
        place_ = place;
        rowShown();
    }

    /// The fields written, for a statement's list and for its parameters.
    template <typename Each>
    void forEachWritten(Each each) const {
        for (std::size_t i = 0; i < written_.size(); ++i) {
            if (written_[i])
                each(i, *rows_->fields()[i], *written_[i]);
        }
    }

    [[nodiscard]] std::string insertStatement() const {
        std::string sql = "INSERT INTO " + rows_->table().name;
        std::string parameters;
        forEachWritten([&](std::size_t, const Column& column, const Value&) {
            sql.append(parameters.empty() ? " (" : ", ").append(column.name);
            parameters.append(parameters.empty() ? ") VALUES (?" : ", ?");
        });
        return sql + (parameters.empty() ? " DEFAULT VALUES" : parameters + ")");
    }

    [[nodiscard]] std::string updateStatement() const {
        const Table& table = rows_->table();
        std::string sql = "UPDATE " + table.name;
        const char* before = " SET ";
        forEachWritten([&](std::size_t, const Column& column, const Value&) {
            sql.append(std::exchange(before, ", ")).append(column.name).append(" = ?");
        });
        return sql + " WHERE " + table.key().name + " = ?";
    }

    /// Binds the values written; returns the index of the next parameter.
    int bindWritten(SQLite::Statement& statement) const {
        int index = 1;
        forEachWritten(
            [&](std::size_t, const Column&, const Value& value) { bindValue(statement, index++, value); });
        return index;
    }

    void insertRow() {
        sqlite3* const database = connection_.database().getHandle();
        sqlite3_set_last_insert_rowid(database, 0);
        try {
            onFile([&] {
                StatementUse use(connection_.prepared(insertStatement()));
                bindWritten(*use);
                use->exec();
            });
        } catch (const RunTimeError&) {
            // A disk that fails at the very end of a save may have kept it. It must not be stored once more.
            if (const std::int64_t key = sqlite3_last_insert_rowid(database); isInTable(key))
                showInserted(key);
            throw;
        }
        showInserted(sqlite3_last_insert_rowid(database));
    }

    [[nodiscard]] bool isInTable(std::int64_t key) {
        try {
            StoredRow row{.key = key, .values = {}};
            return key != 0 && readRow(connection_, rows_->table(), rows_->fields(), row);
        } catch (const RunTimeError&) {
            return false;
        }
    }

    void showInserted(std::int64_t key) {
        connection_.noteKey(rows_->table(), key);
        pending_ = Pending::None;
        dropDeletedRow();
        rows_->append(key);
        place_ = {.where = Where::LastAdded};
    }

    void changeRow() {
        const std::int64_t key = currentKey();
        connection_.readBeforeChange(rows_->table(), key);
        const int changed = onFile([&] {
            StatementUse use(connection_.prepared(updateStatement()));
            use->bind(bindWritten(*use), key);
            return use->exec();
        });
        if (changed == 0)
            throw RunTimeError(error::kRowGone);
        const bool isLast = place_.where == Where::LastAdded;
        forEachWritten([&](std::size_t field, const Column&, const Value& value) {
            if (isLast)
                rows_->setLastAdded(field, value);
            else
                rows_->setValue(place_.index, field, value);
        });
        pending_ = Pending::None;
    }

    Store::Connection& connection_;
    std::optional<Snapshot> rows_;
    Place place_;
    Pending pending_ = Pending::None;
    std::vector<std::optional<Value>> written_;  // by field, while a row is pending
    std::vector<std::size_t> nextField_;         // by field: the one asked for after it
    std::size_t lastField_ = 0;                  // asked for
};

Value Field::value() const {
    return recordset_.implementation_->read(name_);
}

Field& Field::operator=(const Value& value) {
    recordset_.implementation_->write(name_, value);
    return *this;
}

Recordset::Recordset(Store& store) : implementation_(std::make_unique<Implementation>(store)) {}
Recordset::~Recordset() = default;

void Recordset::Open(const std::string& sql) {
    implementation_->noteWork();
    implementation_->open(sql);
}
void Recordset::Close() {
    implementation_->close();
}
int Recordset::State() const {
    return implementation_->isOpen() ? 1 : 0;
}
int Recordset::RecordCount() const {
    return implementation_->count();
}
bool Recordset::Eof() const {
    return implementation_->isAtEnd();
}
bool Recordset::Bof() const {
    return implementation_->isAtBeginning();
}
Value Recordset::valueAt(int row, std::string_view name) const {
    return implementation_->readAt(row, name);
}
void Recordset::MoveFirst() {
    implementation_->moveFirst();
}
void Recordset::MoveLast() {
    implementation_->moveLast();
}
void Recordset::MoveNext() {
    implementation_->moveNext();
}
void Recordset::MovePrevious() {
    implementation_->movePrevious();
}
void Recordset::AddNew() {
    implementation_->addNew();
}
void Recordset::Update() {
    implementation_->noteWork();
    implementation_->update();
}
void Recordset::CancelUpdate() {
    implementation_->cancelUpdate();
}
void Recordset::Delete() {
    implementation_->deleteRow();
}
void Recordset::Resync() {
    implementation_->resync();
}
void Recordset::onRowShown(std::function<void()> callback) {
    implementation_->onRowShown = std::move(callback);
}

}  // namespace tallybrook
