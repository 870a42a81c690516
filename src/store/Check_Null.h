#pragma once

#include "runtime/Value.h"

namespace tallybrook {

/// The value itself; for a Null the integer 0 if `numeric`, else empty text.
Value Check_Null(const Value& value, bool numeric = false);

}  // namespace tallybrook
