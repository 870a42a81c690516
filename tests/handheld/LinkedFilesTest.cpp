// A link to the logbook stands where an import reads or writes a file: the run may fail, but the logbook
// stays one.

#include "handheld/AnsweringDisplay.h"
#include "handheld/SyncPlay.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

/// The files of a run, below the data folder.
constexpr const char* kFiles[] = {"Hand Sync/tblFrame.cdb",
                                  "Hand Sync/tblFrame.cdb.new",
                                  "TBRK/tblFrame.cdb",
                                  "TBRK/tblFrame.cdb.new",
                                  "TBRK/tblFrame.tmp",
                                  "TBRK/tblFrame.out",
                                  "TBRK/PDASyncLog-Master.log",
                                  "TBRK/PDA DB Archive/tblFrame-11-14-2026-2155.cdb",
                                  "TBRK/PDA DB Archive/PDA_SyncLog-11-14-2026-2155.txt",
                                  "DB_Report.txt"};

using MakeLink = void (*)(const fs::path& target, const fs::path& link);

class LinkedFiles : public testing::TestWithParam<MakeLink> {
protected:
    /// Runs an import, and puts the link in its place when a box with that title is up.
    void runWithLink(const std::string& file, const std::string& title) {
        AnsweringDisplay display([&](const MessageBox& box) {
            if (box.title == title)
                putLink(file);
            return box.title == "Database Check" ? Answer::No : box.defaultAnswer();
        });
        Application application(display, clock, data());
        application.start();
        putExports();
        SessionState& session = application.program().session;
        session.gHHType = "Palm";
        session.gHHSyncDir = handheld().string();
        application.program().perform([&] { application.program().screens.load("frmSyncPDA"); });
        if (title.empty())
            putLink(file);
        application.program().perform(
            [&] { person::click(*application.program().screens.find("frmSyncPDA")->find("cmdAddPDA")); });
    }
    void putExports() const {
        fs::create_directory(handheld());
        const Exports files = smallExports();
        std::ofstream(handheld() / "tblEvent.cdb") << withLineEnds(files.events);
        std::ofstream(handheld() / "tblGame.cdb") << withLineEnds(files.games);
        std::ofstream(handheld() / "tblFrame.cdb") << withLineEnds(files.frames);
    }
    void putLink(const std::string& file) const {
        fs::remove(data() / file);
        GetParam()(logbook(), data() / file);
    }
    void expectLogbook() const {
        const SQLite::Database database(logbook().string());
        SQLite::Statement check(database, "PRAGMA integrity_check");
        ASSERT_TRUE(check.executeStep());
        EXPECT_EQ(check.getColumn(0).getString(), "ok");
        SQLite::Statement count(database, "SELECT count(*) FROM tblEventInfo");
        EXPECT_TRUE(count.executeStep());
    }

    [[nodiscard]] fs::path data() const { return folder_->path() / "data"; }
    [[nodiscard]] fs::path handheld() const { return data() / "Hand Sync"; }
    [[nodiscard]] fs::path logbook() const { return data() / "Tallybrook_DB.mdb"; }

    const SettableClock clock{makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55}};
    std::optional<TemporaryFolder> folder_;
};

TEST_P(LinkedFiles, CostNoLogbook) {
    for (const char* const title : {"", "Delete PDA Data", "Check Complete"}) {
        for (const char* const file : kFiles) {
            SCOPED_TRACE(std::string(file) + " at \"" + title + "\"");
            folder_.emplace();
            runWithLink(file, title);
            expectLogbook();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, LinkedFiles,
    testing::Values([](const fs::path& target, const fs::path& link) { fs::create_symlink(target, link); },
                    [](const fs::path& target, const fs::path& link) { fs::create_hard_link(target, link); }),
    [](const auto& tested) { return tested.index == 0 ? "Symbolic" : "Hard"; });

}  // namespace

// While the box of the check is up, that which is to be replaced becomes a link to the logbook.
TEST(LinkToTheLogbook, InThePlaceOfAnExportFileIsRefused) {
    SyncPlay play;
    play.put(smallExports());
    const fs::path link = SyncPlay::exportFile(play.handheldFolder(), "tblFrame");
    play.click("cmdAddPDA", {SyncPlay::sayingWhatIsToCome(),
                             SyncPlay::askingToDelete(Answer::Yes),
                             {"Check Complete", Answer::OK, "",
                              [&] {
                                  fs::remove(link);
                                  fs::create_symlink(play.dataFolder() / "Tallybrook_DB.mdb", link);
                              }},
                             SyncPlay::failure("Sync_Cleanup", error::kPermissionDenied),
                             {"Sync Complete", Answer::OK}});
    EXPECT_EQ(play.frames().size(), 1U);
    EXPECT_TRUE(fs::is_symlink(link));
}

}  // namespace tallybrook::test
