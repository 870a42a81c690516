// Whatever the line, a field is cut by the rule or fails with an error of its own, and the walk over a record
// comes to its end. The first two bytes choose where the search starts and for what; the rest is the line.

#include "Require.h"
#include "handheld/CdbRecord.h"
#include "runtime/TextEncoding.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace tallybrook;
using test::require;

namespace {

void requireOwnError(const RunTimeError& failure) {
    require(failure.number() == error::kInvalidProcedureCall || failure.number() == error::kOverflow,
            "an error of its own was expected");
}

void cutOne(int start, char32_t delimiter, std::u32string_view line) {
    CutPosition at{.start = start, .end = -7};
    try {
        const std::u32string field = charactersOf(ParseDBLine(at, delimiter, line));
        require(start >= 1, "a start below 1 was taken");
        require(field.find(delimiter) == std::u32string::npos, "the field holds its delimiter");
        require(line.find(field) != std::u32string_view::npos, "the field does not stand in the line");
        require(at.start == at.end + 1, "the position is not behind the field");
        require(at.end == 0 || line[static_cast<std::size_t>(at.end.value()) - 1] == delimiter,
                "no delimiter closes the field");
    } catch (const RunTimeError& failure) {
        requireOwnError(failure);
        require(at.start == start && at.end == -7, "a failed cut has moved the position");
    }
}

void walk(const CdbFormat& format, const std::string& line) {
    CdbRecord record(format, requireOwnError);
    for (const std::string& one : {std::string(), line}) {
        record.take(one);
        for (int field = kFirstCutField; field <= format.lastField(); ++field) {
            try {
                record.cut(field, field);
            } catch (const RunTimeError& failure) {
                require(failure.number() == error::kOverflow, "a number fails with an overflow alone");
            }
        }
    }
    require(record.markedLine().starts_with(record.id() + ",0x0002,"), "the mark has no deleted status");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string line = decoded(bytes, encodingOf(bytes));
    cutOne(static_cast<std::int8_t>(data[0]), data[1] % 2 == 0 ? U',' : U'"', charactersOf(line));
    for (const CdbFormat* const format : {&kEventFormat, &kGameFormat, &kFrameFormat})
        walk(*format, line);
    try {
        static_cast<void>(recordCount(line));
    } catch (const RunTimeError& failure) {
        require(failure.number() == error::kOverflow, "a count fails with an overflow alone");
    }
    return 0;
}
