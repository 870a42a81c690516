#include "sheets/WorkbookCheck.h"

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include <fmt/format.h>
#include <unzip.h>

namespace tallybrook::sheets {

namespace {

struct Close {
    void operator()(unzFile archive) const { unzClose(archive); }
};
using Archive = std::unique_ptr<std::remove_pointer_t<unzFile>, Close>;

/// Counts the rows of a sheet as its bytes come along.
class RowCount {
public:
    void take(std::string_view bytes) {
        constexpr std::string_view kRow = "<row ";
        constexpr std::string_view kEnd = "</worksheet>";
        rest_ += bytes;
        std::size_t from = 0;
        for (std::size_t at = rest_.find(kRow); at != std::string::npos; at = rest_.find(kRow, from)) {
            ++rows_;
            from = at + kRow.size();
        }
        isWhole_ = rest_.ends_with(kEnd);
        const std::size_t kept = std::min(kEnd.size(), rest_.size());  // what may be parted
        rest_.erase(0, std::max(from, rest_.size() - kept));
    }
    /// Whether that was all of a sheet with so many rows.
    [[nodiscard]] bool isWhole(std::uint32_t rows) const { return isWhole_ && rows_ == rows; }

private:
    std::string rest_;
    std::uint32_t rows_ = 0;
    bool isWhole_ = false;
};

bool isSheetWhole(unzFile archive, const std::string& name, std::uint32_t rows, Progress& progress) {
    if (unzLocateFile(archive, name.c_str(), 1) != UNZ_OK || unzOpenCurrentFile(archive) != UNZ_OK)
        return false;
    constexpr std::size_t kPart = std::size_t{1} << 16U;
    std::array<char, kPart> bytes{};
    RowCount count;
    std::int64_t done = 0;
    int read = 0;
    while ((read = unzReadCurrentFile(archive, bytes.data(), kPart)) > 0) {
        count.take({bytes.data(), static_cast<std::size_t>(read)});
        progress.reach(done += read);
    }
    return unzCloseCurrentFile(archive) == UNZ_OK && read == 0 && count.isWhole(rows);
}

}  // namespace

void checkWorkbook(const std::filesystem::path& file, std::span<const SheetSize> sheets, Progress& progress) {
    progress.begin("Checking the workbook");
    const Archive archive(unzOpen64(file.c_str()));
    bool isWhole = archive != nullptr;
    for (std::size_t sheet = 0; isWhole && sheet < sheets.size(); ++sheet)
        isWhole = isSheetWhole(archive.get(), fmt::format("xl/worksheets/sheet{}.xml", sheet + 1),
                               sheets[sheet].rows, progress);
    if (!isWhole)
        throw std::runtime_error(
            "The workbook could not be written: it was not whole when it was read again.\r\nPlease see that "
            "there is "
            "room on the disk, and in the folder for temporary files.");
}

}  // namespace tallybrook::sheets
