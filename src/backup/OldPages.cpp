#include "backup/OldPages.h"

#include <algorithm>
#include <stdexcept>

namespace tallybrook {

namespace {

/// The smallest page of a database, so that every page begins and ends with a sector.
constexpr std::int64_t kSector = 512;

}  // namespace

void OldPages::keep(std::int64_t at, std::string_view bytes) noexcept {
    if (at >= size_)
        return;
    const std::scoped_lock lock(mutex_);
    try {
        isLost_ = isLost_ || bytes.empty();
        for (; !bytes.empty(); bytes = bytes.substr(std::min<std::size_t>(kSector, bytes.size()))) {
            sectors_.try_emplace(at, bytes.substr(0, kSector));
            at += kSector;
        }
    } catch (const std::exception&) {
        isLost_ = true;
    }
}

void OldPages::restore(std::span<char> bytes, std::int64_t at) const {
    const std::scoped_lock lock(mutex_);
    if (isLost_)
        throw std::runtime_error("The logbook was written while it was copied.");
    const std::int64_t end = at + std::ssize(bytes);
    for (auto sector = sectors_.lower_bound(at / kSector * kSector);
         sector != sectors_.end() && sector->first < end; ++sector) {
        const auto& [place, kept] = *sector;
        const std::int64_t from = std::max(place, at);
        const std::int64_t to = std::min(place + std::ssize(kept), end);
        std::copy(kept.begin() + (from - place), kept.begin() + (to - place), bytes.begin() + (from - at));
    }
}

}  // namespace tallybrook
