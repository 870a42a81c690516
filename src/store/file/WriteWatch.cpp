#include "store/file/WriteWatch.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

sqlite3_file* fileOf(sqlite3* connection) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file;
}

}  // namespace

WriteWatch::WriteWatch(sqlite3* connection, Show show)
    : file_(fileOf(connection)), own_(file_->pMethods), methods_{{*own_}, this}, show_(std::move(show)) {
    methods_.xWrite = write;
    methods_.xTruncate = truncate;
    file_->pMethods = &methods_;
}

WriteWatch::~WriteWatch() {
    file_->pMethods = own_;
}

int WriteWatch::write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    WriteWatch& watch = of(file);
    watch.showPart(at, count);
    return watch.own_->xWrite(file, bytes, count, at);
}

int WriteWatch::truncate(sqlite3_file* file, sqlite3_int64 size) {
    WriteWatch& watch = of(file);
    sqlite3_int64 end = 0;
    if (watch.own_->xFileSize(file, &end) == SQLITE_OK) {
        for (sqlite3_int64 at = size; at < end; at += kLargestPage)
            watch.showPart(at, static_cast<int>(std::min<sqlite3_int64>(kLargestPage, end - at)));
    }
    return watch.own_->xTruncate(file, size);
}

/// The write itself does not depend on whether what it replaces can be read.
void WriteWatch::showPart(std::int64_t at, int count) {
    if (!show_)
        return;
    const bool isRead = own_->xRead(file_, bytes_.data(), count, at) == SQLITE_OK;
    if (!show_(at, {bytes_.data(), isRead ? static_cast<std::size_t>(count) : 0}))
        show_ = {};
}

}  // namespace tallybrook
