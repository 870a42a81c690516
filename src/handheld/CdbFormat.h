#pragma once

#include "runtime/Integer.h"

#include <span>
#include <string_view>

namespace tallybrook {

/// How a field stands in its line: closed by the next comma, or between two quotes.
enum class CdbForm { Bare, Quoted };

/// What a field is read as. A whole number has 16 bits.
enum class CdbType { Text, WholeNumber, Double };

/// From where the search for a field starts.
enum class CdbStart {
    FirstColumn,  // the column that the format gives
    AsLeft,       // where the field before has left it
    StepBack,     // on the last character in front of the delimiter that closed the field before
};

/// One field of a record.
struct CdbField {
    CdbForm form;
    CdbType type;
    CdbStart start;
};

/// The number of the first field that is found by its delimiters; the two before it, record ID and status,
/// stand at fixed columns.
inline constexpr int kFirstCutField = 3;

/// How one of the handheld's export files is laid out, and the words in which its reading is logged. Fields
/// are told by their number in the record, from 1.
struct CdbFormat {
    std::string_view file;     // its name, without the extension
    std::string_view many;     // what its records are: "events"
    std::string_view title;    // the same at the beginning of a line
    std::string_view opening;  // behind the date of the log's first line; empty for no such line
    std::string_view nothing;  // logged when its record count of 0 ends the reading; empty if it does not
    Int16 firstColumn;         // where the search for the first field starts
    int lastBeforeStatus;      // the fields up to this one are cut even from a deleted record
    std::span<const CdbField> fields;  // from field 3 on
    std::span<const int> marked;       // the fields of the line that marks a record as deleted

    [[nodiscard]] const CdbField& field(int number) const {
        return fields[static_cast<std::size_t>(number - kFirstCutField)];
    }
    [[nodiscard]] int lastField() const { return kFirstCutField + static_cast<int>(fields.size()) - 1; }
};

extern const CdbFormat kEventFormat;
extern const CdbFormat kGameFormat;
extern const CdbFormat kFrameFormat;

}  // namespace tallybrook
