#include "keeper/Summary.h"

#include "keeper/StoredRow.h"
#include "store/file/StoredValue.h"
#include "store/sql/FieldValue.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
#include <unordered_map>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

constexpr const char* kEventTable = "tblEventInfo";
constexpr const char* kGameTable = "tblGameInfo";
constexpr const char* kFrameTable = "tblFrameInfo";

std::string counted(std::int64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::uint64_t mixed(std::uint64_t hash) {
    constexpr std::uint64_t kFactor = 0xff51afd7ed558ccd;
    hash = (hash ^ hash >> 33U) * kFactor;
    return hash ^ hash >> 33U;
}

std::uint64_t hashOf(sqlite3_value* value) {
    const auto type = static_cast<std::uint64_t>(sqlite3_value_type(value));
    const auto hashOfNumber = [type](const auto& number) {
        return type ^ std::hash<std::string_view>{}({reinterpret_cast<const char*>(&number), sizeof number});
    };
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return type;
        case SQLITE_INTEGER:
            return hashOfNumber(sqlite3_value_int64(value));
        case SQLITE_FLOAT:
            return hashOfNumber(sqlite3_value_double(value));
        default:
            return type ^ std::hash<std::string_view>{}(bytesOf(value));
    }
}

/// A hash of some columns of a row, from the first to the one before the last.
std::uint64_t hashOf(const Statement& row, int first, int last) {
    std::uint64_t hash = 0;
    for (int column = first; column < last; ++column)
        hash = mixed(hash + hashOf(row.column(column)));
    return hash;
}

/// Sums events up while their rows are read, in any order.
class Sums {
public:
    Sums(const SQLite::Database& logbook, Progress& progress) : logbook_(logbook), progress_(progress) {}

    Summary take() {
        sum_.counts = countsOf(logbook_);
        progress_.begin("Reading the logbook", sum_.counts.all());
        readEvents();
        readRows(kGameTable, &Counts::games);
        readRows(kFrameTable, &Counts::frames);
        return std::move(sum_);
    }

private:
    void readEvents() {
        const Table& table = *findTable(kEventTable);
        Statement rows(logbook_, selectFrom(table, "ORDER BY " + table.key().name));
        while (rows.executeStep()) {
            addEvent(rows, static_cast<int>(table.columns.size()));
            progress_.reach(++done_);
        }
    }

    void addEvent(const Statement& row, int columns) {
        EventSummary event{.key = row.number(0), .counts = {.events = 1}};
        event.name = shownText(storedValue(row.column(kName)));
        event.date = shownText(storedValue(row.column(kDate)));
        event.center = shownText(storedValue(row.column(kCenter)));
        event.fingerprint = hashOf(row, 1, columns);
        if (const auto date = storedDateIn(bytesOf(row.column(kDate))))
            sum_.lastNight = std::max(sum_.lastNight.value_or(*date), *date);
        places_[event.key] = sum_.events.size();
        sum_.events.push_back(std::move(event));
    }

    /// Games or frames; behind their own key they have that of their event.
    void readRows(const char* name, std::int64_t Counts::*count) {
        constexpr int kEventPlace = 1;
        const Table& table = *findTable(name);
        const std::uint64_t kind = std::hash<std::string_view>{}(name);
        Statement rows(logbook_, selectFrom(table, ""));
        while (rows.executeStep()) {
            const std::uint64_t hash =
                mixed(kind + hashOf(rows, kEventPlace + 1, static_cast<int>(table.columns.size())));
            const auto key = rows.wholeNumber(kEventPlace);
            if (const auto place = key ? places_.find(*key) : places_.end(); place != places_.end()) {
                EventSummary& event = sum_.events[place->second];
                event.fingerprint += hash;
                ++(event.counts.*count);
            } else {
                sum_.strays += hash;
            }
            progress_.reach(++done_);
        }
    }

    static std::string selectFrom(const Table& table, const std::string& order) {
        return fmt::format("SELECT {} FROM {} {}", columnList(columnsOf(table)), table.name, order);
    }

    // Where the columns stand among those of an event.
    static constexpr int kName = 1;
    static constexpr int kDate = 2;
    static constexpr int kCenter = 3;

    const SQLite::Database& logbook_;
    Progress& progress_;
    Summary sum_;
    std::unordered_map<std::int64_t, std::size_t> places_;  // of the events, by their keys
    std::int64_t done_ = 0;
};

}  // namespace

Counts& Counts::operator+=(const Counts& others) {
    events += others.events;
    games += others.games;
    frames += others.frames;
    return *this;
}

std::string inWords(const Counts& counts) {
    std::vector<std::string> parts;
    const auto add = [&](std::int64_t count, std::string_view noun) {
        if (count != 0)
            parts.push_back(counted(count, noun));
    };
    add(counts.events, "event");
    add(counts.games, "game");
    add(counts.frames, "frame");
    if (parts.empty())
        return "nothing";
    std::string text = parts.front();
    for (std::size_t part = 1; part < parts.size(); ++part)
        text += (part + 1 == parts.size() ? " and " : ", ") + parts[part];
    return text;
}

Summary summaryOf(const SQLite::Database& logbook, Progress& progress) {
    return Sums(logbook, progress).take();
}

Counts countsOf(const SQLite::Database& logbook) {
    const auto count = [&](const char* table) {
        Statement rows(logbook, fmt::format("SELECT count(*) FROM {}", table));
        rows.executeStep();
        return rows.number(0);
    };
    return {.events = count(kEventTable), .games = count(kGameTable), .frames = count(kFrameTable)};
}

}  // namespace tallybrook::keeper
