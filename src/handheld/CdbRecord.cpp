#include "handheld/CdbRecord.h"

#include "runtime/TextCompare.h"
#include "runtime/TextEncoding.h"
#include "runtime/TextForms.h"

#include <utility>

namespace tallybrook {

namespace {

constexpr std::string_view kDeleted = "0x0002";

/// The characters from a column, counted from 1; fewer where the line ends.
std::string columns(const std::u32string& line, std::size_t first, std::size_t count) {
    return first > line.size() ? "" : textOf(std::u32string_view(line).substr(first - 1, count));
}

Value converted(const std::string& text, CdbType type) {
    switch (type) {
        case CdbType::Text:
            return text;
        case CdbType::WholeNumber:
            return valueOf(toInt16(leadingNumber(text)));
        case CdbType::Double:
            break;
    }
    return leadingNumber(text);
}

}  // namespace

CdbRecord::CdbRecord(const CdbFormat& format, std::function<void(const RunTimeError&)> onFailure)
    : format_(format), onFailure_(std::move(onFailure)), fields_(format.fields.size()) {}

void CdbRecord::take(std::string_view line) {
    line_ = charactersOf(line);
    id_ = columns(line_, 1, 10);
    status_ = columns(line_, 12, 6);
}

bool CdbRecord::isDeleted() const {
    return status_ == kDeleted;
}

void CdbRecord::cut(int first, int last) {
    for (int number = first; number <= last; ++number)
        cutField(number);
}

void CdbRecord::cutField(int number) {
    const CdbField& field = format_.field(number);
    CutField& target = fields_[at(number)];
    if (field.start == CdbStart::FirstColumn)
        position_.start = format_.firstColumn;
    else if (field.start == CdbStart::StepBack)
        position_.start = position_.end - 1;
    try {
        target.text = withMemoryErrors(
            [&] { return ParseDBLine(position_, field.form == CdbForm::Bare ? U',' : U'"', line_); });
    } catch (const RunTimeError& failure) {
        onFailure_(failure);
    }
    target.value = converted(target.text, field.type);
}

std::string CdbRecord::markedLine() const {
    std::string line = id_;
    line.append(",").append(kDeleted);
    for (const int number : format_.marked) {
        const char* const quote = format_.field(number).form == CdbForm::Quoted ? "\"" : "";
        line.append(",").append(quote).append(toText(value(number))).append(quote);
    }
    return line;
}

Int32 recordCount(std::string_view headerLine) {
    constexpr std::size_t kColumnsBefore = 9;
    const std::size_t before = firstCharacters(headerLine, kColumnsBefore).size();
    return toInt32(leadingNumber(headerLine.substr(before)));
}

}  // namespace tallybrook
