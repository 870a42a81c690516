#include "backup/Backup.h"

#include "runtime/RegularFile.h"
#include "runtime/UnfinishedFile.h"
#include "store/file/UnlockedFile.h"

#include <chrono>
#include <system_error>
#include <utility>

#include <SQLiteCpp/Backup.h>
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

void copyPages(SQLite::Database& source, const fs::path& copy, const std::stop_token& stop) {
    constexpr int kPagesAtOnce = 1000;
    SQLite::Database target(copy.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    target.exec("PRAGMA trusted_schema = OFF");
    target.exec("PRAGMA journal_mode = OFF");  // a copy that is cut off is worth nothing anyway
    target.exec("PRAGMA synchronous = OFF");   // it is brought to the disk as a whole
    SQLite::Backup pages(target, source);
    while (!stop.stop_requested() && pages.executeStep(kPagesAtOnce) != SQLITE_DONE) {
    }
}

struct DamagedLogbook {};

std::string logbookIsDamaged(const fs::path& logbook) {
    return "The logbook is damaged: " + logbook.string() +
           "\r\nPlease end the program, and go back to the newest backup with the Tallybrook Keeper.";
}

/// Reads from the logbook, or from a copy that is like it.
template <typename Read>
auto fromLogbook(Read read) {
    try {
        return read();
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
    : job_(std::move(job)), thread_([this](const std::stop_token& stop) { work(stop); }) {}

Backup::~Backup() {
    const bool logbookHasChanged = [this] {
        const std::scoped_lock lock(mutex_);
        return isAwaited_;
    }();
    if (logbookHasChanged)
        thread_.join();
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
    if (!why.empty() && !stop.stop_requested()) {
        const std::scoped_lock lock(mutex_);
        failure_ = why;
    }
    reach(Stage::Done);
}

void Backup::make(const std::stop_token& stop) {
    const UnfinishedFile unfinished(job_.folder.fileFor(job_.now));
    const Contents contents = copyTo(unfinished.path(), stop);
    reach(Stage::Checking);
    if (stop.stop_requested())
        return;
    check(unfinished.path(), contents, stop);
    fs::last_write_time(unfinished.path(), job_.stamp);
    unfinished.putInPlace();
    job_.folder.thinOut(job_.now);
}

/// Copies the logbook, and reads it once more for what it holds.
Contents Backup::copyTo(const fs::path& copy, const std::stop_token& stop) const {
    return fromLogbook([&] {
        SQLite::Database source = openAsItStands(job_.logbook);
        obey(stop, source);
        copyPages(source, copy, stop);
        return contentsOf(source);
    });
}

/// Reads the copy from the disk, and throws what is wrong with it.
void Backup::check(const fs::path& copy, const Contents& contents, const std::stop_token& stop) const {
    RegularFile(copy, O_RDONLY).bringToDisk();
    const SQLite::Database database = openAsItStands(copy);
    obey(stop, database);
    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    check.executeStep();
    const bool isSound = check.getColumn(0).getString() == "ok";
    if (contentsOf(database) != contents)
        throw std::runtime_error("The copy was not like the logbook.");
    if (!isSound)
        throw DamagedLogbook{};
}

}  // namespace tallybrook
