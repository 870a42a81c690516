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

}  // namespace

SQLite::Database openAsItStands(const std::filesystem::path& file) {
    if (!fileExists(file))  // the engine would wait for whatever else is there
        throw SQLite::Exception("There is no such file: " + file.string(), SQLITE_CANTOPEN);
    SQLite::Database database("file://" + encodedPath(std::filesystem::absolute(file)) + "?immutable=1",
                              SQLite::OPEN_READONLY | SQLite::OPEN_URI | SQLite::OPEN_NOMUTEX);
    distrust(database);
    return database;
}

}  // namespace tallybrook
