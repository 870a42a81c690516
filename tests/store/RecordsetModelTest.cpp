// Random operations on several recordsets at once over the same table, against a plain model in memory.

#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <deque>
#include <map>
#include <optional>
#include <set>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

struct ModelRow {
    int key = 0;
    int score = 0;
    bool operator==(const ModelRow&) const = default;
};

using ModelTable = std::map<int, int>;  // scores by key

/// What a recordset on "all rows with a score of at least 50, by score" must do, in the plainest way.
class Model {
public:
    Model(ModelTable& table, int& lastKey) : table_(table), lastKey_(lastKey) {
        for (const auto& [key, score] : table) {
            if (score >= 50)
                rows_.push_back({key, score});
        }
        std::ranges::stable_sort(rows_, {}, &ModelRow::score);
        at_ = rows_.empty() ? 0 : 1;
    }

    /// All that it is, so that two that stand alike are known.
    std::string state(int firstKey) const {
        std::string state = fmt::format("{} {} {} {} |", at_, adding_, deleted_, pending_.value_or(-1));
        for (const ModelRow& row : rows_)
            state += fmt::format(" {}:{}", row.key - firstKey, row.score);
        return state;
    }

    int count() const { return static_cast<int>(rows_.size()) - (deleted_ ? 1 : 0); }
    bool eof() const { return !adding_ && (rows_.empty() || at_ > size()); }
    bool bof() const { return !adding_ && (rows_.empty() || at_ < 1); }

    int read(std::optional<int>& score) const {
        if (pending_) {
            score = pending_;
            return 0;
        }
        if (adding_) {
            score.reset();
            return 0;
        }
        if (!onRow())
            return error::kNoCurrentRow;
        score = row().score;
        return 0;
    }
    int write(int score) {
        if (!adding_ && !onRow())
            return error::kNoCurrentRow;
        pending_ = score;
        return 0;
    }
    int addNew() {
        adding_ = true;
        pending_.reset();
        return 0;
    }
    int cancel() {
        adding_ = false;
        pending_.reset();
        return 0;
    }
    int update() {
        if (adding_) {
            const int score = pending_.value_or(0);
            table_[++lastKey_] = score;
            rows_.push_back({lastKey_, score});
            dropDeleted();
            at_ = size();
            return cancel();
        }
        if (!pending_)
            return onRow() ? 0 : error::kNoCurrentRow;
        if (!table_.contains(row().key))
            return error::kRowGone;
        table_[row().key] = row().score = *pending_;
        return cancel();
    }
    int remove() {
        if (adding_)
            return cancel();
        if (!onRow())
            return error::kNoCurrentRow;
        pending_.reset();
        table_.erase(row().key);
        deleted_ = true;
        return 0;
    }
    int move(int where, bool next) {  // where: -1 first, 1 last, 0 a step
        if (pending_ && !adding_) {
            if (const int fault = update(); fault != 0)
                return fault;
        }
        cancel();
        const bool wasDeleted = deleted_;
        const int before = at_;
        dropDeleted();
        if (where != 0) {
            if (rows_.empty())
                return error::kNoCurrentRow;
            at_ = where < 0 ? 1 : size();
            return 0;
        }
        if (next) {
            if (!wasDeleted && (rows_.empty() || before > size()))
                return error::kNoCurrentRow;
            at_ = wasDeleted ? before : before + 1;
        } else {
            if (!wasDeleted && (rows_.empty() || before < 1))
                return error::kNoCurrentRow;
            at_ = before - 1;
        }
        return 0;
    }

private:
    int size() const { return static_cast<int>(rows_.size()); }
    bool onRow() const { return !deleted_ && at_ >= 1 && at_ <= size(); }
    ModelRow& row() { return rows_[static_cast<std::size_t>(at_ - 1)]; }
    const ModelRow& row() const { return rows_[static_cast<std::size_t>(at_ - 1)]; }
    void dropDeleted() {
        if (deleted_)
            rows_.erase(rows_.begin() + (at_ - 1));
        deleted_ = false;
    }

    ModelTable& table_;
    int& lastKey_;
    std::vector<ModelRow> rows_;
    int at_ = 0;  // 1 to size on a row, 0 before, size + 1 behind
    bool adding_ = false;
    bool deleted_ = false;
    std::optional<int> pending_;
};

int faultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
    return 0;
}

constexpr const char* kSql = "SELECT * FROM tblGameInfo WHERE fldGameScore >= 50 ORDER BY fldGameScore";

struct Pair {
    Pair(Store& store, ModelTable& table, int& lastKey)
        : real(std::make_unique<Recordset>(store)), model(table, lastKey) {
        real->Open(kSql);
    }
    std::unique_ptr<Recordset> real;
    Model model;
};

void compare(Pair& pair) {
    RC_ASSERT(pair.real->RecordCount() == pair.model.count());
    RC_ASSERT(pair.real->Eof() == pair.model.eof());
    RC_ASSERT(pair.real->Bof() == pair.model.bof());
    std::optional<int> expected;
    const int fault = pair.model.read(expected);
    Value value;
    RC_ASSERT(faultOf([&] { value = (*pair.real)["fldGameScore"]; }) == fault);
    if (fault == 0)
        RC_ASSERT(toText(value) == (expected ? std::to_string(*expected) : ""));
}

/// Walks over all rows, after the row that is current.
void compareAll(Pair& pair) {
    compare(pair);
    pair.real->CancelUpdate();
    pair.model.cancel();
    RC_ASSERT(faultOf([&] { pair.real->MoveFirst(); }) == pair.model.move(-1, true));
    compare(pair);
    while (!pair.model.eof()) {
        RC_ASSERT(faultOf([&] { pair.real->MoveNext(); }) == pair.model.move(0, true));
        compare(pair);
    }
}

void act(Pair& pair, int operation, int score) {
    Recordset& real = *pair.real;
    Model& model = pair.model;
    switch (operation) {
        case 0:
            return RC_ASSERT(faultOf([&] { real.MoveNext(); }) == model.move(0, true));
        case 1:
            return RC_ASSERT(faultOf([&] { real.MovePrevious(); }) == model.move(0, false));
        case 2:
            return RC_ASSERT(faultOf([&] { real.MoveFirst(); }) == model.move(-1, true));
        case 3:
            return RC_ASSERT(faultOf([&] { real.MoveLast(); }) == model.move(1, true));
        case 4:
            return RC_ASSERT(faultOf([&] { real["fldGameScore"] = std::int64_t{score}; }) ==
                             model.write(score));
        case 5:
            return RC_ASSERT(faultOf([&] { real.AddNew(); }) == model.addNew());
        case 6:
            return RC_ASSERT(faultOf([&] { real.Update(); }) == model.update());
        case 7:
            return RC_ASSERT(faultOf([&] { real.CancelUpdate(); }) == model.cancel());
        case 8:
            return RC_ASSERT(faultOf([&] { real.Delete(); }) == model.remove());
        default:
            return;
    }
}

/// For speed alone.
void spareTheDisk(Store& store) {
    store.connection().database().exec("PRAGMA synchronous = OFF");
    store.connection().database().exec("PRAGMA journal_mode = MEMORY");
}

void addRow(Store& store, ModelTable& table, int& lastKey, int score) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows.AddNew();
    rows["fldGameScore"] = std::int64_t{score};
    rows.Update();
    table[++lastKey] = score;
}

ModelTable storedRows(Store& store) {
    Recordset all(store);
    all.Open("SELECT * FROM tblGameInfo");
    ModelTable rows;
    for (; !all.Eof(); all.MoveNext())
        rows[toInt32(all["fldGameKey"]).value()] = toInt16(all["fldGameScore"]).value();
    return rows;
}

/// A table of three rows, two of which a recordset finds, and the model of both. The rows have new keys each
/// time.
struct Scene {
    Scene(Store& store, int& key) : firstKey(key), lastKey(key) {
        store.connection().database().exec("DELETE FROM tblGameInfo");
        for (const int score : {80, 20, 60})
            addRow(store, table, lastKey, score);
        pair.emplace(store, table, lastKey);
    }

    /// All that it is, with the keys counted from the first one.
    std::string state() const {
        std::string state = pair->model.state(firstKey) + " |";
        for (const auto& [key, score] : table)
            state += fmt::format(" {}:{}", key - firstKey, score);
        return state;
    }

    int firstKey;
    int& lastKey;
    ModelTable table;
    std::optional<Pair> pair;
};

/// What is done to a recordset, and with which score.
struct Act {
    int operation;
    int score;
};
using Acts = std::vector<Act>;

/// Everything that can be done once: a score that stays in the set, one that leaves it, and the eight others.
const Acts kActs{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 70}, {4, 10}, {5, 0}, {6, 0}, {7, 0}, {8, 0}};

TEST(RecordsetModel, AgreesOnEveryOperationInEveryState) {
    constexpr int kMostKeys = 4;  // a further row brings nothing that the fourth does not
    const test::TemporaryFolder folder;
    const SettableClock clock{makeDate(2026, 11, 14)};
    Store store(folder.path() / "logbook", clock);
    spareTheDisk(store);
    int lastKey = 0;
    std::set<std::string> seen;
    for (std::deque<Acts> ways{{}}; !ways.empty(); ways.pop_front()) {
        for (const Act& next : kActs) {
            Scene scene(store, lastKey);
            Acts way = ways.front();
            way.push_back(next);
            for (const Act& one : way)
                act(*scene.pair, one.operation, one.score);
            compare(*scene.pair);
            ASSERT_EQ(storedRows(store), scene.table);
            if (lastKey - scene.firstKey <= kMostKeys && seen.insert(scene.state()).second)
                ways.push_back(way);
        }
    }
    EXPECT_GT(seen.size(), 100U) << seen.size();
}

TEST(RecordsetModel, AgreesOnRandomOperations) {
    constexpr std::uint32_t kSets = 3;
    constexpr std::uint32_t kOperations = 11;
    constexpr std::uint32_t kScores = 100;
    const auto anyChoices = rc::gen::scale(2, rc::gen::container<std::vector<std::uint32_t>>(
                                                  rc::gen::inRange(0U, kSets * kOperations * kScores)));
    const test::TemporaryFolder folder;
    const SettableClock clock{makeDate(2026, 11, 14)};
    int run = 0;
    EXPECT_TRUE(rc::check([&] {
        const std::vector<std::uint32_t> choices = *anyChoices;
        Store store(folder.path() / ("logbook" + std::to_string(++run)), clock);
        spareTheDisk(store);
        ModelTable table;
        int lastKey = 0;
        for (const int score : {80, 20, 60, 60})
            addRow(store, table, lastKey, score);
        std::vector<std::unique_ptr<Pair>> pairs;
        for (std::uint32_t i = 0; i < kSets; ++i)
            pairs.push_back(std::make_unique<Pair>(store, table, lastKey));
        for (const std::uint32_t choice : choices) {
            auto& pair = pairs[choice % kSets];
            const int operation = static_cast<int>(choice / kSets % kOperations);
            if (operation == 9)
                pair = std::make_unique<Pair>(store, table, lastKey);
            else if (operation == 10)
                compare(*pair);  // looked at now and then only, so that sets stay unread for a while
            else
                act(*pair, operation, static_cast<int>(choice / (kSets * kOperations)));
        }
        for (const auto& pair : pairs)
            compareAll(*pair);
        RC_ASSERT(storedRows(store) == table);
    }));
}

}  // namespace

}  // namespace tallybrook
