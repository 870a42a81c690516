#pragma once

#include "Printing.h"
#include "support/TemporaryFolder.h"

#include <QFile>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tallybrook::test {

/// A folder of files that a test writes and reads.
class Files {
public:
    [[nodiscard]] QString folder() const { return QString::fromStdString(folder_.path().string()); }
    [[nodiscard]] QString path(const QString& name) const { return folder() + "/" + name; }
    /// Writes a file and returns its path.
    QString write(const QString& name, const QByteArray& bytes) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }
    /// Makes a pipe that nobody writes or reads, and returns its path.
    [[nodiscard]] QString pipe(const QString& name) const {
        EXPECT_EQ(mkfifo(QFile::encodeName(path(name)).constData(), S_IRUSR | S_IWUSR), 0);
        return path(name);
    }
    static QByteArray read(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

private:
    TemporaryFolder folder_;
};

/// Whether there is a pipe at a place.
inline bool isPipe(const QString& path) {
    return std::filesystem::is_fifo(path.toStdString());
}

/// A folder that takes no files, whoever asks.
inline const QString kClosedFolder = "/proc";

}  // namespace tallybrook::test
