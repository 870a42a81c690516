#include "store/Snapshot.h"

#include <utility>

namespace tallybrook {

Snapshot::Snapshot(Store::Connection& connection, const std::string& sql)
    : connection_(connection),
      select_(parseSelect(sql, connection.currentYear())),
      lastKey_(highestKey(connection, *select_.table)) {
    connection_.enlist(*this);
}

Snapshot::~Snapshot() {
    connection_.strike(*this);
}

void Snapshot::read() {
    if (isRead_)
        return;
    read_ = runSelect(connection_, select_, lastKey_);
    isRead_ = true;
    connection_.strike(*this);
}

std::size_t Snapshot::size() {
    read();
    return read_.size() + added_.size();
}

StoredRow& Snapshot::row(std::size_t index) {
    read();
    return index < read_.size() ? read_[index] : added_[index - read_.size()];
}

void Snapshot::erase(std::size_t index) {
    read();
    if (index < read_.size())
        read_.erase(read_.begin() + static_cast<std::ptrdiff_t>(index));
    else
        added_.erase(added_.begin() + static_cast<std::ptrdiff_t>(index - read_.size()));
}

}  // namespace tallybrook
