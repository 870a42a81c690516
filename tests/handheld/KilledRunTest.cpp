// A run that is killed at any moment loses nothing: either the handheld's files are as they were, or the rows
// are in the logbook; and what stands in the archive is whole.

#include "app/Application.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "handheld/AnsweringDisplay.h"
#include "handheld/ExportFiles.h"
#include "support/FileCalls.h"
#include "support/Moments.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

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

    /// Runs to the end, and keeps what each moment of the run would leave.
    static void run(const fs::path& data, const std::string& type, Moments& moments) {
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
        moments.keep(data, [&] {
            program.perform([&] { person::click(*program.screens.find("frmSyncPDA")->find("cmdAddPDA")); });
        });
        EXPECT_FALSE(display.uncaught);
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

    /// Whether the run's log tells that the event was added.
    static bool tellsOfTheEvent(const fs::path& data) {
        const fs::path log = data / "TBRK" / "PDA DB Archive" / "PDA_SyncLog-11-14-2026-2155.txt";
        return fs::exists(log) && bytesOf(log).find("Event E000000001 added") != std::string::npos;
    }
    static std::size_t eventsIn(const fs::path& data) {
        const SettableClock time = clock();
        return Store(data / "Tallybrook_DB.mdb", time).rows("tblEventInfo").size();
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
    const TemporaryFolder folder;
    Moments moments;
    run(folder.path() / "data", type, moments);
    int replaced = 0;
    bool isEventTold = false;
    for (std::size_t moment = 0; moment < moments.size() && !HasFailure(); ++moment) {
        SCOPED_TRACE("killed before change " + std::to_string(moment));
        const fs::path& left = moments[moment];
        const bool asItWas = handheldIsAsItWas(handheldFolder(left, type));
        EXPECT_TRUE(asItWas || logbookHasAllRows(left));
        replaced += asItWas ? 0 : 1;
        expectWholeArchive(left);
        if (!isEventTold && tellsOfTheEvent(left)) {
            isEventTold = true;
            EXPECT_EQ(eventsIn(left), 1U) << "the log tells of a row that is not on the disk yet";
        }
    }
    EXPECT_TRUE(isEventTold);
    EXPECT_GT(moments.size(), 30U);
    EXPECT_GT(replaced, 2);  // some of them lie in the midst of replacing
    EXPECT_TRUE(logbookHasAllRows(folder.path() / "data"));
}

INSTANTIATE_TEST_SUITE_P(OfBothHandhelds, KilledRuns, testing::Values("Palm", "PPC"));

}  // namespace

}  // namespace tallybrook::test
