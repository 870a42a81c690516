#pragma once

#include <string_view>

namespace tallybrook {

/// Whether a file begins as a Jet database does, the form in which logbooks were kept before.
inline bool isOldLogbook(std::string_view head) {
    return head.starts_with(std::string_view("\0\1\0\0Standard Jet DB\0", 20));
}

}  // namespace tallybrook
