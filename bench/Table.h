#pragma once

#include "Work.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace tallybrook::bench {

/// What came out of all runs.
class Results : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The name under which a side of a work is run in a logbook of that size; `isProgram` or its limit.
    static std::string nameOf(const std::string& work, int events, bool isProgram);

    /// A figure of a run, times in milliseconds: the median of the repetitions; nothing where there were
    /// none.
    [[nodiscard]] std::optional<double> figure(const std::string& run, const std::string& unit) const;

private:
    std::map<std::string, std::vector<double>> figures_;  // by run, or run and counter
};

/// All that was measured in one table, as Markdown: with the limit beside each figure, how it grows, and
/// whether it meets its target.
std::string tableOf(const Results& results);

}  // namespace tallybrook::bench
