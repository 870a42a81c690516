#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace tallybrook {

/// Opens a database file as it stands, for reading only: no lock is taken, nothing that was cut off is rolled
/// back, and neither the file nor what lies beside it is touched. Nobody may change the file meanwhile.
/// Errors: SQLite::Exception.
SQLite::Database openAsItStands(const std::filesystem::path& file);

/// The same for its bytes alone: what they mean is not looked at, so that the file may be changed meanwhile.
SQLite::Database openForItsBytes(const std::filesystem::path& file);

/// The bytes of an open database file, read by its engine: to open and close the file by other means would
/// take away the lock that the engine has on it. The database must outlive this. Errors: SQLite::Exception.
class FileBytes {
public:
    explicit FileBytes(const SQLite::Database& database);

    [[nodiscard]] std::int64_t size() const;
    /// Reads the bytes from a place of the file on, all that are asked for.
    void read(std::span<char> bytes, std::int64_t at) const;

private:
    sqlite3_file* file_ = nullptr;
};

}  // namespace tallybrook
