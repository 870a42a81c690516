#include "store/file/Journal.h"

#include <bit>
#include <cerrno>
#include <cstdint>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kJournalMark{"\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8};
constexpr std::size_t kJournalHeadSize = 28;
constexpr std::size_t kPageCountAt = 28;          // in the logbook's first page
constexpr std::uint32_t kUncounted = 0xffffffff;  // by a program that does not wait for the disk

std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(at, 4))
        number = number << 8U | static_cast<unsigned char>(byte);
    return number;
}

std::ifstream opened(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::system_error(errno, std::generic_category());
    stream.exceptions(std::ios::badbit | std::ios::failbit);
    return stream;
}

std::string bytesFrom(std::istream& stream, std::uint64_t at, std::size_t count) {
    std::string bytes(count, '\0');
    stream.seekg(static_cast<std::streamoff>(at));
    stream.read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes;
}

/// The beginning of a logbook, up to its count of pages.
std::string headOf(const fs::path& logbook) {
    std::ifstream stream = opened(logbook);
    return bytesFrom(stream, 0, kPageCountAt + 4);
}

/// Walks over a journal: heads, each followed by as many records as it counts, each of a page's number, its
/// contents and their checksum.
class JournalWalk {
public:
    explicit JournalWalk(const fs::path& logbook)
        : file_(opened(journalOf(logbook))),
          size_(fs::file_size(journalOf(logbook))),
          firstPage_(headOf(logbook)) {}

    bool isSound() {
        while (at_ + kJournalHeadSize <= size_) {
            const std::string head = read(kJournalHeadSize);
            if (isUnfinished(head))
                break;
            if (!head.starts_with(kJournalMark) || (pageSize_ == 0 && !takeSizes(head)) || !isSoundPart(head))
                return false;
        }
        return pageSize_ == 0 || numberAt(firstPage_, kPageCountAt) == pages_;
    }

private:
    std::string read(std::size_t count) { return bytesFrom(file_, at_, count); }

    /// Mark and count are written once the records behind are on the disk, before the logbook is touched.
    static bool isUnfinished(const std::string& head) {
        return head.find_first_not_of('\0') >= kJournalMark.size() + 4;
    }

    bool takeSizes(const std::string& head) {
        pages_ = numberAt(head, 16);
        sectorSize_ = numberAt(head, 20);
        pageSize_ = numberAt(head, 24);
        const auto isSize = [](std::uint32_t size, std::uint32_t least) {
            return std::has_single_bit(size) && size >= least && size <= 65536;
        };
        return isSize(sectorSize_, 32) && isSize(pageSize_, 512);
    }

    /// The records behind a head, up to where the next one stands.
    bool isSoundPart(const std::string& head) {
        at_ += sectorSize_;
        const std::uint64_t room = at_ < size_ ? (size_ - at_) / recordSize() : 0;
        const std::uint32_t counted = numberAt(head, 8);
        const std::uint64_t count = counted == kUncounted ? room : counted;
        if (count > room)
            return false;
        for (std::uint64_t record = 0; record < count; ++record) {
            if (!isSoundRecord(numberAt(head, 12)))
                return false;
        }
        const std::uint64_t nextHead = (at_ + sectorSize_ - 1) / sectorSize_ * sectorSize_;
        const bool isAtEnd = counted == 0 || counted == kUncounted || at_ == size_;
        const bool goesOn = !isAtEnd && nextHead < size_;
        at_ = goesOn ? nextHead : size_;
        return isAtEnd || goesOn;
    }

    /// Pages that the file did not have before the save are not kept, and none is kept twice.
    bool isSoundRecord(std::uint32_t nonce) {
        constexpr std::size_t kStride = 200;  // only every so many bytes count
        const std::string record = read(recordSize());
        at_ += record.size();
        const std::string_view page = std::string_view(record).substr(4, pageSize_);
        std::uint32_t sum = nonce;
        for (std::size_t from = pageSize_ - kStride; from > 0 && from < pageSize_; from -= kStride)
            sum += static_cast<unsigned char>(page[from]);
        const std::uint32_t number = numberAt(record, 0);
        if (number == 1)
            firstPage_ = page;
        return sum == numberAt(record, 4 + pageSize_) && number > 0 && number <= pages_ &&
               seen_.insert(number).second;
    }

    [[nodiscard]] std::size_t recordSize() const { return std::size_t{pageSize_} + 8; }

    std::ifstream file_;
    std::uint64_t size_;
    std::uint64_t at_ = 0;
    std::string firstPage_;    // as it was before the save
    std::uint32_t pages_ = 0;  // of the logbook before the save
    std::uint32_t sectorSize_ = 0;
    std::uint32_t pageSize_ = 0;
    std::set<std::uint32_t> seen_;
};

bool holdsSomething(const fs::path& file) {
    std::error_code none;
    const std::uintmax_t size = fs::file_size(file, none);
    return !none && size > 0;
}

}  // namespace

fs::path journalOf(const fs::path& logbook) {
    return companionsOf(logbook).front();
}

std::vector<fs::path> companionsOf(const fs::path& logbook) {
    std::error_code ignored;
    return companionsBeside(fs::weakly_canonical(logbook, ignored));
}

std::vector<fs::path> companionsBeside(const fs::path& file) {
    return {file.string() + "-journal", file.string() + "-wal", file.string() + "-shm"};
}

fs::path writeAheadOf(const fs::path& logbook) {
    return companionsOf(logbook).at(1);
}

bool wasSaveCutOff(const fs::path& logbook) {
    return holdsSomething(journalOf(logbook));
}

bool wasOtherProgramCutOff(const fs::path& logbook) {
    return holdsSomething(writeAheadOf(logbook));
}

bool isJournalSound(const fs::path& logbook) {
    return JournalWalk(logbook).isSound();
}

}  // namespace tallybrook
