#include "store/sql/SchemaSteps.h"

namespace tallybrook {

const SchemaSteps& schemaSteps() {
    static const SchemaSteps kSteps{};
    return kSteps;
}

}  // namespace tallybrook
