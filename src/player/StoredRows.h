#pragma once

#include "player/Transcript.h"
#include "store/Store.h"

#include <string>
#include <vector>

namespace tallybrook {

/// The rows of a table in key order, one text for each, as in `fldSessionNum=1 fldEventName="Thursday" ...`.
std::vector<std::string> storedRows(Store& store, const std::string& table, const Transcript& transcript);

}  // namespace tallybrook
