#pragma once

#include "reliability/DiskFault.h"
#include "support/FileCalls.h"

#include <filesystem>
#include <memory>
#include <ostream>
#include <thread>

namespace tallybrook::test {

/// What fails: the files of the engine, as it sees them, those that a backup on its way has, or the text
/// files of a data folder.
enum class Device { Engine, Backup, TextFiles };
inline std::ostream& operator<<(std::ostream& out, Device device) {
    constexpr const char* kNames[] = {"Engine", "Backup", "TextFiles"};
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

/// A fault of the text files of a data folder, in calls of this thread: reports, logs, the configuration,
/// what the handheld has left, and the copies of it.
class TextFileFault : public Fault {
public:
    TextFileFault(std::filesystem::path data, FaultKind kind, int callsToPass);

    [[nodiscard]] bool hasStruck() const override { return hasStruck_; }

private:
    [[nodiscard]] int errorOf(const FileCall& call);
    [[nodiscard]] bool isMeant(const FileCall& call) const;

    const std::filesystem::path data_;
    const FaultKind kind_;
    int callsToPass_;
    bool hasStruck_ = false;
    const std::thread::id thread_ = std::this_thread::get_id();
    const FileCalls calls_;
};

}  // namespace tallybrook::test
