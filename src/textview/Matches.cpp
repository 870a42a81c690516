#include "textview/Matches.h"

#include <QStringMatcher>
#include <algorithm>

namespace tallybrook {

Matches::Matches(const QString& text, const QString& sought, Qt::CaseSensitivity sensitivity)
    : length_(static_cast<int>(sought.size())) {
    if (sought.isEmpty())
        return;
    const QStringMatcher matcher(sought, sensitivity);
    for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + length_))
        places_.push_back(static_cast<int>(at));
}

std::optional<Matches::Found> Matches::from(int position) const {
    if (places_.empty())
        return std::nullopt;
    const int index = countBefore(position);
    return index < count() ? at(index, false) : at(0, true);
}

std::optional<Matches::Found> Matches::before(int position) const {
    if (places_.empty())
        return std::nullopt;
    const int index = countBefore(position);
    return index > 0 ? at(index - 1, false) : at(count() - 1, true);
}

std::span<const int> Matches::within(int first, int end) const {
    const int begin = countBefore(first - length_ + 1);
    return std::span(places_).subspan(static_cast<std::size_t>(begin),
                                      static_cast<std::size_t>(std::max(countBefore(end) - begin, 0)));
}

int Matches::countBefore(int position) const {
    return static_cast<int>(std::ranges::lower_bound(places_, position) - places_.begin());
}

Matches::Found Matches::at(int index, bool hasWrapped) const {
    return {index, places_[static_cast<std::size_t>(index)], hasWrapped};
}

}  // namespace tallybrook
