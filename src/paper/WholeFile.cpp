#include "paper/WholeFile.h"

#include "readers/Device.h"
#include "runtime/RegularFile.h"
#include "runtime/UnfinishedFile.h"

#include <QFile>
#include <array>
#include <string_view>
#include <system_error>

#include <fcntl.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMarkOfLogbooks{"SQLite format 3\0", 16};

fs::path pathOf(const QString& file) {
    return QFile::encodeName(file).toStdString();
}

bool isLogbook(const fs::path& file) {
    std::array<char, kMarkOfLogbooks.size()> bytes{};
    const std::size_t count = RegularFile(file, O_RDONLY).read(bytes.data(), bytes.size());
    return std::string_view(bytes.data(), count) == kMarkOfLogbooks;
}

/// Refuses a name that is a logbook's own. A symbolic link to one may give way: it is not the logbook.
void refuseLogbook(const fs::path& file) {
    if (fs::is_regular_file(fs::symlink_status(file)) && isLogbook(file))
        throw FileFailure(QFile::decodeName(file.filename().c_str()) +
                          " is a logbook, or a backup of one, and stays as it is. Choose another name.");
}

/// Refuses what no file may take the place of.
void refuseOthers(const QFileInfo& file) {
    if (file.isDir())
        throw FileFailure("It is a folder.");
    refuseDevice(file);
    if (file.exists() && !file.isWritable())
        throw FileFailure("It is write-protected.");
}

/// A link tells nothing of what a file in its place is allowed.
void keepPermissions(const fs::path& from, const fs::path& to) {
    if (const fs::file_status there = fs::symlink_status(from); fs::is_regular_file(there))
        fs::permissions(to, there.permissions());
}

void makeWhole(const fs::path& file, const std::function<void(const QString& name)>& make) {
    refuseLogbook(file);
    refuseLogbook(UnfinishedFile::nameFor(file));
    const UnfinishedFile unfinished(file);
    make(QFile::decodeName(unfinished.path().c_str()));
    keepPermissions(file, unfinished.path());
    unfinished.putInPlace();
}

}  // namespace

void writeWhole(const QString& file, const std::function<void(const QString& name)>& make) {
    refuseOthers(QFileInfo(file));
    try {
        makeWhole(pathOf(file), make);
    } catch (const std::system_error& failure) {
        throw FileFailure(QString::fromLocal8Bit(failure.code().message()) + ".");
    }
}

void writeWhole(const QString& file, const QByteArray& bytes) {
    writeWhole(file, [&bytes](const QString& name) {
        RegularFile(pathOf(name), O_WRONLY)
            .write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    });
}

}  // namespace tallybrook
