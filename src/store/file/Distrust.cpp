#include "store/file/Distrust.h"

#include <sqlite3.h>

namespace tallybrook {

namespace {

bool bringsTriggers(const SQLite::Database& database) {
    SQLite::Statement trigger(database, "SELECT 1 FROM sqlite_schema WHERE type = 'trigger'");
    return trigger.executeStep();
}

}  // namespace

void distrust(const SQLite::Database& database) {
    sqlite3* const handle = database.getHandle();
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    if (bringsTriggers(database))
        sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
}

}  // namespace tallybrook
