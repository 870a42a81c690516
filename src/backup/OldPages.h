#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

namespace tallybrook {

/// What stood in a file before it was written over: one thread keeps it while it writes, another one restores
/// it to what it reads, and so reads the file as it was.
class OldPages {
public:
    /// `size` is that of the file as it is to be read.
    explicit OldPages(std::int64_t size) : size_(size) {}

    [[nodiscard]] std::int64_t size() const { return size_; }
    /// Keeps the bytes from a place on that are about to be written over; what was kept of the same place
    /// before stays. None are bytes that cannot be read, without which nothing can be restored any more.
    /// Raises no error.
    void keep(std::int64_t at, std::string_view bytes) noexcept;
    /// Puts what was kept into bytes that have been read from a place on. Throws std::runtime_error where
    /// something could not be kept.
    void restore(std::span<char> bytes, std::int64_t at) const;

private:
    const std::int64_t size_;
    mutable std::mutex mutex_;                     // for what follows
    std::map<std::int64_t, std::string> sectors_;  // by their places
    bool isLost_ = false;
};

}  // namespace tallybrook
