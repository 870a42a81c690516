#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace tallybrook::carry {

/// A number as it stands in a file, least byte first as in the machine's own memory; 0 where there are too
/// few bytes.
template <typename Number>
Number numberAt(std::string_view bytes, std::size_t at) {
    Number number{};
    if (at <= bytes.size() && sizeof number <= bytes.size() - at)
        std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

}  // namespace tallybrook::carry
