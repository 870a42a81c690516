#pragma once

#include <chrono>

class QSettings;

namespace tallybrook {

/// What a desktop does besides drawing screens.
struct DesktopHabits {
    /// How long the user is left to wait for a record before being asked.
    std::chrono::milliseconds patience = std::chrono::seconds{5};
    /// Where the windows remember how they were left; nullptr for no longer than the program runs.
    QSettings* settings = nullptr;
    /// Whether the windows answer keys and double clicks that the screens know nothing of.
    bool hasOwnKeys = true;
};

}  // namespace tallybrook
