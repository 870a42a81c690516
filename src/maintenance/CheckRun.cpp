#include "maintenance/CheckRun.h"

namespace tallybrook {

void CheckRun::print(std::string_view line) {
    if (!gDBLogFile_)
        throw RunTimeError(error::kBadFileNameOrNumber);
    gDBLogFile_->writeLine(line);
}

void CheckRun::closeReport() {
    if (gDBLogFile_)
        gDBLogFile_->close();
}

void CheckRun::createRecordsets() {
    for (RecordsetVariable* const rows : {&gDBRsEvent, &gDBRsGame, &gDBRsFrame})
        rows->create(program.store());
}

void CheckRun::releaseRecordsets() {
    for (RecordsetVariable* const rows : {&gDBRsEvent, &gDBRsGame, &gDBRsFrame})
        rows->setToNothing();
}

}  // namespace tallybrook
