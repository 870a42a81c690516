#include "backup/Backup.h"

#include "backup/FileParts.h"
#include "runtime/RegularFile.h"
#include "runtime/UnfinishedFile.h"
#include "store/file/UnlockedFile.h"

#include <chrono>
#include <span>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sqlite3.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// How long a program that has just started is left to itself.
constexpr std::chrono::seconds kQuiet{1};

/// Ends what the engine does for a connection as soon as a stop is asked for.
void obey(const std::stop_token& stop, const SQLite::Database& database) {
    constexpr int kSteps = 10000;  // of the engine's, between two looks: below a millisecond
    sqlite3_progress_handler(
        database.getHandle(), kSteps,
        [](void* token) { return static_cast<const std::stop_token*>(token)->stop_requested() ? 1 : 0; },
        const_cast<std::stop_token*>(&stop));  // NOLINT(cppcoreguidelines-pro-type-const-cast): read only
}

/// The same for what we read ourselves.
void obey(const std::stop_token& stop) {
    if (stop.stop_requested())
        throw std::runtime_error("The backup was given up.");
}

struct DamagedLogbook {};

std::string logbookIsDamaged(const fs::path& logbook) {
    return "The logbook is damaged: " + logbook.string() +
           "\r\nPlease end the program, and go back to the newest backup with the Tallybrook Keeper.";
}

/// Reads from a copy that is like the logbook.
template <typename Read>
void fromLogbook(Read read) {
    try {
        read();
    } catch (const SQLite::Exception& failure) {
        if (failure.getErrorCode() == SQLITE_CORRUPT || failure.getErrorCode() == SQLITE_NOTADB)
            throw DamagedLogbook{};
        throw;
    }
}

}  // namespace

std::string reasonFor(const std::exception& failure) {
    const auto* const refusal = dynamic_cast<const std::system_error*>(&failure);
    return (refusal != nullptr ? refusal->code().message() : std::string(failure.what())) +
           "\r\nPlease see that there is room on the disk, and that the folder can be written.";
}

Backup::Backup(BackupJob job)
    : job_(std::move(job)),
      oldPages_(static_cast<std::int64_t>(fs::file_size(job_.logbook))),
      thread_([this](const std::stop_token& stop) { work(stop); }) {}

Backup::~Backup() {
    if (isLogbookWritten_)
        finish();
}

bool Backup::keep(std::int64_t at, std::string_view bytes) noexcept {
    isLogbookWritten_ = true;
    oldPages_.keep(at, bytes);
    const std::scoped_lock lock(mutex_);
    return stage_ == Stage::Reading;
}

void Backup::waitForLogbook() {
    waitFor(Stage::Checking);
}

void Backup::finish() {
    waitFor(Stage::Done);
}

void Backup::waitFor(Stage stage) {
    std::unique_lock lock(mutex_);
    isAwaited_ = true;
    changed_.notify_all();
    changed_.wait(lock, [&] { return stage_ >= stage; });
}

void Backup::reach(Stage stage) {
    const std::scoped_lock lock(mutex_);
    stage_ = stage;
    changed_.notify_all();
}

std::optional<std::string> Backup::failure() {
    const std::scoped_lock lock(mutex_);
    return failure_;
}

void Backup::waitForQuiet(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, stop, kQuiet, [this] { return isAwaited_; });
}

void Backup::work(const std::stop_token& stop) {
    waitForQuiet(stop);
    std::string why;
    try {
        if (!stop.stop_requested())
            make(stop);
    } catch (const DamagedLogbook&) {
        why = logbookIsDamaged(job_.logbook);
    } catch (const std::exception& failure) {
        why = reasonFor(failure);
    }
    if (!why.empty()) {
        const std::scoped_lock lock(mutex_);
        failure_ = why;
    }
    reach(Stage::Done);
}

void Backup::make(const std::stop_token& stop) {
    const UnfinishedFile unfinished(job_.folder.fileFor(job_.now));
    const std::uint64_t hash = copyTo(unfinished.path(), stop);
    reach(Stage::Checking);
    check(unfinished.path(), hash, stop);
    fs::last_write_time(unfinished.path(), job_.stamp);
    unfinished.putInPlace();
    job_.folder.thinOut(job_.now);
}

/// Copies the logbook as it stood, and reads it once more; returns a hash of it.
std::uint64_t Backup::copyTo(const fs::path& copy, const std::stop_token& stop) const {
    const SQLite::Database logbook = openForItsBytes(job_.logbook);
    const FileBytes file(logbook);
    const ReadPart asItStood = [&](std::span<char> bytes, std::int64_t at) {
        obey(stop);
        file.read(bytes, at);
        oldPages_.restore(bytes, at);
    };
    const RegularFile target(copy, O_WRONLY);
    forEachPart(asItStood, 0, oldPages_.size(), [&target](std::span<const char> part) {
        target.write({part.data(), part.size()});
    });
    return hashOf(asItStood, 0, oldPages_.size());
}

/// Reads the copy, and throws what is wrong with it.
void Backup::check(const fs::path& copy, std::uint64_t hash, const std::stop_token& stop) const {
    const SQLite::Database bytes = openForItsBytes(copy);
    const FileBytes file(bytes);
    const ReadPart read = [&](std::span<char> part, std::int64_t at) {
        obey(stop);
        file.read(part, at);
    };
    if (file.size() != oldPages_.size() || hashOf(read, 0, file.size()) != hash)
        throw std::runtime_error("The copy was not like the logbook.");
    fromLogbook([&] {
        const SQLite::Database database = openAsItStands(copy);
        obey(stop, database);
        SQLite::Statement check(database, "PRAGMA integrity_check(1)");
        check.executeStep();
        if (check.getColumn(0).getString() != "ok")
            throw DamagedLogbook{};
    });
}

}  // namespace tallybrook
