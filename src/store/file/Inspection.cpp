#include "store/file/Inspection.h"

#include "runtime/RegularFile.h"
#include "store/file/Journal.h"
#include "store/file/LogbookRefused.h"
#include "store/file/OldLogbook.h"
#include "store/sql/Schema.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// The head of an SQLite file: its mark, and at byte 60 the schema's number.
constexpr std::size_t kHeadSize = 100;
constexpr std::string_view kMark{"SQLite format 3\0", 16};

constexpr const char* kCarryOver =
    "The file is no logbook of this program yet: it is an Access database, in which older logbooks were "
    "kept. Tallybrook Keeper can carry it over to a new logbook, and keeps the old file. Please start the "
    "keeper, and choose Carry Over an Old Logbook.";

int schemaIn(const std::array<char, kHeadSize>& head) {
    unsigned number = 0;
    for (std::size_t at = 60; at < 64; ++at)
        number = number << 8U | static_cast<unsigned char>(head[at]);
    return static_cast<int>(number);
}

/// Refuses whatever is not a file, or a link to one.
void inspectName(const fs::path& file) {
    if (fs::is_symlink(file) && !fs::exists(file))
        refuseLogbook(
            file,
            "It is a link to a file that is not there. Please bring that file back, or remove the link.");
    if (!fs::is_regular_file(file))
        refuseLogbook(file,
                      "There is something else of that name where the file should be. Please move it away.");
}

/// Refuses what the engine would wait for without end, or could not use, in the place of a file that it keeps
/// beside a logbook while it is written.
void inspectCompanions(const fs::path& file) {
    for (const fs::path& companion : companionsOf(file)) {
        const fs::file_type type = fs::symlink_status(companion).type();
        if (type != fs::file_type::not_found && type != fs::file_type::regular)
            refuseLogbook(
                companion,
                "There is something else where a file of the logbook belongs. Please move it away.");
    }
}

std::size_t readHead(const fs::path& file, std::array<char, kHeadSize>& head) {
    try {
        return RegularFile(file, O_RDONLY).read(head.data(), head.size());
    } catch (const std::system_error& failure) {
        const bool isForbidden = failure.code() == std::errc::permission_denied;
        refuseLogbook(file, fmt::format("The file cannot be read. Please check {}.",
                                        isForbidden ? "its permissions" : "the disk"));
    }
}

void inspectSchema(const fs::path& file, int schema, int newestSchema) {
    if (schema > newestSchema)
        refuseLogbook(file,
                      "The logbook was written by a newer version of Tallybrook. Please update the program.");
    if (schema < 1)
        refuseLogbook(file, "The file belongs to another program. Please move it away.");
}

/// Refuses what is no logbook by its first bytes alone, so that nothing else of it is touched.
void inspectHead(const fs::path& file, int newestSchema) {
    std::array<char, kHeadSize> head{};
    const std::size_t size = readHead(file, head);
    if (isOldLogbook({head.data(), size}))
        refuseLogbook(file, kCarryOver);
    if (size < kHeadSize || std::string_view(head.data(), kMark.size()) != kMark)
        refuseLogbook(file, fmt::format("The file is no logbook of this program. {}", kPutCopy));
    inspectSchema(file, schemaIn(head), newestSchema);
}

/// Refuses what cannot be changed: the file, or the folder where SQLite keeps its journal.
void inspectPermissions(const fs::path& file) {
    const fs::path folder = fs::canonical(file).parent_path();
    if (access(file.c_str(), W_OK) != 0 || access(folder.c_str(), W_OK) != 0)
        refuseLogbook(file, "The file or its folder cannot be written. Please check their permissions.");
}

/// Tells the columns of a table which holds rows of its own under keys; none where there is no such table,
/// but a view, which may compute for ever, or a virtual table, which is what some function makes of it.
class ColumnsOf {
public:
    explicit ColumnsOf(const SQLite::Database& database)
        : columns_(database,
                   "SELECT info.name FROM pragma_table_list(?) AS list, pragma_table_info(list.name) AS info "
                   "WHERE list.schema = 'main' AND list.type = 'table' AND list.wr = 0") {}

    std::set<std::string> operator()(const Table& table) {
        columns_.reset();
        columns_.bind(1, table.name);
        std::set<std::string> found;
        while (columns_.executeStep())
            found.insert(columns_.getColumn(0).getString());
        return found;
    }

private:
    SQLite::Statement columns_;
};

bool hasAllTables(const SQLite::Database& database) {
    ColumnsOf columnsOf(database);
    return std::ranges::none_of(tables(), [&](const Table& table) { return columnsOf(table).empty(); });
}

std::int64_t numberFrom(const SQLite::Database& database, const char* sql) {
    SQLite::Statement number(database, sql);
    number.executeStep();
    return number.getColumn(0).getInt64();
}

/// Whether the file has fewer bytes than its pages need.
bool isCutShort(const SQLite::Database& database) {
    const std::int64_t size =
        numberFrom(database, "SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
    return fs::file_size(sqlite3_db_filename(database.getHandle(), "main")) <
           static_cast<std::uintmax_t>(size);
}

}  // namespace

void inspectFile(const fs::path& file, int newestSchema) {
    inspectName(file);
    inspectCompanions(file);
    inspectHead(file, newestSchema);
    inspectPermissions(file);
}

int schemaOf(const SQLite::Database& database) {
    return static_cast<int>(numberFrom(database, "PRAGMA user_version"));
}

bool hasAllColumns(const SQLite::Database& database) {
    ColumnsOf columnsOf(database);
    return std::ranges::all_of(tables(), [&](const Table& table) {
        const std::set<std::string> found = columnsOf(table);
        return std::ranges::all_of(table.columns,
                                   [&](const Column& one) { return found.contains(one.name); });
    });
}

void inspectTables(const fs::path& file, const SQLite::Database& database, int newestSchema) {
    if (isCutShort(database))
        refuseLogbook(file, fmt::format("The logbook is damaged: its end is missing. {}", kPutCopy));
    const int schema = schemaOf(database);
    inspectSchema(file, schema, newestSchema);
    if (!(schema < newestSchema ? hasAllTables(database) : hasAllColumns(database)))
        refuseLogbook(file, fmt::format("The file belongs to another program, or is damaged. {}", kPutCopy));
}

}  // namespace tallybrook
