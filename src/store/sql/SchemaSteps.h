#pragma once

#include <string>
#include <vector>

namespace tallybrook {

/// How a logbook of one schema becomes one of the next: statements, run in one transaction, which keep what
/// the logbook holds.
using SchemaStep = std::vector<std::string>;
using SchemaSteps = std::vector<SchemaStep>;

/// All steps there have ever been, in their order: the first leads from schema 1 to schema 2. None is changed
/// once a program with it was given to users.
const SchemaSteps& schemaSteps();

/// The number of the schema that a logbook has behind the last of these steps.
inline int newestSchema(const SchemaSteps& steps) {
    return static_cast<int>(steps.size()) + 1;
}

}  // namespace tallybrook
