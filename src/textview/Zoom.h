#pragma once

namespace tallybrook {

/// How large the text is shown, in steps between 50 and 400 percent.
class Zoom {
public:
    /// Actual size.
    Zoom() = default;
    /// The step nearest to a number of percent, whatever it is.
    explicit Zoom(int percent);

    /// So many steps larger, or smaller where negative; stays at the last step.
    [[nodiscard]] Zoom stepped(int steps) const;
    [[nodiscard]] int percent() const { return percent_; }

private:
    int percent_ = 100;
};

}  // namespace tallybrook
