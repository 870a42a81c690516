#pragma once

#include "runtime/Value.h"
#include "store/Store.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tallybrook {

class OpenRecordset;
class Recordset;

/// One field of a recordset's current row, by name. Short-lived: use it in the statement that asks for it.
class Field {
public:
    /// The value in the current row, or in the row being edited or added. Errors: 3021 with no current row,
    /// 3265 for a name that the recordset does not have, 3704 on a closed recordset.
    [[nodiscard]] Value value() const;
    operator Value() const { return value(); }

    /// Writes into the row's buffer, converting to the field's own type; starts an edit of the current row
    /// unless a row is pending. Errors as value(), and -2147217887 for a value that the field cannot take,
    /// which then keeps what it had.
    Field& operator=(const Value& value);

private:
    friend class Recordset;
    Field(Recordset& recordset, std::string_view name) : recordset_(recordset), name_(name) {}
    Recordset& recordset_;
    std::string_view name_;
};

/// An ordered snapshot of rows with a current row and buffered field values; static, and updatable all the
/// same. Rows are added, changed and deleted only through it.
class Recordset {
public:
    explicit Recordset(Store& store);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// Opens on one SELECT of the subset; the first row is current. Errors: 3705 if open already,
    /// -2147217900, -2147217904, -2147217913 for the statement.
    void Open(const std::string& sql);
    /// Ends the recordset, dropping what is pending; 3704 if it is closed.
    void Close();
    /// 1 when open, 0 when closed.
    [[nodiscard]] int State() const { return open_ ? 1 : 0; }

    /// The number of rows, the ones added through this recordset included.
    [[nodiscard]] int RecordCount() const;
    [[nodiscard]] bool Eof() const;
    [[nodiscard]] bool Bof() const;
    /// The value of a field in any row, counted from 0, as it was opened or last stored; the current row
    /// stays. Errors: 9 where there is no such row, 3265 for an unknown name, 3704 on a closed recordset.
    [[nodiscard]] Value valueAt(int row, std::string_view name) const;
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    [[nodiscard]] Field Fields(std::string_view name) { return {*this, name}; }
    [[nodiscard]] Field operator[](std::string_view name) { return {*this, name}; }

    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();
    void Resync();

    /// Called after an opening, a move, AddNew and CancelUpdate: when what is bound to the current row is to
    /// show it anew.
    void onRowShown(std::function<void()> callback) { rowShown_ = std::move(callback); }

private:
    friend class Field;
    [[nodiscard]] OpenRecordset& opened() const;
    [[nodiscard]] Value read(std::string_view field);
    void write(std::string_view field, const Value& value);

    Store& store_;
    std::function<void()> rowShown_;
    std::unique_ptr<OpenRecordset> open_;  // nothing while it is closed
};

}  // namespace tallybrook
