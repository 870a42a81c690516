#include "player/ToolkitNotes.h"

#include <QScopeGuard>
#include <QtGlobal>
#include <iostream>
#include <sstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

TEST(ToolkitNotes, AreWrittenWhereSomethingFailsAlone) {
    std::ostringstream written;
    const auto back =
        qScopeGuard([handler = qInstallMessageHandler(nullptr), errors = std::cerr.rdbuf(written.rdbuf())] {
            qInstallMessageHandler(handler);
            std::cerr.rdbuf(errors);
        });
    passOverToolkitNotes();
    qDebug("a detail");
    qInfo("a fact");
    qWarning("a doubt");
    qCritical("a failure");
    EXPECT_EQ(written.str(), "a failure\n");
}

}  // namespace tallybrook::test
