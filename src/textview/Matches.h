#pragma once

#include <QString>
#include <optional>
#include <span>
#include <vector>

namespace tallybrook {

/// The places where a sought text stands in another one, in their order and without overlaps. A place is the
/// number of its first character.
class Matches {
public:
    /// No place at all.
    Matches() = default;
    /// Nothing is found where nothing is sought.
    Matches(const QString& text, const QString& sought, Qt::CaseSensitivity sensitivity);

    /// One of the places.
    struct Found {
        int index;        ///< the how manyth place it is, from 0
        int place;        ///< the number of its first character
        bool hasWrapped;  ///< whether the search went on from the other end of the text
    };
    /// The first place at or behind a position, or else the first of all.
    [[nodiscard]] std::optional<Found> from(int position) const;
    /// The last place before a position, or else the last of all.
    [[nodiscard]] std::optional<Found> before(int position) const;
    /// The places that have a character at `first` or behind it and before `end`.
    [[nodiscard]] std::span<const int> within(int first, int end) const;

    [[nodiscard]] int count() const { return static_cast<int>(places_.size()); }
    /// How many characters each match has.
    [[nodiscard]] int length() const { return length_; }

private:
    /// How many places lie before a position.
    [[nodiscard]] int countBefore(int position) const;
    [[nodiscard]] Found at(int index, bool hasWrapped) const;

    std::vector<int> places_;
    int length_ = 0;
};

}  // namespace tallybrook
