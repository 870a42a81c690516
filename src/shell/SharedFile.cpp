#include "shell/SharedFile.h"

#include "runtime/RunTimeError.h"
#include "shell/DataFolder.h"

namespace tallybrook {

TextWriter openSharedFile(const Program& program, const std::filesystem::path& file, TextWriter::Mode mode,
                          Encoding encoding) {
    if (isOwnFile(program, file))
        throw RunTimeError(error::kPathFileAccess);
    return TextWriter(file, mode, encoding);
}

void copySharedFile(const Program& program, const std::filesystem::path& from,
                    const std::filesystem::path& to) {
    if (isOwnFile(program, from) || isOwnFile(program, to))
        throw RunTimeError(error::kPermissionDenied);
    copyFile(from, to);
}

}  // namespace tallybrook
