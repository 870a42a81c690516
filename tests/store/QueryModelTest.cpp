// Random statements over random rows, against a plain evaluation in memory.

#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"
#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

struct Event {
    int key = 0;
    Value name;
    Value record;
    Value date;
    Value games;
};

/// A criterion as it stands in a statement, and what it means.
struct Condition {
    std::string sql;
    std::function<bool(const Event&)> holds;
};

/// Takes random choices off a list; zeros when it is used up.
class Choices {
public:
    explicit Choices(std::vector<std::uint8_t> choices) : choices_(std::move(choices)) {}
    std::size_t below(std::size_t count) { return at_ < choices_.size() ? choices_[at_++] % count : 0; }
    template <typename List>
    auto of(const List& list) {
        return list[below(std::size(list))];
    }

private:
    std::vector<std::uint8_t> choices_;
    std::size_t at_ = 0;
};

// Letters whose folding is no matter of ASCII: the sign of kelvin folds to k, the sharp s to ss.
const std::array<std::string, 16> kTexts{
    "",         "brook",   "BROOK",   "Brook%", "b_ook",  "\u00dcber", "\u00fcBER", "kss",
    "\u212ass", "K\u00df", "k\u1e9e", "\u03a3", "\u03c2", "a\tb",      "A\tB",      "\u00e9\u00c9"};
const std::array<std::string, 8> kPatterns{"%", "%ROO%", "_____", "k%", "%\u00dc%", "%SS", "", "%\t%"};
const std::array<std::string, 5> kSigns{"=", ">=", "<=", ">", "<"};

bool meets(std::strong_ordering order, const std::string& sign) {
    return (order == 0 && sign.find('=') != std::string::npos) || (order > 0 && sign[0] == '>') ||
           (order < 0 && sign[0] == '<');
}

Condition textCriterion(Choices& choices, const std::string& field, Value Event::*member) {
    const std::string sign = choices.of(kSigns);
    const std::string text = choices.of(kTexts);
    return {field + " " + sign + " '" + text + "'", [=](const Event& event) {
                return !isNull(event.*member) && meets(compareText(toText(event.*member), text) <=> 0, sign);
            }};
}

Condition likeCriterion(Choices& choices, const std::string& field, Value Event::*member) {
    const std::string pattern = choices.of(kPatterns);
    return {field + " LIKE '" + pattern + "'", [=](const Event& event) {
                return !isNull(event.*member) && likeText(toText(event.*member), pattern);
            }};
}

Condition dateCriterion(Choices& choices) {
    const std::string sign = choices.of(kSigns);
    const DateTime date = makeDate(2026, 1, static_cast<unsigned>(choices.below(5)) + 1);
    return {"fldDateBowled " + sign + " #" + shortDate(date) + "#", [=](const Event& event) {
                const auto* const held = std::get_if<DateTime>(&event.date);
                return held != nullptr && meets(*held <=> date, sign);
            }};
}

Condition numberCriterion(Choices& choices) {
    const std::string sign = choices.of(kSigns);
    const auto number = static_cast<std::int64_t>(choices.below(5)) - 1;
    return {"fldNumGames " + sign + " " + std::to_string(number), [=](const Event& event) {
                const auto* const held = std::get_if<std::int64_t>(&event.games);
                return held != nullptr && meets(*held <=> number, sign);
            }};
}

Condition anyCriterion(Choices& choices) {
    switch (choices.below(7)) {
        case 0:
            return dateCriterion(choices);
        case 1:
            return numberCriterion(choices);
        case 2:
            return likeCriterion(choices, "fldEventName", &Event::name);
        case 3:
            return likeCriterion(choices, "fldDateBowled", &Event::date);
        case 4:
            return textCriterion(choices, "fldEventName", &Event::name);
        default:
            return textCriterion(choices, "fldHHRecordID", &Event::record);
    }
}

/// Criteria joined by AND and OR: a row is a hit if all of one group between two ORs hold.
Condition anyCriteria(Choices& choices) {
    std::vector<std::vector<Condition>> groups{{anyCriterion(choices)}};
    std::string sql = " WHERE " + groups[0][0].sql;
    for (std::size_t more = choices.below(4); more > 0; --more) {
        const bool both = choices.below(2) == 0;
        if (!both)
            groups.emplace_back();
        groups.back().push_back(anyCriterion(choices));
        sql += (both ? " and " : " OR ") + groups.back().back().sql;
    }
    return {sql, [groups](const Event& event) {
                return std::ranges::any_of(groups, [&](const auto& group) {
                    return std::ranges::all_of(group, [&](const Condition& one) { return one.holds(event); });
                });
            }};
}

/// Nulls first; texts without case.
bool isBefore(const Value& a, const Value& b) {
    if (isNull(a) || isNull(b))
        return isNull(a) && !isNull(b);
    const auto* const text = std::get_if<std::string>(&a);
    return text != nullptr ? compareText(*text, std::get<std::string>(b)) < 0 : toDouble(a) < toDouble(b);
}

class QueryModel : public testing::Test {
protected:
    void addEvents(Choices& choices) {
        SQLite::Transaction transaction(store_.connection().database());  // for speed alone
        Recordset rows(store_);
        rows.Open("SELECT * FROM tblEventInfo");
        for (; !rows.Eof(); rows.MoveNext())
            rows.Delete();
        events_.clear();
        const auto orNull = [&](const Value& value) { return choices.below(6) == 5 ? Value{Null{}} : value; };
        for (std::size_t count = choices.below(9); count > 0; --count) {
            Event event;
            event.name = orNull(choices.of(kTexts));
            event.record = orNull(choices.of(kTexts));
            event.date = orNull(makeDate(2026, 1, static_cast<unsigned>(choices.below(5)) + 1));
            event.games = orNull(static_cast<std::int64_t>(choices.below(4)));
            rows.AddNew();
            rows["fldEventName"] = event.name;
            rows["fldHHRecordID"] = event.record;
            rows["fldDateBowled"] = event.date;
            rows["fldNumGames"] = event.games;
            rows.Update();
            event.key = toInt32(rows["fldSessionNum"]).value();
            events_.push_back(event);
        }
        transaction.commit();
    }
    std::vector<Event> hits(const Condition& criteria) const {
        std::vector<Event> found;
        std::ranges::copy_if(events_, std::back_inserter(found), criteria.holds);
        return found;
    }

    test::TemporaryFolder folder_;
    SettableClock clock_{makeDate(2026, 11, 14)};
    Store store_{folder_.path() / "Tallybrook_DB.mdb", clock_};
    std::vector<Event> events_;
};

TEST_F(QueryModel, FindsAndOrdersTheSameRows) {
    const std::vector<std::pair<std::string, std::vector<Value Event::*>>> orders{
        {"", {}},
        {" ORDER BY fldEventName", {&Event::name}},
        {" order by fldDateBowled, fldEventName", {&Event::date, &Event::name}},
        {" ORDER by fldNumGames,fldHHRecordID", {&Event::games, &Event::record}},
    };
    EXPECT_TRUE(rc::check([&](const std::vector<std::uint8_t>& random) {
        Choices choices(random);
        const Condition criteria = anyCriteria(choices);
        const auto& [order, members] = choices.of(orders);
        addEvents(choices);

        std::vector<Event> expected = hits(criteria);
        std::ranges::stable_sort(expected, [&members = members](const Event& a, const Event& b) {
            for (const auto member : members) {
                if (isBefore(a.*member, b.*member) || isBefore(b.*member, a.*member))
                    return isBefore(a.*member, b.*member);
            }
            return false;
        });
        std::vector<int> keys;
        for (const Event& event : expected)
            keys.push_back(event.key);

        Recordset rows(store_);
        rows.Open("SELECT * FROM tblEventInfo" + criteria.sql + order);
        std::vector<int> found;
        for (; !rows.Eof(); rows.MoveNext())
            found.push_back(toInt32(rows["fldSessionNum"]).value());
        RC_LOG() << criteria.sql << order;
        RC_ASSERT(found == keys);
    }));
}

TEST_F(QueryModel, GivesTheSameDistinctTexts) {
    EXPECT_TRUE(rc::check([&](const std::vector<std::uint8_t>& random) {
        Choices choices(random);
        const Condition criteria = anyCriteria(choices);
        addEvents(choices);

        std::vector<Value> expected;  // the spelling of the lowest key comes first and stays
        for (const Event& event : hits(criteria)) {
            const auto isSame = [&](const Value& held) {
                return !isBefore(held, event.name) && !isBefore(event.name, held);
            };
            if (std::ranges::none_of(expected, isSame))
                expected.push_back(event.name);
        }
        std::ranges::sort(expected, isBefore);

        Recordset rows(store_);
        rows.Open("SELECT DISTINCT fldEventName FROM tblEventInfo" + criteria.sql);
        std::vector<Value> found;
        for (; !rows.Eof(); rows.MoveNext())
            found.push_back(rows["fldEventName"]);
        RC_LOG() << criteria.sql;
        RC_ASSERT(found == expected);
    }));
}

}  // namespace

}  // namespace tallybrook
