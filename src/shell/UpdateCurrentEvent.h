#pragma once

#include "shell/Program.h"
#include "store/Update_Series.h"

namespace tallybrook {

/// Has Update_Series work on the current event, into the shared variables.
inline void updateCurrentEvent(Program& program) {
    SessionState& session = program.session;
    Update_Series(program.store(), program.reporter, session.gSessionNum,
                  {session.gSeriesTot, session.gSeriesAvg, session.gGmsRecorded});
}

}  // namespace tallybrook
