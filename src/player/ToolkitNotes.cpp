#include "player/ToolkitNotes.h"

#include <QString>
#include <iostream>

namespace tallybrook {

namespace {

void writeFailures(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << message.toStdString() << '\n';
}

}  // namespace

void passOverToolkitNotes() {
    qInstallMessageHandler(writeFailures);
}

}  // namespace tallybrook
