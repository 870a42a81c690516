#pragma once

#include "player/Transcript.h"
#include "store/Store.h"

#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// The rows of a table in key order, one text for each, as in `fldSessionNum=1 fldEventName="Thursday" ...`.
std::vector<std::string> storedRows(Store& store, const std::string& table, const Transcript& transcript);

/// A field and what is to be put into it; nothing for a Null.
struct FieldText {
    std::string field;
    std::optional<std::string> value;
};

/// Adds a row to a table. Raises what the recordset raises.
void addRow(Store& store, const std::string& table, const std::vector<FieldText>& fields);

/// Changes the row with that key. Raises what the recordset raises, 3021 if there is no such row.
void changeRow(Store& store, const std::string& table, const std::string& key,
               const std::vector<FieldText>& fields);

}  // namespace tallybrook
