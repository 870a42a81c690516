#pragma once

#include "runtime/Value.h"
#include "store/reading/Reading.h"
#include "store/recordset/Cursor.h"
#include "store/recordset/PendingRow.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

/// What a Recordset is while it is open: the rows, where it stands among them, and what is written but not
/// stored. Functions and errors are those of Recordset; fields go by their indexes.
class OpenRecordset {
public:
    /// `rowShown` is called, where it is one, as Recordset::onRowShown() says. All must outlive this.
    OpenRecordset(Reading& reading, const std::function<void()>& rowShown, const std::string& sql);

    /// The index of a field by its name, without case. Error 3265 where there is none.
    [[nodiscard]] std::size_t fieldCalled(std::string_view name) const;
    [[nodiscard]] int count() { return static_cast<int>(cursor_.count()); }
    [[nodiscard]] bool isAtEnd() { return !isNew() && cursor_.isPastEnd(); }
    [[nodiscard]] bool isAtBeginning() { return !isNew() && cursor_.isBeforeFirst(); }

    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();

    [[nodiscard]] Value read(std::size_t field);
    [[nodiscard]] Value readAt(int row, std::size_t field);
    void write(std::size_t field, const Value& value);

    void addNew();
    void update();
    void cancelUpdate();
    void deleteRow();
    void resync();

    void showRow() const;

private:
    [[nodiscard]] const std::vector<const Column*>& fields() const { return rows_.fields(); }
    [[nodiscard]] bool isNew() const { return pending_.kind() == PendingRow::Kind::New; }
    void requireRow() { static_cast<void>(cursor_.key()); }
    void requireUpdatable() const;
    void endPending();
    void showRowAfter(bool move) const;
    void insertRow();
    [[nodiscard]] bool isStored(std::int64_t key);
    void showInserted(std::int64_t key);
    void changeRow();

    Reading& reading_;
    const std::function<void()>& rowShown_;
    Snapshot rows_;
    Cursor cursor_;
    PendingRow pending_;
};

}  // namespace tallybrook
