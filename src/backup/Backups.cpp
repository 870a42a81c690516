#include "backup/Backups.h"

#include "store/file/Connection.h"
#include "store/sql/Schema.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// The date of a copy, by which the logbook is known to be as it was: that of the logbook itself. Right after
/// the logbook was written a further write need not change its date, so the copy is dated before it.
fs::file_time_type stampFor(fs::file_time_type written) {
    constexpr std::chrono::seconds kCoarsest{2};  // of the dates that file systems keep
    const bool mayBeWrittenWithin = fs::file_time_type::clock::now() - written < kCoarsest;
    return mayBeWrittenWithin ? written - 2 * kCoarsest : written;
}

}  // namespace

Backups::Backups(Store& store, fs::path logbook, const Clock& clock)
    : store_(store), logbook_(std::move(logbook)), clock_(clock), folder_(logbook_) {
    store_.beforeFirstDeletion([this] {
        begin();
        if (backup_)
            backup_->waitForLogbook();
    });
}

Backups::~Backups() {
    store_.beforeFirstDeletion({});
    store_.beforeOverwriting({});
}

void Backups::begin() {
    try {
        finish();
        beginChecked();
    } catch (const std::exception& failure) {
        failure_ = failureText(reasonFor(failure));
    }
}

void Backups::beginChecked() {
    folder_.removeUnfinished();
    const fs::file_time_type written = fs::last_write_time(logbook_);
    if (isEmpty() || folder_.holdsCopyOf(written, fs::file_size(logbook_)))
        return;
    folder_.make();
    backup_ = std::make_unique<Backup>(
        BackupJob{.logbook = logbook_, .folder = folder_, .now = clock_.now(), .stamp = stampFor(written)});
    store_.beforeOverwriting(
        [this](std::int64_t at, std::string_view bytes) { return backup_ && backup_->keep(at, bytes); });
}

/// A logbook without any row has nothing to lose. A damaged one is left to the backup to tell of.
bool Backups::isEmpty() {
    try {
        return std::ranges::all_of(tables(), [this](const Table& table) {
            Statement::Use row(store_.connection().prepared("SELECT 1 FROM " + table.name + " LIMIT 1"));
            return !row->executeStep();
        });
    } catch (const SQLite::Exception&) {
        return false;
    }
}

void Backups::finish() {
    if (!backup_)
        return;
    backup_->finish();
    noteFailure();
    backup_.reset();
}

void Backups::noteFailure() {
    if (const auto why = backup_ && !failure_ ? backup_->failure() : std::nullopt)
        failure_ = failureText(*why);
}

std::string Backups::failureText(const std::string& why) const {
    return "The logbook could not be backed up. The program goes on all the same.\r\nFolder of the "
           "backups: " +
           folder_.path().string() + "\r\n" + why;
}

std::optional<std::string> Backups::takeFailure() {
    noteFailure();
    if (!failure_ || isTold_)
        return std::nullopt;
    isTold_ = true;
    return failure_;
}

void backUpNow(const fs::path& logbook, const Clock& clock) {
    std::optional<std::string> why;
    const BackupFolder folder(logbook);
    try {
        folder.removeUnfinished();
        folder.make();
        Backup backup({.logbook = logbook,
                       .folder = folder,
                       .now = clock.now(),
                       .stamp = stampFor(fs::last_write_time(logbook))});
        backup.finish();
        why = backup.failure();
    } catch (const std::exception& failure) {
        why = reasonFor(failure);
    }
    if (why)
        throw std::runtime_error(
            "It could not be backed up.\r\nFolder of the backups: " + folder.path().string() + "\r\n" + *why);
}

}  // namespace tallybrook
