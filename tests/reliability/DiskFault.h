#pragma once

#include "reliability/WatchedVfs.h"

#include <atomic>
#include <cstddef>
#include <ostream>
#include <string>
#include <thread>

namespace tallybrook::test {

/// What a disk writes at once, in bytes.
inline constexpr std::size_t kSector = 512;

/// How a disk fails.
struct FaultKind {
    enum class Error { Broken, Full };
    enum class Lasting { Once, FromThenOn };
    Error error;
    Lasting lasting;
};
inline constexpr FaultKind kFaultKinds[] = {{FaultKind::Error::Broken, FaultKind::Lasting::Once},
                                            {FaultKind::Error::Broken, FaultKind::Lasting::FromThenOn},
                                            {FaultKind::Error::Full, FaultKind::Lasting::Once},
                                            {FaultKind::Error::Full, FaultKind::Lasting::FromThenOn}};

/// "BrokenOnce" and the like.
std::string nameOf(FaultKind kind);
inline std::ostream& operator<<(std::ostream& out, FaultKind kind) {
    return out << nameOf(kind);
}

/// A disk that fails at the nth call that it can fail at. A broken one fails at any; a full one where
/// something is to be written, and takes half of its sectors.
class DiskFault : public DiskWatcher {
public:
    enum class Whose { OfThisThread, OfOtherThreads };

    /// Lets so many calls pass that come from the thread that makes it, or from all others.
    DiskFault(FaultKind kind, int callsToPass, Whose whose = Whose::OfThisThread)
        : kind_(kind), callsToPass_(callsToPass), whose_(whose) {}

    DiskVerdict before(const DiskAccess& access) override;

    /// Whether a call has failed.
    [[nodiscard]] bool hasStruck() const { return hasStruck_; }

private:
    [[nodiscard]] bool isMeant(const DiskAccess& access) const;
    [[nodiscard]] DiskVerdict failed(const DiskAccess& access) const;

    const FaultKind kind_;
    std::atomic<int> callsToPass_;
    const Whose whose_;
    const std::thread::id thread_ = std::this_thread::get_id();
    std::atomic<bool> hasStruck_ = false;
};

}  // namespace tallybrook::test
