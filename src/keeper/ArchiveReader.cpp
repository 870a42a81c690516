#include "keeper/ArchiveReader.h"

#include "keeper/ExitStatus.h"

#include <algorithm>
#include <array>
#include <limits>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

namespace {

std::string cannotBeRead(const fs::path& file, const std::string& why) {
    return "The archive cannot be read: " + file.string() + "\n" + why;
}

RegularFile opened(const fs::path& file) {
    try {
        return {file, O_RDONLY};
    } catch (const std::system_error& failure) {
        const bool isNoFile = failure.code() == std::errc::invalid_argument;
        throw Refused(ExitStatus::BadInput,
                      cannotBeRead(file, isNoFile ? "It is no file." : failure.code().message() + "."));
    }
}

/// Whether rows come in the order of an archive: by kinds, and by keys that grow.
class Order {
public:
    void take(std::size_t kind, const StoredRow& row) {
        const auto* const key = std::get_if<std::int64_t>(&row.front());
        if (key == nullptr)
            throw ArchiveFault("The key of the row is no whole number.");
        if (kind < kind_ || (kind == kind_ && hasKey_ && *key <= key_))
            throw ArchiveFault("The rows are not in their order.");
        kind_ = kind;
        key_ = *key;
        highest_[kind] = std::max(highest_[kind], *key);
        hasKey_ = true;
        ++(counts_.*kRowKinds[kind].count);
    }
    [[nodiscard]] const Counts& counts() const { return counts_; }

    /// Whether these can be the highest keys that there have ever been.
    [[nodiscard]] bool allows(const std::array<std::int64_t, kKinds>& lastKeys) const {
        return std::ranges::equal(lastKeys, highest_, [](std::int64_t last, std::int64_t highest) {
            return last >= highest && last <= std::max(highest, kHighestGoneKey);
        });
    }

private:
    std::size_t kind_ = 0;
    std::int64_t key_ = 0;
    bool hasKey_ = false;
    Counts counts_;
    std::array<std::int64_t, kKinds> highest_ = {};
};

bool isLast(const std::string& line) {
    return line.starts_with("{\"end\"");
}

}  // namespace

ArchiveReader::ArchiveReader(fs::path file) : file_(std::move(file)), bytes_(opened(file_)) {
    rewind();
    try {
        std::string line;
        nextLine(line);
        head_ = headIn(line);
    } catch (const ArchiveFault& fault) {
        refuse(fault.what());
    }
}

void ArchiveReader::refuse(const std::string& why) const {
    throw Refused(ExitStatus::BadInput, cannotBeRead(file_, why));
}

void ArchiveReader::rewind() {
    if (lseek(bytes_.descriptor(), 0, SEEK_SET) != 0)
        refuse("It cannot be read twice.");
    buffer_.clear();
    next_ = 0;
    line_ = 0;
    checksum_ = Checksum();
}

bool ArchiveReader::fill() {
    constexpr std::size_t kAtOnce = std::size_t{1} << 16U;
    buffer_.erase(0, std::exchange(next_, 0));
    const std::size_t old = buffer_.size();
    buffer_.resize(old + kAtOnce);
    std::size_t count = 0;
    try {
        count = bytes_.read(buffer_.data() + old, kAtOnce);
    } catch (const std::system_error& failure) {
        refuse(failure.code().message() + ".");
    }
    buffer_.resize(old + count);
    return count > 0;
}

bool ArchiveReader::nextLine(std::string& line) {
    ++line_;
    std::size_t end = std::string::npos;
    for (std::size_t looked = next_; (end = buffer_.find('\n', looked)) == std::string::npos;) {
        const std::size_t length = buffer_.size() - next_;
        if (length > kLongestLine)
            throw ArchiveFault("The line is too long.");
        if (!fill()) {
            if (length > 0)
                throw ArchiveFault("The end of the archive is missing.");
            return false;
        }
        looked = length;
    }
    line.assign(buffer_, next_, end - next_);
    next_ = end + 1;
    return true;
}

void ArchiveReader::read(std::string_view what, Progress& progress,
                         const std::function<void(std::size_t, const StoredRow&)>& take) {
    rewind();
    try {
        readRows(what, progress, take);
    } catch (const ArchiveFault& fault) {
        refuse(fmt::format("Line {}: {}", line_, fault.what()));
    }
}

void ArchiveReader::readRows(std::string_view what, Progress& progress,
                             const std::function<void(std::size_t, const StoredRow&)>& take) {
    const auto note = [this](const std::string& line) {
        checksum_.add(line);
        checksum_.add("\n");
    };
    progress.begin(what, head_.counts.all());
    std::string line;
    if (!nextLine(line) || headIn(line) != head_)
        throw ArchiveFault("The archive was changed while it was read.");
    note(line);
    RowLine row(head_);
    Order order;
    while (nextLine(line) && !isLast(line)) {
        row.read(line);
        order.take(row.kind(), row.row());
        take(row.kind(), row.row());
        note(line);
        progress.reach(order.counts().all());
    }
    if (!isLast(line))
        throw ArchiveFault("The end of the archive is missing.");
    const std::string checksum = checksum_.take();
    if (order.counts() != head_.counts)
        throw ArchiveFault(fmt::format("The archive should hold {}, and holds {}.", inWords(head_.counts),
                                       inWords(order.counts())));
    if (line != lastLine(order.counts().all(), checksum))
        throw ArchiveFault("The checksum is not that of the archive: it was changed or is damaged.");
    if (!order.allows(head_.lastKeys))
        throw ArchiveFault("The last keys in the first line are not those of such rows.");
    if (nextLine(line))
        throw ArchiveFault("There is more behind its end.");
    if (!lastChecksum_.empty() && lastChecksum_ != checksum)
        throw ArchiveFault("The archive was changed while it was read.");
    lastChecksum_ = checksum;
}

}  // namespace tallybrook::keeper
