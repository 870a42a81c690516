#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// Gives a connection what the queries need beyond SQLite's own: the functions tbk_compare and tbk_like and
/// the collation tbk, which compare text without case for all letters. Nothing in the file refers to them.
void addTextFunctions(const SQLite::Database& database);

}  // namespace tallybrook
