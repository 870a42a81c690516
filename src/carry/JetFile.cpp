#include "carry/JetFile.h"

#include "carry/JetBytes.h"
#include "carry/JetHeader.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <glib.h>  // first, since the next one does not name what it needs of it
#include <mdbtools.h>

namespace tallybrook::carry {

namespace {

// What stands with a row's place on its page.
constexpr unsigned kDeleted = 0x8000;
constexpr unsigned kMoved = 0x4000;  // there is the place where it has gone
constexpr unsigned kPlace = 0x1FFF;

constexpr unsigned char kDataPage = 1;
constexpr std::size_t kOwnerAt = 4;
constexpr std::size_t kRowsAt = 12;
constexpr std::size_t placeOfRow(std::size_t row) {
    return kRowsAt + 2 * (row + 1);
}
constexpr std::string_view kLongValues = "LVAL";  // the owner of pages with long values

// What stands with the length of a long value.
constexpr std::uint32_t kInline = 0x80000000;
constexpr std::uint32_t kInOneRow = 0x40000000;
constexpr std::uint32_t kLength = 0x3FFFFFFF;
constexpr std::size_t kLongHead = 12;

constexpr std::uint32_t kCatalogPage = 2;
constexpr std::uint32_t kPageOfId = 0xFFFFFF;
constexpr std::int64_t kLocalTable = 1;
constexpr std::int64_t kLinkedOdbc = 4;
constexpr std::int64_t kLinkedTable = 6;
constexpr std::uint32_t kSystemFlags = 0x80000002;

std::string_view pageIn(const void* buffer) {
    return {static_cast<const char*>(buffer), kPageSize};
}

struct CloseFile {
    void operator()(MdbHandle* handle) const { mdb_close(handle); }
};
struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};

bool isLong(JetType type) {
    return type == JetType::Memo || type == JetType::Object;
}

}  // namespace

/// Where a row lies on its page.
struct JetTable::Place {
    std::size_t start = 0;
    std::size_t size = 0;
    bool isMoved = false;
    bool isDeleted = false;
};

struct JetFile::Library {
    std::unique_ptr<MdbHandle, CloseFile> handle;
    std::uint64_t size = 0;

    /// Reads the data page of a row besides the page at hand; nothing where there is no such row.
    [[nodiscard]] std::optional<JetTable::Place> placeOf(std::uint32_t pointer) const {
        constexpr std::uint32_t kRowsOfPage = 256;
        void* buffer = nullptr;
        int start = 0;
        std::size_t length = 0;
        if (pointer / kRowsOfPage >= size / kPageSize ||
            mdb_find_pg_row(handle.get(), static_cast<int>(pointer), &buffer, &start, &length) != 0 ||
            handle->alt_pg_buf[0] != kDataPage)
            return std::nullopt;
        const auto flags =
            numberAt<std::uint16_t>(pageIn(handle->alt_pg_buf), placeOfRow(pointer % kRowsOfPage));
        return JetTable::Place{.start = flags & kPlace,
                               .size = length,
                               .isMoved = (flags & kMoved) != 0,
                               .isDeleted = (flags & kDeleted) != 0};
    }

    /// The bytes of a row of long values; nothing where there is none.
    [[nodiscard]] std::optional<std::string> longRow(std::uint32_t pointer) const {
        const std::optional<JetTable::Place> place = placeOf(pointer);
        const std::string_view page = pageIn(handle->alt_pg_buf);
        if (!place || place->isDeleted || page.substr(kOwnerAt, kLongValues.size()) != kLongValues)
            return std::nullopt;
        return std::string(page.substr(place->start, place->size));
    }

    /// A value that goes on from row to row; nothing where one of them is missing.
    [[nodiscard]] std::optional<std::string> chainedValue(std::uint32_t pointer, std::size_t length) const {
        std::string value;
        while (value.size() < length) {
            const std::optional<std::string> row = longRow(pointer);
            if (!row || row->size() <= sizeof pointer)
                return std::nullopt;
            pointer = numberAt<std::uint32_t>(*row, 0);
            value.append(*row, sizeof pointer);
        }
        return value;
    }

    /// The bytes of a long value, from what stands in its row; nothing where they are damaged.
    [[nodiscard]] std::optional<std::string> longValue(std::string_view field) const {
        const auto head = numberAt<std::uint32_t>(field, 0);
        const std::size_t length = head & kLength;
        if (field.size() < kLongHead || length > size)
            return std::nullopt;
        const auto pointer = numberAt<std::uint32_t>(field, sizeof head);
        std::optional<std::string> value;
        if ((head & kInline) != 0)
            value = std::string(field.substr(kLongHead));
        else
            value = (head & kInOneRow) != 0 ? longRow(pointer) : chainedValue(pointer, length);
        if (!value || value->size() < length)
            return std::nullopt;
        value->resize(length);
        return value;
    }
};

struct JetTable::Description {
    MdbCatalogEntry entry{};
    std::unique_ptr<MdbTableDef, FreeTable> table;
    std::vector<MdbField> fields;
};

JetFile::JetFile(const std::string& path, std::uint64_t size) : library_(std::make_unique<Library>()) {
    library_->handle.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
    library_->size = size;
    if (!library_->handle)
        throw JetDamaged("its first page is damaged");
}

JetFile::~JetFile() = default;

namespace {

/// The cells of a row of the catalog by their columns' names.
class CatalogRow {
public:
    CatalogRow(const std::vector<JetColumn>& columns, const std::vector<Cell>& cells)
        : columns_(columns), cells_(cells) {}

    [[nodiscard]] std::int64_t number(std::string_view column) const {
        const auto* const number = std::get_if<std::int64_t>(&cell(column));
        return number != nullptr ? *number : 0;
    }
    [[nodiscard]] std::string text(std::string_view column) const {
        const auto* const text = std::get_if<std::string>(&cell(column));
        return text != nullptr ? *text : std::string();
    }

private:
    [[nodiscard]] const Cell& cell(std::string_view column) const {
        static const Cell kNone = Null{};
        const auto found = std::ranges::find(columns_, column, &JetColumn::name);
        return found == columns_.end() ? kNone : cells_[static_cast<std::size_t>(found - columns_.begin())];
    }

    const std::vector<JetColumn>& columns_;
    const std::vector<Cell>& cells_;
};

bool isMadeByPeople(const CatalogRow& row) {
    const std::string name = row.text("Name");
    return (static_cast<std::uint32_t>(row.number("Flags")) & kSystemFlags) == 0 &&
           !name.starts_with("MSys") && !name.starts_with('~');
}

std::optional<JetEntry> entryIn(const CatalogRow& row) {
    const std::int64_t type = row.number("Type");
    const bool isLinked = type == kLinkedTable || type == kLinkedOdbc;
    if ((type != kLocalTable && !isLinked) || !isMadeByPeople(row))
        return std::nullopt;
    return JetEntry{.name = row.text("Name"),
                    .page = static_cast<std::uint32_t>(row.number("Id")) & kPageOfId,
                    .isLinked = isLinked,
                    .database = row.text("Database")};
}

}  // namespace

std::vector<JetEntry> JetFile::tables() {
    JetTable catalog(*this, {.name = "MSysObjects", .page = kCatalogPage});
    std::vector<JetEntry> entries;
    while (const auto cells = catalog.next()) {
        if (std::optional<JetEntry> entry = entryIn({catalog.columns(), *cells}))
            entries.push_back(std::move(*entry));
    }
    return entries;
}

JetTable::JetTable(JetFile& file, const JetEntry& entry)
    : file_(file), description_(std::make_unique<Description>()) {
    MdbCatalogEntry& known = description_->entry;
    known.mdb = file.library_->handle.get();
    known.object_type = MDB_TABLE;
    known.table_pg = entry.page;
    entry.name.copy(known.object_name, MDB_MAX_OBJ_NAME);
    if (entry.page < file.library_->size / kPageSize)
        description_->table.reset(mdb_read_table(&known));
    if (!description_->table || mdb_read_columns(description_->table.get()) == nullptr)
        throw JetDamaged("the description of a table is damaged");
    const GPtrArray* const columns = description_->table->columns;
    for (unsigned at = 0; at < columns->len; ++at) {
        const auto* const column = static_cast<const MdbColumn*>(columns->pdata[at]);
        columns_.push_back({column->name, static_cast<JetType>(column->col_type), column->col_scale});
    }
    description_->fields.resize(columns_.size());
}

JetTable::~JetTable() = default;

std::int64_t JetTable::toldRows() const {
    return description_->table->num_rows;
}

bool JetTable::goToNextPage() {
    if (mdb_read_next_dpg(description_->table.get()) == 0)
        return false;
    row_ = 0;
    rowsOnPage_ = numberAt<std::uint16_t>(pageIn(file_.library_->handle->pg_buf), kRowsAt);
    return true;
}

std::optional<std::vector<Cell>> JetTable::next() {
    while (row_ < rowsOnPage_ || goToNextPage()) {
        while (row_ < rowsOnPage_) {
            if (std::optional<Row> row = rowAt(row_++))
                return row;
        }
    }
    return std::nullopt;
}

/// A row of the page at hand; nothing where it is deleted or lost.
std::optional<JetTable::Row> JetTable::rowAt(int number) {
    MdbHandle* const handle = file_.library_->handle.get();
    int start = 0;
    std::size_t size = 0;
    const bool isThere = mdb_find_row(handle, number, &start, &size) == 0;
    const auto flags = static_cast<unsigned>(start);
    if (isThere && (flags & kDeleted) != 0)
        return std::nullopt;
    std::optional<Fields> fields;
    const std::size_t place = flags & kPlace;
    if (isThere && (flags & kMoved) != 0)
        fields = movedFields(numberAt<std::uint32_t>(pageIn(handle->pg_buf), place));
    else if (isThere)
        fields = fieldsOf({place, size});
    if (!fields) {
        ++lostRows_;
        return std::nullopt;
    }
    return cellsOf(*fields);
}

/// The fields of a row that has moved to another page, where it bears the flag of a deleted one, so that
/// nobody finds it twice. It can have moved on from there.
std::optional<JetTable::Fields> JetTable::movedFields(std::uint32_t pointer) {
    constexpr int kMostMoves = 8;
    MdbHandle* const handle = file_.library_->handle.get();
    for (int move = 0; move < kMostMoves; ++move) {
        const std::optional<Place> place = file_.library_->placeOf(pointer);
        const std::string_view page = pageIn(handle->alt_pg_buf);
        if (!place || numberAt<std::uint32_t>(page, kOwnerAt) != description_->entry.table_pg)
            return std::nullopt;
        if (!place->isMoved || place->size != sizeof pointer) {
            mdb_swap_pgbuf(handle);  // fields are found on the page at hand alone
            std::optional<Fields> fields = fieldsOf(*place);
            mdb_swap_pgbuf(handle);
            return fields;
        }
        pointer = numberAt<std::uint32_t>(page, place->start);
    }
    return std::nullopt;
}

/// The bytes of the fields of a row on the page at hand; nothing for a Null, no bytes for a Boolean that is
/// on. Nothing at all where the row is damaged.
std::optional<JetTable::Fields> JetTable::fieldsOf(const Place& place) {
    const std::string_view page = pageIn(file_.library_->handle->pg_buf);
    std::vector<MdbField>& found = description_->fields;
    if (place.size < sizeof(std::uint16_t) || place.start + place.size > page.size() ||
        mdb_crack_row(description_->table.get(), static_cast<int>(place.start), place.size, found.data()) < 0)
        return std::nullopt;
    const auto count = numberAt<std::uint16_t>(page, place.start);  // a column can be younger than the row
    Fields fields(columns_.size());
    for (std::size_t at = 0; at < fields.size(); ++at) {
        const auto* const column =
            static_cast<const MdbColumn*>(g_ptr_array_index(description_->table->columns, at));
        if (found[at].is_null != 0 || column->col_num >= count)
            continue;
        if (columns_[at].type == JetType::Boolean) {
            fields[at].emplace();
            continue;
        }
        const auto start = static_cast<std::size_t>(std::max(found[at].start, 0));
        const auto size = static_cast<std::size_t>(std::max(found[at].siz, 0));
        if (found[at].siz < 0 || start < place.start || start + size > place.start + place.size)
            return std::nullopt;
        fields[at] = page.substr(start, size);
    }
    return fields;
}

std::vector<Cell> JetTable::cellsOf(const Fields& fields) const {
    Row row(fields.size(), Null{});
    for (std::size_t at = 0; at < fields.size(); ++at) {
        if (columns_[at].type == JetType::Boolean)
            row[at] = std::int64_t{fields[at] ? 1 : 0};
        else if (fields[at])
            row[at] = cellOf(columns_[at], *fields[at]);
    }
    return row;
}

Cell JetTable::cellOf(const JetColumn& column, std::string_view bytes) const {
    if (!isLong(column.type))
        return carry::cellOf(column.type, bytes, column.scale);
    const std::optional<std::string> value = file_.library_->longValue(bytes);
    return value ? carry::cellOf(column.type, *value, 0) : Unreadable{"a damaged text"};
}

}  // namespace tallybrook::carry
