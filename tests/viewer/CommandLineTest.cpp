#include "readers/Files.h"
#include "support/RunWithHands.h"

namespace tallybrook::test {

namespace {

ProgramRun run(const QStringList& arguments, const Files& files) {
    return runWithHands(TALLYBROOK_VIEWER, arguments, files.folder());
}

}  // namespace

TEST(CommandLine, OneFileIsShown) {
    Files files;
    const ProgramRun outcome = run({files.write("League Night.txt", "1\t2\r\n")}, files);
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output, "window: League Night.txt - Tallybrook Report\n");
}

TEST(CommandLine, NameIsTakenAsItStands) {
    Files files;
    for (const QString& name :
         {QString("a  b.txt"), QString("-style"), QString("--help"), QString("\"q\" 'q'.txt"),
          QString("$(x) `x` ;&|.txt"), QString::fromUtf8("José.txt")}) {
        files.write(name, "text");
        EXPECT_EQ(run({name}, files).output, "window: " + name + " - Tallybrook Report\n");
    }
}

TEST(CommandLine, EachFileHasAWindow) {
    Files files;
    const ProgramRun outcome = run({files.write("one.txt", "1"), files.write("two.txt", "2")}, files);
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    QStringList windows = outcome.output.split('\n', Qt::SkipEmptyParts);
    windows.sort();
    EXPECT_EQ(windows,
              (QStringList{"window: one.txt - Tallybrook Report", "window: two.txt - Tallybrook Report"}));
}

TEST(CommandLine, FilesThatCanBeShownAreShown) {
    Files files;
    const ProgramRun outcome = run({"missing.txt", files.write("two.txt", "2")}, files);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output,
              "box: The report cannot be shown:||missing.txt||There is no such file.\n"
              "window: two.txt - Tallybrook Report\n");
}

TEST(CommandLine, FileThatCannotBeShownIsStatus1) {
    const Files files;
    const ProgramRun missing = run({"missing.txt"}, files);
    EXPECT_EQ(missing.status, 1) << missing.errors.toStdString();
    EXPECT_EQ(missing.output, "box: The report cannot be shown:||missing.txt||There is no such file.\n");
    const ProgramRun folder = run({files.folder()}, files);
    EXPECT_EQ(folder.status, 1);
    EXPECT_EQ(folder.output, "box: The report cannot be shown:||" + files.folder() + "||It is a folder.\n");
    const ProgramRun pipe = run({files.pipe("pipe")}, files);
    EXPECT_EQ(pipe.status, 1);
    EXPECT_EQ(pipe.output, "box: The report cannot be shown:||" + files.path("pipe") +
                               "||It is a device and not a file.\n");
    EXPECT_EQ(run({""}, files).status, 1);
}

TEST(CommandLine, LastReportIsShown) {
    Files files;
    for (const char* const name : {"one.txt", "two.txt", "one.txt"})
        run({files.write(name, "text")}, files);
    const ProgramRun outcome = run({"--last"}, files);
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output, "window: one.txt - Tallybrook Report\n");
}

TEST(CommandLine, WhereThereIsNoLastReportItSaysSo) {
    const Files files;
    const ProgramRun outcome = run({"--last"}, files);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(
        outcome.output,
        "box: No report has been opened yet.||In Tallybrook, choose Data, Reports to write one. Then File, "
        "Open shows it.\n");
}

TEST(CommandLine, LastReportThatIsGoneIsTold) {
    Files files;
    const QString report = files.write("one.txt", "text");
    run({report}, files);
    ASSERT_TRUE(QFile::remove(report));
    const ProgramRun outcome = run({"--last"}, files);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "box: The report cannot be shown:||" + report + "||There is no such file.\n");
}

TEST(CommandLine, FileCalledAsAnOptionIsShown) {
    Files files;
    files.write("--last", "text");
    EXPECT_EQ(run({"./--last"}, files).output, "window: --last - Tallybrook Report\n");
    EXPECT_EQ(run({"--last", "--last"}, files).output,  // as one of several it is a file as well
              "window: --last - Tallybrook Report\nwindow: --last - Tallybrook Report\n");
}

TEST(CommandLine, NoFileIsStatus2) {
    const Files files;
    const ProgramRun outcome = run({}, files);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, "Usage: tallybrook-viewer FILE... | --last\n");
    EXPECT_EQ(outcome.output, "");
}

}  // namespace tallybrook::test
