#pragma once

#include "runtime/Value.h"
#include "store/reading/Plan.h"
#include "store/sql/Sql.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

/// A statement of the subset, understood: how it is run, and its values.
struct UnderstoodStatement {
    std::shared_ptr<Plan> plan;
    std::vector<Value> values;
};

/// The statements understood last, by which one that differs from them in nothing but its plain numbers is
/// understood without being taken apart: a walk opens the same few statements for one event after another.
class RecentStatements {
public:
    /// The statement understood, if it is like one of these.
    [[nodiscard]] std::optional<UnderstoodStatement> find(std::string_view sql) const;
    /// Keeps a statement, with the literals that its values come from. One with anything but plain numbers is
    /// not kept.
    void keep(const std::string& sql, const std::vector<Literal>& literals,
              const UnderstoodStatement& statement);

private:
    struct Recent {
        std::vector<std::string> parts;  // what stands before, between and behind the numbers
        std::shared_ptr<Plan> plan;

        [[nodiscard]] bool reads(std::string_view sql, std::vector<Value>& values) const;
    };
    std::array<Recent, 4> statements_;
    std::size_t next_ = 0;  // to be replaced
};

}  // namespace tallybrook
