#pragma once

#include "keeper/Checksum.h"
#include "keeper/StoredRow.h"
#include "keeper/Summary.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

// The lines of an archive: a text of UTF-8, each line one JSON value and a line feed.
//
//     {"format":"Tallybrook archive","version":1,"schema":1,"columns":{...},"counts":{...},"lastKeys":{...}}
//     {"event":[1,"Tuesday League","2026-11-03",...]}
//     {"game":[...]}
//     {"frame":[...]}
//     {"end":{"rows":12,"sha256":"..."}}
//
// Events come before games and these before frames, each in the order of their keys. The checksum is that of
// all bytes before the last line.
namespace tallybrook::keeper {

inline constexpr std::string_view kArchiveFormat = "Tallybrook archive";
inline constexpr int kArchiveVersion = 1;

/// The longest line that is written or read, in bytes.
inline constexpr std::size_t kLongestLine = std::size_t{64} << 20U;

/// The highest key that may have been given to a row that is gone. It leaves room below the last key that the
/// program counts to.
inline constexpr std::int64_t kHighestGoneKey = 2'000'000'000;

/// A kind of rows, as its lines call it.
struct RowKind {
    std::string_view name;
    std::string_view table;
    std::int64_t Counts::*count;
};
inline constexpr std::array<RowKind, 3> kRowKinds{{{"event", "tblEventInfo", &Counts::events},
                                                   {"game", "tblGameInfo", &Counts::games},
                                                   {"frame", "tblFrameInfo", &Counts::frames}}};
constexpr std::size_t kKinds = kRowKinds.size();

/// What the first line tells.
struct ArchiveHead {
    int schema = 0;
    std::array<std::vector<const Column*>, kKinds> columns = {};  // of each kind, the key first
    Counts counts = {};
    std::array<std::int64_t, kKinds> lastKeys = {};  // the highest key that there has ever been of each kind

    friend bool operator==(const ArchiveHead&, const ArchiveHead&) = default;
};

/// The first line, without its end.
std::string lineOf(const ArchiveHead& head);
/// Reads the first line. Throws ArchiveFault.
ArchiveHead headIn(const std::string& line);

/// The line of a row, without its end.
std::string lineOf(const RowKind& kind, const StoredRow& row);

/// The last line, without its end.
std::string lastLine(std::int64_t rows, const std::string& checksum);

/// What is wrong with a line of an archive; what() is a text for people without the number of the line.
class ArchiveFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Takes the lines of rows apart.
class RowLine {
public:
    explicit RowLine(const ArchiveHead& head) : head_(head) {}

    /// Reads a line. Throws ArchiveFault where it is no row of this archive.
    void read(const std::string& line);

    /// What was read last: the index of its kind among kRowKinds, and its values.
    [[nodiscard]] std::size_t kind() const { return kind_; }
    [[nodiscard]] const StoredRow& row() const { return row_; }

private:
    const ArchiveHead& head_;
    std::size_t kind_ = 0;
    StoredRow row_;
};

}  // namespace tallybrook::keeper
