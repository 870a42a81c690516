// Something fails at its nth call, n counted up until all is well: the disk as the engine sees it, or the
// text files. After each the program goes on, and nothing is lost: the logbook is sound and holds each single
// save or does not, what stood in a file is still there, and whatever is not as it was to be has been told
// of.

#include "reliability/Contents.h"
#include "reliability/Fault.h"
#include "reliability/Operations.h"
#include "reliability/TextFiles.h"
#include "reliability/Visit.h"
#include "support/DataFolder.h"
#include "support/FileCalls.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr int kMostCalls = 2000;

using Case = std::tuple<Operation, Device, FaultKind>;

class Failing : public testing::TestWithParam<Case> {
protected:
    Failing() { operation().makeLogbook(ready_.path()); }

    static const Operation& operation() { return std::get<Operation>(GetParam()); }

    /// The same data folder before each time.
    void getReady() {
        round_.emplace();
        copyDataFolder(ready_.path(), data());
    }
    [[nodiscard]] const fs::path& data() const { return round_->path(); }
    [[nodiscard]] fs::path logbook() const { return data() / "Tallybrook_DB.mdb"; }

    /// What is there after each save, and at the end, while nothing fails.
    void runClean() {
        getReady();
        Visit visit(data());
        operation().prepare(visit);
        filesBefore_ = textFilesOf(data());
        history_.emplace(logbook());
        vfs_.watch(&*history_);
        operation().act(visit);
        vfs_.watch(nullptr);
        filesAfter_ = textFilesOf(data());
        EXPECT_FALSE(visit.hasEnded());
        EXPECT_EQ(visit.display.failuresTold, 0);
        EXPECT_EQ(history_->saves() == 0 && filesAfter_ == filesBefore_, operation().onlyReads);
    }

    /// Whether what can fail is written to while nothing fails.
    [[nodiscard]] bool isWrittenTo() const {
        return std::get<Device>(GetParam()) == Device::Engine ? history_->saves() > 0
                                                              : filesAfter_ != filesBefore_;
    }

    /// Whether the fault struck.
    bool runFailing(int callsToPass) {
        getReady();
        bool hasEnded = false;
        bool hasStruck = false;
        bool isTold = false;
        {
            Visit visit(data());
            operation().prepare(visit);
            {
                const auto fault = makeFault(callsToPass);
                operation().act(visit);
                hasStruck = fault->hasStruck();
            }
            files_ = textFilesOf(data());
            EXPECT_TRUE(!visit.hasEnded() || operation().mayEnd);
            hasEnded = visit.hasEnded();
            if (!hasEnded)
                addFurtherEvent(visit);
            isTold = visit.display.failuresTold > 0;
        }
        if (hasEnded)
            addFurtherEventOnNextVisit();
        expectNothingLost(isTold);
        return hasStruck;
    }

    std::unique_ptr<Fault> makeFault(int callsToPass) {
        const FaultKind kind = std::get<FaultKind>(GetParam());
        const Device device = std::get<Device>(GetParam());
        switch (device) {
            case Device::TextFiles:
                return std::make_unique<FileFault>(onTextFiles(data()), kind, callsToPass);
            case Device::BackupFolder:
                return std::make_unique<FileFault>(onBackups(data()), kind, callsToPass);
            case Device::Backup:
                return std::make_unique<EngineFault>(vfs_, kind, callsToPass,
                                                     DiskFault::Whose::OfOtherThreads);
            case Device::Engine:
                break;
        }
        return std::make_unique<EngineFault>(vfs_, kind, callsToPass);
    }

    void addFurtherEventOnNextVisit() {
        Visit visit(data());
        visit.start();
        addFurtherEvent(visit);
        EXPECT_EQ(visit.display.failuresTold, 0);
    }

    static void addFurtherEvent(Visit& visit) {
        visit.goToMain();
        EXPECT_EQ(visit.front(), "frmMain");
        visit.click("mnuAddFromForm");
        visit.type("txtEvent", "Further");
        visit.click("cmdPrevious");
        EXPECT_FALSE(visit.hasEnded());
    }

    void expectNothingLost(bool isTold) {
        Contents contents = contentsOf(logbook());
        const auto further =
            std::erase_if(contents, [](const auto& row) { return isEventNamed(row, "Further"); });
        EXPECT_GT(further, 0U) << "the save after the fault is not there";
        EXPECT_TRUE(operation().isLeft(*history_, contents, data())) << textOf(contents) << "instead of\n"
                                                                     << textOf(history_->atEnd());
        EXPECT_TRUE(isNothingLost(files_, filesBefore_, filesAfter_));
        EXPECT_TRUE(isTold || (contents == history_->atEnd() && files_ == filesAfter_));
    }

    static bool isEventNamed(const Contents::value_type& row, const std::string& name) {
        const auto found = row.second.find("fldEventName");
        return found != row.second.end() && found->second == name;
    }

    const FileCalls sparingTheDisk_{{}};
    WatchedVfs vfs_;
    TemporaryFolder ready_;
    std::optional<TemporaryFolder> round_;
    std::optional<SaveHistory> history_;
    TextFiles filesBefore_;
    TextFiles filesAfter_;
    TextFiles files_;
};

TEST_P(Failing, CostsNothingButWhatItFailsIn) {
    runClean();
    int calls = 0;
    for (bool struck = true; struck && !HasFailure(); ++calls) {
        ASSERT_LT(calls, kMostCalls) << "does not come to its end";
        SCOPED_TRACE("failing at call " + std::to_string(calls));
        struck = runFailing(calls);
    }
    RecordProperty("calls", calls);
    EXPECT_TRUE(calls > 2 || !isWrittenTo()) << "the calls are not counted";
}

std::vector<Case> cases() {
    std::vector<Case> cases;
    for (const Operation& operation : operations()) {
        for (const Device device : operation.devices) {
            for (const FaultKind kind : kFaultKinds) {
                // The engine only reads what a backup is made of.
                if (device != Device::Backup || kind.error != FaultKind::Error::Full)
                    cases.emplace_back(operation, device, kind);
            }
        }
    }
    return cases;
}

std::string nameOf(const testing::TestParamInfo<Case>& tested) {
    const auto& [operation, device, kind] = tested.param;
    return operation.name + testing::PrintToString(device) + nameOf(kind);
}

INSTANTIATE_TEST_SUITE_P(Of, Failing, testing::ValuesIn(cases()),
                         [](const auto& tested) { return nameOf(tested); });

}  // namespace

}  // namespace tallybrook::test
