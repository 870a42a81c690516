#pragma once

#include "runtime/Handler.h"
#include "store/Recordset.h"

namespace tallybrook {

/// Calls `visit` with each row current in turn, from the current one to the last. `rows` gives the recordset,
/// and is asked for it anew each time. Every move runs under the handler: after a failed look for the end
/// there is a row to visit, and a row that cannot be left ends the walk.
template <typename Rows, typename Visit>
void walkRows(const Handler& step, Rows rows, Visit visit) {
    bool goesOn = true;
    while (goesOn && step.test([&] { return !rows().Eof(); })) {
        visit();
        goesOn = step([&] { rows().MoveNext(); });
    }
}

}  // namespace tallybrook
