#pragma once

namespace tallybrook {

/// How often something was done of how many attempts.
struct Proportion {
    int made = 0;
    int attempts = 0;

    /// From 0 to 1; 0 without attempts.
    [[nodiscard]] double share() const;
    bool operator==(const Proportion&) const = default;
};

/// Between which values something lies, in nine of ten such cases.
struct Interval {
    double low;
    double high;

    [[nodiscard]] bool holds(double value) const { return low <= value && value <= high; }
};

/// Where the bowler's own share lies that such a count comes from, as Wilson's score interval has it. The
/// whole range without attempts.
Interval intervalOf(const Proportion& counted);

/// Where the difference of two shares, the second less the first, lies: Newcombe's interval out of both score
/// intervals, which holds for few attempts too.
Interval differenceOf(const Proportion& first, const Proportion& second);

/// What a difference says.
enum class Chance {
    TooFew,      ///< one of them has fewer than five attempts
    MayBe,       ///< chance alone may well do that
    Improbable,  ///< more than chance would do in nine of ten cases
};

Chance chanceOf(const Proportion& first, const Proportion& second);

}  // namespace tallybrook
