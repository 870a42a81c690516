#pragma once

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// What has become of a program that was run.
struct ProgramRun {
    int status;
    QString output;  ///< what the hands have seen
    QString errors;
};

/// Runs a real program in a folder, where its settings and its data lie too. Its boxes and windows are closed
/// by the hands of `tests/support/hands`, which write down what they have seen. `display` is the one that the
/// program is told of by a variable of the environment, and which the hands do without.
inline ProgramRun runWithHands(const QString& program, const QStringList& arguments, const QString& folder,
                               const QString& display = {}, const QString& variable = "DISPLAY") {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("QT_PLUGIN_PATH", TALLYBROOK_HANDS);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "hands");
    environment.insert("XDG_CONFIG_HOME", folder + "/config");
    environment.insert("XDG_DATA_HOME", folder);
    environment.remove("WAYLAND_DISPLAY");
    environment.remove("DISPLAY");
    if (!display.isEmpty())
        environment.insert(variable, display);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

}  // namespace tallybrook::test
