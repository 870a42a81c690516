#pragma once

#include "shell/Program.h"
#include "store/Update_Series.h"

namespace tallybrook {

/// Update_Series for the current event, into the shared variables.
inline void updateSeries(Program& program) {
    SessionState& session = program.session;
    Update_Series(program.store(), program.reporter, session.gSessionNum,
                  {session.gSeriesTot, session.gSeriesAvg, session.gGmsRecorded});
}

}  // namespace tallybrook
