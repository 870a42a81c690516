#include "handheld/ParseDBLine.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextEncoding.h"

namespace tallybrook {

namespace {

/// The column of the first delimiter at or behind a column; 0 if there is none.
template <typename Character>
std::size_t find(Character delimiter, std::basic_string_view<Character> line, std::size_t column) {
    const std::size_t found = line.find(delimiter, column - 1);
    return found == std::string_view::npos ? 0 : found + 1;
}

template <typename Character>
std::basic_string_view<Character> cut(CutPosition& at, Character delimiter,
                                      std::basic_string_view<Character> line) {
    if (at.start < 1)
        throw RunTimeError(error::kInvalidProcedureCall);
    const std::size_t before = find(delimiter, line, static_cast<std::size_t>(at.start.value()));
    const std::size_t behind = find(delimiter, line, before + 1);
    const Int16 end{behind};
    at = {.start = end + 1, .end = end};
    return line.substr(before, behind == 0 ? std::string_view::npos : behind - before - 1);
}

}  // namespace

std::string ParseDBLine(CutPosition& at, char32_t delimiter, std::u32string_view line) {
    return textOf(cut(at, delimiter, line));
}

std::string_view ParseDBLine(CutPosition& at, char delimiter, std::string_view line) {
    return cut(at, delimiter, line);
}

}  // namespace tallybrook
