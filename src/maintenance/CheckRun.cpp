#include "maintenance/CheckRun.h"

#include "shell/SharedFile.h"

namespace tallybrook {

void CheckRun::openReport() {
    gDBLogFile_.emplace(openSharedFile(program, reportFile(), TextWriter::Mode::Append));
}

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
