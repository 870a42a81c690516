#include "shell/SharedFile.h"

#include "runtime/RunTimeError.h"
#include "shell/DataFolder.h"

namespace tallybrook {

TextWriter openSharedFile(const Program& program, const std::filesystem::path& file, TextWriter::Mode mode,
                          Encoding encoding) {
    if (ownFiles(program).has(file))
        throw RunTimeError(error::kPathFileAccess);
    return TextWriter(file, mode, encoding);
}

void copySharedFile(const Program& program, const std::filesystem::path& from,
                    const std::filesystem::path& to) {
    const KeptFiles own = ownFiles(program);
    if (own.has(from) || own.has(to))
        throw RunTimeError(error::kPermissionDenied);
    copyFile(from, to);
}

}  // namespace tallybrook
