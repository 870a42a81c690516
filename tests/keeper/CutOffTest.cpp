// The keeper is killed before any call that changes a file, or any call fails. The logbook is the old or the
// new one, and never less.

#include "backup/Backups.h"
#include "keeper/ArchiveIntake.h"
#include "keeper/Export.h"
#include "keeper/Logbooks.h"
#include "keeper/Restore.h"
#include "support/FileCalls.h"
#include "support/Moments.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <functional>
#include <ostream>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

using test::FileCall;
using test::rowsOf;

struct Deed {
    const char* name;
    std::function<void(const HeldLogbook&, const fs::path& data, const Clock&, Progress&)> act;

    friend std::ostream& operator<<(std::ostream& out, const Deed& deed) { return out << deed.name; }
};

fs::path backupIn(const fs::path& data) {
    const BackupFolder folder = backupsIn(data);
    return folder.existing(folder.times().front());
}

void readArchive(const HeldLogbook& held, const fs::path& data, const Clock& clock, Progress& progress) {
    ArchiveReader archive(data / "archive");
    takeInArchive(held, archive, {.usual = Same::Both}, clock, progress);
}

const std::vector<Deed>& deeds() {
    static const std::vector<Deed> kDeeds{
        {"RestoreAll", [](const HeldLogbook& held, const fs::path& data, const Clock& clock,
                          Progress& progress) { restoreAll(held, backupIn(data), clock, progress); }},
        {"TakeEvents", [](const HeldLogbook& held, const fs::path& data, const Clock& clock,
                          Progress& progress) { takeEvents(held, backupIn(data), {1}, clock, progress); }},
        {"AddArchive", readArchive},
        {"NewFromArchive",
         [](const HeldLogbook& held, const fs::path& data, const Clock& clock, Progress& progress) {
             fs::remove(logbookIn(data));
             readArchive(held, data, clock, progress);
         }},
    };
    return kDeeds;
}

class CutOff : public testing::TestWithParam<Deed> {
protected:
    CutOff() {
        test::addEvent(ready_.path(), "Tuesday", 1);
        backUpNow(logbookIn(ready_.path()), clock_);
        exportArchive(ready_.path(), ready_.path() / "archive", clock_, nobody_);
        test::deleteEvent(ready_.path(), 1);
        test::addEvent(ready_.path(), "Friday", 1);
        before_ = rowsOf(logbookIn(ready_.path()));
        act();
        after_ = rowsOf(logbookIn(data()));
    }

    [[nodiscard]] const fs::path& data() const { return round_->path(); }

    /// A data folder as it was, and nobody has begun.
    void getReady() {
        round_ = std::make_unique<test::TemporaryFolder>();
        fs::copy(ready_.path(), data(), fs::copy_options::recursive);
    }
    void act() {
        getReady();
        perform();
    }
    void perform() {
        const HeldLogbook held(data());
        GetParam().act(held, data(), clock_, nobody_);
    }
    /// The rows that the program finds when it starts; none where there is no logbook.
    [[nodiscard]] std::vector<std::string> rowsAtNextStart(const fs::path& data) const {
        if (!fs::exists(logbookIn(data)))
            return {};
        { const Store opened(logbookIn(data), clock_); }
        return rowsOf(logbookIn(data));
    }
    [[nodiscard]] bool isOldOrNew(const std::vector<std::string>& rows) const {
        const bool isGone = rows.empty() && std::string(GetParam().name) == "NewFromArchive";
        return rows == before_ || rows == after_ || isGone;
    }

    test::TemporaryFolder ready_;
    std::unique_ptr<test::TemporaryFolder> round_;
    const SettableClock clock_{makeDate(2026, 11, 22)};
    NoProgress nobody_;
    std::vector<std::string> before_;
    std::vector<std::string> after_;
};

TEST_P(CutOff, LeavesTheOldLogbookOrTheNew) {
    getReady();
    test::Moments moments;
    moments.keep(data(), [this] { perform(); });
    EXPECT_GT(moments.size(), 10U);
    ASSERT_EQ(rowsAtNextStart(data()), after_);
    for (std::size_t moment = 0; moment < moments.size(); ++moment)
        ASSERT_TRUE(isOldOrNew(rowsAtNextStart(moments[moment]))) << "killed before change " << moment;
}

TEST_P(CutOff, ByAFailingCallLeavesTheOldLogbookOrTheNew) {
    for (const int failure : {EIO, ENOSPC}) {
        bool hasStruck = true;
        for (int call = 0; hasStruck; ++call) {
            getReady();
            int left = call;
            bool isDone = false;
            try {
                const test::FileCalls calls([&](const FileCall& touched) {
                    const bool isOurs = touched.path.starts_with(data().string());
                    return isOurs && left-- == 0 ? failure : 0;
                });
                perform();
                isDone = true;
            } catch (const std::exception& told) {
                EXPECT_STRNE(told.what(), "");
            }
            hasStruck = left < 0;
            const auto rows = rowsAtNextStart(data());
            ASSERT_TRUE(isOldOrNew(rows)) << "failed at call " << call;
            ASSERT_TRUE(!isDone || rows == after_) << "failed at call " << call << ", and was not told";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Keeper, CutOff, testing::ValuesIn(deeds()),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace

}  // namespace tallybrook::keeper
