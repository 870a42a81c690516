#include "maintenance/CheckRun.h"
#include "store/AtOneLook.h"
#include "store/CommitAtEnd.h"
#include "store/WalkRows.h"

#include <optional>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// A table whose rows each belong to an event.
struct ChildTable {
    RecordsetVariable CheckRun::*rows;
    const char* table;
    const char* what;  // as the report names its rows
};

constexpr ChildTable kFrames{&CheckRun::gDBRsFrame, "tblFrameInfo", "frames"};
constexpr ChildTable kGames{&CheckRun::gDBRsGame, "tblGameInfo", "games"};

/// The walk over one table.
class OrphanHunt {
public:
    OrphanHunt(CheckRun& run, const Handler& step, const ChildTable& child)
        : run_(run), step_(step), child_(child), rows_(run.*child.rows) {}

    void deleteOrphans() {
        std::optional<int> sound;
        step_([&] { sound = rowsAllOfEvents(run_.program.store(), child_.table); });
        if (sound) {
            checked_ = *sound;
            return report();
        }
        step_([&] { rows_->Open(fmt::format("SELECT * from {}", child_.table)); });
        step_([&] { checked_ = rows_->RecordCount(); });
        step_([&] { rows_->MoveFirst(); });
        walkRows(
            step_, [this]() -> Recordset& { return *rows_; }, [this] { deleteIfOrphan(); });
        report();
        step_([&] { rows_->Close(); });
    }

private:
    void report() {
        step_([&] {
            run_.print(
                fmt::format("{} {} checked, {} {} deleted.", checked_, child_.what, deleted_, child_.what));
        });
    }

    /// A row that cannot be deleted counts as deleted: its box has told of it.
    void deleteIfOrphan() {
        if (!isOrphan())
            return;
        step_([&] { rows_->Delete(); });
        ++deleted_;
    }

    /// Nothing is deleted on the word of a failure: a row whose event cannot be read, or cannot be looked
    /// for, is none.
    bool isOrphan() {
        const bool isRead = step_([&] { eventKey_ = toInt32(rows_->Fields("fldSessionNum")); });
        const bool isFound = step_([&] {
            run_.gDBRsEvent->Open("SELECT * FROM tblEventInfo WHERE fldSessionNum = " + text(eventKey_));
        });
        int events = 1;
        step_([&] { events = run_.gDBRsEvent->RecordCount(); });
        step_([&] { run_.gDBRsEvent->Close(); });
        return isRead && isFound && events == 0;
    }

    CheckRun& run_;
    const Handler& step_;
    const ChildTable& child_;
    const RecordsetVariable& rows_;
    Int32 eventKey_;
    int checked_ = 0;
    int deleted_ = 0;
};

}  // namespace

void DB_Integ(CheckRun& run) {
    const Handler step = run.handler("DB_Integ");
    storeAtOnce(run.program.store(), step, [&] {
        step([&] { run.print("Checking database integrity."); });
        for (const ChildTable& child : {kFrames, kGames})
            OrphanHunt(run, step, child).deleteOrphans();
    });
}

}  // namespace tallybrook
