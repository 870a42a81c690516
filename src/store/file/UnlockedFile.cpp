#include "store/file/UnlockedFile.h"

#include "runtime/TextFile.h"
#include "store/file/Distrust.h"

#include <string>
#include <string_view>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace {

/// A path as it is written in a URI: all but plain letters and digits by their codes.
std::string encodedPath(const std::filesystem::path& path) {
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-";
    std::string encoded;
    for (const char byte : path.string()) {
        if (kPlain.find(byte) != std::string_view::npos)
            encoded += byte;
        else
            encoded += fmt::format("%{:02X}", static_cast<unsigned char>(byte));
    }
    return encoded;
}

void require(int result) {
    if (result != SQLITE_OK)
        throw SQLite::Exception("the file cannot be read", result);
}

}  // namespace

SQLite::Database openForItsBytes(const std::filesystem::path& file) {
    if (!fileExists(file))  // the engine would wait for whatever else is there
        throw SQLite::Exception("There is no such file: " + file.string(), SQLITE_CANTOPEN);
    return {"file://" + encodedPath(std::filesystem::absolute(file)) + "?immutable=1",
            SQLite::OPEN_READONLY | SQLite::OPEN_URI | SQLite::OPEN_NOMUTEX};
}

SQLite::Database openAsItStands(const std::filesystem::path& file) {
    SQLite::Database database = openForItsBytes(file);
    distrust(database);
    return database;
}

FileBytes::FileBytes(const SQLite::Database& database) {
    require(sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file_));
}

std::int64_t FileBytes::size() const {
    sqlite3_int64 size = 0;
    require(file_->pMethods->xFileSize(file_, &size));
    return size;
}

void FileBytes::read(std::span<char> bytes, std::int64_t at) const {
    require(file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(bytes.size()), at));
}

}  // namespace tallybrook
