#pragma once

#include "runtime/Handler.h"
#include "runtime/Integer.h"
#include "runtime/Value.h"
#include "store/Store.h"

namespace tallybrook {

/// The shared variables that Update_Series sets.
struct SeriesVariables {
    Int16& gSeriesTot;
    double& gSeriesAvg;
    Int16& gGmsRecorded;
};

/// Recomputes the series total, average and count of games of the event with that key, sets the shared
/// variables and stores them in the event's row. Shows its own failures.
void Update_Series(Store& store, FailureReporter& reporter, Int32 eventKey, SeriesVariables variables);

}  // namespace tallybrook
