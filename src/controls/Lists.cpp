#include "controls/Lists.h"

#include "runtime/Folder.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextEncoding.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// Whether a path can be kept as a line of a text file, and read again.
bool isLineOfText(const std::string& path) {
    const auto isControl = [](char character) { return static_cast<unsigned char>(character) < ' '; };
    return encodingOf(path) == Encoding::Utf8 && std::ranges::none_of(path, isControl);
}

}  // namespace

ItemList::ItemList(Kind kind, Place place, std::string name, const Options& options)
    : Control(kind, place, std::move(name)), options_(options) {
    setTip(options.tip);
    setEnabled(options.enabled);
}

std::string ItemList::picked() const {
    return picked_ ? items_[static_cast<std::size_t>(*picked_)] : std::string{};
}

void ItemList::fill(std::vector<std::string> items) {
    items_ = std::move(items);
    picked_.reset();
}

void ItemList::pick(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size()))
        throw RunTimeError(error::kSubscriptOutOfRange);
    picked_ = index;
    afterPick();
}

DriveList::DriveList(Place place, std::string name, std::vector<std::string> volumes, const Options& options)
    : ItemList(Kind::DriveList, place, std::move(name), options) {
    fill(std::move(volumes));
}

void DriveList::showVolumeOf(const std::string& path) {
    const auto holds = [&path](const std::string& volume) {
        const std::string inside = volume.ends_with('/') ? volume : volume + '/';
        return path == volume || path.starts_with(inside);
    };
    std::optional<int> found;
    std::size_t length = 0;
    for (int index = 0; index < static_cast<int>(items().size()); ++index) {
        const std::string& volume = items()[static_cast<std::size_t>(index)];
        if (holds(volume) && volume.size() > length) {
            found = index;
            length = volume.size();
        }
    }
    showPicked(found);
}

namespace {

/// The folders that lead to a path: the root first, the folder itself last.
std::vector<std::string> wayTo(const std::string& path) {
    const fs::path folder = fs::absolute(path).lexically_normal();
    fs::path reached = folder.root_path();
    std::vector<std::string> way{reached.string()};
    for (const fs::path& part : folder.relative_path()) {
        if (part.empty())
            break;  // a separator at the end
        reached /= part;
        way.push_back(reached.string());
    }
    return way;
}

}  // namespace

std::string FolderRow::name() const {
    const std::string last = fs::path(path).filename().string();
    return last.empty() ? path : last;
}

FolderList::FolderList(Place place, std::string name, const Options& options)
    : ItemList(Kind::FolderList, place, std::move(name), options) {
    openAt("/");
}

void FolderList::setPath(const std::string& path) {
    std::error_code ignored;
    if (!fs::is_directory(path, ignored))
        throw RunTimeError(error::kPathNotFound);
    openAt(path);
}

bool FolderList::pickFolder(const std::string& path) {
    if (!isFolder(path))
        return false;
    openAt(path);
    if (onChange)
        onChange();
    return true;
}

std::optional<int> FolderList::rowOf(const std::string& path) const {
    const auto found = std::ranges::find(rows_, path, &FolderRow::path);
    return found == rows_.end() ? std::nullopt : std::optional(static_cast<int>(found - rows_.begin()));
}

void FolderList::moveCursor(int row) {
    static_cast<void>(at(row));
    cursor_ = row;
}

void FolderList::open(int row) {
    if (at(row).isOpen)
        return;
    std::vector<FolderRow> inside;
    for (std::string& path : foldersIn(at(row).path))
        inside.push_back({.path = std::move(path), .depth = at(row).depth + 1});
    rows_[static_cast<std::size_t>(row)].isOpen = !inside.empty();
    rows_[static_cast<std::size_t>(row)].isEmpty = inside.empty();
    if (cursor_ > row)
        cursor_ += static_cast<int>(inside.size());
    rows_.insert(rows_.begin() + row + 1, inside.begin(), inside.end());
}

void FolderList::close(int row) {
    const int end = endOf(row);
    const int picked = rowOf(path_).value_or(row);
    if (picked > row && picked < end)
        return;
    rows_.erase(rows_.begin() + row + 1, rows_.begin() + end);
    rows_[static_cast<std::size_t>(row)].isOpen = false;
    if (cursor_ > row)
        cursor_ = std::max(row, cursor_ - (end - row - 1));
}

bool FolderList::reveal(const std::string& path) {
    if (!isFolder(path))
        return false;
    cursor_ = openDownTo(wayTo(path));
    return true;
}

bool FolderList::isFolder(const std::string& path) {
    std::error_code ignored;
    return isLineOfText(path) && fs::path(path).is_absolute() && fs::is_directory(path, ignored);
}

std::vector<std::string> FolderList::foldersIn(const std::string& path) {
    std::vector<std::string> found;
    for (const std::string& name : namesIn(path)) {
        if (std::string inside = fs::path(path) / name; !name.starts_with('.') && isFolder(inside))
            found.push_back(std::move(inside));
    }
    std::ranges::sort(found);
    return found;
}

void FolderList::afterPick() {
    openAt(picked());
    if (onChange)
        onChange();
}

/// The folder itself is always read anew.
void FolderList::openAt(const std::string& path) {
    std::vector<std::string> items = wayTo(path);
    const int here = static_cast<int>(items.size()) - 1;
    path_ = items.back();
    cursor_ = openDownTo(items);
    close(cursor_);
    open(cursor_);
    for (int row = cursor_ + 1; row < endOf(cursor_); ++row)
        items.push_back(at(row).path);
    fill(std::move(items));
    showPicked(here);
}

/// Opens all above the last folder of the way; returns the row of that folder.
int FolderList::openDownTo(const std::vector<std::string>& way) {
    if (rows_.empty() || rows_.front().path != way.front())
        rows_ = {{.path = way.front()}};
    int row = 0;
    for (std::size_t step = 1; step < way.size(); ++step) {
        open(row);
        row = rowBelow(row, way[step]);
    }
    return row;
}

/// The row of a folder right in the one of the row `above`. A hidden one is put there.
int FolderList::rowBelow(int above, const std::string& path) {
    const int depth = at(above).depth + 1;
    const int end = endOf(above);
    int row = above + 1;
    while (row < end && (at(row).depth > depth || at(row).path < path))
        ++row;
    if (row < end && at(row).path == path)
        return row;
    rows_.insert(rows_.begin() + row, {.path = path, .depth = depth});
    rows_[static_cast<std::size_t>(above)].isOpen = true;
    rows_[static_cast<std::size_t>(above)].isEmpty = false;
    if (cursor_ >= row)
        ++cursor_;
    return row;
}

/// Behind the last row of what is in the folder.
int FolderList::endOf(int row) const {
    const int depth = at(row).depth;
    const auto end = std::find_if(rows_.begin() + row + 1, rows_.end(),
                                  [depth](const FolderRow& other) { return other.depth <= depth; });
    return static_cast<int>(end - rows_.begin());
}

const FolderRow& FolderList::at(int row) const {
    if (row < 0 || row >= static_cast<int>(rows_.size()))
        throw RunTimeError(error::kSubscriptOutOfRange);
    return rows_[static_cast<std::size_t>(row)];
}

}  // namespace tallybrook
