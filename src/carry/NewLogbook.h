#pragma once

#include "carry/Figures.h"
#include "store/file/Statement.h"
#include "store/sql/Schema.h"

#include <filesystem>
#include <memory>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::carry {

/// A logbook on its way, in a file of its own that nobody else uses. One that is cut off is worth nothing.
class NewLogbook {
public:
    /// Makes it of an empty file. Errors, here and below: SQLite::Exception.
    explicit NewLogbook(const std::filesystem::path& file);

    /// Rows of a table follow, with values for these columns; the others get what a new row has by itself.
    void begin(const Table& table, std::vector<const Column*> columns);
    /// Adds a row with its key, and counts it; false, and nothing is added, where there is a row of that key
    /// already.
    bool add(const std::vector<Value>& values);
    /// Brings all to the file, where SQLite finds nothing wrong with it and it comes to what was added; false
    /// where it does not.
    [[nodiscard]] bool finish();

    /// What was added.
    [[nodiscard]] const Figures& figures() const { return figures_; }

private:
    std::filesystem::path file_;
    SQLite::Database database_;
    std::unique_ptr<SQLite::Transaction> transaction_;
    const Table* table_ = nullptr;
    std::vector<const Column*> columns_;
    std::unique_ptr<Statement> insert_;
    Figures figures_;
};

}  // namespace tallybrook::carry
