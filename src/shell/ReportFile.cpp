#include "shell/ReportFile.h"

#include "runtime/RunTimeError.h"
#include "shell/DataFolder.h"

namespace tallybrook {

TextWriter openReportFile(const Program& program, const std::filesystem::path& file) {
    if (isOwnFile(program, file))
        throw RunTimeError(error::kPathFileAccess);
    return TextWriter(file);
}

void copyReportFile(const Program& program, const std::filesystem::path& from,
                    const std::filesystem::path& to) {
    if (isOwnFile(program, to))
        throw RunTimeError(error::kPermissionDenied);
    copyFile(from, to);
}

}  // namespace tallybrook
