#include "reports/SpareMatrix.h"

#include "bowling/Marks.h"
#include "reports/CountedFigures.h"
#include "reports/ReportRun.h"
#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <limits>

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr std::size_t kMostRows = std::numeric_limits<std::int16_t>::max();

/// A whole number as the report writer pads it: a blank on either side, then `width` less its digits.
std::string padded(Int32 number, int width) {
    return fmt::format(" {:<{}} ", number.value(), width);
}

std::string matrixLine(const SpareRow& row) {
    const auto length = static_cast<int>(characterCount(row.leave));
    return fmt::format("{}{:{}}{}{}{}%\t{}", row.leave, "", std::max(24 - length, 0),
                       padded(row.attempts, 16), padded(row.conversions, 15), row.percentage, row.perGame);
}

}  // namespace

void SpareMatrix::count(const std::string& leave, bool converted) {
    auto found = places_.find(leave);
    if (found == places_.end()) {
        if (rows_.size() == kMostRows)
            throw RunTimeError(error::kOverflow);
        rows_.push_back({.leave = leave});
        found = places_.emplace(leave, rows_.size() - 1).first;
    }
    SpareRow& row = rows_[found->second];
    ++row.attempts;
    if (converted)
        ++row.conversions;
}

void SpareMatrix::derive(Int32 pinfallGames) {
    for (SpareRow& row : rows_) {
        const double attempts = row.attempts.value();
        row.percentage = formatNumber(row.conversions.value() / attempts * 100, 2);
        row.perGame = pinfallGames == 0 ? "0" : formatNumber(attempts / pinfallGames.value(), 1);
    }
}

void SpareFigures::countGames(EventRows& event) {
    for (const StoredGame& game : event.games()) {
        const bool isPinfall = isText(game.scoreType, "P");
        const Int16 number = toInt16(game.number);
        if (!isPinfall && !isText(game.scoreType, "L"))
            continue;
        for (const StoredFrame& frame : event.framesOf(number.value()))
            countFrame(frame, isPinfall);
    }
}

void SpareFigures::countFrame(const StoredFrame& frame, bool isPinfall) {
    if (toDouble(frame.number) < kFrames)
        countUpToNinth(frame, isPinfall);
    else
        countTenth(frame, isPinfall);
}

void SpareFigures::countUpToNinth(const StoredFrame& frame, bool isPinfall) {
    if (resultOf(frame.firstBall) == BallResult::Strike)
        return addFirstBalls(1, 10);
    std::string made;
    const std::string& lineScore = toText(frame.lineScore, made);
    const std::string_view first = markOf(lineScore, 1);
    const bool converted = isSpare(markOf(lineScore, 2));
    addFirstBalls(1, countOf(first));
    if (first == "9") {
        ++firstBalls.SinglePinAttempts;
        if (converted)
            ++firstBalls.SinglePinConverted;
    }
    if (isPinfall)
        addLeave(frame.firstBall, converted);
}

/// An open tenth frame counts nothing here.
void SpareFigures::countTenth(const StoredFrame& frame, bool isPinfall) {
    std::string made;
    const std::string& lineScore = toText(frame.lineScore, made);
    const auto pins = [&](std::size_t n) { return countOf(markOf(lineScore, n)); };
    const auto addSpared = [&](const Value& leave) {
        if (isPinfall)
            addLeave(leave, true);
    };
    switch (tenthFrameOf(tenthFrameIn(frame))) {
        case TenthFrame::ThreeStrikes:
            return addFirstBalls(3, 30);
        case TenthFrame::TwoStrikes:
            return addFirstBalls(3, 20 + pins(3));
        case TenthFrame::StrikeThenSpare:
            addFirstBalls(2, 10 + pins(2));
            return addSpared(frame.secondBall);
        case TenthFrame::SpareThenStrike:
            addFirstBalls(2, 10 + pins(1));
            return addSpared(frame.firstBall);
        case TenthFrame::SpareThenOther:
            addFirstBalls(2, pins(1) + pins(3));
            return addSpared(frame.firstBall);
        case TenthFrame::Open:
        case TenthFrame::None:
            return;
    }
}

void SpareFigures::addFirstBalls(int balls, int pins) {
    balls_ += balls;
    pins_ += pins;
}

void SpareFigures::addLeave(const Value& leave, bool converted) {
    isMatrixFull = true;
    std::string made;
    matrix.count(toText(leave, made), converted);
    isMatrixFull = false;
}

void SpareFigures::derive(const ScoringModes& modes) {
    firstBalls.SinglePinAvg = perGame(firstBalls.SinglePinAttempts, modes.gamesWithFrames());
    if (balls_ != 0)
        firstBalls.FirstBallAvg = toInt16(static_cast<double>(pins_.value()) / balls_.value());
    firstBalls.SinglePinPct = percentage(firstBalls.SinglePinConverted, firstBalls.SinglePinAttempts);
    matrix.derive(modes.PinfallGames);
}

void Build_Sp_Sum(ReportRun& run, Counted<SpareFigures>& spares, const ScoringModes& modes) {
    run.procedure("Build_Sp_Sum", [&] {
        run.requireRecordsets();
        if (spares.figures.isMatrixFull)
            run.procedure("Add_Spare_Matrix", [&] { spares.raiseFailure(); });
        run.requireRecordsets();
        spares.raiseFailure();
        spares.figures.derive(modes);
    });
}

void Print_Spare_Summary(ReportRun& run, const ScoringModes& modes, const StrikeSpareCounts& counts,
                         const FirstBallFigures& figures) {
    run.procedure("Print_Spare_Summary", [&] {
        run.print("\r\nStrike / Spare Summary Statistics\r\n---------------------------------");
        run.print(fmt::format(
            "(Based on {} games recorded in 'Pinfall' mode, {} games recorded in 'Line Score' mode)",
            text(modes.PinfallGames), text(modes.LineScoreGames)));
        run.print(fmt::format("\r\nStrikes: {}\tStrike Percentage: {}%\tAvg / Game: {}", text(counts.Strikes),
                              doubleText(counts.StrikePct), text(counts.StrikeAvg)));
        // The spares' line repeats the strikes per game; those of the spares are not printed.
        run.print(fmt::format("\r\nSpares: {}\tSpare Percentage: {}%\t\tAvg / Game: {}", text(counts.Spares),
                              doubleText(counts.SparePct), text(counts.StrikeAvg)));
        run.print(fmt::format("\r\nOpen Frames: {}\tAvg / Game: {}", text(counts.OpenFrames),
                              text(counts.OpenAvg)));
        run.print("\r\nSingle Pin Spares\r\n-----------------");
        run.print(fmt::format("Attempts: {}\t\tConversions: {}\tPercentage: {}%\tAvg / game: {}",
                              text(figures.SinglePinAttempts), text(figures.SinglePinConverted),
                              doubleText(figures.SinglePinPct), text(figures.SinglePinAvg)));
        run.print(fmt::format("\r\nFirst Ball Average: {}", text(figures.FirstBallAvg)));
    });
}

void Print_Spare_Matrix(ReportRun& run, const SpareMatrix& matrix, const ScoringModes& modes) {
    run.procedure("Print_Spare_Matrix", [&] {
        run.print(fmt::format("\r\nSpare Statistics (based on {} games in 'Pinfall' mode):",
                              text(modes.PinfallGames)));
        run.print(std::string(75, '-'));
        run.print(fmt::format("\r\n{:5}\t\t\t{:8}\t{:11}\tConversion", "", "", ""));
        run.print("Spare\t\t\tAttempts\tConversions\tPercentage\tAvg / Game");
        run.print("-----\t\t\t--------\t-----------\t----------\t----------");
        for (const SpareRow& row : matrix.rows())
            run.print(matrixLine(row));
    });
}

}  // namespace tallybrook
