#pragma once

#include "keeper/ArchiveFormat.h"
#include "runtime/Progress.h"
#include "runtime/RegularFile.h"

#include <filesystem>
#include <functional>
#include <string>

namespace tallybrook::keeper {

/// Reads an archive line by line, as often as is wanted, and checks all of it: its form, the order of its
/// rows, its counts and its checksum.
class ArchiveReader {
public:
    /// Opens the file and reads its first line. Throws Refused.
    explicit ArchiveReader(std::filesystem::path file);

    [[nodiscard]] const ArchiveHead& head() const { return head_; }

    /// Reads all rows; `take` gets the index of the kind of each among kRowKinds, and its values. What it has
    /// taken is good only once this returns. Throws Refused where the archive is not as it should be, or not
    /// as it was the last time; Cancelled.
    void read(std::string_view what, Progress& progress,
              const std::function<void(std::size_t kind, const StoredRow& row)>& take);

private:
    /// The next line without its end; false at the end of the file.
    bool nextLine(std::string& line);
    bool fill();
    void rewind();
    void readRows(std::string_view what, Progress& progress,
                  const std::function<void(std::size_t, const StoredRow&)>& take);
    [[noreturn]] void refuse(const std::string& why) const;

    std::filesystem::path file_;
    RegularFile bytes_;
    std::string buffer_;
    std::size_t next_ = 0;  // in the buffer
    std::int64_t line_ = 0;
    Checksum checksum_;
    ArchiveHead head_;
    std::string lastChecksum_;
};

}  // namespace tallybrook::keeper
