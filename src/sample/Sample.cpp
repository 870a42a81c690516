#include "sample/Sample.h"

#include "sample/Career.h"
#include "sample/ExportFiles.h"
#include "sample/LogbookFile.h"

#include <optional>

namespace tallybrook::sample {

void makeSample(const Options& options) {
    LogbookFile logbook(options.data);
    std::optional<ExportFiles> exports;
    if (options.cdb)
        exports.emplace(options.data, countCareer(options.events, options.seed));
    for (Career career(options.events, options.seed); !career.isOver();) {
        const Event event = career.next();
        logbook.add(event);
        if (exports)
            exports->add(event);
    }
    if (exports)
        exports->finish();
    logbook.finish();
}

}  // namespace tallybrook::sample
