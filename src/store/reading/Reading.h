#pragma once

#include "runtime/Clock.h"
#include "store/file/Connection.h"
#include "store/reading/Plan.h"
#include "store/reading/Snapshot.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallybrook {

/// The door of this folder: whoever is outside makes a Snapshot of what a statement finds, says here before a
/// row is changed, and needs to know nothing else of how rows are read.
///
/// A Snapshot asks its statement's Plan for the rows. Statements of one shape share a Plan, by which SQLite
/// runs them. A Plan answers from its last answer or from the tables; the answer is PackedRows.
class Reading {
public:
    /// `clock` tells the current year to dates without one. Both must outlive this.
    Reading(Connection& connection, const Clock& clock);
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    /// To be called before a row is changed or deleted: reads what open snapshots have of it.
    void readBeforeChange(const Table& table, std::int64_t key);

    [[nodiscard]] Connection& connection() const { return connection_; }
    [[nodiscard]] int currentYear() const { return clock_.year(); }

    /// Understands a statement; errors as parseSelect().
    UnderstoodStatement understand(const std::string& sql);

    void enlist(Snapshot& snapshot) { open_.push_back(&snapshot); }
    void strike(Snapshot& snapshot) { std::erase(open_, &snapshot); }

private:
    Connection& connection_;
    const Clock& clock_;
    std::unordered_map<std::string, std::shared_ptr<Plan>> plans_;  // by the shape of their statements
    std::vector<Snapshot*> open_;
};

}  // namespace tallybrook
