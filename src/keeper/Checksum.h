#pragma once

#include <string>
#include <string_view>

#include <nettle/sha2.h>

namespace tallybrook::keeper {

/// The SHA-256 of bytes that come piece by piece.
class Checksum {
public:
    Checksum() { sha256_init(&state_); }

    void add(std::string_view bytes);
    /// The checksum of all bytes so far in 64 hexadecimal digits; then it begins anew.
    [[nodiscard]] std::string take();

private:
    sha256_ctx state_{};
};

/// Bytes as hexadecimal digits, two for each.
std::string hexOf(std::string_view bytes);

}  // namespace tallybrook::keeper
