#include "store/file/Upgrade.h"

#include "store/file/Inspection.h"
#include "store/file/LogbookRefused.h"

#include <stdexcept>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// Takes a step to a schema in one transaction.
void take(const SchemaStep& step, int schema, bool isLast, SQLite::Database& database) {
    SQLite::Transaction transaction(database);
    for (const std::string& statement : step)
        database.exec(statement);
    database.exec(fmt::format("PRAGMA user_version = {}", schema));
    if (isLast && !hasAllColumns(database))
        throw std::runtime_error("The logbook would lack a column.");
    transaction.commit();
}

}  // namespace

void bringUpToDate(const fs::path& file, SQLite::Database& database, const Upgrade& upgrade) {
    const int newest = newestSchema(upgrade.steps);
    int schema = schemaOf(database);
    if (schema == newest)
        return;
    try {
        if (!upgrade.backUp)
            throw std::runtime_error("There is no backup of it.");
        upgrade.backUp(file);
        while (schema < newest) {
            const SchemaStep& step = upgrade.steps[static_cast<std::size_t>(schema) - 1];
            ++schema;
            take(step, schema, schema == newest, database);
        }
    } catch (const std::runtime_error& failure) {
        refuseLogbook(file,
                      fmt::format("It was written by an older version of Tallybrook and could not be "
                                  "brought up to date; what it holds is unchanged.\r\n{}\r\nPlease see that "
                                  "there is room on the disk, and start the program again.",
                                  failure.what()));
    }
}

}  // namespace tallybrook
