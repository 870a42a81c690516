#include "store/file/LogbookFile.h"

#include "store/file/UnlockedFile.h"

#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void refuse(const fs::path& file, const std::string& why) {
    throw LogbookRefused("The logbook cannot be opened:\r\n" + file.string() + "\r\n" + why);
}

/// The head of an SQLite file: its mark, and at byte 60 the schema's number.
constexpr std::size_t kHeadSize = 100;
constexpr std::string_view kMark{"SQLite format 3\0", 16};

int schemaVersionIn(const std::array<char, kHeadSize>& head) {
    unsigned version = 0;
    for (std::size_t at = 60; at < 64; ++at)
        version = version << 8U | static_cast<unsigned char>(head[at]);
    return static_cast<int>(version);
}

constexpr std::string_view kPutCopy =
    "Please put a copy of your logbook in its place; the folder Backups beside it may hold some.";

/// Refuses whatever is not a file, or a link to one.
void inspectName(const fs::path& file) {
    if (fs::is_symlink(file) && !fs::exists(file))
        refuse(file,
               "It is a link to a file that is not there. Please bring that file back, or remove the link.");
    if (!fs::is_regular_file(file))
        refuse(file, "There is something else of that name where the file should be. Please move it away.");
}

/// Refuses what is no logbook by its first bytes alone, so that nothing else of it is touched.
void inspectHead(const fs::path& file) {
    std::array<char, kHeadSize> head{};
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        refuse(file, "The file cannot be read. Please check its permissions.");
    stream.read(head.data(), kHeadSize);
    if (stream.bad())
        refuse(file, "The file cannot be read. Please check the disk.");
    if (stream.gcount() < static_cast<std::streamsize>(kHeadSize) ||
        std::string_view(head.data(), kMark.size()) != kMark)
        refuse(file, fmt::format("The file is no logbook of this program. {}", kPutCopy));
    const int version = schemaVersionIn(head);
    if (version > kSchemaVersion)
        refuse(file, "The logbook was written by a newer version of Tallybrook. Please update the program.");
    if (version != kSchemaVersion)
        refuse(file, "The file belongs to another program. Please move it away.");
}

/// Refuses what cannot be changed: the file, or the folder where SQLite keeps its journal.
void inspectPermissions(const fs::path& file) {
    const fs::path folder = fs::canonical(file).parent_path();
    if (access(file.c_str(), W_OK) != 0 || access(folder.c_str(), W_OK) != 0)
        refuse(file, "The file or its folder cannot be written. Please check their permissions.");
}

bool hasAllTables(const SQLite::Database& database) {
    for (const Table& table : tables()) {
        for (const Column& column : table.columns) {
            SQLite::Statement found(database, "SELECT 1 FROM pragma_table_info(?) WHERE name = ?");
            found.bind(1, table.name);
            found.bind(2, column.name);
            if (!found.executeStep())
                return false;
        }
    }
    return true;
}

/// Whether the file has fewer bytes than its pages need.
bool isCutShort(const fs::path& file, const SQLite::Database& database) {
    SQLite::Statement size(database,
                           "SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
    size.executeStep();
    return fs::file_size(file) < static_cast<std::uintmax_t>(size.getColumn(0).getInt64());
}

/// Whether a save was cut off. An empty journal is just left over.
bool hasJournal(const fs::path& file) {
    std::error_code none;
    const std::uintmax_t size = fs::file_size(fs::canonical(file).string() + "-journal", none);
    return !none && size > 0;
}

/// Refuses the database of another program, and leaves it and a save of that program that was cut off as they
/// are.
void inspectTables(const fs::path& file) {
    SQLite::Database database = openAsItStands(file);
    if (hasJournal(file))
        database.exec("PRAGMA writable_schema = ON");  // what is to be rolled back may be too short yet
    else if (isCutShort(file, database))
        refuse(file, fmt::format("The logbook is damaged: its end is missing. {}", kPutCopy));
    if (!hasAllTables(database))
        refuse(file, fmt::format("The file belongs to another program, or is damaged. {}", kPutCopy));
}

/// What to tell of a logbook that the engine cannot open.
std::string reasonFor(const SQLite::Exception& failure) {
    switch (failure.getErrorCode()) {
        case SQLITE_BUSY:
            return "Another program is using it. Please close that program first.";
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return fmt::format("The logbook is damaged. {}", kPutCopy);
        default:
            return fmt::format("The database reports: {}. Please check the disk and the permissions.",
                               failure.what());
    }
}

/// Makes an empty logbook, whole or not at all: under another name first.
void makeLogbook(const fs::path& file) {
    const fs::path unfinished = file.string() + ".new";
    fs::remove(unfinished);
    {
        SQLite::Database database(unfinished.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        fs::permissions(unfinished, fs::perms::owner_read | fs::perms::owner_write);
        SQLite::Transaction transaction(database);
        for (const std::string& statement : schemaStatements())
            database.exec(statement);
        transaction.commit();
    }
    // What an older logbook of that name has left of a save that was cut off is not this one's.
    for (const char* companion : {"-journal", "-wal", "-shm"})
        fs::remove(file.string() + companion);
    fs::rename(unfinished, file);
}

}  // namespace

std::unique_ptr<Connection> openLogbook(const fs::path& file) {
    try {
        if (fs::symlink_status(file).type() == fs::file_type::not_found)
            makeLogbook(file);
        inspectName(file);
        inspectHead(file);
        inspectPermissions(file);
        inspectTables(file);
        return std::make_unique<Connection>(file);
    } catch (const SQLite::Exception& failure) {
        refuse(file, reasonFor(failure));
    } catch (const fs::filesystem_error& failure) {
        refuse(file, failure.code().message() + ". Please check the permissions of its folder.");
    }
}

}  // namespace tallybrook
