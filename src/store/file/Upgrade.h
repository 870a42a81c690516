#pragma once

#include "store/sql/SchemaSteps.h"

#include <filesystem>
#include <functional>

namespace SQLite {
class Database;
}

namespace tallybrook {

/// How a logbook of an older schema is brought to the newest.
struct Upgrade {
    /// Makes a backup of the logbook's file, which stands still meanwhile, and proves it; throws
    /// std::runtime_error, with what() for people, where that cannot be done. Without this no older logbook
    /// is opened.
    std::function<void(const std::filesystem::path& file)> backUp = {};
    SchemaSteps steps = schemaSteps();
};

/// Brings an opened logbook to the newest schema, step by step, if it has an older one. Nothing is changed
/// before there is a backup. A step happens whole or not at all; the one that fails leaves the logbook as it
/// was before it. Throws LogbookRefused.
void bringUpToDate(const std::filesystem::path& file, SQLite::Database& database, const Upgrade& upgrade);

}  // namespace tallybrook
