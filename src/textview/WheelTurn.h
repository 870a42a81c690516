#pragma once

#include <QWheelEvent>

namespace tallybrook {

/// Adds up the turns of a wheel, which may come in parts of a notch.
class WheelTurn {
public:
    /// The whole notches that an event completes, negative where it turns back.
    int notches(const QWheelEvent& event) {
        constexpr int kNotch = 120;
        turned_ += event.angleDelta().y();
        const int whole = turned_ / kNotch;
        turned_ %= kNotch;
        return whole;
    }

private:
    int turned_ = 0;
};

}  // namespace tallybrook
