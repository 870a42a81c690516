#include "reports/StrikeSpareCounts.h"

#include "bowling/Marks.h"
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

void Get_StSp_Stats(ReportRun& run, StrikeSpareCounts& counts, const ScoringModes& modes) {
    const auto countFrame = [&] {
        Recordset& row = *run.gRsFrame;
        if (leadingNumberOf(row["fldFrameNum"]) < kFrames)
            counts.countFrame(row["fldFirstBallRes"], row["fldSecondBallRes"]);
        else
            counts.countTenthFrame(tenthFrameIn(row));
    };
    run.procedure("Get_StSp_Stats", [&] {
        forEachRow(run.gRsEvent, run.gReportSQL, [&] {
            const Int32 eventKey = toInt32(run.gRsEvent->Fields("fldSessionNum"));
            forEachRow(run.gRsGame, gamesOf(eventKey), [&] {
                const Int16 game = toInt16(leadingNumberOf(run.gRsGame->Fields("fldGameNum")));
                forEachRow(run.gRsFrame, framesOf(eventKey, game), countFrame);
            });
        });
        counts.derive(modes);
    });
}

}  // namespace tallybrook
