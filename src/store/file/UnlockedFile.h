#pragma once

#include <filesystem>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// Opens a database file as it stands, for reading only: no lock is taken, nothing that was cut off is rolled
/// back, and neither the file nor what lies beside it is touched. Nobody may change the file meanwhile.
/// Errors: SQLite::Exception.
SQLite::Database openAsItStands(const std::filesystem::path& file);

}  // namespace tallybrook
