#include "reports/StrikeSpareCounts.h"

#include "bowling/Marks.h"
#include "reports/CountedFigures.h"
#include "reports/ReportRun.h"
#include "runtime/TextForms.h"

#include <array>

namespace tallybrook {

namespace {

/// What a kind of tenth frame adds to the counts.
struct Added {
    TenthFrame kind;
    int firstBalls;
    int strikes;
    int spareChances;
    int spares;
    int openFrames;
};

constexpr std::array<Added, 7> kAdded{{
    {TenthFrame::ThreeStrikes, 3, 3, 0, 0, 0},
    {TenthFrame::TwoStrikes, 3, 2, 0, 0, 0},
    {TenthFrame::StrikeThenSpare, 2, 1, 1, 1, 0},
    {TenthFrame::SpareThenStrike, 2, 1, 1, 1, 0},
    {TenthFrame::SpareThenOther, 2, 0, 1, 1, 0},
    {TenthFrame::Open, 1, 0, 1, 0, 1},
    {TenthFrame::None, 0, 0, 0, 0, 0},
}};

double ratio(Int32 part, Int32 whole) {
    return static_cast<double>(part.value()) / whole.value();
}

}  // namespace

void ScoringModes::countGames(EventRows& event) {
    for (const StoredGame& game : event.games()) {
        if (isText(game.scoreType, "P"))
            ++PinfallGames;
        else if (isText(game.scoreType, "L"))
            ++LineScoreGames;
        else
            ++ScoreOnlyGames;
    }
}

void StrikeSpareCounts::countGames(EventRows& event) {
    for (const StoredGame& game : event.games()) {
        const Int16 number = toInt16(leadingNumberOf(game.number));
        for (const StoredFrame& frame : event.framesOf(number.value())) {
            if (leadingNumberOf(frame.number) < kFrames)
                countFrame(frame.firstBall, frame.secondBall);
            else
                countTenthFrame(tenthFrameIn(frame));
        }
    }
}

void StrikeSpareCounts::countFrame(const Value& firstBall, const Value& secondBall) {
    ++FirstBalls;
    if (resultOf(firstBall) == BallResult::Strike) {
        ++Strikes;
        return;
    }
    ++SpareChances;
    if (resultOf(secondBall) == BallResult::Spare)
        ++Spares;
    else
        ++OpenFrames;
}

void StrikeSpareCounts::countTenthFrame(const TenthFrameValues& frame) {
    const Added& added = kAdded.at(static_cast<std::size_t>(tenthFrameOf(frame)));
    FirstBalls += added.firstBalls;
    Strikes += added.strikes;
    SpareChances += added.spareChances;
    Spares += added.spares;
    OpenFrames += added.openFrames;
}

void StrikeSpareCounts::derive(const ScoringModes& modes) {
    StrikePct = percentage(Strikes, FirstBalls);
    SparePct = percentage(Spares, SpareChances);
    OpenPct = percentage(OpenFrames, SpareChances);
    const Int32 games = modes.gamesWithFrames();
    StrikeAvg = perGame(Strikes, games);
    SpareAvg = perGame(Spares, games);
    OpenAvg = perGame(OpenFrames, games);
}

Int32 perGame(Int32 count, Int32 games) {
    return games == 0 ? Int32{} : toInt32(ratio(count, games));
}

double percentage(Int32 part, Int32 whole) {
    return whole > 0 ? roundedTo(ratio(part, whole) * 100, 1) : 0;
}

void Get_StSp_Stats(ReportRun& run, Counted<StrikeSpareCounts>& strikes, const ScoringModes& modes) {
    run.procedure("Get_StSp_Stats", [&] {
        run.requireRecordsets();
        strikes.raiseFailure();
        strikes.figures.derive(modes);
    });
}

}  // namespace tallybrook
