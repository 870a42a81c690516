#include "carry/CarryOver.h"

#include "carry/JetHeader.h"
#include "carry/NewLogbook.h"
#include "carry/OldRows.h"
#include "runtime/TextFile.h"
#include "runtime/UnfinishedFile.h"
#include "store/file/Journal.h"
#include "store/file/LogbookFile.h"
#include "store/file/UnlockedFile.h"

#include <algorithm>
#include <array>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>

namespace tallybrook::carry {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void refuse(const fs::path& file, std::string_view why) {
    throw OldLogbookRefused(
        fmt::format("The old logbook cannot be carried over:\r\n{}\r\n{}", file.string(), why));
}

[[noreturn]] void taken(const fs::path& file, std::string_view why) {
    throw PlaceTaken(
        fmt::format("Nothing can be carried over to this place:\r\n{}\r\n{}", file.string(), why));
}

/// The old logbook's file, open to be read.
struct OldFile {
    RegularFile file;
    std::uintmax_t size;
};

JetKind kindOfFile(const fs::path& path) {
    std::string page(kPageSize, '\0');
    page.resize(RegularFile(path, O_RDONLY).read(page.data(), page.size()));
    return kindOf(page, fs::file_size(path));
}

OldFile openOldFile(const fs::path& path) {
    try {
        if (const std::string_view why = refusalOf(kindOfFile(path)); !why.empty())
            refuse(path, why);
        return {RegularFile(path, O_RDONLY), fs::file_size(path)};
    } catch (const std::system_error& failure) {
        const bool isSomethingElse = failure.code() == std::errc::invalid_argument;
        refuse(path, isSomethingElse ? "It is no file." : failure.code().message() + ".");
    }
}

/// Whether a logbook has no row. Opens it as the program itself does; throws PlaceTaken where that is
/// refused.
bool isEmptyLogbook(const fs::path& logbook) {
    try {
        const std::unique_ptr<Connection> connection = openLogbook(logbook, {});
        return std::ranges::all_of(tables(), [&](const Table& table) {
            Statement::Use row(connection->prepared("SELECT 1 FROM " + table.name + " LIMIT 1"));
            return !row->executeStep();
        });
    } catch (const LogbookRefused& refused) {
        throw PlaceTaken(refused.what());
    }
}

bool isSame(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored);
}

/// Refuses a place where there is anything that must not go.
void requirePlace(const CarryOverJob& job) {
    const fs::file_status there = fs::symlink_status(job.logbook);
    if (there.type() == fs::file_type::not_found)
        return;
    if (there.type() == fs::file_type::symlink)
        taken(job.logbook, "It is a link. Please put the logbook itself there, or remove the link.");
    if (isSame(job.oldLogbook, job.logbook))
        return;
    if (looksLikeOldLogbook(job.logbook))
        taken(job.logbook, "There is another old logbook. Please carry that one over, or move it away.");
    if (!isEmptyLogbook(job.logbook))
        taken(job.logbook,
              "There is a logbook with events already, which stays as it is. Please carry the old logbook "
              "over into "
              "another folder, write an archive there, and read that archive into this logbook.");
}

/// A name beside a file that nothing has yet.
fs::path freeNameFor(const fs::path& file) {
    for (int number = 1;; ++number) {
        const std::string mark = number == 1 ? " (old)" : fmt::format(" (old {})", number);
        fs::path name = file.parent_path() / (file.stem().string() + mark + file.extension().string());
        if (fs::symlink_status(name).type() == fs::file_type::not_found)
            return name;
    }
}

/// Keeps an old logbook under another name, since the new one is to take its place; not for longer than this
/// lives, unless it is to stay.
class KeptAside {
public:
    explicit KeptAside(const fs::path& file) : name_(freeNameFor(file)) {
        copyFile(file, name_);
        std::error_code ignored;  // its date only tells how old it is
        fs::last_write_time(name_, fs::last_write_time(file), ignored);
    }
    ~KeptAside() {
        std::error_code ignored;
        if (!stays_)
            fs::remove(name_, ignored);
    }
    KeptAside(const KeptAside&) = delete;
    KeptAside& operator=(const KeptAside&) = delete;

    void stay() { stays_ = true; }
    [[nodiscard]] const fs::path& name() const { return name_; }

private:
    fs::path name_;
    bool stays_ = false;
};

void readInto(NewLogbook& logbook, const OldFile& old, const CarryOverJob& job, int currentYear,
              CarriedOver& result, Progress& progress) {
    ReadingProcess process(old.file, old.size, job.reading);
    OldRows rows(logbook, currentYear, result);
    progress.begin(rows.work());
    while (!rows.isAtEnd()) {
        const Message message = process.next(progress, rows.rowsRead());
        rows.take(message);
        if (std::holds_alternative<TableBegins>(message))
            progress.begin(rows.work(), rows.rowsTold());
        else
            progress.reach(rows.rowsRead());
    }
}

CarriedOver fill(const fs::path& file, const OldFile& old, const CarryOverJob& job, int currentYear,
                 Progress& progress) {
    CarriedOver result;
    NewLogbook logbook(file);
    try {
        readInto(logbook, old, job, currentYear, result, progress);
    } catch (const OldLogbookRefused& refused) {
        refuse(job.oldLogbook, refused.what());
    } catch (const ReadingBroken& broken) {
        refuse(job.oldLogbook, broken.what() + std::string(" Please look for another copy of it."));
    }
    progress.begin("Comparing the new logbook with the old one");
    if (!logbook.finish())
        throw std::runtime_error(
            "The new logbook was not like the old one when it was read again, so it was thrown away. Please "
            "check the "
            "disk.");
    result.figures = logbook.figures();
    return result;
}

}  // namespace

bool looksLikeOldLogbook(const fs::path& file) {
    try {
        const JetKind kind = kindOfFile(file);
        return kind != JetKind::NoDatabase;
    } catch (const std::system_error&) {
        return false;
    }
}

CarriedOver carryOver(const CarryOverJob& job, const Clock& clock, Progress& progress) {
    const OldFile old = openOldFile(job.oldLogbook);
    requirePlace(job);
    const UnfinishedFile unfinished(job.logbook);
    CarriedOver result = fill(unfinished.path(), old, job, clock.year(), progress);
    progress.begin("Putting the new logbook in its place");
    std::optional<KeptAside> aside;
    if (isSame(job.oldLogbook, job.logbook))
        result.oldLogbookNow = aside.emplace(job.logbook).name();
    // What an older logbook of that name has left of a save that was cut off is not this one's.
    for (const fs::path& companion : companionsOf(job.logbook))
        fs::remove(companion);
    unfinished.putInPlace();
    if (aside)
        aside->stay();
    return result;
}

}  // namespace tallybrook::carry
