#include "Table.h"

#include <algorithm>
#include <cstddef>

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

bool wasMeasured(const Pair& pair) {
    return pair.program || pair.limit;
}

/// One line of the table: a work's figure in logbooks of all sizes.
struct Line {
    std::string name;
    const Figure* figure;
    Pairs pairs;
};

std::vector<Line> linesOf(const Results& results) {
    std::vector<Line> lines;
    for (const Work& work : works()) {
        for (const Figure& figure : work.figures) {
            const Pairs pairs = pairsOf(results, work.name, figure.unit);
            if (std::ranges::any_of(pairs, wasMeasured))
                lines.push_back({work.name, &figure, pairs});
        }
    }
    return lines;
}

/// Which of the sizes were measured, in their order.
std::vector<std::size_t> sizesIn(const std::vector<Line>& lines) {
    std::vector<std::size_t> sizes;
    for (std::size_t size = 0; size < kSizes.size(); ++size) {
        if (std::ranges::any_of(lines, [size](const Line& line) { return wasMeasured(line.pairs[size]); }))
            sizes.push_back(size);
    }
    return sizes;
}

std::string head(const std::vector<std::size_t>& sizes) {
    std::string names = fmt::format("| {:<22} | {:<20} |", "work", "unit");
    std::string rule = fmt::format("|{:-<24}|{:-<22}|", "", "");
    for (const std::size_t size : sizes) {
        names += fmt::format(" {:>7} | {:>6} | {:>5} |", kSizes[size], "limit", "ratio");
        rule += fmt::format("{:->8}:|{:->7}:|{:->6}:|", "", "", "");
    }
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        names += fmt::format(" {:>6} |", fmt::format("× {}", kSizes[sizes[i]] / kSizes[sizes[i - 1]]));
        rule += fmt::format("{:->7}:|", "");
    }
    return names + fmt::format(" {:<26} | {:<12} |\n", "target", "") + rule +
           fmt::format("{:-<28}|{:-<14}|\n", "", "");
}

std::string textOf(const Line& line, const std::vector<std::size_t>& sizes) {
    std::string text = fmt::format("| {:<22} | {:<20} |", line.name, line.figure->unit);
    for (const std::size_t size : sizes) {
        const auto& [program, limit] = line.pairs[size];
        text += fmt::format(" {:>7} | {:>6} | {:>5} |", told(program), told(limit), quotient(program, limit));
    }
    for (std::size_t i = 1; i < sizes.size(); ++i)
        text +=
            fmt::format(" {:>6} |", quotient(line.pairs[sizes[i]].program, line.pairs[sizes[i - 1]].program));
    return text + fmt::format(" {:<26} | {:<12} |\n", line.figure->target.words,
                              verdict(line.figure->target, line.pairs));
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
    const std::vector<Line> lines = linesOf(results);
    const std::vector<std::size_t> sizes = sizesIn(lines);
    std::string table = head(sizes);
    for (const Line& line : lines)
        table += textOf(line, sizes);
    return table;
}

}  // namespace tallybrook::bench
