#include "viewer/FileWatch.h"

#include <QFile>
#include <QFileInfo>
#include <chrono>

#include <sys/stat.h>

namespace tallybrook {

namespace {

/// Whoever writes a report does so in one go.
constexpr std::chrono::milliseconds kStillFor{150};

}  // namespace

FileStamp stampOf(const QString& file) {
    struct stat found {};
    if (::stat(QFile::encodeName(file).constData(), &found) != 0)
        return {};
    return {found.st_ino, found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

FileWatch::FileWatch() {
    stillness_.setSingleShot(true);
    stillness_.setInterval(kStillFor);
    const auto wait = [this] { stillness_.start(); };
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &stillness_, wait);
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &stillness_, wait);
    QObject::connect(&stillness_, &QTimer::timeout, &stillness_, [this] { look(); });
}

void FileWatch::watch(const QString& file, const FileStamp& known) {
    const QStringList before = watcher_.files() + watcher_.directories();
    if (!before.isEmpty())
        watcher_.removePaths(before);
    file_ = file;
    known_ = known;
    follow();
    if (stampOf(file_) != known_)
        stillness_.start();  // it was written while it was read
}

/// The folder is watched for another file that takes the name; the toolkit gives up the one that is gone.
void FileWatch::follow() {
    const QFileInfo info(file_);
    if (info.exists() && !watcher_.files().contains(file_))
        watcher_.addPath(file_);
    if (watcher_.directories().isEmpty())
        watcher_.addPath(info.absolutePath());
}

void FileWatch::look() {
    follow();
    const FileStamp now = stampOf(file_);
    if (now == known_ || now == FileStamp())
        return;
    known_ = now;
    if (onWritten)
        onWritten();
}

}  // namespace tallybrook
