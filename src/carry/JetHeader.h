#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Jet 4 keeps a database in pages of 4096 bytes; the first one tells what the file is.
namespace tallybrook::carry {

inline constexpr std::size_t kPageSize = 4096;

/// What a file is, by its first page and its size.
enum class JetKind {
    Readable,
    NoDatabase,
    OtherVariant,
    Access2007,
    Jet3,
    Encoded,
    Password,
    CutOff,
    TooLarge
};

/// `page` is the beginning of the file, one page or all of a shorter one; `size` is that of the file in
/// bytes.
JetKind kindOf(std::string_view page, std::uintmax_t size);

/// Why a file of a kind cannot be carried over, and what a person can do; empty for one that can.
std::string_view refusalOf(JetKind kind);

}  // namespace tallybrook::carry
