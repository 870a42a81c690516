#include "sheets/Csv.h"

#include "runtime/RegularFile.h"
#include "runtime/TextEncoding.h"
#include "runtime/TextForms.h"
#include "runtime/UnfinishedFile.h"
#include "sheets/Rows.h"
#include "store/file/StoredValue.h"
#include "store/sql/Schema.h"

#include <algorithm>
#include <array>
#include <list>

#include <fcntl.h>
#include <fmt/format.h>

namespace tallybrook::sheets {

namespace fs = std::filesystem;

namespace {

constexpr std::array kFiles{
    CsvFile{.table = "tblEventInfo", .name = "events.csv"},
    CsvFile{.table = "tblGameInfo", .name = "games.csv"},
    CsvFile{.table = "tblFrameInfo", .name = "frames.csv"},
};

/// What a formula can begin with in one spreadsheet or another, the wide signs of East Asia among it, and the
/// guard itself.
constexpr std::array<std::string_view, 12> kFormulaSigns{"=",  "+", "-",      "@",      "\t",     "\r",
                                                         "\n", "'", "\uFF1D", "\uFF0B", "\uFF0D", "\uFF20"};

bool isFormulaLike(std::string_view text) {
    return std::ranges::any_of(kFormulaSigns, [&](std::string_view sign) { return text.starts_with(sign); });
}

/// An empty text is quoted too, which tells it from a Null.
bool needsQuotes(std::string_view text) {
    return text.empty() || text.front() == ' ' || text.back() == ' ' ||
           text.find_first_of(",\"\r\n") != std::string_view::npos;
}

std::string inQuotes(std::string_view text) {
    std::string field = "\"";
    for (const char sign : text)
        field.append(sign == '"' ? 2 : 1, sign);
    return field + '"';
}

/// A file on its way, to which lines are added.
class CsvLines {
public:
    CsvLines(const fs::path& place, Formulas formulas)
        : unfinished_(place), file_(unfinished_.path(), O_WRONLY), formulas_(formulas) {}

    void addHeading(const Table& table) {
        for (const Column& column : table.columns)
            addField(column.name);
        endLine();
    }
    void addRow(const Table& table, const Statement& row) {
        for (int column = 0; column < static_cast<int>(table.columns.size()); ++column)
            decode(row.column(column), FieldType::Text, [&](auto value) { addValue(value); });
        endLine();
    }
    /// Brings all to the file.
    void finish() { flush(); }
    void putInPlace() const { unfinished_.putInPlace(); }

private:
    void addValue(Null /*nothing*/) { addField({}); }
    void addValue(std::int64_t number) { addField(std::to_string(number)); }
    void addValue(double number) { addField(doubleText(number)); }
    void addValue(DateTime /*date*/) {}  // a text here
    void addValue(std::string_view text) { addField(csvField(text, formulas_)); }
    void addField(std::string_view field) { (line_ += field) += ','; }

    void endLine() {
        constexpr std::size_t kPart = std::size_t{1} << 16U;
        line_.back() = '\r';
        (lines_ += line_) += '\n';
        line_.clear();
        if (lines_.size() >= kPart)
            flush();
    }
    void flush() {
        file_.write(lines_);
        lines_.clear();
    }

    UnfinishedFile unfinished_;
    RegularFile file_;
    Formulas formulas_;
    std::string line_;
    std::string lines_;  // not yet in the file
};

std::string selectAll(const Table& table) {
    std::string columns;
    for (const Column& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + column.name;
    return fmt::format("SELECT {} FROM {} ORDER BY {}", columns, table.name, table.key().name);
}

void writeTable(const SQLite::Database& logbook, const Table& table, CsvLines& lines, const CsvFile& file,
                Progress& progress) {
    lines.addHeading(table);
    forEachRow(logbook, selectAll(table), fmt::format("Writing {}", file.name), progress,
               [&](const Statement& row) { lines.addRow(table, row); });
    lines.finish();
}

}  // namespace

std::span<const CsvFile> csvFiles() {
    return kFiles;
}

std::string csvField(std::string_view text, Formulas formulas) {
    std::string field = encodingOf(text) == Encoding::Utf8 ? std::string(text) : textOf(charactersOf(text));
    if (formulas == Formulas::Guarded && isFormulaLike(field))
        field.insert(0, 1, '\'');
    return needsQuotes(field) ? inQuotes(field) : field;
}

void writeCsv(const SQLite::Database& logbook, const fs::path& folder, Formulas formulas,
              Progress& progress) {
    std::list<CsvLines> files;
    for (const CsvFile& file : kFiles) {
        CsvLines& lines = files.emplace_back(folder / file.name, formulas);
        writeTable(logbook, *findTable(file.table), lines, file, progress);
    }
    for (const CsvLines& file : files)
        file.putInPlace();
}

}  // namespace tallybrook::sheets
