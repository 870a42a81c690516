#pragma once

#include "runtime/Clock.h"
#include "runtime/Value.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tallybrook {

/// The logbook's file cannot be used: it is no logbook, is too new, or cannot be opened. what() is a text
/// for people that names the file and says what to do. The file is left as it was.
class LogbookRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The logbook: one SQLite file with the three tables, held open by one connection for the whole run.
class Store {
public:
    /// Opens the logbook, or makes an empty one where there is no file. `clock` tells the current year to
    /// date texts without one. Throws LogbookRefused.
    Store(const std::filesystem::path& file, const Clock& clock);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    struct Row {
        std::vector<Value> values;
    };

    /// The names of a table's fields in their order; none for a name that is no table.
    [[nodiscard]] static std::vector<std::string> fieldNames(const std::string& table);
    /// The stored rows of a table in key order, dates as DateTime.
    [[nodiscard]] std::vector<Row> rows(const std::string& table);

    /// Lets `wait` run once, before the next statement that writes to the logbook; nothing if it is empty. It
    /// must raise no error.
    void beforeFirstWrite(std::function<void()> wait);

    /// Calls `look` again and again while work goes on: before each opening of a recordset and each storing
    /// of a row. It may read the logbook, and must raise no error.
    void whileAtWork(std::function<void()> look);

    class Connection;
    [[nodiscard]] Connection& connection() { return *connection_; }

private:
    std::unique_ptr<Connection> connection_;
};

}  // namespace tallybrook
