#include "handheld/ParseDBLine.h"

#include "runtime/TextEncoding.h"

namespace tallybrook {

namespace {

std::size_t index(Int16 position) {
    return static_cast<std::size_t>(position.value());
}

/// Where the first delimiter at or behind the start stands; 0 if there is none.
Int16 find(char32_t delimiter, std::u32string_view line, Int16 start) {
    if (start < 1)
        throw RunTimeError(error::kInvalidProcedureCall);
    const std::size_t found = line.find(delimiter, index(start) - 1);
    return found == std::u32string_view::npos ? Int16{0} : Int16{found} + 1;
}

}  // namespace

std::string ParseDBLine(CutPosition& at, char32_t delimiter, std::u32string_view line) {
    const Int16 before = find(delimiter, line, at.start);
    const Int16 behind = find(delimiter, line, before + 1);
    const Int16 next = behind + 1;

    const std::u32string_view rest = line.substr(index(before));
    at = {.start = next, .end = behind};
    return textOf(behind == 0 ? rest : rest.substr(0, index(behind - before - 1)));
}

}  // namespace tallybrook
