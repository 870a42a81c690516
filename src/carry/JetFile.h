#pragma once

#include "carry/Cell.h"
#include "carry/JetValue.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// An old logbook's file as its library reads it, past what the library does wrong: rows that are deleted come
// back, rows that have moved do not, and letters, dates and long texts are mangled. So the library finds
// pages, columns and fields; rows are picked and values are read here. What is damaged can hang the library
// or worse: this runs in a process of its own.
namespace tallybrook::carry {

/// The file is damaged, so that nothing of it can be read.
class JetDamaged : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct JetColumn {
    std::string name;
    JetType type;
    int scale;  // of a Decimal
};

/// What the file's catalog has under a name.
struct JetEntry {
    std::string name;
    std::uint32_t page = 0;     // where a table's description lies
    bool isLinked = false;      // its rows lie in another database
    std::string database = {};  // that one
};

class JetFile {
public:
    /// Opens a file of `size` bytes. Throws JetDamaged.
    JetFile(const std::string& path, std::uint64_t size);
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    /// The tables that people have made, the linked ones among them. Throws JetDamaged.
    [[nodiscard]] std::vector<JetEntry> tables();

private:
    friend class JetTable;
    struct Library;
    std::unique_ptr<Library> library_;
};

/// One table of the file, which must outlive it. One at a time is read.
class JetTable {
public:
    /// Throws JetDamaged.
    JetTable(JetFile& file, const JetEntry& entry);
    ~JetTable();
    JetTable(const JetTable&) = delete;
    JetTable& operator=(const JetTable&) = delete;

    [[nodiscard]] const std::vector<JetColumn>& columns() const { return columns_; }
    /// How many rows the file says the table has.
    [[nodiscard]] std::int64_t toldRows() const;

    /// The next row, with a cell for each column; nothing behind the last one.
    [[nodiscard]] std::optional<std::vector<Cell>> next();
    /// How many rows there are, of those passed so far, that could not be read.
    [[nodiscard]] std::int64_t lostRows() const { return lostRows_; }

private:
    friend class JetFile;
    struct Description;
    struct Place;
    using Row = std::vector<Cell>;
    using Fields = std::vector<std::optional<std::string>>;

    bool goToNextPage();
    [[nodiscard]] std::optional<Row> rowAt(int number);
    [[nodiscard]] std::optional<Fields> movedFields(std::uint32_t pointer);
    [[nodiscard]] std::optional<Fields> fieldsOf(const Place& place);
    [[nodiscard]] Row cellsOf(const Fields& fields) const;
    [[nodiscard]] Cell cellOf(const JetColumn& column, std::string_view bytes) const;

    JetFile& file_;
    std::unique_ptr<Description> description_;
    std::vector<JetColumn> columns_;
    int row_ = 0;
    int rowsOnPage_ = 0;
    std::int64_t lostRows_ = 0;
};

}  // namespace tallybrook::carry
