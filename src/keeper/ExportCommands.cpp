#include "keeper/ExportCommands.h"

#include "keeper/Answer.h"
#include "keeper/Export.h"

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

/// Where the only word of a command says that something is to be written.
std::filesystem::path placeOf(const Errand& errand) {
    return errand.options.words.front();
}

void tell(const Errand& errand, const Exported& exported) {
    tellNote(errand, exported.note);
    const std::string place = placeOf(errand).string();
    answer(errand, fmt::format("Written to {}: {}.\n", place, inWords(exported.counts)),
           {{"place", place}, {"holds", jsonOf(exported.counts)}, {"note", exported.note}});
}

}  // namespace

void writeArchiveFile(const Errand& errand) {
    tell(errand, exportArchive(errand.options.data, placeOf(errand), errand.clock, errand.progress));
}

void writeCsvFiles(const Errand& errand) {
    const auto formulas = errand.options.verbatim ? sheets::Formulas::Verbatim : sheets::Formulas::Guarded;
    tell(errand, exportCsv(errand.options.data, placeOf(errand), formulas, errand.clock, errand.progress));
}

void writeWorkbookFile(const Errand& errand) {
    tell(errand, exportWorkbook(errand.options.data, placeOf(errand), errand.clock, errand.progress));
}

}  // namespace tallybrook::keeper
