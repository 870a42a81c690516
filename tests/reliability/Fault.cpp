#include "reliability/Fault.h"

#include <cerrno>
#include <utility>

namespace tallybrook::test {

TextFileFault::TextFileFault(std::filesystem::path data, FaultKind kind, int callsToPass)
    : data_(std::move(data)),
      kind_(kind),
      callsToPass_(callsToPass),
      calls_([this](const FileCall& call) { return errorOf(call); }) {}

bool TextFileFault::isMeant(const FileCall& call) const {
    if (std::this_thread::get_id() != thread_ || !call.path.starts_with(data_.string() + "/") ||
        call.path.find("Tallybrook_DB") != std::string::npos)
        return false;
    return kind_.error == FaultKind::Error::Broken || call.kind == FileCall::Kind::Make ||
           call.kind == FileCall::Kind::Write;
}

int TextFileFault::errorOf(const FileCall& call) {
    if (!isMeant(call))
        return 0;
    const int left = callsToPass_--;
    if (left > 0 || (left < 0 && kind_.lasting == FaultKind::Lasting::Once))
        return 0;
    hasStruck_ = true;
    return kind_.error == FaultKind::Error::Full ? ENOSPC : EIO;
}

}  // namespace tallybrook::test
