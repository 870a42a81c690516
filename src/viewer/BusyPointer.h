#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace tallybrook {

/// The pointer is busy as long as the object lives.
class BusyPointer {
public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace tallybrook
