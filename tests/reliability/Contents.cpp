#include "reliability/Contents.h"

#include "store/Store.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <utility>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTables[] = {"tblEventInfo", "tblGameInfo", "tblFrameInfo"};

void addRows(SQLite::Database& database, const std::string& table, Contents& contents) {
    SQLite::Statement rows(database, "SELECT * FROM " + table);
    while (rows.executeStep()) {
        Fields& fields = contents[table + " " + rows.getColumn(0).getString()];
        for (int column = 0; column < rows.getColumnCount(); ++column)
            fields[rows.getColumnName(column)] = rows.getColumn(column).getString();
    }
}

/// Makes the change that a save has made to a row: it was added, taken away, or got other values in some
/// fields. A row that an earlier save would have added stays away.
void makeChange(const std::string& row, const Contents& before, const Contents& after, Contents& contents) {
    if (!after.contains(row)) {
        contents.erase(row);
    } else if (!before.contains(row)) {
        contents[row] = after.at(row);
    } else if (contents.contains(row)) {
        for (const auto& [field, value] : after.at(row)) {
            if (before.at(row).at(field) != value)
                contents[row][field] = value;
        }
    }
}

void makeSave(const Contents& before, const Contents& after, Contents& contents) {
    for (const Contents* const side : {&before, &after}) {
        for (const auto& [row, fields] : *side)
            makeChange(row, before, after, contents);
    }
}

/// What a logbook holds that the program has open, and so has locked; nothing where there is none.
Contents contentsOfCopy(const fs::path& logbook) {
    if (!fs::exists(logbook))
        return {};
    const TemporaryFolder folder;
    const fs::path copy = folder.path() / "copy.mdb";
    fs::copy_file(logbook, copy);
    return contentsOf(copy);
}

/// How the engine ends its journal, and so a save: it deletes it, or takes its head away.
bool endsJournal(const DiskAccess& access) {
    if (access.call == DiskCall::Write)
        return access.offset == 0 && access.bytes.find_first_not_of('\0') == std::string_view::npos;
    return access.call == DiskCall::Delete || (access.call == DiskCall::Truncate && access.offset == 0);
}

}  // namespace

Contents contentsOf(const fs::path& logbook) {
    Contents contents;
    try {
        SQLite::Database database(logbook.string(), SQLite::OPEN_READWRITE);
        EXPECT_EQ(database.execAndGet("PRAGMA integrity_check").getString(), "ok");
        for (const char* const table : kTables)
            addRows(database, table, contents);
    } catch (const SQLite::Exception& failure) {
        ADD_FAILURE() << logbook << ": " << failure.what();
    }
    return contents;
}

std::string textOf(const Contents& contents) {
    std::string text;
    for (const auto& [row, fields] : contents) {
        text += row;
        for (const auto& [field, value] : fields)
            text += fmt::format(" {}={}", field, value);
        text += "\n";
    }
    return text;
}

SaveHistory::SaveHistory(fs::path logbook)
    : logbook_(std::move(logbook)), states_{contentsOfCopy(logbook_)} {}

void SaveHistory::after(const DiskAccess& access) {
    if (access.file != logbook_.string() + "-journal" || !endsJournal(access))
        return;
    Contents contents = contentsOfCopy(logbook_);
    if (contents == states_.back())
        return;
    states_.push_back(std::move(contents));
    possible_.clear();
}

/// What is there where each of the saves was made or was not.
std::set<Contents> SaveHistory::endsOfAnySaves() const {
    std::set<Contents> possible{atStart()};
    for (std::size_t save = 1; save < states_.size(); ++save) {
        std::set<Contents> saved = possible;
        for (Contents state : possible) {
            makeSave(states_[save - 1], states_[save], state);
            saved.insert(std::move(state));
        }
        possible = std::move(saved);
    }
    return possible;
}

bool SaveHistory::canLeave(const Contents& contents) const {
    if (possible_.empty())
        possible_ = endsOfAnySaves();
    return possible_.contains(contents);
}

bool SaveHistory::hasHeld(const std::string& row, const std::string& field, const std::string& value) const {
    return std::ranges::any_of(states_, [&](const Contents& state) {
        const auto found = state.find(row);
        return found != state.end() && found->second.at(field) == value;
    });
}

bool SaveHistory::canLeaveInParts(const Contents& contents) const {
    for (const auto& [row, fields] : contents) {
        for (const auto& [field, value] : fields) {
            if (!hasHeld(row, field, value))
                return false;
        }
    }
    return std::ranges::all_of(atStart(), [&](const auto& row) {
        return contents.contains(row.first) || !atEnd().contains(row.first);
    });
}

}  // namespace tallybrook::test
