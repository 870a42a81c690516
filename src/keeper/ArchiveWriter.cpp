#include "keeper/ArchiveWriter.h"

#include "keeper/ArchiveFormat.h"
#include "keeper/ExitStatus.h"
#include "runtime/RegularFile.h"
#include "runtime/UnfinishedFile.h"
#include "store/file/Inspection.h"

#include <algorithm>

#include <fcntl.h>
#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

/// The lines on their way into the file, many at a time.
class Lines {
public:
    explicit Lines(const std::filesystem::path& file) : file_(file, O_WRONLY) {}

    void add(const std::string& line) {
        constexpr std::size_t kAtOnce = std::size_t{1} << 18U;
        waiting_.append(line) += '\n';
        if (waiting_.size() >= kAtOnce)
            write();
    }
    /// The checksum of all lines so far.
    std::string checksum() {
        write();
        return checksum_.take();
    }
    void write() {
        checksum_.add(waiting_);
        file_.write(waiting_);
        waiting_.clear();
    }

private:
    RegularFile file_;
    std::string waiting_;
    Checksum checksum_;
};

/// A key out of a logbook; 0 where the statement gives none.
std::int64_t keyFrom(const SQLite::Database& logbook, const std::string& select) {
    Statement key(logbook, fmt::format("SELECT coalesce(({}), 0)", select));
    key.executeStep();
    return std::max<std::int64_t>(key.number(0), 0);
}

/// The highest key that a table has ever had. Of what another program has noted only as much is believed as
/// leaves room for further keys.
std::int64_t lastKey(const SQLite::Database& logbook, const Table& table) {
    const std::int64_t present =
        keyFrom(logbook, fmt::format("SELECT max({}) FROM {}", table.key().name, table.name));
    if (!logbook.tableExists("sqlite_sequence"))
        return present;
    const std::int64_t noted = keyFrom(
        logbook,
        fmt::format("SELECT max(CAST(seq AS INTEGER)) FROM sqlite_sequence WHERE name = '{}'", table.name));
    return std::max(present, std::min(noted, kHighestGoneKey));
}

ArchiveHead headOf(const SQLite::Database& logbook) {
    ArchiveHead head{.schema = schemaOf(logbook), .counts = countsOf(logbook)};
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
        const Table& table = *findTable(kRowKinds[kind].table);
        head.columns[kind] = columnsOf(table);
        head.lastKeys[kind] = lastKey(logbook, table);
    }
    return head;
}

std::string lineFor(const RowKind& kind, const StoredRow& row) {
    std::string line = lineOf(kind, row);
    if (line.size() > kLongestLine)
        throw Refused(
            ExitStatus::Failed,
            fmt::format("The {} with the key {} holds more than an archive can take, which is {} MB.",
                        kind.name, shownText(row.front()), kLongestLine >> 20U));
    return line;
}

void writeLines(const SQLite::Database& logbook, Lines& lines, Progress& progress) {
    const ArchiveHead head = headOf(logbook);
    progress.begin("Writing the archive", head.counts.all());
    lines.add(lineOf(head));
    std::int64_t done = 0;
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
        const Table& table = *findTable(kRowKinds[kind].table);
        RowReader rows(logbook, head.columns[kind],
                       fmt::format("FROM {} ORDER BY {}", table.name, table.key().name));
        while (rows.next()) {
            lines.add(lineFor(kRowKinds[kind], rows.row()));
            progress.reach(++done);
        }
    }
    lines.add(lastLine(done, lines.checksum()));
    lines.write();
}

}  // namespace

Counts writeArchive(const SQLite::Database& logbook, const std::filesystem::path& file, Progress& progress) {
    const UnfinishedFile unfinished(file);
    {
        Lines lines(unfinished.path());
        writeLines(logbook, lines, progress);
    }
    progress.begin("Bringing the archive to the disk");
    unfinished.putInPlace();
    return countsOf(logbook);
}

}  // namespace tallybrook::keeper
