// The power is cut at any call of the engine. Every save that was done is there afterwards, whichever of the
// bytes that were not synchronised reached the disk.

#include "reliability/Contents.h"
#include "reliability/Operations.h"
#include "reliability/UnsyncedFiles.h"
#include "reliability/Visit.h"
#include "store/Store.h"
#include "support/DataFolder.h"
#include "support/FileCalls.h"
#include "support/Rounds.h"
#include "support/TemporaryFolder.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

/// Cuts the power again and again while the program runs: keeps what would have been left, and what was to
/// be.
class PowerCuts : public DiskWatcher {
public:
    PowerCuts(const fs::path& logbook, unsigned seed)
        : logbook_(logbook), files_(logbook), history_(logbook), random_(seed) {}

    DiskVerdict before(const DiskAccess& access) override {
        if (isOfLogbook(access) && access.call != DiskCall::Read)
            cut();
        return {};
    }
    void after(const DiskAccess& access) override {
        if (!isOfLogbook(access))
            return;
        files_.note(access);
        history_.after(access);
    }

    /// All saves until now are done, as far as the person knows.
    void noteDone() { savesDone_ = history_.saves(); }

    [[nodiscard]] std::size_t cuts() const { return cuts_.size(); }

    void expectAllSaves() const {
        for (const Cut& cut : cuts_) {
            const auto first = history_.states().begin() + static_cast<std::ptrdiff_t>(cut.savesDone);
            EXPECT_NE(std::find(first, history_.states().end(), cut.contents), history_.states().end())
                << "after " << cut.savesDone << " saves:\n"
                << textOf(cut.contents);
        }
    }

private:
    struct Cut {
        std::size_t savesDone;
        Contents contents;
    };

    [[nodiscard]] bool isOfLogbook(const DiskAccess& access) const {
        return access.file.starts_with(logbook_.string());
    }

    void cut() {
        const TemporaryFolder folder;
        files_.cut(folder.path(), random_);
        const fs::path left = folder.path() / logbook_.filename();
        EXPECT_NO_THROW(Store(left, Visit::clock()));
        cuts_.push_back({savesDone_, contentsOf(left)});
    }

    const fs::path logbook_;
    UnsyncedFiles files_;
    SaveHistory history_;
    std::mt19937 random_;
    std::size_t savesDone_ = 0;
    std::vector<Cut> cuts_;
};

TEST(PowerCut, CostsNoSaveThatWasDone) {
    const FileCalls sparingTheDisk({});
    const TemporaryFolder ready;
    makeLogbookWithHandheld(ready.path());
    const int rounds = roundsOr(1);
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const TemporaryFolder folder;
        copyDataFolder(ready.path(), folder.path());
        WatchedVfs vfs;
        Visit visit(folder.path());
        visit.start();
        PowerCuts cuts(folder.path() / "Tallybrook_DB.mdb", seedOr(0) + static_cast<unsigned>(round));
        vfs.watch(&cuts);
        for (const auto& step : dayWithTheProgram()) {
            step(visit);
            cuts.noteDone();
        }
        vfs.watch(nullptr);
        EXPECT_EQ(visit.display.failuresTold, 0);
        EXPECT_GT(cuts.cuts(), 100U);
        cuts.expectAllSaves();
    }
}

}  // namespace

}  // namespace tallybrook::test
