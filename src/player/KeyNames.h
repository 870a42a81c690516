#pragma once

#include <Qt>
#include <optional>
#include <string_view>

namespace tallybrook {

/// The code of a key that has a name, as in "Tab" or "F1"; nothing where there is none of that name.
std::optional<Qt::Key> keyNamed(std::string_view name);

/// Whether the text is a key that can be pressed: a name or one character, after any of "Alt+", "Ctrl+" and
/// "Shift+".
bool isKey(std::string_view text);

}  // namespace tallybrook
