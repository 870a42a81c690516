#pragma once

#include <filesystem>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// Looks at a logbook's file by its name and its first bytes, so that nothing else of it is touched. Throws
/// LogbookRefused for what is no file, is no logbook, has a schema of another number than 1 to
/// `newestSchema`, or cannot be written.
void inspectFile(const std::filesystem::path& file, int newestSchema);

/// Looks at what an opened file holds; `file` is how it is called. Throws LogbookRefused where its end is
/// missing, where it lacks one of the logbook's tables or, unless its schema is an older one, a column.
void inspectTables(const std::filesystem::path& file, const SQLite::Database& database, int newestSchema);

/// The number of a database's schema.
int schemaOf(const SQLite::Database& database);
/// Whether a database has all tables of the present schema, with all their columns.
bool hasAllColumns(const SQLite::Database& database);

}  // namespace tallybrook
