#include "carry/JetHeader.h"

#include "carry/JetBytes.h"
#include "store/file/OldLogbook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <string>
#include <utility>

namespace tallybrook::carry {

namespace {

constexpr std::size_t kTextAt = 4;
constexpr std::size_t kVersionAt = 0x14;
constexpr unsigned char kJet4 = 1;
constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 31U;  // of any such file

// A part of the page is masked.
constexpr std::size_t kMaskedAt = 0x18;
constexpr std::size_t kMaskedSize = 128;
constexpr std::size_t kKeyAt = 0x3E;
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kPasswordSize = 40;
constexpr std::size_t kDateAt = 0x72;

constexpr std::array<unsigned char, 4> kMaskKey{0xC7, 0xDA, 0x39, 0x6B};

/// The bytes that RC4 makes of the key, which mask the page.
std::array<unsigned char, kMaskedSize> mask() {
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    std::size_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = (j + state[i] + kMaskKey[i % kMaskKey.size()]) % state.size();
        std::swap(state[i], state[j]);
    }
    std::array<unsigned char, kMaskedSize> bytes{};
    j = 0;
    for (std::size_t i = 1; i <= bytes.size(); ++i) {
        j = (j + state[i]) % state.size();
        std::swap(state[i], state[j]);
        bytes[i - 1] = state[static_cast<std::size_t>(state[i] + state[j]) % state.size()];
    }
    return bytes;
}

std::string unmasked(std::string_view page) {
    std::string plain(page);
    const auto bytes = mask();
    for (std::size_t at = 0; at < bytes.size() && kMaskedAt + at < plain.size(); ++at)
        plain[kMaskedAt + at] =
            static_cast<char>(static_cast<unsigned char>(plain[kMaskedAt + at]) ^ bytes[at]);
    return plain;
}

/// The day of a date as it masks a password.
std::uint32_t dayOf(double date) {
    constexpr double kMost = 2147483647;
    return std::abs(date) <= kMost ? static_cast<std::uint32_t>(static_cast<std::int32_t>(date)) : 0;
}

bool hasPassword(std::string_view plain) {
    const std::uint32_t day = dayOf(numberAt<double>(plain, kDateAt));
    for (std::size_t at = 0; at < kPasswordSize; at += sizeof day) {
        if (numberAt<std::uint32_t>(plain, kPasswordAt + at) != day)
            return true;
    }
    return false;
}

/// The kinds that another text in the place of the usual one tells.
struct Mark {
    std::string_view text;
    JetKind kind;
};
constexpr std::array<Mark, 2> kOtherMarks{
    {{"Standard ACE DB", JetKind::Access2007}, {"MSISAM Database", JetKind::OtherVariant}}};

JetKind kindByMark(std::string_view page) {
    for (const Mark& mark : kOtherMarks) {
        if (page.substr(std::min(kTextAt, page.size())).starts_with(mark.text))
            return mark.kind;
    }
    return isOldLogbook(page) ? JetKind::Readable : JetKind::NoDatabase;
}

JetKind kindByVersion(std::string_view page) {
    const auto version = numberAt<unsigned char>(page, kVersionAt);
    if (version == kJet4)
        return JetKind::Readable;
    return version < kJet4 ? JetKind::Jet3 : JetKind::Access2007;
}

JetKind kindByLock(std::string_view page) {
    const std::string plain = unmasked(page);
    if (numberAt<std::uint32_t>(plain, kKeyAt) != 0)
        return JetKind::Encoded;
    return hasPassword(plain) ? JetKind::Password : JetKind::Readable;
}

}  // namespace

JetKind kindOf(std::string_view page, std::uintmax_t size) {
    if (const JetKind kind = kindByMark(page); kind != JetKind::Readable)
        return kind;
    if (const JetKind kind = kindByVersion(page); kind != JetKind::Readable)
        return kind;
    if (page.size() < kPageSize || size % kPageSize != 0)
        return JetKind::CutOff;
    return size > kLargest ? JetKind::TooLarge : kindByLock(page);
}

std::string_view refusalOf(JetKind kind) {
    switch (kind) {
        case JetKind::Readable:
            break;
        case JetKind::NoDatabase:
            return "The file is no Access database. Please choose the old logbook, whose name ends in .mdb.";
        case JetKind::OtherVariant:
            return "The file is a database of another program (MSISAM), not an Access database.";
        case JetKind::Access2007:
            return "The file is an Access database of 2007 or later (ACE). Please save it in Access as a "
                   "database of "
                   "Access 2000 or of Access 2002-2003 (.mdb), and carry that over.";
        case JetKind::Jet3:
            return "The file is an Access database of 97 or earlier (Jet 3). Please save it in Access as a "
                   "database "
                   "of Access 2000 or of Access 2002-2003 (.mdb), and carry that over.";
        case JetKind::Encoded:
            return "The file is encrypted. Please decrypt it in Access, and carry that over.";
        case JetKind::Password:
            return "The file is protected by a password. Please remove the password in Access, and carry "
                   "that over.";
        case JetKind::CutOff:
            return "The end of the file is missing. Please look for another copy of it.";
        case JetKind::TooLarge:
            return "The file is larger than an Access database can be. Please look for another copy of it.";
    }
    return {};
}

}  // namespace tallybrook::carry
