#pragma once

#include "reliability/DiskFault.h"
#include "support/FileCalls.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>

namespace tallybrook::test {

/// What fails: the files of the engine, as it sees them, those that a backup on its way has, the folder of
/// the backups, as the system sees it, or the text files of a data folder.
enum class Device { Engine, Backup, BackupFolder, TextFiles };
inline std::ostream& operator<<(std::ostream& out, Device device) {
    constexpr const char* kNames[] = {"Engine", "Backup", "BackupFolder", "TextFiles"};
    return out << kNames[static_cast<std::size_t>(device)];
}

/// Something that fails at its nth call from now on, as long as it lives.
class Fault {
public:
    virtual ~Fault() = default;
    /// Whether a call has failed.
    [[nodiscard]] virtual bool hasStruck() const = 0;
};

/// A fault of the engine's files; all of them are reached through `vfs`.
class EngineFault : public Fault {
public:
    EngineFault(WatchedVfs& vfs, FaultKind kind, int callsToPass,
                DiskFault::Whose whose = DiskFault::Whose::OfThisThread)
        : vfs_(vfs), fault_(kind, callsToPass, whose) {
        vfs_.watch(&fault_);
    }
    ~EngineFault() override { vfs_.watch(nullptr); }
    EngineFault(const EngineFault&) = delete;
    EngineFault& operator=(const EngineFault&) = delete;

    [[nodiscard]] bool hasStruck() const override { return fault_.hasStruck(); }

private:
    WatchedVfs& vfs_;
    DiskFault fault_;
};

/// A fault in calls of the C library.
class FileFault : public Fault {
public:
    /// Which calls can fail.
    using IsMeant = std::function<bool(const FileCall&)>;

    FileFault(IsMeant isMeant, FaultKind kind, int callsToPass);

    [[nodiscard]] bool hasStruck() const override { return hasStruck_; }

private:
    [[nodiscard]] int errorOf(const FileCall& call);

    const IsMeant isMeant_;
    const FaultKind kind_;
    int callsToPass_;
    bool hasStruck_ = false;
    const FileCalls calls_;
};

/// Calls of this thread on the text files of a data folder: reports, logs, the configuration, what the
/// handheld has left, and the copies of it.
FileFault::IsMeant onTextFiles(const std::filesystem::path& data);

/// Calls of any thread on the folder of the backups and what is in it.
FileFault::IsMeant onBackups(const std::filesystem::path& data);

}  // namespace tallybrook::test
