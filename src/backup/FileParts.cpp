#include "backup/FileParts.h"

#include <string_view>

namespace tallybrook {

std::uint64_t hashOf(const ReadPart& read, std::int64_t from, std::int64_t to) {
    constexpr std::uint64_t kPrime = 0x100000001b3;
    std::uint64_t hash = 0;  // the order of the parts counts
    forEachPart(read, from, to, [&hash](std::span<const char> part) {
        hash = (hash ^ std::hash<std::string_view>{}({part.data(), part.size()})) * kPrime;
    });
    return hash;
}

}  // namespace tallybrook
