#include "store/Check_Null.h"

namespace tallybrook {

Value Check_Null(const Value& value, bool numeric) {
    if (!isNull(value))
        return value;
    return numeric ? Value{std::int64_t{0}} : Value{std::string{}};
}

}  // namespace tallybrook
