#include "player/ToolkitNotes.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    tallybrook::passOverToolkitNotes();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
