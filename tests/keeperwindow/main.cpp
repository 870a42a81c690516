#include "carry/Reading.h"

#include <QApplication>

#include <gtest/gtest.h>

/// The tests, or the process that reads an old logbook for them.
int main(int argc, char** argv) {
    if (tallybrook::carry::isReadingProcess({argv, static_cast<std::size_t>(argc)}))
        return tallybrook::carry::beTheReadingProcess();
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // nobody can reach into those
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
