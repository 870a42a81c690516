#pragma once

namespace tallybrook::bench {

/// How much memory this process needs at its peak, above what it needed when the watch began.
class MemoryWatch {
public:
    MemoryWatch();
    /// In kibibytes.
    [[nodiscard]] long peak() const;

private:
    long idle_;
};

}  // namespace tallybrook::bench
