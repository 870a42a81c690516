#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace tallybrook {

/// Reads the bytes from a place of a file on.
using ReadPart = std::function<void(std::span<char> bytes, std::int64_t at)>;

/// Takes what lies between two places of a file, part after part.
template <typename Take>
void forEachPart(const ReadPart& read, std::int64_t from, std::int64_t to, Take take) {
    constexpr std::int64_t kAtOnce = 1 << 18;
    std::vector<char> bytes(kAtOnce);
    for (std::int64_t at = from; at < to; at += kAtOnce) {
        const auto part = std::span(bytes).first(static_cast<std::size_t>(std::min(kAtOnce, to - at)));
        read(part, at);
        take(part);
    }
}

/// A hash of what lies between two places of a file.
std::uint64_t hashOf(const ReadPart& read, std::int64_t from, std::int64_t to);

}  // namespace tallybrook
