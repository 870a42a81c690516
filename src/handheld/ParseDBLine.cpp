#include "handheld/ParseDBLine.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextEncoding.h"

namespace tallybrook {

namespace {

/// The column of the first delimiter at or behind a column; 0 if there is none.
std::size_t find(char32_t delimiter, std::u32string_view line, std::size_t column) {
    const std::size_t found = line.find(delimiter, column - 1);
    return found == std::u32string_view::npos ? 0 : found + 1;
}

}  // namespace

std::string ParseDBLine(CutPosition& at, char32_t delimiter, std::u32string_view line) {
    if (at.start < 1)
        throw RunTimeError(error::kInvalidProcedureCall);
    const std::size_t before = find(delimiter, line, static_cast<std::size_t>(at.start.value()));
    const std::size_t behind = find(delimiter, line, before + 1);
    const Int16 end{behind};
    at = {.start = end + 1, .end = end};

    const std::u32string_view rest = line.substr(before);
    return textOf(behind == 0 ? rest : rest.substr(0, behind - before - 1));
}

}  // namespace tallybrook
