#include "keeper/Checksum.h"

#include <array>
#include <cstdint>

namespace tallybrook::keeper {

void Checksum::add(std::string_view bytes) {
    sha256_update(&state_, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
}

std::string Checksum::take() {
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&state_, digest.size(), digest.data());
    return hexOf({reinterpret_cast<const char*>(digest.data()), digest.size()});
}

std::string hexOf(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        hex += kDigits[number >> 4U];
        hex += kDigits[number & 0xFU];
    }
    return hex;
}

}  // namespace tallybrook::keeper
