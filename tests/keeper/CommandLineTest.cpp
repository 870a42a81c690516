#include "backup/Backups.h"
#include "keeper/Command.h"
#include "keeper/Export.h"
#include "keeper/Keeper.h"
#include "keeper/Logbooks.h"
#include "keeper/OldLogbook.h"
#include "keeper/TerminalProgress.h"
#include "runtime/InstanceLock.h"
#include "support/Anybody.h"
#include "support/FileCalls.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

class KeeperCommandLine : public testing::Test {
protected:
    ExitStatus run(const std::vector<std::string>& arguments) {
        return runKeeper(arguments, SystemClock{}, progress, out, notes);
    }

    NoProgress progress;
    std::ostringstream out;
    std::ostringstream notes;
};

TEST_F(KeeperCommandLine, TellsOfEveryCommandAndStatus) {
    EXPECT_EQ(run({"--help"}), ExitStatus::Done);
    for (const Command& command : commands())
        EXPECT_NE(out.str().find("    " + std::string(command.name)), std::string::npos) << command.name;
    EXPECT_NE(out.str().find("\n    5   Cancelled"), std::string::npos);
    constexpr std::size_t kTerminal = 80;
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), kTerminal) << line;
    EXPECT_EQ(notes.str(), "");
}

TEST_F(KeeperCommandLine, TellsItsVersion) {
    EXPECT_EQ(run({"--version"}), ExitStatus::Done);
    EXPECT_TRUE(out.str().starts_with("tallybrook-keeper 2.")) << out.str();
}

TEST_F(KeeperCommandLine, RefusesWhatItDoesNotUnderstand) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{}, "no command is given"},
        {{"bowl"}, "there is no command bowl"},
        {{"backups", "one"}, "too many words after backups"},
        {{"backups", "--data"}, "--data needs a value"},
        {{"backups", "--data", ""}, "the data folder has no name"},
        {{"read-archive", "a", "--same", "maybe"}, "the choice is keep, take or both, not maybe"},
        {{"read-archive", "a", "--event", "12"}, "--event takes an event and a choice, as in 12=take"},
        {{"read-archive", "a", "--event", "x=take"}, "an event is a whole number, not x"},
        {{"restore"}, "restore needs BACKUP"},
        {{"restore", ""}, "a word after restore is empty"},
        {{"archive", ""}, "a word after archive is empty"},
        {{"--fast"}, "there is no option --fast"},
    };
    for (const auto& [arguments, why] : cases) {
        notes.str("");
        EXPECT_EQ(run(arguments), ExitStatus::WrongUsage);
        EXPECT_EQ(notes.str(), "tallybrook-keeper: " + why + "\nTry tallybrook-keeper --help.\n");
    }
    EXPECT_EQ(out.str(), "");
}

TEST(KeeperExport, WritesOverNoProtectedFile) {
    const test::TemporaryFolder folder;
    const fs::path file = folder.path() / "kept.json";
    std::ofstream(file) << "kept";
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(file, fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EQ(test::asAnybody([&]() -> std::string {
                  try {
                      requireExportable(folder.path(), file);
                      return "written over";
                  } catch (const Refused& refused) {
                      return refused.what();
                  }
              }),
              "This file is write-protected: " + file.string());
}

TEST_F(KeeperCommandLine, TellsThatItsAnswerCannotBeWritten) {
    out.setstate(std::ios::badbit);
    EXPECT_EQ(run({"--help"}), ExitStatus::Failed);
    EXPECT_EQ(notes.str(), "The answer could not be written.\n");
}

TEST_F(KeeperCommandLine, GuardsFormulasUnlessItIsToldNotTo) {
    const test::TemporaryFolder folder;
    test::addEvent(folder.path(), "=1+1", 1);
    const auto eventsWith = [&](std::vector<std::string> options) {
        const fs::path place = folder.path() / ("csv" + std::to_string(options.size()));
        fs::create_directory(place);
        options.insert(options.begin(), {"csv", place, "--data", folder.path()});
        EXPECT_EQ(run(options), ExitStatus::Done) << notes.str();
        return test::bytesOf(place / "events.csv");
    };
    EXPECT_NE(eventsWith({}).find(",'=1+1,"), std::string::npos);
    EXPECT_NE(eventsWith({"--verbatim"}).find(",=1+1,"), std::string::npos);
}

TEST(KeeperExport, TellsWhatThereIsNoRoomFor) {
    const test::TemporaryFolder folder;
    test::addEvent(folder.path(), "Tuesday", 1);
    const SettableClock clock{makeDate(2026, 11, 22)};
    NoProgress nobody;
    const fs::path file = folder.path() / "kept.json";
    const test::FileCalls full([&](const test::FileCall& call) {
        return call.kind == test::FileCall::Kind::Write && call.path.starts_with(file.string()) ? ENOSPC : 0;
    });
    std::string told;
    try {
        exportArchive(folder.path(), file, clock, nobody);
    } catch (const Refused& refused) {
        told = refused.what();
    }
    EXPECT_EQ(told, "This cannot be written: " + file.string() + "\nNo space left on device.");
}

TEST(KeeperExport, TellsEachNoteInALineOfItsOwn) {
    const test::TemporaryFolder folder;
    test::addEvent(folder.path(), "Tuesday", 1);
    test::change(folder.path(), {"UPDATE tblEventInfo SET fldComment = hex(zeroblob(20000))"});
    const SettableClock clock{makeDate(2026, 11, 22)};
    backUpNow(logbookIn(folder.path()), clock);
    const InstanceLock running(lockIn(folder.path()));
    NoProgress nobody;
    EXPECT_EQ(exportWorkbook(folder.path(), folder.path() / "mine.xlsx", clock, nobody).note,
              "Tallybrook is running. This is from its newest backup, of 11/22/2026.\n"
              "Texts that are longer than a cell can be, and were cut: 1.");
}

TEST(KeeperAnswer, CountsTheNotesThatItLeavesOut) {
    carry::CarriedOver carried;
    carried.notes = {"a picture", "a sound"};
    carried.furtherNotes = 3;
    EXPECT_TRUE(inWords(carried).ends_with(
        "\nWhat did not come over as it was:\n    a picture\n    a sound\n    and 3 more of the kind\n"))
        << inWords(carried);
}

TEST(KeeperAnswer, TellsWhichTotalsAreNotThoseOfTheirGames) {
    carry::CarriedOver carried;
    carried.figures.byEvent = {{0, {.games = 1, .pins = 150}},
                               {3, {.isThere = true, .games = 2, .pins = 300, .seriesTotal = 300}},
                               {4, {.isThere = true, .games = 2, .pins = 300, .seriesTotal = 310}},
                               {5, {.isThere = true, .seriesTotal = 500}}};
    EXPECT_TRUE(inWords(carried).ends_with(
        "\nEvents whose recorded total is not that of their games, in the old logbook too:\n"
        "    event 4: recorded 310, its games come to 300\n"))
        << inWords(carried);
}

void forgetInterrupts() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

TEST_F(KeeperCommandLine, IsCancelledByAnInterrupt) {
    for (const int interrupt : {SIGINT, SIGTERM}) {
        TerminalProgress terminal;
        EXPECT_NO_THROW(terminal.begin("Reading", 10));
        EXPECT_EQ(std::raise(interrupt), 0);
        EXPECT_THROW(terminal.reach(1), Cancelled);
    }
    forgetInterrupts();
}

/// What some work shows on a terminal, as it is written there.
std::string shownOnATerminal(const std::function<void(Progress& progress)>& work) {
    int reader = -1;
    int terminal = -1;
    EXPECT_EQ(openpty(&reader, &terminal, nullptr, nullptr, nullptr), 0);
    const int before = dup(STDERR_FILENO);
    dup2(terminal, STDERR_FILENO);
    {
        TerminalProgress progress;
        work(progress);
    }
    dup2(before, STDERR_FILENO);
    close(before);
    close(terminal);
    forgetInterrupts();
    std::string shown;
    for (char sign = 0; read(reader, &sign, 1) == 1;)
        shown += sign;
    close(reader);
    return shown;
}

TEST(KeeperTerminal, ShowsEachPieceOfWorkInPlaceOfTheOneBefore) {
    EXPECT_EQ(shownOnATerminal([](Progress& progress) {
                  progress.begin("Copying", 200);
                  progress.reach(1);
                  progress.reach(101);
                  progress.begin("Checking");
                  progress.begin("Storing");
              }),
              "\r\rCopying: 0%"
              "\r           \rCopying: 50%"
              "\r            \rChecking..."
              "\r           \rStoring..."
              "\r          \r");
}

}  // namespace

}  // namespace tallybrook::keeper
