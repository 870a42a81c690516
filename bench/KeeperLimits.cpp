#include "KeeperLimits.h"

#include "store/sql/Schema.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <mdbtools.h>
#include <unistd.h>
#include <xlsxwriter.h>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

constexpr char kBetween = '\x1f';
constexpr char kNextTable = '\x1e';

/// The statement that adds a row to a table.
std::string insertInto(const Table& table) {
    std::string places = "?";
    for (std::size_t at = 1; at < table.columns.size(); ++at)
        places += ",?";
    return fmt::format("INSERT INTO {} VALUES ({})", table.name, places);
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Binds the fields of a line and adds the row.
void addLine(PlainStatement& insert, std::string_view line) {
    int at = 1;
    for (std::size_t end = 0; end != std::string_view::npos;
         line.remove_prefix(std::min(end + 1, line.size()))) {
        end = line.find(kBetween);
        insert.bind(at++, line.substr(0, end));
    }
    insert.run();
}

/// Adds the rows of one table of an old logbook.
void addJetRows(MdbHandle* old, const Table& table, PlainDatabase& logbook) {
    constexpr std::size_t kMostInField = 4096;
    const std::unique_ptr<MdbTableDef, void (*)(MdbTableDef*)> rows(
        mdb_read_table_by_name(old, std::string(table.name).data(), MDB_TABLE), mdb_free_tabledef);
    if (!rows || mdb_read_columns(rows.get()) == nullptr)
        throw std::runtime_error("no such table in the old logbook: " + table.name);
    std::vector<std::array<char, kMostInField>> fields(rows->num_cols);
    std::vector<int> sizes(rows->num_cols);
    for (unsigned at = 0; at < rows->num_cols; ++at)
        mdb_bind_column(rows.get(), static_cast<int>(at) + 1, fields[at].data(), &sizes[at]);
    PlainStatement insert(logbook, insertInto(table).c_str());
    while (mdb_fetch_row(rows.get()) != 0) {
        for (unsigned at = 0; at < rows->num_cols; ++at)
            insert.bind(static_cast<int>(at) + 1,
                        std::string_view(fields[at].data(), static_cast<std::size_t>(sizes[at])));
        insert.run();
    }
}

}  // namespace

std::int64_t frameCount(PlainDatabase& logbook) {
    PlainStatement count(logbook, "SELECT count(*) FROM tblFrameInfo");
    count.step();
    return count.number(0);
}

void writePlainText(PlainDatabase& logbook, const fs::path& file) {
    const File text(std::fopen(file.c_str(), "wb"));
    if (!text)
        throw std::runtime_error("cannot write " + file.string());
    for (const Table& table : tables()) {
        PlainStatement rows(logbook, ("SELECT * FROM " + table.name).c_str());
        while (rows.step()) {
            for (int column = 0; column < rows.columnCount(); ++column) {
                if (column > 0)
                    std::fputc(kBetween, text.get());
                const std::string_view value = rows.text(column);
                std::fwrite(value.data(), 1, value.size(), text.get());
            }
            std::fputc('\n', text.get());
        }
        std::fputc(kNextTable, text.get());
        std::fputc('\n', text.get());
    }
    std::fflush(text.get());
    fsync(fileno(text.get()));
}

void readPlainText(const fs::path& file, PlainDatabase& logbook) {
    std::ifstream text(file, std::ios::binary);
    std::string line;
    logbook.run("BEGIN");
    for (const Table& table : tables()) {
        PlainStatement insert(logbook, insertInto(table).c_str());
        while (std::getline(text, line) && line[0] != kNextTable)
            addLine(insert, line);
    }
    logbook.run("COMMIT");
}

void writePlainWorkbook(PlainDatabase& logbook, const fs::path& file) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* const workbook = workbook_new_opt(file.c_str(), &options);
    for (const Table& table : tables()) {
        lxw_worksheet* const sheet = workbook_add_worksheet(workbook, nullptr);
        PlainStatement rows(logbook, ("SELECT * FROM " + table.name).c_str());
        for (lxw_row_t row = 0; rows.step(); ++row) {
            for (int column = 0; column < rows.columnCount(); ++column) {
                const auto at = static_cast<lxw_col_t>(column);
                if (rows.isText(column))
                    worksheet_write_string(sheet, row, at, rows.text(column).data(), nullptr);
                else
                    worksheet_write_number(sheet, row, at, rows.real(column), nullptr);
            }
        }
    }
    if (workbook_close(workbook) != LXW_NO_ERROR)
        throw std::runtime_error("cannot write " + file.string());
}

void readPlainJet(const fs::path& file, PlainDatabase& logbook) {
    const std::unique_ptr<MdbHandle, void (*)(MdbHandle*)> old(mdb_open(file.c_str(), MDB_NOFLAGS),
                                                               mdb_close);
    if (!old || mdb_read_catalog(old.get(), MDB_TABLE) == nullptr)
        throw std::runtime_error("cannot read " + file.string());
    logbook.run("BEGIN");
    for (const Table& table : tables())
        addJetRows(old.get(), table, logbook);
    logbook.run("COMMIT");
}

}  // namespace tallybrook::bench
