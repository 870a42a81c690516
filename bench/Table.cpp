#include "Table.h"

#include <algorithm>

#include <fmt/format.h>

namespace tallybrook::bench {

namespace {

/// Three digits are worth telling.
std::string number(double value) {
    return value >= 99.5 ? fmt::format("{:.0f}", value) : fmt::format("{:.3g}", value);
}

std::string told(const std::optional<double>& value) {
    return value ? number(*value) : "";
}

std::string quotient(const std::optional<double>& of, const std::optional<double>& by) {
    return of && by && *by > 0 ? fmt::format("{:.1f}", *of / *by) : "";
}

Pairs pairsOf(const Results& results, const std::string& work, const std::string& unit) {
    Pairs pairs;
    std::ranges::transform(kSizes, pairs.begin(), [&](int events) {
        const auto figure = [&](bool isProgram) {
            return results.figure(Results::nameOf(work, events, isProgram), unit);
        };
        return Pair{.program = figure(true), .limit = figure(false)};
    });
    return pairs;
}

std::string verdict(const Target& target, const Pairs& pairs) {
    constexpr std::ptrdiff_t kNeeded = 2;  // sizes, of which every target speaks
    if (!target.isMet)
        return "";
    if (!std::all_of(pairs.begin(), pairs.begin() + kNeeded,
                     [](const Pair& pair) { return pair.program.has_value(); }))
        return "not measured";
    return target.isMet(pairs) ? "met" : "NOT MET";
}

bool wasMeasured(const Pairs& pairs) {
    return std::ranges::any_of(pairs, [](const Pair& pair) { return pair.program || pair.limit; });
}

std::string head() {
    std::string names = fmt::format("| {:<22} | {:<7} |", "work", "unit");
    std::string rule = fmt::format("|{:-<24}|{:-<9}|", "", "");
    for (const int events : kSizes) {
        names += fmt::format(" {:>7} | {:>6} | {:>5} |", events, "limit", "ratio");
        rule += fmt::format("{:->8}:|{:->7}:|{:->6}:|", "", "", "");
    }
    for (std::size_t size = 1; size < kSizes.size(); ++size) {
        names += fmt::format(" {:>6} |", fmt::format("× {}", kSizes[size] / kSizes[size - 1]));
        rule += fmt::format("{:->7}:|", "");
    }
    return names + fmt::format(" {:<26} | {:<7} |\n", "target", "") + rule +
           fmt::format("{:-<28}|{:-<9}|\n", "", "");
}

std::string line(const std::string& name, const Figure& figure, const Pairs& pairs) {
    std::string line = fmt::format("| {:<22} | {:<7} |", name, figure.unit);
    for (const Pair& pair : pairs)
        line += fmt::format(" {:>7} | {:>6} | {:>5} |", told(pair.program), told(pair.limit),
                            quotient(pair.program, pair.limit));
    for (std::size_t size = 1; size < pairs.size(); ++size)
        line += fmt::format(" {:>6} |", quotient(pairs[size].program, pairs[size - 1].program));
    return line + fmt::format(" {:<26} | {:<7} |\n", figure.target.words, verdict(figure.target, pairs));
}

}  // namespace

void Results::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        const std::string& name = run.run_name.function_name;
        figures_[name].push_back(run.GetAdjustedRealTime());
        for (const auto& [counter, value] : run.counters)
            figures_[name + counter].push_back(value);
    }
}

std::string Results::nameOf(const std::string& work, int events, bool isProgram) {
    return fmt::format("{}, {}, {}", work, events, isProgram ? "program" : "limit");
}

std::optional<double> Results::figure(const std::string& run, const std::string& unit) const {
    const auto counted = figures_.find(run + unit);
    const auto found = counted == figures_.end() ? figures_.find(run) : counted;
    if (found == figures_.end())
        return std::nullopt;
    std::vector<double> sorted = found->second;
    std::ranges::sort(sorted);
    return sorted[sorted.size() / 2];
}

std::string tableOf(const Results& results) {
    std::string table = head();
    for (const Work& work : works()) {
        for (const Figure& figure : work.figures) {
            const Pairs pairs = pairsOf(results, work.name, figure.unit);
            if (wasMeasured(pairs))
                table += line(work.name, figure, pairs);
        }
    }
    return table;
}

}  // namespace tallybrook::bench
