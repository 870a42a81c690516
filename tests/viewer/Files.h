#pragma once

#include "Printing.h"
#include "support/TemporaryFolder.h"

#include <QFile>

#include <gtest/gtest.h>

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
    static QByteArray read(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

private:
    TemporaryFolder folder_;
};

/// A folder that takes no files, whoever asks.
inline const QString kClosedFolder = "/proc";

}  // namespace tallybrook::test
