#include "Rehearsal.h"
#include "player/DesktopStage.h"
#include "player/PlayStopped.h"

#include <QFile>
#include <QImage>
#include <filesystem>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

TEST(DesktopStage, TakesAPictureOfTheScreenInFront) {
    const TemporaryFolder folder;
    DesktopStage stage(folder.path() / "shots");
    const Outcome outcome = rehearse(stage, "start\nshot one\nclick cmdOther\nshot two\n");
    EXPECT_EQ(outcome.status, status::kPlayed) << outcome.errors;
    const QImage one(QString::fromStdString((folder.path() / "shots" / "one.png").string()));
    const QImage two(QString::fromStdString((folder.path() / "shots" / "two.png").string()));
    EXPECT_FALSE(one.isNull());
    EXPECT_FALSE(two.isNull());
    EXPECT_NE(one, two);
}

TEST(DesktopStage, WhatTheUsersWindowsRememberIsNeitherReadNorWritten) {
    const TemporaryFolder folder;
    const auto pictureBy = [&folder](const char* name) {
        DesktopStage stage(folder.path());
        const Outcome outcome = rehearse(stage, std::string("start\nshot ") + name + "\n");
        EXPECT_EQ(outcome.status, status::kPlayed) << outcome.errors;
        return QImage(QString::fromStdString((folder.path() / name).string() + ".png"));
    };
    const QImage before = pictureBy("before");
    EXPECT_FALSE(before.isNull());

    const QByteArray remembered = "[windows]\nmaximised=true\n[sizes]\nfrmOne=@Size(640 620)\n";
    fs::create_directory(folder.path() / "Tallybrook");
    QFile file(QString::fromStdString((folder.path() / "Tallybrook" / "Windows.conf").string()));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(remembered);
    file.flush();
    const QByteArray usual = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.path().string()));
    EXPECT_EQ(pictureBy("after"), before);
    qputenv("XDG_CONFIG_HOME", usual);
    file.seek(0);
    EXPECT_EQ(file.readAll(), remembered);
}

TEST(DesktopStage, PicturesStayTogetherWhereverTheProgramIsLed) {
    const TemporaryFolder folder;
    const CurrentFolder start;
    fs::current_path(folder.path());
    DesktopStage stage("shots");
    fs::create_directory("elsewhere");
    fs::current_path("elsewhere");
    const Outcome outcome = rehearse(stage, "start\nshot one\n");
    EXPECT_EQ(outcome.status, status::kPlayed) << outcome.errors;
    EXPECT_TRUE(fs::exists(folder.path() / "shots" / "one.png"));
}

TEST(DesktopStage, APictureThatCannotBeWrittenStopsThePlay) {
    const TemporaryFolder folder;
    DesktopStage stage(folder.path());
    const Outcome outcome = rehearse(stage, "start\nshot no/such/folder\n");
    EXPECT_EQ(outcome.status, status::kNotCarriedOut);
    EXPECT_TRUE(outcome.errors.starts_with("line 2: the picture ")) << outcome.errors;
}

TEST(DesktopStage, LeavesNoWindowBehind) {
    {
        DesktopStage stage;
        rehearse(stage, "start\nclick cmdOther\nclick mnuBack\n");
    }
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

}  // namespace

}  // namespace tallybrook::test
