#include "support/RunWithHands.h"
#include "support/TemporaryFolder.h"

namespace tallybrook::keeper {

namespace {

class CommandLine : public testing::Test {
protected:
    [[nodiscard]] test::ProgramRun run(const QStringList& arguments, const QString& display) const {
        const QString path = QString::fromStdString(folder.path().string());
        return test::runWithHands(TALLYBROOK_KEEPER, arguments, path, display);
    }

    test::TemporaryFolder folder;
};

const QString kWindow = "window: Tallybrook Keeper\n";

}  // namespace

TEST_F(CommandLine, WindowComesUpWhereThereIsADisplay) {
    const test::ProgramRun outcome = run({}, ":0");
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output, kWindow);
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

}  // namespace tallybrook::keeper
