#include "store/Store.h"

#include "store/file/LogbookFile.h"
#include "store/reading/Reading.h"

#include <utility>

namespace tallybrook {

Store::Store(const std::filesystem::path& file, const Clock& clock, const Upgrade& upgrade)
    : connection_(openLogbook(file, upgrade)), reading_(std::make_unique<Reading>(*connection_, clock)) {}

Store::~Store() = default;

void Store::beforeOverwriting(std::function<bool(std::int64_t at, std::string_view bytes)> show) {
    connection_->beforeOverwriting(std::move(show));
}

void Store::bringToDisk() {
    onFile([this] { connection_->transaction().commitSoFar(); });
}

void Store::beforeFirstDeletion(std::function<void()> act) {
    connection_->beforeFirstDeletion(std::move(act));
}

std::vector<std::filesystem::path> Store::filesOf(const std::filesystem::path& logbook) {
    return filesOfLogbook(logbook);
}

std::vector<std::string> Store::fieldNames(const std::string& table) {
    std::vector<std::string> names;
    if (const Table* const found = findTable(table); found != nullptr) {
        for (const Column& column : found->columns)
            names.push_back(column.name);
    }
    return names;
}

std::vector<Store::Row> Store::rows(const std::string& table) {
    Snapshot stored(*reading_, "SELECT * FROM " + table);
    stored.readAll();
    std::vector<Row> rows(stored.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t field = 0; field < stored.fields().size(); ++field)
            rows[row].values.push_back(stored.value(row, field));
    }
    return rows;
}

}  // namespace tallybrook
