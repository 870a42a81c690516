#include "textview/Zoom.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tallybrook {

namespace {

constexpr std::array<int, 14> kSteps{50, 60, 70, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};

}  // namespace

Zoom::Zoom(int percent)
    : percent_(*std::ranges::min_element(kSteps, {}, [wanted = std::clamp(percent, 0, 1000)](int step) {
          return std::abs(step - wanted);
      })) {}

Zoom Zoom::stepped(int steps) const {
    constexpr int kLast = static_cast<int>(kSteps.size()) - 1;
    const auto now = static_cast<int>(std::ranges::find(kSteps, percent_) - kSteps.begin());
    const int next = now + std::clamp(steps, -kLast, kLast);
    return Zoom(kSteps[static_cast<std::size_t>(std::clamp(next, 0, kLast))]);
}

}  // namespace tallybrook
