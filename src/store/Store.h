#pragma once

#include "runtime/Clock.h"
#include "runtime/Value.h"
#include "store/file/LogbookRefused.h"
#include "store/file/Upgrade.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

class Connection;
class Reading;

/// The logbook: one SQLite file with the three tables, held open by one connection for the whole run.
class Store {
public:
    /// Opens the logbook, or makes an empty one where there is no file; one of an older schema is brought up
    /// to date as `upgrade` says. `clock` tells the current year to date texts without one. Throws
    /// LogbookRefused.
    Store(const std::filesystem::path& file, const Clock& clock, const Upgrade& upgrade = {});
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    struct Row {
        std::vector<Value> values;
    };

    /// All files that are kept for a logbook, be they there or not: itself, and what may lie beside it.
    [[nodiscard]] static std::vector<std::filesystem::path> filesOf(const std::filesystem::path& logbook);

    /// The names of a table's fields in their order; none for a name that is no table.
    [[nodiscard]] static std::vector<std::string> fieldNames(const std::string& table);
    /// The stored rows of a table in key order, dates as DateTime.
    [[nodiscard]] std::vector<Row> rows(const std::string& table);

    /// Shows the bytes from a place of the logbook's file on before they are written over, or none where they
    /// cannot be read, as long as `show` returns that it wants to see more; nothing if it is empty. It must
    /// raise no error.
    void beforeOverwriting(std::function<bool(std::int64_t at, std::string_view bytes)> show);

    /// Lets `act` run once, before the next row is deleted while no transaction is open; nothing if it is
    /// empty. It must raise no error.
    void beforeFirstDeletion(std::function<void()> act);

    /// Calls `look` again and again while work goes on: before each opening of a recordset and each storing
    /// of a row. It may read the logbook, and must raise no error.
    void whileAtWork(std::function<void()> look) { whileAtWork_ = std::move(look); }
    /// Work goes on, and nothing of the store is in the middle of something.
    void noteWork() const {
        if (whileAtWork_)
            whileAtWork_();
    }

    /// Brings to the disk what is being kept together: before somebody is waited for. Errors: -2147467259 for
    /// what SQLite reports.
    void bringToDisk();

    // What the store's own files work with.
    [[nodiscard]] Connection& connection() { return *connection_; }
    [[nodiscard]] Reading& reading() { return *reading_; }

private:
    std::unique_ptr<Connection> connection_;
    std::unique_ptr<Reading> reading_;
    std::function<void()> whileAtWork_;
};

}  // namespace tallybrook
