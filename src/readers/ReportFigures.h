#pragma once

#include "bowling/Pins.h"
#include "figures/BowledEvent.h"
#include "readers/ScoreSheet.h"

#include <QString>
#include <optional>
#include <vector>

// What a report tells in figures, read from its text alone.
namespace tallybrook {

/// How many games scored in a range.
struct ScoreRange {
    QString label;  ///< as in "100 - 119"
    int lowest;
    int highest;
    int games;

    [[nodiscard]] bool holds(int score) const { return lowest <= score && score <= highest; }
    bool operator==(const ScoreRange&) const = default;
};

/// A game or series and its day.
struct DatedScore {
    int score;
    QString date;  ///< empty where the report does not tell it

    bool operator==(const DatedScore&) const = default;
};

/// The scores of a statistical report.
struct ScoreFigures {
    std::vector<ScoreRange> ranges;  ///< from the lowest upward, those that the report has
    std::optional<DatedScore> high;
    std::optional<DatedScore> low;

    bool operator==(const ScoreFigures&) const = default;
};

/// The highest and the lowest series among those of one length; at least one of them.
struct SeriesFigures {
    int games;
    std::optional<DatedScore> high;
    std::optional<DatedScore> low;

    bool operator==(const SeriesFigures&) const = default;
};

/// How often a single pin was left, and how often it was spared.
struct SinglePins {
    int attempts;
    int made;

    bool operator==(const SinglePins&) const = default;
};

/// The summary of strikes and spares. Percentages are texts as the report has them, as in "33.3".
struct StrikeFigures {
    std::optional<int> strikes;
    QString strikePercent;  ///< of the racks on which a strike was possible
    std::optional<int> spares;
    QString sparePercent;  ///< of the first balls that left pins
    std::optional<int> opens;
    std::optional<int> lineScoreGames;  ///< whose frames all count as open
    std::optional<SinglePins> singlePins;
    std::optional<int> firstBallAverage;

    bool operator==(const StrikeFigures&) const = default;
};

/// A row of the spare matrix.
struct LeaveFigures {
    QString pins;  ///< as in "7-10"
    /// The pins left standing; nothing where the text is no list of pins.
    std::optional<Pins> standing;
    int attempts;
    int made;

    bool operator==(const LeaveFigures&) const = default;
};

/// A game of an event or game report.
struct GameFigures {
    QString number;
    QString score;                     ///< as recorded; empty where the report does not tell it
    std::optional<SheetMarks> frames;  ///< nothing for a game without frames
    /// The pins of each frame that a spare was open on, as in "7-10"; empty where the report does not tell
    /// them.
    SheetMarks leaves = {};

    bool operator==(const GameFigures&) const = default;
};

/// The events of a statistical report.
struct EventFigures {
    BowledEvents bowled;  ///< by their dates, otherwise in the order of the report
    int unscored = 0;     ///< events without a pin or without an average, which are not among them

    [[nodiscard]] bool isEmpty() const { return bowled.empty() && unscored == 0; }
    bool operator==(const EventFigures&) const = default;
};

/// All figures of a report; what it does not have is empty.
struct ReportFigures {
    std::vector<GameFigures> games;
    std::optional<ScoreFigures> scores;
    std::vector<SeriesFigures> series;
    std::optional<StrikeFigures> strikes;
    std::vector<LeaveFigures> leaves;  ///< the most attempts first, otherwise in the order of the report
    EventFigures events = {};

    [[nodiscard]] bool isEmpty() const;
    bool operator==(const ReportFigures&) const = default;
};

/// Reads the figures of a report with "\n" for its line ends. A text that is no report has none, a line that
/// is not known is passed over, and a figure whose line has been left out is absent: any text will do.
ReportFigures readFigures(const QString& text);

}  // namespace tallybrook
