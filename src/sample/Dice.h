#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace tallybrook::sample {

/// Chance that comes out the same on every machine: the generator is fixed by the language to the bit, and
/// all that is made of it are whole numbers. The library's own distributions differ from one to another.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    /// One of the numbers from `least` to `most`, all equally likely.
    int between(int least, int most) {
        const auto choices = static_cast<std::uint64_t>(most - least) + 1;
        return least + static_cast<int>(engine_() % choices);
    }

    /// True that many times in a thousand.
    bool happens(int perThousand) { return between(1, 1000) <= perThousand; }

    /// One of the elements, all equally likely.
    template <typename List>
    const auto& anyOf(const List& list) {
        return list[static_cast<std::size_t>(between(0, static_cast<int>(std::size(list)) - 1))];
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace tallybrook::sample
