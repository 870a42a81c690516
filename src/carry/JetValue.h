#pragma once

#include "carry/Cell.h"

#include <string>
#include <string_view>

namespace tallybrook::carry {

/// What a column holds, by the numbers that the file has for it.
enum class JetType {
    Boolean = 1,
    Byte = 2,
    Integer16 = 3,
    Integer32 = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Object = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
};

/// A value that is not Null, from its bytes; of a memo, all its bytes. `scale` is the number of decimal
/// places of a Decimal. A Boolean has no bytes here.
Cell cellOf(JetType type, std::string_view bytes, int scale);

/// A text of the file as UTF-8. What is no character becomes the replacement character.
std::string jetText(std::string_view bytes);

}  // namespace tallybrook::carry
