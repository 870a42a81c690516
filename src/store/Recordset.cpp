#include "store/Recordset.h"

#include "store/recordset/OpenRecordset.h"

namespace tallybrook {

Value Field::value() const {
    return recordset_.read(name_);
}

Field& Field::operator=(const Value& value) {
    recordset_.write(name_, value);
    return *this;
}

Recordset::Recordset(Store& store) : store_(store) {}
Recordset::~Recordset() = default;

OpenRecordset& Recordset::opened() const {
    if (!open_)
        throw RunTimeError(error::kObjectClosed);
    return *open_;
}

Value Recordset::read(std::string_view field) {
    OpenRecordset& open = opened();
    return open.read(open.fieldCalled(field));
}

void Recordset::write(std::string_view field, const Value& value) {
    OpenRecordset& open = opened();
    open.write(open.fieldCalled(field), value);
}

void Recordset::Open(const std::string& sql) {
    store_.noteWork();
    if (open_)
        throw RunTimeError(error::kObjectOpen);
    open_ = std::make_unique<OpenRecordset>(store_.reading(), rowShown_, sql);
    open_->showRow();
}

void Recordset::Close() {
    static_cast<void>(opened());
    open_.reset();
}

int Recordset::RecordCount() const {
    return opened().count();
}

bool Recordset::Eof() const {
    return opened().isAtEnd();
}

bool Recordset::Bof() const {
    return opened().isAtBeginning();
}

Value Recordset::valueAt(int row, std::string_view name) const {
    OpenRecordset& open = opened();
    return open.readAt(row, open.fieldCalled(name));
}

void Recordset::MoveFirst() {
    opened().moveFirst();
}

void Recordset::MoveLast() {
    opened().moveLast();
}

void Recordset::MoveNext() {
    opened().moveNext();
}

void Recordset::MovePrevious() {
    opened().movePrevious();
}

void Recordset::AddNew() {
    opened().addNew();
}

void Recordset::Update() {
    store_.noteWork();
    opened().update();
}

void Recordset::CancelUpdate() {
    opened().cancelUpdate();
}

void Recordset::Delete() {
    opened().deleteRow();
}

void Recordset::Resync() {
    opened().resync();
}

}  // namespace tallybrook
