#include "carry/Reading.h"

#include "carry/JetFile.h"
#include "carry/MatchedColumns.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <set>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#if defined(TALLYBROOK_SANITIZED)
#define TALLYBROOK_TAKES_ALL_ADDRESSES true
#else
#define TALLYBROOK_TAKES_ALL_ADDRESSES false
#endif

namespace tallybrook::carry {

namespace {

std::vector<std::string> namesOf(const std::vector<JetColumn>& columns) {
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const JetColumn& column : columns)
        names.push_back(column.name);
    return names;
}

void readTable(JetFile& file, const JetEntry& entry, const Table& table,
               const std::function<void(const Message&)>& tell) {
    JetTable rows(file, entry);
    const std::vector<std::string> names = namesOf(rows.columns());
    const std::vector<MatchedColumn> matched = matchedColumns(table, names);
    tell(TableBegins{.name = table.name, .columns = names, .toldRows = rows.toldRows()});
    while (auto row = rows.next()) {
        RowFound found;
        found.cells.reserve(matched.size());
        for (const MatchedColumn& column : matched)
            found.cells.push_back(std::move((*row)[column.place]));
        tell(found);
    }
    tell(TableEnds{.lostRows = rows.lostRows()});
}

void readTables(JetFile& file, const std::function<void(const Message&)>& tell) {
    std::set<const Table*> read;
    for (const JetEntry& entry : file.tables()) {
        const Table* const table = findTable(entry.name);
        if (table == nullptr || !read.insert(table).second)
            tell(OtherTable{entry.name});
        else if (entry.isLinked)
            tell(LinkedTable{.name = table->name, .database = entry.database});
        else
            readTable(file, entry, *table, tell);
    }
}

/// What the process may use. The sanitizer needs more addresses than there is memory.
struct Limit {
    __rlimit_resource resource;
    rlim_t most;
    bool isSet = true;
};
constexpr std::array kLimits{
    Limit{RLIMIT_CPU, 120},  // seconds
    Limit{RLIMIT_AS, rlim_t{1} << 30U, !TALLYBROOK_TAKES_ALL_ADDRESSES},
    Limit{RLIMIT_FSIZE, 0},
    Limit{RLIMIT_CORE, 0},
    Limit{RLIMIT_NOFILE, 16},
};

bool limitOneself() {
    return std::ranges::all_of(kLimits, [](const Limit& limit) {
        const rlimit most{.rlim_cur = limit.most, .rlim_max = limit.most};
        return !limit.isSet || setrlimit(limit.resource, &most) == 0;
    });
}

/// Writes all the bytes to standard output; throws where nobody takes them.
void writeOut(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw std::runtime_error("nobody listens");
    }
}

/// Messages that are written many at a time.
class Messages {
public:
    void tell(const Message& message) {
        constexpr std::size_t kPart = std::size_t{1} << 16U;
        bytes_ += packed(message);
        if (bytes_.size() >= kPart)
            flush();
    }
    void flush() {
        writeOut(bytes_);
        bytes_.clear();
    }

private:
    std::string bytes_;
};

}  // namespace

void readOldLogbook(const std::string& path, std::uint64_t size,
                    const std::function<void(const Message&)>& tell) {
    try {
        JetFile file(path, size);
        readTables(file, tell);
        tell(ReadingEnds{});
    } catch (const JetDamaged& damaged) {
        tell(ReadingFailed{damaged.what()});
    }
}

bool isReadingProcess(std::span<const char* const> arguments) {
    return arguments.size() == 2 && std::strcmp(arguments[1], kReadingCommand) == 0;
}

int beTheReadingProcess() {
    struct stat status {};
    if (!limitOneself() || fstat(STDIN_FILENO, &status) != 0)
        return 1;
    try {
        Messages messages;
        readOldLogbook("/dev/fd/0", static_cast<std::uint64_t>(status.st_size),
                       [&](const Message& message) { messages.tell(message); });
        messages.flush();
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

}  // namespace tallybrook::carry
