#include "keeper/Difference.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

/// Pairs the events of a backup with those of today, the same ones first.
class Pairing {
public:
    Pairing(const Summary& backup, const Summary& today) : backup_(backup), today_(today) {
        for (const EventSummary& event : today.events)
            unpaired_.emplace(event.fingerprint, &event);
    }

    Difference take() {
        difference_.fates.assign(backup_.events.size(), Fate::Deleted);
        difference_.strays = backup_.strays != today_.strays;
        pairSame();
        pairByKeys();
        for (const auto& [fingerprint, event] : unpaired_)
            difference_.added += event->counts;
        return std::move(difference_);
    }

private:
    void pairSame() {
        for (std::size_t place = 0; place < backup_.events.size(); ++place) {
            const auto same = unpaired_.find(backup_.events[place].fingerprint);
            if (same == unpaired_.end())
                continue;
            unpaired_.erase(same);
            difference_.fates[place] = Fate::Same;
        }
    }

    void pairByKeys() {
        std::unordered_map<std::int64_t, const EventSummary*> byKeys;
        for (const auto& [fingerprint, event] : unpaired_)
            byKeys[event->key] = event;
        std::unordered_set<const EventSummary*> paired;
        for (std::size_t place = 0; place < backup_.events.size(); ++place) {
            if (difference_.fates[place] == Fate::Same)
                continue;
            const EventSummary& before = backup_.events[place];
            if (const auto now = byKeys.find(before.key); now != byKeys.end()) {
                difference_.fates[place] = Fate::Changed;
                noteChange(before.counts, now->second->counts);
                paired.insert(now->second);
            } else {
                difference_.deleted += before.counts;
            }
        }
        std::erase_if(unpaired_, [&](const auto& entry) { return paired.contains(entry.second); });
    }

    void noteChange(const Counts& before, const Counts& now) {
        ++difference_.changed;
        for (auto count : {&Counts::games, &Counts::frames}) {
            difference_.added.*count += std::max<std::int64_t>(now.*count - before.*count, 0);
            difference_.deleted.*count += std::max<std::int64_t>(before.*count - now.*count, 0);
        }
    }

    const Summary& backup_;
    const Summary& today_;
    Difference difference_;
    std::unordered_multimap<std::uint64_t, const EventSummary*> unpaired_;  // of today
};

/// "is" or "are", "was" or "were".
const char* verb(const Counts& counts, const char* one, const char* more) {
    return counts.all() == 1 ? one : more;
}

}  // namespace

std::string inWords(Fate fate) {
    static constexpr std::array kWords{"as today", "changed since", "deleted since"};
    return kWords[static_cast<std::size_t>(fate)];
}

Difference differenceOf(const Summary& backup, const Summary& today) {
    return Pairing(backup, today).take();
}

std::string inWords(const Difference& difference) {
    std::vector<std::string> parts;
    if (difference.added != Counts{})
        parts.push_back(
            fmt::format("{} {} not in it", inWords(difference.added), verb(difference.added, "is", "are")));
    if (difference.deleted != Counts{})
        parts.push_back(fmt::format("{} {} deleted since", inWords(difference.deleted),
                                    verb(difference.deleted, "was", "were")));
    if (difference.changed != 0)
        parts.push_back(difference.changed == 1
                            ? "1 event was changed since"
                            : fmt::format("{} events were changed since", difference.changed));
    if (difference.strays)
        parts.emplace_back("games or frames without an event differ");
    return parts.empty() ? "the same as today's logbook" : fmt::format("{}", fmt::join(parts, "; "));
}

}  // namespace tallybrook::keeper
