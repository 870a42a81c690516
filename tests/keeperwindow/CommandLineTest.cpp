#include "keeper/Logbooks.h"
#include "support/RunWithHands.h"
#include "support/TemporaryFolder.h"

namespace tallybrook::keeper {

namespace {

class CommandLine : public testing::Test {
protected:
    [[nodiscard]] test::ProgramRun run(const QStringList& arguments, const QString& display,
                                       const QString& variable = "DISPLAY") const {
        const QString path = QString::fromStdString(folder.path().string());
        return test::runWithHands(TALLYBROOK_KEEPER, arguments, path, display, variable);
    }

    test::TemporaryFolder folder;
};

const QString kWindow = "window: Tallybrook Keeper\n";

}  // namespace

TEST_F(CommandLine, WindowComesUpWhereThereIsADisplay) {
    for (const auto& [variable, display] :
         {std::pair{"DISPLAY", ":0"}, std::pair{"WAYLAND_DISPLAY", "wayland-0"}}) {
        const test::ProgramRun outcome = run({}, display, variable);
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output, kWindow) << variable;
    }
}

TEST_F(CommandLine, WithoutADisplayTheWindowMustBeAskedFor) {
    EXPECT_EQ(run({"--window"}, "").output, kWindow);
    const test::ProgramRun outcome = run({}, "");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "tallybrook-keeper: no command is given\nTry tallybrook-keeper --help.\n");
}

TEST_F(CommandLine, CommandsNeedNoWindow) {
    const test::ProgramRun outcome = run({"backups"}, ":0");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.contains("There is no such folder: ")) << outcome.errors.toStdString();
}

TEST_F(CommandLine, QuestionsAboutTheProgramNeedNoWindow) {
    EXPECT_TRUE(run({"--help"}, ":0").output.startsWith("NAME\n"));
    EXPECT_TRUE(run({"--version"}, ":0").output.startsWith("tallybrook-keeper "));
}

TEST_F(CommandLine, FileThatMayGrowNoFurtherIsTold) {
    test::addEvent(folder.path(), "Tuesday");
    const QString data = QString::fromStdString(folder.path().string());
    const QString file = data + "/mine.jsonl";
    const test::ProgramRun outcome = test::runWithHands(
        "/bin/sh",
        {"-c", R"(ulimit -f 1 && exec "$0" "$@")", TALLYBROOK_KEEPER, "archive", file, "--data", data}, data);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "This cannot be written: " + file + "\nFile too large.\n");
}

}  // namespace tallybrook::keeper
