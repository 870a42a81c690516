#pragma once

#include "handheld/CdbFormat.h"
#include "handheld/ParseDBLine.h"
#include "runtime/RunTimeError.h"
#include "runtime/Value.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

/// A record of an export file, cut from its line field by field. One object serves line after line: a field
/// whose cutting fails keeps what it held.
class CdbRecord {
public:
    /// `onFailure` is what ParseDBLine does about its failures: the walk goes on when it returns.
    CdbRecord(const CdbFormat& format, std::function<void(const RunTimeError&)> onFailure);

    /// Takes a line, with its record ID and status.
    void take(std::string_view line);
    /// Cuts the fields with the numbers `first` to `last`, in their order. Error 6 for a number that does not
    /// fit its type.
    void cut(int first, int last);

    /// The handheld's identifier of the record: columns 1 to 10.
    [[nodiscard]] const std::string& id() const { return id_; }
    /// Whether its status is that of a record deleted on the handheld.
    [[nodiscard]] bool isDeleted() const;
    /// A field that is a text, as it was cut.
    [[nodiscard]] const std::string& text(int field) const { return std::get<std::string>(value(field)); }
    /// A field as it goes into the logbook: a text, a whole number or a double.
    [[nodiscard]] const Value& value(int field) const { return values_[at(field)]; }

    /// The line that tells the handheld to delete the record.
    [[nodiscard]] std::string markedLine() const;

private:
    static std::size_t at(int field) { return static_cast<std::size_t>(field - kFirstCutField); }
    void cutField(int number);
    std::string_view nextField(char delimiter);

    const CdbFormat& format_;
    std::function<void(const RunTimeError&)> onFailure_;
    std::string line_;
    bool isAscii_ = true;        // then the bytes of the line are its characters
    std::u32string characters_;  // of any other
    std::string cut_;            // out of these
    CutPosition position_;
    std::string id_;
    std::string status_;
    std::vector<Value> values_;
};

/// The record count that a header line gives: the number in column 10. Error 6 where it does not fit.
Int32 recordCount(std::string_view headerLine);

}  // namespace tallybrook
