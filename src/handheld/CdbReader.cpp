#include "handheld/CdbReader.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// One file on its way through.
class CdbReader {
public:
    CdbReader(SyncRun& run, SyncFile& file, CommitAtEnd& rows, const std::function<Outcome(CdbRecord&)>& add)
        : run_(run),
          file_(file),
          format_(file.format),
          rows_(rows),
          add_(add),
          record_(format_, [this](const RunTimeError& why) { tellFailedCut(why); }) {}

    void read() {
        if (!format_.opening.empty())
            run_.logStamped("", format_.opening);
        while (!file_.tmp->atEnd()) {
            const std::string line = file_.tmp->readLine();
            if (line.starts_with('#'))
                takeHeader(line);
            else
                takeRecord(line);
            if (file_.isEmpty)
                return;
        }
        finish();
    }

private:
    void tellFailedCut(const RunTimeError& why) {
        bringToDisk(run_, rows_);
        run_.giveUp(why, "ParseDBLine");
    }

    void write(std::string_view text) { Write_Log(text, run_.log.run); }
    /// The same for a line of which there may be hundreds of thousands: it waits for bringToDisk().
    void note(std::string_view line) { run_.log.run->writeLine(line); }

    void takeHeader(std::string_view line) {
        if (run_.DeleteFromPDA)
            file_.out->writeLine(line);
        if (line.find("RECCNT") == std::string_view::npos)
            return;
        const Int32 count = recordCount(line);
        if (count == 0 && !format_.nothing.empty())
            endAtNone();
        else
            write(fmt::format("Total of {} {} in file.", count.value(), format_.many));
    }

    /// The file counts as empty even where the log cannot tell so.
    void endAtNone() {
        bringToDisk(run_, rows_);
        file_.isEmpty = true;
        write(format_.nothing);
    }

    void takeRecord(std::string_view line) {
        ++processed_;
        record_.take(line);
        record_.cut(kFirstCutField, format_.lastBeforeStatus);
        if (record_.isDeleted()) {
            ++inError_;
            note(fmt::format("Record ID {} marked for deletion, not processed.", record_.id()));
        } else {
            addRecord();
        }
    }

    void addRecord() {
        const Outcome outcome = add_(record_);
        ++(outcome.isAdded ? added_ : inError_);
        if (outcome.isAdded && run_.DeleteFromPDA)
            file_.out->writeLine(record_.markedLine());
        note(outcome.logLine);
    }

    void finish() {
        bringToDisk(run_, rows_);
        write(fmt::format("{0} processed: {1}, {0} added: {2}, {0} in error: {3}", format_.title,
                          processed_.value(), added_.value(), inError_.value()));
        file_.tmp.close();
        file_.out.close();
        run_.logStamped(fmt::format("Completed processing {}: ", format_.many), "\r\n");
    }

    SyncRun& run_;
    SyncFile& file_;
    const CdbFormat& format_;
    CommitAtEnd& rows_;
    const std::function<Outcome(CdbRecord&)>& add_;
    CdbRecord record_;
    Int32 processed_;
    Int32 added_;
    Int32 inError_;
};

}  // namespace

void bringToDisk(SyncRun& run, CommitAtEnd& rows) {
    rows.commitSoFar();
    run.log.run.flush();
}

void readExportFile(SyncRun& run, SyncFile& file, CommitAtEnd& rows,
                    const std::function<Outcome(CdbRecord&)>& add) {
    CdbReader(run, file, rows, add).read();
}

}  // namespace tallybrook
