#pragma once

#include "carry/Cell.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What the process that reads an old logbook tells the one that asked for it. The first one works on a file
// that may be damaged in any way, so nothing that it says is believed unseen.
namespace tallybrook::carry {

/// A table of a logbook begins.
struct TableBegins {
    std::string name;                  // as the logbook calls it
    std::vector<std::string> columns;  // as the file calls them
    std::int64_t toldRows = 0;         // as many as the file says it has
    friend bool operator==(const TableBegins&, const TableBegins&) = default;
};
/// A row of it, with a cell for each column that the logbook has, too; see matchedColumns().
struct RowFound {
    std::vector<Cell> cells;
    friend bool operator==(const RowFound&, const RowFound&) = default;
};
/// The table is over.
struct TableEnds {
    std::int64_t lostRows = 0;  // that could not be read
    friend bool operator==(const TableEnds&, const TableEnds&) = default;
};
/// A table of a logbook whose rows lie in another database.
struct LinkedTable {
    std::string name;
    std::string database;
    friend bool operator==(const LinkedTable&, const LinkedTable&) = default;
};
/// A table that no logbook has.
struct OtherTable {
    std::string name;
    friend bool operator==(const OtherTable&, const OtherTable&) = default;
};
/// The file cannot be read.
struct ReadingFailed {
    std::string why;
    friend bool operator==(const ReadingFailed&, const ReadingFailed&) = default;
};
/// All has been read.
struct ReadingEnds {
    friend bool operator==(const ReadingEnds&, const ReadingEnds&) = default;
};

using Message =
    std::variant<TableBegins, RowFound, TableEnds, LinkedTable, OtherTable, ReadingFailed, ReadingEnds>;

/// Bytes that are no message.
class NoMessage : public std::runtime_error {
public:
    NoMessage() : std::runtime_error("what the reading process said makes no sense") {}
};

/// A message as bytes, behind their number.
std::string packed(const Message& message);

/// The bytes of a message without their number; throws NoMessage.
Message unpacked(std::string_view bytes);

/// How many bytes stand before a message, and tell how many it has.
inline constexpr std::size_t kMessageHead = sizeof(std::uint64_t);
/// The number in such a head.
std::uint64_t sizeOfMessage(std::string_view head);

}  // namespace tallybrook::carry
