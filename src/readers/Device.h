#pragma once

#include "readers/FileFailure.h"

#include <QFileInfo>

namespace tallybrook {

/// Refuses what is there and is neither a file nor a folder, such as a pipe or a disk, with FileFailure:
/// whoever opened it might wait for ever.
inline void refuseDevice(const QFileInfo& file) {
    if (file.exists() && !file.isFile() && !file.isDir())
        throw FileFailure("It is a device and not a file.");
}

}  // namespace tallybrook
