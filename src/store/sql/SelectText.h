#pragma once

#include "store/sql/Sql.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

/// How a value of the criteria goes into a parameter.
enum class ParameterForm { AsIs, Folded };

/// A parameter for a value of the criteria.
struct Parameter {
    std::size_t value;  // its index among the values of the statement
    ParameterForm form;
};

/// A column in a list of ORDER BY.
std::string ordering(const Column& column);

/// What a statement of the subset is for SQLite, but for its list of fields, with one parameter for the last
/// key and others for the values of the criteria.
class SelectText {
public:
    explicit SelectText(const Select& select);

    /// From FROM on.
    [[nodiscard]] const std::string& sql() const { return sql_; }
    /// Those behind the parameter for the last key.
    [[nodiscard]] const std::vector<Parameter>& parameters() const { return parameters_; }

private:
    [[nodiscard]] std::string condition();
    std::string compared(const Criterion& criterion);
    std::string lookedUp(const Criterion& criterion);
    [[nodiscard]] std::string ending() const;
    void addParameter(ParameterForm form) { parameters_.push_back({value_, form}); }

    const Select& select_;
    std::string sql_;
    std::vector<Parameter> parameters_;
    std::size_t value_ = 0;  // the index of the criterion at hand
};

}  // namespace tallybrook
