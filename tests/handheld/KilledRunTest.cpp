// A run that is killed at any moment loses nothing: either the handheld's files are as they were, or the rows
// are in the logbook; and what stands in the archive is whole. A child process runs, and dies before the nth
// of its calls that change files.

#include "app/Application.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "handheld/AnsweringDisplay.h"
#include "handheld/ExportFiles.h"
#include "support/FileCalls.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr int kKilled = 77;

using Files = std::map<std::string, std::string>;

Files exportFiles() {
    const Exports lines = smallExports();
    return {{"tblEvent", withLineEnds(lines.events)},
            {"tblGame", withLineEnds(lines.games)},
            {"tblFrame", withLineEnds(lines.frames)}};
}

class KilledRuns : public testing::TestWithParam<const char*> {
protected:
    static SettableClock clock() {
        return SettableClock{makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55}};
    }
    static Answer answer(const MessageBox& box) {
        return box.title == "Database Check" ? Answer::No : box.defaultAnswer();  // and delete the data
    }

    /// Runs in a child that dies before that call; true if it lived to the run's end.
    static bool runIn(const fs::path& data, const std::string& type, int calls) {
        const pid_t child = fork();
        if (child == 0) {
            runAndExit(data, type, calls);
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_TRUE(WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == kKilled) << status;
        return WEXITSTATUS(status) == 0;
    }

    [[noreturn]] static void runAndExit(const fs::path& data, const std::string& type, int calls) {
        AnsweringDisplay display(answer);
        const SettableClock time = clock();
        Application application(display, time, data);
        application.start();
        Program& program = application.program();
        program.session.gHHType = type;
        program.session.gHHSyncDir = (data / "Hand").string();
        fs::create_directory(data / "Hand");
        for (const auto& [name, bytes] : exportFiles())
            std::ofstream(handheldFolder(data, type) / (name + ".cdb")) << bytes;
        program.perform([&] { program.screens.load("frmSyncPDA"); });
        int callsToLive = calls;
        const FileCalls dying([&callsToLive](const FileCall& call) {
            if (changesFiles(call) && callsToLive-- == 0)
                _exit(kKilled);
            return 0;
        });
        program.perform([&] { person::click(*program.screens.find("frmSyncPDA")->find("cmdAddPDA")); });
        _exit(display.uncaught ? 1 : 0);
    }

    static fs::path handheldFolder(const fs::path& data, const std::string& type) {
        return type == "Palm" ? data / "Hand" : data / "TBRK";
    }

    static bool handheldIsAsItWas(const fs::path& folder) {
        return std::ranges::all_of(exportFiles(), [&](const auto& exported) {
            const fs::path file = folder / (exported.first + ".cdb");
            return fs::exists(file) && bytesOf(file) == exported.second;
        });
    }

    static bool logbookHasAllRows(const fs::path& data) {
        const SettableClock time = clock();
        Store store(data / "Tallybrook_DB.mdb", time);
        return store.rows("tblEventInfo").size() == 1 && store.rows("tblGameInfo").size() == 1 &&
               store.rows("tblFrameInfo").size() == 1;
    }

    static void expectWholeArchive(const fs::path& data) {
        for (const auto& [name, bytes] : exportFiles()) {
            const fs::path copy = data / "TBRK" / "PDA DB Archive" / (name + "-11-14-2026-2155.cdb");
            if (fs::exists(copy)) {
                EXPECT_EQ(bytesOf(copy), bytes);
            }
        }
    }
};

TEST_P(KilledRuns, LoseNothing) {
    const std::string type = GetParam();
    const FileCalls sparingTheDisk({});
    bool lived = false;
    int replaced = 0;
    int calls = 0;
    for (; !lived; ++calls) {
        SCOPED_TRACE("killed before call " + std::to_string(calls));
        ASSERT_LT(calls, 2000) << "the run does not come to its end";
        const TemporaryFolder folder;
        const fs::path data = folder.path() / "data";
        lived = runIn(data, type, calls);
        const bool asItWas = handheldIsAsItWas(handheldFolder(data, type));
        EXPECT_TRUE(asItWas || logbookHasAllRows(data));
        replaced += asItWas ? 0 : 1;
        expectWholeArchive(data);
        if (HasFailure())
            break;
    }
    EXPECT_GT(calls, 30);    // the calls are counted
    EXPECT_GT(replaced, 2);  // and some of the runs died in the midst of replacing
}

INSTANTIATE_TEST_SUITE_P(OfBothHandhelds, KilledRuns, testing::Values("Palm", "PPC"));

}  // namespace

}  // namespace tallybrook::test
