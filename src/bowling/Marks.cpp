#include "bowling/Marks.h"

#include "runtime/TextCompare.h"

namespace tallybrook {

std::string_view markOf(std::string_view cell, std::size_t number) {
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
