#pragma once

#include "runtime/RunTimeError.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace tallybrook {

/// A list of a fixed length, with its indices from `first` on; error 9 for any other index.
template <typename Element>
class BoundedList {
public:
    explicit BoundedList(std::vector<Element> elements, int first = 0)
        : elements_(std::move(elements)), first_(first) {}

    [[nodiscard]] Element& operator[](int index) { return elements_[placeOf(index)]; }
    [[nodiscard]] const Element& operator[](int index) const { return elements_[placeOf(index)]; }

    [[nodiscard]] auto begin() { return elements_.begin(); }
    [[nodiscard]] auto end() { return elements_.end(); }
    [[nodiscard]] auto begin() const { return elements_.begin(); }
    [[nodiscard]] auto end() const { return elements_.end(); }

private:
    [[nodiscard]] std::size_t placeOf(int index) const {
        if (index < first_ || static_cast<std::size_t>(index - first_) >= elements_.size())
            throw RunTimeError(error::kSubscriptOutOfRange);
        return static_cast<std::size_t>(index - first_);
    }

    std::vector<Element> elements_;
    int first_;
};

}  // namespace tallybrook
