#include "desktop/KeyNames.h"

#include <QKeySequence>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tallybrook {

namespace {

/// The keys that the program names otherwise than the toolkit.
constexpr std::array<std::pair<Qt::Key, std::string_view>, 5> kNames{{
    {Qt::Key_Backtab, "Tab"},
    {Qt::Key_Enter, "Return"},
    {Qt::Key_Escape, "Escape"},
    {Qt::Key_PageUp, "PageUp"},
    {Qt::Key_PageDown, "PageDown"},
}};

std::string nameOf(int key) {
    const auto* const known =
        std::ranges::find(kNames, key, [](const auto& entry) { return int{entry.first}; });
    if (known != kNames.end())
        return std::string(known->second);
    return QKeySequence(key).toString(QKeySequence::PortableText).toStdString();
}

}  // namespace

person::Key keyOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return {.alt = modifiers.testFlag(Qt::AltModifier),
            .control = modifiers.testFlag(Qt::ControlModifier),
            .shift = modifiers.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab,
            .name = nameOf(event.key())};
}

}  // namespace tallybrook
