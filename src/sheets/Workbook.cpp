#include "sheets/Workbook.h"

#include "runtime/UnfinishedFile.h"
#include "sheets/CellText.h"
#include "sheets/Rows.h"
#include "sheets/SheetColumns.h"
#include "sheets/WorkbookCheck.h"
#include "store/file/StoredValue.h"

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <xlsxwriter.h>

namespace tallybrook::sheets {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void failed(lxw_error why) {
    throw std::runtime_error(
        fmt::format("The workbook could not be written: {}\r\nPlease see that there is room on "
                    "the disk, and in the folder for temporary files.",
                    lxw_strerror(why)));
}

void require(lxw_error result) {
    if (result != LXW_NO_ERROR)
        failed(result);
}

/// A workbook on its way, and how its cells look.
class Workbook {
public:
    explicit Workbook(const fs::path& file) : workbook_(made(file)) {
        heading_ = workbook_add_format(workbook_.get());
        format_set_bold(heading_);
        format_set_text_wrap(heading_);
        format_set_align(heading_, LXW_ALIGN_VERTICAL_TOP);
        format_set_bottom(heading_, LXW_BORDER_THIN);
        date_ = workbook_add_format(workbook_.get());
        format_set_num_format_index(date_, kShortDate);
        average_ = workbook_add_format(workbook_.get());
        format_set_num_format_index(average_, kTwoPlaces);
    }

    [[nodiscard]] lxw_worksheet* addSheet(const std::string& name) {
        lxw_worksheet* const sheet = workbook_add_worksheet(workbook_.get(), name.c_str());
        if (sheet == nullptr)
            throw std::bad_alloc();
        return sheet;
    }
    [[nodiscard]] lxw_format* heading() const { return heading_; }
    [[nodiscard]] lxw_format* date() const { return date_; }
    /// How the numbers of a column look.
    [[nodiscard]] lxw_format* number(FieldType type) const {
        return type == FieldType::Double ? average_ : nullptr;
    }

    /// Writes all to the file; nothing more can be added.
    void finish() { require(workbook_close(workbook_.release())); }

private:
    // As the user's own language and country have them.
    static constexpr std::uint8_t kShortDate = 14;
    static constexpr std::uint8_t kTwoPlaces = 2;

    struct Free {
        void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
    };
    static lxw_workbook* made(const fs::path& file) {
        lxw_workbook_options options{.constant_memory = 1, .tmpdir = nullptr, .use_zip64 = 0};
        lxw_workbook* const workbook = workbook_new_opt(file.c_str(), &options);
        if (workbook == nullptr)
            throw std::bad_alloc();
        return workbook;
    }

    std::unique_ptr<lxw_workbook, Free> workbook_;
    lxw_format* heading_ = nullptr;
    lxw_format* date_ = nullptr;
    lxw_format* average_ = nullptr;
};

/// Rows as one sheet or, where they are too many, as several.
class Sheet {
public:
    Sheet(Workbook& workbook, const SheetPlan& plan, std::uint32_t mostRows)
        : workbook_(workbook), plan_(plan), mostRows_(mostRows) {
        for (const SheetColumn& column : plan.columns)
            types_.push_back(SheetPlan::typeOf(column));
        begin();
    }

    void addRow(const Statement& row) {
        if (row_ == mostRows_) {
            finish();
            begin();
        }
        for (std::size_t column = 0; column < types_.size(); ++column) {
            const auto at = static_cast<lxw_col_t>(column);
            decode(row.column(static_cast<int>(column)), types_[column],
                   [&](auto value) { write(at, value); });
        }
        ++row_;
    }
    /// Lets the rows be filtered by their headings.
    void finish() {
        require(worksheet_autofilter(sheet_, 0, 0, row_ - 1, static_cast<lxw_col_t>(types_.size() - 1)));
        sizes_.push_back({row_});
    }

    /// How large its sheets have become.
    [[nodiscard]] const std::vector<SheetSize>& sizes() const { return sizes_; }
    [[nodiscard]] std::int64_t cutTexts() const { return cutTexts_; }

private:
    void begin() {
        ++number_;
        sheet_ = workbook_.addSheet(number_ == 1 ? plan_.name : fmt::format("{} {}", plan_.name, number_));
        worksheet_freeze_panes(sheet_, 1, 0);
        lxw_col_t at = 0;
        for (const SheetColumn& column : plan_.columns) {
            require(worksheet_set_column(sheet_, at, at, column.width, nullptr));
            require(worksheet_write_string(sheet_, 0, at++, column.heading, workbook_.heading()));
        }
        row_ = 1;
    }

    void write(lxw_col_t /*at*/, Null /*nothing*/) {}
    /// What a spreadsheet's numbers do not tell apart stays a text.
    void write(lxw_col_t at, std::int64_t number) {
        if (std::abs(static_cast<double>(number)) < kToldApart)
            require(worksheet_write_number(sheet_, row_, at, static_cast<double>(number), nullptr));
        else
            write(at, std::string_view(std::to_string(number)));
    }
    void write(lxw_col_t at, double number) {
        if (std::isfinite(number))
            require(worksheet_write_number(sheet_, row_, at, number, workbook_.number(types_[at])));
        else
            write(at, std::string_view(fmt::format("{}", number)));
    }
    /// A spreadsheet knows no dates before 1900.
    void write(lxw_col_t at, DateTime date) {
        const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(date)};
        if (int{day.year()} < kFirstYear)
            return write(at, std::string_view(storedDate(date)));
        lxw_datetime when{.year = int{day.year()},
                          .month = static_cast<int>(unsigned{day.month()}),
                          .day = static_cast<int>(unsigned{day.day()}),
                          .hour = 0,
                          .min = 0,
                          .sec = 0};
        require(worksheet_write_datetime(sheet_, row_, at, &when, workbook_.date()));
    }
    void write(lxw_col_t at, std::string_view text) {
        const CellText cell = cellText(text, kMostInCell);
        cutTexts_ += cell.isCut ? 1 : 0;
        require(worksheet_write_string(sheet_, row_, at, cell.text.c_str(), nullptr));
    }

    static constexpr double kToldApart = 1e15;
    static constexpr int kFirstYear = 1900;

    Workbook& workbook_;
    const SheetPlan& plan_;
    const std::uint32_t mostRows_;
    std::vector<SheetSize> sizes_;
    std::int64_t cutTexts_ = 0;
    std::vector<FieldType> types_;
    lxw_worksheet* sheet_ = nullptr;
    int number_ = 0;
    lxw_row_t row_ = 0;
};

}  // namespace

WorkbookResult writeWorkbook(const SQLite::Database& logbook, const fs::path& file, Progress& progress,
                             std::uint32_t mostRows) {
    const UnfinishedFile unfinished(file);
    Workbook workbook(unfinished.path());
    WorkbookResult result;
    std::vector<SheetSize> sizes;
    for (const SheetPlan& plan : sheetPlans()) {
        Sheet sheet(workbook, plan, mostRows);
        forEachRow(logbook, plan.query(), fmt::format("Writing the sheet {}", plan.name), progress,
                   [&](const Statement& row) { sheet.addRow(row); });
        sheet.finish();
        sizes.insert(sizes.end(), sheet.sizes().begin(), sheet.sizes().end());
        result.cutTexts += sheet.cutTexts();
    }
    progress.begin("Packing the workbook");
    workbook.finish();
    checkWorkbook(unfinished.path(), sizes, progress);
    unfinished.putInPlace();
    return result;
}

}  // namespace tallybrook::sheets
