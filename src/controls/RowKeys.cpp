#include "controls/RowKeys.h"

#include "controls/Grid.h"
#include "controls/Lists.h"
#include "runtime/TextCompare.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook::person {

namespace {

Press used(Control& target) {
    return {.used = true, .arrival = Arrival::Arrived, .target = &target};
}

/// Where a key moves to among `count` places from 0, of which `current` is the one now (-1 for none); nothing
/// if it is no key that moves, or there is nowhere to go.
std::optional<int> placeAfter(const std::string& key, int current, int count) {
    constexpr int kPage = 10;
    struct Move {
        std::string_view key;
        int to;
    };
    const std::array<Move, 6> moves{{{"Up", current - 1},
                                     {"Down", current + 1},
                                     {"PageUp", current - kPage},
                                     {"PageDown", current + kPage},
                                     {"Home", 0},
                                     {"End", count - 1}}};
    const auto* const move = std::ranges::find(moves, key, &Move::key);
    if (move == moves.end() || count == 0)
        return std::nullopt;
    const int place = std::clamp(move->to, 0, count - 1);
    return place == current ? std::nullopt : std::optional(place);
}

/// The next place after the current one, round and round, whose text begins with the character that the key
/// writes.
std::optional<int> placeBeginningWith(const std::string& key, int current,
                                      const std::vector<std::string>& texts) {
    const int count = static_cast<int>(texts.size());
    for (int step = 1; step <= count; ++step) {
        const int place = (current + step) % count;
        if (compareText(firstCharacters(texts[static_cast<std::size_t>(place)], 1), key) == 0)
            return place;
    }
    return std::nullopt;
}

/// Where a key moves to among texts of which `current` is the one now (-1 for none); nothing if it is no such
/// key.
std::optional<int> placeReached(const Key& key, int current, const std::vector<std::string>& texts) {
    const bool isCharacter = characterCount(key.name) == 1;
    if (key.control || (key.shift && !isCharacter))
        return std::nullopt;
    return isCharacter ? placeBeginningWith(key.name, current, texts)
                       : placeAfter(key.name, current, static_cast<int>(texts.size()));
}

Press pressInList(ItemList& list, const Key& key) {
    const std::optional<int> index = placeReached(key, list.pickedIndex().value_or(-1), list.items());
    if (!index)
        return {};
    list.pick(*index);
    return used(list);
}

/// The row of the folder that holds the one of a row; the row itself at the root.
int rowAbove(const FolderList& list, int row) {
    const std::vector<FolderRow>& rows = list.rows();
    const auto depth = [&rows](int at) { return rows[static_cast<std::size_t>(at)].depth; };
    int above = row;
    while (above > 0 && depth(above) >= depth(row))
        --above;
    return above;
}

void openOrGoIn(FolderList& list) {
    const auto isOpen = [&list] { return list.rows()[static_cast<std::size_t>(list.cursor())].isOpen; };
    if (isOpen())
        list.moveCursor(list.cursor() + 1);
    else
        list.open(list.cursor());
}

void closeOrGoOut(FolderList& list) {
    const std::size_t before = list.rows().size();
    list.close(list.cursor());
    if (list.rows().size() == before)
        list.moveCursor(rowAbove(list, list.cursor()));
}

void pickAtCursor(FolderList& list) {
    list.pickFolder(list.rows()[static_cast<std::size_t>(list.cursor())].path);
}

/// The keys that move in a tree move its cursor: a folder is picked on purpose only.
Press pressInFolders(FolderList& list, const Key& key) {
    struct Action {
        std::string_view key;
        void (*act)(FolderList& list);
    };
    constexpr std::array<Action, 3> kActions{
        {{"Right", openOrGoIn}, {"Left", closeOrGoOut}, {"Space", pickAtCursor}}};
    if (const auto* const action = std::ranges::find(kActions, key.name, &Action::key);
        action != kActions.end() && !key.control && !key.shift) {
        action->act(list);
        return used(list);
    }
    std::vector<std::string> names;
    std::ranges::transform(list.rows(), std::back_inserter(names), &FolderRow::name);
    const std::optional<int> row = placeReached(key, list.cursor(), names);
    if (!row)
        return {};
    list.moveCursor(*row);
    return used(list);
}

Press pressInGrid(Grid& grid, const Key& key) {
    if (key.control || key.shift)
        return {};
    const std::optional<int> row = placeAfter(key.name, grid.currentRow() - 1, grid.rowCount());
    if (!row)
        return {};
    grid.selectRow(*row + 1);
    return used(grid);
}

}  // namespace

Press pressInRows(const Screen& screen, const Key& key) {
    Control* const focused = screen.focused();
    if (focused == nullptr || !focused->canTakeFocus())
        return {};
    if (focused->kind() == Control::Kind::Grid)
        return pressInGrid(static_cast<Grid&>(*focused), key);
    if (focused->kind() == Control::Kind::FolderList)
        return pressInFolders(static_cast<FolderList&>(*focused), key);
    return focused->isList() ? pressInList(static_cast<ItemList&>(*focused), key) : Press{};
}

}  // namespace tallybrook::person
