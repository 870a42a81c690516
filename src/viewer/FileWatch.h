#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <tuple>

namespace tallybrook {

/// What tells one writing of a file from another: which file it is, its size and its time. Equal for files
/// that are not there.
using FileStamp = std::tuple<std::uint64_t, std::int64_t, std::int64_t, std::int64_t>;

FileStamp stampOf(const QString& file);

/// Tells when a file has been written anew, in place or by another one that takes its name. A file that goes
/// is nothing to tell until there is one again.
class FileWatch {
public:
    FileWatch();

    /// Called when the file is another one than it was, after it has been still for a moment.
    std::function<void()> onWritten;
    /// Looks at this file alone from now on; `known` is how it was when it was read.
    void watch(const QString& file, const FileStamp& known);

private:
    void follow();
    void look();

    QFileSystemWatcher watcher_;
    QTimer stillness_;
    QString file_;
    FileStamp known_;
};

}  // namespace tallybrook
