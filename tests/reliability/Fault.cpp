#include "reliability/Fault.h"

#include <cerrno>
#include <thread>
#include <utility>

namespace tallybrook::test {

FileFault::FileFault(IsMeant isMeant, FaultKind kind, int callsToPass)
    : isMeant_(std::move(isMeant)),
      kind_(kind),
      callsToPass_(callsToPass),
      calls_([this](const FileCall& call) { return errorOf(call); }) {}

int FileFault::errorOf(const FileCall& call) {
    const bool isWriting = call.kind == FileCall::Kind::Make || call.kind == FileCall::Kind::Write;
    if (!isMeant_(call) || (kind_.error == FaultKind::Error::Full && !isWriting))
        return 0;
    const int left = callsToPass_--;
    if (left > 0 || (left < 0 && kind_.lasting == FaultKind::Lasting::Once))
        return 0;
    hasStruck_ = true;
    return kind_.error == FaultKind::Error::Full ? ENOSPC : EIO;
}

FileFault::IsMeant onTextFiles(const std::filesystem::path& data) {
    return [folder = data.string() + "/", thread = std::this_thread::get_id()](const FileCall& call) {
        return std::this_thread::get_id() == thread && call.path.starts_with(folder) &&
               call.path.find("Tallybrook_DB") == std::string::npos;
    };
}

FileFault::IsMeant onBackups(const std::filesystem::path& data) {
    return [folder = (data / "Backups").string()](const FileCall& call) {
        return call.path.starts_with(folder);
    };
}

}  // namespace tallybrook::test
