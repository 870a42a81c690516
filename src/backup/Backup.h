#pragma once

#include "backup/BackupFolder.h"
#include "backup/OldPages.h"

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>

namespace tallybrook {

/// What is to be backed up, and how.
struct BackupJob {
    std::filesystem::path logbook;
    BackupFolder folder;
    DateTime now;
    std::filesystem::file_time_type stamp;  // the copy's date, by which it is known again
};

/// One backup on its way, on a thread of its own. It is made under another name, brought to the disk, opened,
/// compared with the logbook and checked, and only then gets its name. It begins when the program has had a
/// moment to start, or when somebody waits for it. Whoever has opened the logbook holds its lock, and may
/// write meanwhile: the backup is of the logbook as it stood when this was made, as long as keep() has shown
/// what is written over.
class Backup {
public:
    explicit Backup(BackupJob job);
    /// Gives the backup up where the logbook was not written: it is then as it was, and can be backed up
    /// another time. Otherwise waits until the backup is made.
    ~Backup();
    Backup(const Backup&) = delete;
    Backup& operator=(const Backup&) = delete;

    /// Takes the bytes from a place of the logbook on before they are written over, or none where they cannot
    /// be read; returns whether more are wanted.
    bool keep(std::int64_t at, std::string_view bytes) noexcept;
    /// Waits until the logbook has been read.
    void waitForLogbook();
    /// Waits to the end.
    void finish();
    /// Why it failed, and what can be done about it; nothing as long as it did not.
    [[nodiscard]] std::optional<std::string> failure();

private:
    enum class Stage { Reading, Checking, Done };

    void work(const std::stop_token& stop);
    void waitForQuiet(const std::stop_token& stop);
    void make(const std::stop_token& stop);
    [[nodiscard]] std::uint64_t copyTo(const std::filesystem::path& copy, const std::stop_token& stop) const;
    void check(const std::filesystem::path& copy, std::uint64_t hash, const std::stop_token& stop) const;
    void reach(Stage stage);
    void waitFor(Stage stage);

    const BackupJob job_;
    OldPages oldPages_;
    bool isLogbookWritten_ = false;  // known to the thread that writes it
    std::mutex mutex_;               // for what follows
    std::condition_variable_any changed_;
    Stage stage_ = Stage::Reading;
    bool isAwaited_ = false;
    std::optional<std::string> failure_;
    std::jthread thread_;  // the last one: it uses the others
};

/// What was refused, and what can be done about it.
std::string reasonFor(const std::exception& failure);

}  // namespace tallybrook
