#include "store/reading/Reading.h"

#include "store/sql/Sql.h"

#include <utility>

namespace tallybrook {

Reading::Reading(Connection& connection, const Clock& clock) : connection_(connection), clock_(clock) {}

UnderstoodStatement Reading::understand(const std::string& sql) {
    constexpr std::size_t kMostPlans = 200;
    StatementShape shape = shapeOf(sql);
    auto found = plans_.find(shape.text);
    if (found == plans_.end()) {
        auto plan = onFile([&] {
            return std::make_shared<Plan>(connection_.transaction(), parseSelect(sql, currentYear()));
        });
        if (plans_.size() >= kMostPlans)
            plans_.clear();
        found = plans_.emplace(std::move(shape.text), std::move(plan)).first;
    }
    UnderstoodStatement understood{.plan = found->second, .values = {}};
    for (const Literal& literal : shape.literals)
        understood.values.push_back(valueOf(literal, currentYear()));
    return understood;
}

void Reading::readBeforeChange(const Table& table, std::int64_t key) {
    for (Snapshot* const snapshot : open_)
        snapshot->readBeforeChange(table, key);
}

}  // namespace tallybrook
