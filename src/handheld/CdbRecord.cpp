#include "handheld/CdbRecord.h"

#include "runtime/Ascii.h"
#include "runtime/TextCompare.h"
#include "runtime/TextEncoding.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::string_view kDeleted = "0x0002";

/// The characters from a column, counted from 1; fewer where the line ends.
template <typename Character>
std::basic_string_view<Character> columns(std::basic_string_view<Character> line, std::size_t first,
                                          std::size_t count) {
    return first > line.size() ? std::basic_string_view<Character>() : line.substr(first - 1, count);
}

Value emptyOf(CdbType type) {
    if (type == CdbType::Text)
        return "";
    return type == CdbType::WholeNumber ? Value{std::int64_t{0}} : Value{0.0};
}

}  // namespace

CdbRecord::CdbRecord(const CdbFormat& format, std::function<void(const RunTimeError&)> onFailure)
    : format_(format), onFailure_(std::move(onFailure)) {
    for (const CdbField& field : format.fields)
        values_.push_back(emptyOf(field.type));
}

void CdbRecord::take(std::string_view line) {
    constexpr std::size_t kId = 1;
    constexpr std::size_t kIdLength = 10;
    constexpr std::size_t kStatus = 12;
    constexpr std::size_t kStatusLength = 6;
    line_ = line;
    isAscii_ = std::ranges::all_of(line, isAscii);
    if (isAscii_) {
        id_ = columns(line, kId, kIdLength);
        status_ = columns(line, kStatus, kStatusLength);
    } else {
        characters_ = charactersOf(line);
        id_ = textOf(columns(std::u32string_view(characters_), kId, kIdLength));
        status_ = textOf(columns(std::u32string_view(characters_), kStatus, kStatusLength));
    }
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
    if (field.start == CdbStart::FirstColumn)
        position_.start = format_.firstColumn;
    else if (field.start == CdbStart::StepBack)
        position_.start = position_.end - 1;
    Value& value = values_[at(number)];
    std::string_view cut;
    try {
        withMemoryErrors([&] {
            cut = nextField(field.form == CdbForm::Bare ? ',' : '"');
            if (auto* const text = std::get_if<std::string>(&value))
                *text = cut;
        });
    } catch (const RunTimeError& failure) {
        return onFailure_(failure);
    }
    if (field.type == CdbType::WholeNumber)
        value = valueOf(toInt16(leadingNumber(cut)));
    else if (field.type == CdbType::Double)
        value = leadingNumber(cut);
}

/// The next field between two delimiters; it stays until the next one is cut.
std::string_view CdbRecord::nextField(char delimiter) {
    if (isAscii_)
        return ParseDBLine(position_, delimiter, line_);
    return cut_ = ParseDBLine(position_, static_cast<char32_t>(delimiter), characters_);
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
