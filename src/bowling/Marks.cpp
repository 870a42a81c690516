#include "bowling/Marks.h"

#include "runtime/Ascii.h"
#include "runtime/TextCompare.h"

#include <algorithm>

namespace tallybrook {

std::string_view markOf(std::string_view cell, std::size_t number) {
    if (number <= cell.size() && std::ranges::all_of(cell.substr(0, number), isAscii))
        return cell.substr(number - 1, 1);
    cell.remove_prefix(firstCharacters(cell, number - 1).size());
    return firstCharacters(cell, 1);
}

bool isCount(std::string_view mark) {
    return mark.size() == 1 && mark[0] >= '0' && mark[0] <= '9';
}

int countOf(std::string_view mark) {
    return isCount(mark) ? mark[0] - '0' : 0;
}

}  // namespace tallybrook
