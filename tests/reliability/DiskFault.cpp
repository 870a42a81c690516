#include "reliability/DiskFault.h"

namespace tallybrook::test {

namespace {

int brokenResult(DiskCall call) {
    switch (call) {
        case DiskCall::Open:
            return SQLITE_CANTOPEN;
        case DiskCall::Read:
            return SQLITE_IOERR_READ;
        case DiskCall::Write:
            return SQLITE_IOERR_WRITE;
        case DiskCall::Sync:
            return SQLITE_IOERR_FSYNC;
        case DiskCall::Truncate:
            return SQLITE_IOERR_TRUNCATE;
        case DiskCall::Delete:
            return SQLITE_IOERR_DELETE;
    }
    return SQLITE_IOERR;
}

}  // namespace

std::string nameOf(FaultKind kind) {
    return std::string(kind.error == FaultKind::Error::Broken ? "Broken" : "Full") +
           (kind.lasting == FaultKind::Lasting::Once ? "Once" : "FromThenOn");
}

bool DiskFault::isMeant(const DiskAccess& access) const {
    if ((std::this_thread::get_id() == thread_) != (whose_ == Whose::OfThisThread))
        return false;
    return kind_.error == FaultKind::Error::Broken || access.call == DiskCall::Write ||
           (access.call == DiskCall::Open && access.makes);
}

DiskVerdict DiskFault::failed(const DiskAccess& access) const {
    if (kind_.error == FaultKind::Error::Full && access.call == DiskCall::Write)
        return {.result = SQLITE_FULL, .reaching = access.bytes.size() / 2 / kSector * kSector};
    return {.result = brokenResult(access.call)};
}

DiskVerdict DiskFault::before(const DiskAccess& access) {
    if (!isMeant(access))
        return {};
    const int left = callsToPass_--;
    if (left > 0 || (left < 0 && kind_.lasting == FaultKind::Lasting::Once))
        return {};
    hasStruck_ = true;
    return failed(access);
}

}  // namespace tallybrook::test
