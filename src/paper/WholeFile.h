#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

// How files of a person's choice are written: whole or not at all, and never over a logbook.
namespace tallybrook {

/// Makes a file. `make` is given another name, for a new file that is its owner's alone; what it has written
/// there then takes the place of what bore the file's name. That keeps its permissions; a link gives way, and
/// what it leads to stays as it is. FileFailure, and everything as it was, where the name is that of a
/// logbook or of no regular file, where the file cannot be written, and where `make` throws one.
void writeWhole(const QString& file, const std::function<void(const QString& name)>& make);

/// The same with bytes that are there.
void writeWhole(const QString& file, const QByteArray& bytes);

}  // namespace tallybrook
