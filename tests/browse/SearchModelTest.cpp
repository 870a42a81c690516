// Random use of the event search, against a plain telling of what it should be.

#include "BrowsePlay.h"
#include "browse/frmSearchEvents.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iomanip>
#include <optional>
#include <set>
#include <sstream>

#include <rapidcheck.h>

namespace tallybrook::test {

namespace {

constexpr int kRows = 5;

/// Takes random choices off a list; zeros when it is used up.
class Choices {
public:
    explicit Choices(std::vector<std::uint8_t> choices) : choices_(std::move(choices)) {}
    int below(int count) { return at_ < choices_.size() ? choices_[at_++] % count : 0; }
    template <typename List>
    auto of(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }
    [[nodiscard]] bool areUsedUp() const { return at_ >= choices_.size(); }

private:
    std::vector<std::uint8_t> choices_;
    std::size_t at_ = 0;
};

struct StoredEvent {
    std::string name;
    std::string center;
    std::string comment;
    std::string type;
    std::string date;  // YYYYMMDD
    double games;
    double average;
    double total;
};

const std::array<StoredEvent, 4> kStored{
    {{"Thursday League", "Brook Lanes", "cold", "LEAGUE", "20261112", 3, 186.67, 560},
     {"City Open", "Mill Bowl", "", "TOURNAMENT", "20260307", 6, 216.67, 1300},
     {"Warm up", "Brook Lanes", "200 twice", "PRACTICE", "20261114", 2, 200, 400},
     {"League night", "Mill Bowl", "warm", "LEAGUE", "20251104", 3, 150.5, 452}}};

struct FieldRule {
    std::string words;
    std::string column;
    char kind;  // t, f: text and free text, e: event type, d: date, n: number
};

const std::array<FieldRule, 8> kFields{{{"Center Name", "fldCenterName", 't'},
                                        {"Comment", "fldComment", 'f'},
                                        {"Date Bowled", "fldDateBowled", 'd'},
                                        {"Event Name", "fldEventName", 't'},
                                        {"Event Type", "fldEventType", 'e'},
                                        {"Number of Games", "fldNumGames", 'n'},
                                        {"Series Average", "fldSeriesAvg", 'n'},
                                        {"Series Total", "fldSeriesTot", 'n'}}};

using Operators = std::vector<std::pair<std::string, std::string>>;

Operators operatorsOf(char kind) {
    switch (kind) {
        case 'd':
            return {{"is on", "="},
                    {"is on or before", "<="},
                    {"is on or after", ">="},
                    {"is before", "<"},
                    {"is after", ">"}};
        case 'n':
            return {{"is equal to", "="},
                    {"is less or equal to", "<="},
                    {"is greater or equal to", ">="},
                    {"is less than", "<"},
                    {"is greater than", ">"}};
        case 't':
            return {{"is", "="}, {"contains", "LIKE"}};
        case 'f':
            return {{"contains", "LIKE"}};
        default:
            return {{"is", "="}};
    }
}

char kindOf(const std::string& column) {
    const auto* const found = std::ranges::find(kFields, column, &FieldRule::column);
    return found == kFields.end() ? 't' : found->kind;
}

std::string lower(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

/// A date text of the pool below, as YYYYMMDD and in short form; nothing for any other text.
std::optional<std::pair<std::string, std::string>> dateOf(const std::string& text) {
    if (text == "11/12/2026" || text == "Nov 12, 2026")
        return std::pair{"20261112", "11/12/2026"};
    if (text == "2026-03-07")
        return std::pair{"20260307", "3/7/2026"};
    return std::nullopt;
}

/// A number of the pool below, written plainly.
std::string plain(const std::string& text) {
    std::ostringstream number;
    number << std::setprecision(17) << std::strtod(text.c_str(), nullptr);
    return number.str();
}

/// What an event holds in a column, as text and, where it is one, as a number.
std::pair<std::string, double> held(const StoredEvent& event, const std::string& column) {
    const auto number = [](double value) {
        std::ostringstream text;
        text << value;
        return std::pair{text.str(), value};
    };
    if (column == "fldCenterName")
        return {event.center, 0};
    if (column == "fldComment")
        return {event.comment, 0};
    if (column == "fldEventName")
        return {event.name, 0};
    if (column == "fldEventType")
        return {event.type, 0};
    if (column == "fldNumGames")
        return number(event.games);
    if (column == "fldSeriesAvg")
        return number(event.average);
    if (column == "fldSeriesTot")
        return number(event.total);
    const std::string& day = event.date;
    return {std::to_string(std::stoi(day.substr(4, 2))) + "/" + std::to_string(std::stoi(day.substr(6))) +
                "/" + day.substr(0, 4),
            std::stod(day)};
}

struct Condition {
    std::string column;
    std::string op;
    std::string value;
    std::string join;
};

/// Whether an event meets a condition; nothing where the condition is none.
std::optional<bool> meets(const StoredEvent& event, const Condition& condition) {
    const char kind = kindOf(condition.column);
    const char form = condition.value.front() == '\'' ? 't' : condition.value.front() == '#' ? 'd' : 'n';
    const auto [text, number] = held(event, condition.column);
    if (form == 't') {
        const std::string wanted = lower(condition.value.substr(1, condition.value.size() - 2));
        if (wanted.find('\'') != std::string::npos)
            return std::nullopt;
        if (condition.op == "LIKE") {
            if (!wanted.starts_with('%'))
                return lower(text) == wanted;
            return lower(text).find(wanted.substr(1, wanted.size() - 2)) != std::string::npos;
        }
        if (kind == 'd' || kind == 'n')
            return std::nullopt;
        const int order = lower(text).compare(wanted);
        return condition.op == "="           ? order == 0
               : condition.op.front() == '<' ? order < 0 || (order == 0 && condition.op == "<=")
                                             : order > 0 || (order == 0 && condition.op == ">=");
    }
    if (condition.op == "LIKE" || form != kind)
        return std::nullopt;
    const double wanted =
        form == 'n' ? std::stod(condition.value)
                    : std::stod(dateOf(condition.value == "#3/7/2026#" ? "2026-03-07" : "11/12/2026")->first);
    if (condition.op == "=")
        return number == wanted;
    if (condition.op.size() == 2 && number == wanted)
        return true;
    return condition.op.front() == '<' ? number < wanted : number > wanted;
}

/// The number of hits of conditions strung together; nothing where they are no condition.
std::optional<int> hitsOf(const std::vector<Condition>& conditions, const std::string& sortColumn) {
    if (conditions.empty() || !conditions.back().join.empty() || sortColumn.empty())
        return std::nullopt;
    int hits = 0;
    for (const StoredEvent& event : kStored) {
        bool any = false;
        bool all = true;
        for (std::size_t at = 0; at < conditions.size(); ++at) {
            const auto met = meets(event, conditions[at]);
            if (!met || (at + 1 < conditions.size() && conditions[at].join.empty()))
                return std::nullopt;
            all = all && *met;
            if (conditions[at].join != "AND") {
                any = any || all;
                all = true;
            }
        }
        hits += any ? 1 : 0;
    }
    return hits;
}

/// What using the screen should come to.
struct Outcome {
    std::vector<Expected> boxes;
    std::optional<int> endsWith;
    bool showsList = false;
    int hits = 0;
};

class Model {
public:
    struct Row {
        std::string column, op, value, join;
        int fieldItems = 0;
        Operators operators;
        std::string pickedField, pickedOp, text;
        bool fieldOn = false, opOn = false, textOn = false, moreOn = false, joinOn = false;
        bool more = false, isAnd = false, isOr = false;
    };
    std::array<Row, kRows> rows;
    std::string focus = "cboListField(0)";
    std::string statement;

    Model() {
        rows[0].fieldItems = 8;
        rows[0].fieldOn = true;
    }

    Outcome pickField(int row, int position) {
        return use(rows[at(row)].fieldOn, name("cboListField", row), [&](Outcome& outcome) {
            Row& chosen = rows[at(row)];
            chosen.pickedField = kFields[at(position % 8)].words;
            if (position > 7) {
                outcome.endsWith = error::kSubscriptOutOfRange;
            } else if (used_.contains(position)) {
                outcome.boxes.push_back({"Select Search Criteria"});
            } else {
                used_.insert(position);
                chosen.column = kFields[at(position)].column;
                chosen.operators = operatorsOf(kFields[at(position)].kind);
                chosen.pickedOp.clear();
                chosen.opOn = true;
                focus = name("cboSearchOp", row);
            }
        });
    }
    Outcome pickOperator(int row, int position) {
        return use(rows[at(row)].opOn, name("cboSearchOp", row), [&](Outcome&) {
            Row& chosen = rows[at(row)];
            std::tie(chosen.pickedOp, chosen.op) = chosen.operators[at(position)];
            chosen.textOn = true;
            focus = name("txtSearchVal", row);
        });
    }
    Outcome type(int row, const std::string& text) {
        return use(rows[at(row)].textOn, name("txtSearchVal", row),
                   [&](Outcome&) { rows[at(row)].text = text; });
    }
    Outcome toggleMore(int row) {
        return use(rows[at(row)].moreOn, name("chkCriteria", row), [&](Outcome&) {
            Row& front = rows[at(row)];
            Row& behind = rows[at(row + 1)];
            front.more = !front.more;
            if (front.more) {
                behind.fieldItems = 8;
                behind.pickedField.clear();
                behind.fieldOn = true;
                front.joinOn = true;
                front.isAnd = front.isOr = false;
            } else if (!behind.column.empty()) {
                behind.column = behind.op = behind.text = front.join = "";
                behind.pickedField = behind.pickedOp = "";
                behind.fieldItems = 0;
                behind.operators.clear();
                front.joinOn = front.isAnd = front.isOr = false;
            }
        });
    }
    Outcome join(int row, bool isAnd) {
        return use(rows[at(row)].joinOn, name(isAnd ? "optAnd" : "optOr", row), [&](Outcome&) {
            rows[at(row)].isAnd = isAnd;
            rows[at(row)].isOr = !isAnd;
            rows[at(row)].join = isAnd ? "AND" : "OR";
        });
    }
    Outcome leaveTo(const std::string& button) {
        return use(true, button, [](Outcome&) {});
    }
    Outcome reset(bool byMenu, Answer answer) {
        const auto act = [&](Outcome& outcome) {
            outcome.boxes.push_back({"Reset Form", answer});
            if (answer == Answer::Yes)
                clear();
        };
        return byMenu ? directly(act) : use(true, "cmdReset", act);
    }
    Outcome search(bool byMenu) {
        const auto act = [&](Outcome& outcome) { run(outcome); };
        return byMenu ? directly(act) : use(true, "cmdSearch", act);
    }

    static std::string name(const std::string& control, int row) {
        return control + "(" + std::to_string(row) + ")";
    }

private:
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    template <typename Act>
    Outcome directly(Act act) {
        Outcome outcome;
        act(outcome);
        return outcome;
    }
    /// A person uses a control: the focus goes there first.
    template <typename Act>
    Outcome use(bool isOn, const std::string& control, Act act) {
        Outcome outcome;
        if (!isOn)
            return outcome;
        if (control != focus && focus.starts_with("txtSearchVal") && !leave(focus[13] - '0', outcome))
            return outcome;
        if (outcome.endsWith)
            return outcome;
        focus = control;
        act(outcome);
        return outcome;
    }
    /// False where the box keeps the focus.
    bool leave(int number, Outcome& outcome) {
        Row& row = rows[at(number)];
        bool isLeft = true;
        const std::string type = lower(row.text);
        switch (kindOf(row.column)) {
            case 'e':
                isLeft = type == "league" || type == "tournament" || type == "practice";
                if (isLeft) {
                    std::string value = type;
                    std::ranges::transform(value, value.begin(),
                                           [](unsigned char c) { return std::toupper(c); });
                    row.value = "'" + value + "'";
                } else {
                    outcome.boxes.push_back({"Search Parameter Error"});
                    row.text.clear();
                }
                break;
            case 'n':
                row.value = plain(row.text);
                break;
            case 'd':
                if (!dateOf(row.text)) {
                    outcome.endsWith = error::kTypeMismatch;
                    return true;
                }
                row.value = "#" + dateOf(row.text)->second + "#";
                break;
            default:
                row.value = row.op == "LIKE" ? "'%" + row.text + "%'" : "'" + row.text + "'";
        }
        ++count_;
        if (number == kRows - 1)
            outcome.endsWith = error::kNoControlArrayElement;
        row.moreOn = true;
        return isLeft || outcome.endsWith.has_value();
    }
    void run(Outcome& outcome) {
        const std::string module = "Search Events, cmdSearch.";
        std::vector<Condition> conditions;
        statement = "SELECT tblEventInfo.* FROM tblEventInfo WHERE ";
        for (int number = 0; number < count_; ++number) {
            if (number >= kRows) {
                outcome.boxes.push_back(BrowsePlay::failure(module, error::kSubscriptOutOfRange));
                continue;
            }
            const Row& row = rows[at(number)];
            if (row.column.empty() || row.op.empty() || row.value.empty())
                continue;
            conditions.push_back({row.column, row.op, row.value, row.join});
            statement += row.column + " " + row.op + " " + row.value;
            if (!row.join.empty())
                statement += " " + row.join + " ";
        }
        statement += " ORDER BY " + rows[0].column;
        const std::optional<int> hits = hitsOf(conditions, rows[0].column);
        if (!hits) {
            outcome.boxes.push_back({"Database Error"});
            outcome.boxes.push_back(BrowsePlay::failure(module, error::kObjectNotSet));
        }
        if (hits.value_or(0) == 0) {
            outcome.boxes.push_back({"Tallybrook - Event Search"});
            return clear();
        }
        outcome.showsList = true;
        outcome.hits = *hits;
        outcome.boxes.push_back({"Tallybrook - Search Results"});
    }
    void clear() {
        const bool closesFocus = focus.ends_with(")") && focus != "cboListField(0)";
        for (int number = 0; number < kRows; ++number) {
            Row& row = rows[at(number)];
            row.operators.clear();
            row.pickedOp = row.text = "";
            row.opOn = row.textOn = row.moreOn = row.joinOn = row.more = false;
            if (number == 0)
                continue;
            row.fieldOn = false;
            row.fieldItems = 0;
            row.pickedField = row.column = row.op = row.value = "";
        }
        rows[0].fieldItems += 8;
        count_ = 0;
        used_.clear();
        if (closesFocus)
            focus = "cmdSearch";
    }

    std::set<int> used_;
    int count_ = 0;
};

class SearchUse {
public:
    explicit SearchUse(std::vector<std::uint8_t> choices) : choices_(std::move(choices)) {
        for (const StoredEvent& event : kStored)
            play_.addEvent(event.name, {{"fldCenterName", event.center},
                                        {"fldComment", event.comment},
                                        {"fldEventType", event.type},
                                        {"fldDateBowled", toDate(Value(isoDate(event.date)), 2026)},
                                        {"fldNumGames", event.games},
                                        {"fldSeriesAvg", event.average},
                                        {"fldSeriesTot", event.total}});
        play_.handOverTo("frmSearchEvents");
    }

    void play() {
        while (!choices_.areUsedUp() && !play_.program().hasEnded() && !testing::Test::HasFailure())
            act();
        RC_TAG(play_.program().hasEnded() ? "ended" : "open", hits_ > 0 ? "found" : "found nothing");
    }

private:
    static std::string isoDate(const std::string& day) {
        return day.substr(0, 4) + "-" + day.substr(4, 2) + "-" + day.substr(6);
    }

    void act() {
        if (choices_.below(2) == 0)
            return advance();
        switch (choices_.below(9)) {
            case 0:
                return pickField(anyRow(), choices_.below(24));
            case 1:
                return pickOperator(anyRow());
            case 2:
                return type(anyRow());
            case 3:
            case 4:
                return toggleMore(choices_.below(2) == 0 ? 0 : choices_.below(kRows - 1));
            case 5:
                return joinRows(choices_.below(kRows - 1));
            case 6:
                return search(choices_.below(4) == 0);
            case 7:
                return leaveTo(choices_.below(2) == 0 ? "cmdReset" : "cmdExit");
            default:
                return reset();
        }
    }
    /// The next step of somebody who knows the way.
    void advance() {
        const int number = lastRow();
        if (row(number).column.empty())
            return pickField(number, choices_.below(8));
        if (row(number).op.empty())
            return pickOperator(number);
        if (row(number).value.empty()) {
            type(number);
            if (!play_.program().hasEnded())
                leaveTo("cmdExit");
            return;
        }
        if (number > 0 && row(number - 1).join.empty())
            return joinRows(number - 1);
        if (number < kRows - 2 && choices_.below(2) == 0)
            return toggleMore(number);
        search(false);
    }
    [[nodiscard]] int lastRow() const {
        int number = 0;
        while (number < kRows - 1 && row(number).more)
            ++number;
        return number;
    }
    int anyRow() { return choices_.below(2) == 0 ? lastRow() : choices_.below(kRows); }
    [[nodiscard]] const Model::Row& row(int number) const {
        return model_.rows[static_cast<std::size_t>(number)];
    }

    void pickField(int number, int position) {
        if (row(number).fieldItems == 0)
            return;
        position = choices_.below(20) == 0 ? position % row(number).fieldItems : position % 8;
        perform(model_.pickField(number, position),
                [&](const auto& boxes) { play_.pick(Model::name("cboListField", number), position, boxes); });
    }
    void pickOperator(int number) {
        const int count = static_cast<int>(row(number).operators.size());
        if (count == 0)
            return;
        const int position = choices_.below(count);
        perform(model_.pickOperator(number, position),
                [&](const auto& boxes) { play_.pick(Model::name("cboSearchOp", number), position, boxes); });
    }
    void type(int number) {
        static const std::vector<std::string> kTexts{"league", "Open", "brook", "", "o'neil", "200"};
        static const std::vector<std::string> kNumbers{"200", "3.5x", "1e2", "few", "-1", "452"};
        static const std::vector<std::string> kTypes{"league", "PRACTICE", "Tournament", "cup"};
        static const std::vector<std::string> kDates{"11/12/2026", "2026-03-07", "Nov 12, 2026",
                                                     "11/12/2026", "2026-03-07", "soon"};
        const char kind = kindOf(row(number).column);
        const std::string text = choices_.of(kind == 'e'   ? kTypes
                                             : kind == 'n' ? kNumbers
                                             : kind == 'd' ? kDates
                                                           : kTexts);
        perform(model_.type(number, text),
                [&](const auto& boxes) { play_.type(Model::name("txtSearchVal", number), text, boxes); });
    }
    void toggleMore(int number) {
        perform(model_.toggleMore(number),
                [&](const auto& boxes) { play_.click(Model::name("chkCriteria", number), boxes); });
    }
    void joinRows(int number) {
        const bool isAnd = choices_.below(2) == 0;
        perform(model_.join(number, isAnd), [&](const auto& boxes) {
            play_.click(Model::name(isAnd ? "optAnd" : "optOr", number), boxes);
        });
    }
    void leaveTo(const std::string& button) {
        perform(model_.leaveTo(button), [&](const auto& boxes) { play_.focusOn(button, boxes); });
    }
    void reset() {
        const bool byMenu = choices_.below(2) == 0;
        const Answer answer = choices_.below(3) == 0 ? Answer::Yes : Answer::No;
        perform(model_.reset(byMenu, answer),
                [&](const auto& boxes) { play_.click(byMenu ? "mnuSearchReset" : "cmdReset", boxes); });
    }
    void search(bool byMenu) {
        const Outcome outcome = model_.search(byMenu);
        perform(outcome,
                [&](const auto& boxes) { play_.click(byMenu ? "mnuStartSearch" : "cmdSearch", boxes); });
    }

    template <typename Act>
    void perform(const Outcome& outcome, Act act) {
        act(outcome.boxes);
        if (outcome.endsWith)
            RC_ASSERT(play_.hasEndedWith(*outcome.endsWith));
        else
            RC_ASSERT(!play_.program().hasEnded());
        if (play_.program().hasEnded())
            return;
        if (outcome.showsList) {
            RC_ASSERT(play_.screen().name() == "frmEventList");
            RC_ASSERT(play_.grid().rowCount() == outcome.hits);
            ++hits_;
            play_.click("cmdPrevious", {{"Return - Previous Screen", Answer::Yes}});
        }
        compare();
    }
    void compare() {
        RC_ASSERT(play_.screen().name() == "frmSearchEvents");
        RC_ASSERT(play_.focus() == model_.focus);
        for (int number = 0; number < kRows; ++number)
            compareRow(number);
        if (!model_.statement.empty())
            RC_ASSERT(dynamic_cast<frmSearchEvents&>(play_.screen()).adoTBKEvent.RecordSource() ==
                      model_.statement);
    }
    void compareRow(int number) {
        const Model::Row& expected = row(number);
        const auto name = [number](const char* control) { return Model::name(control, number); };
        RC_ASSERT(play_.enabled(name("cboListField")) == expected.fieldOn);
        RC_ASSERT(static_cast<int>(play_.list(name("cboListField")).items().size()) == expected.fieldItems);
        RC_ASSERT(play_.list(name("cboListField")).picked() == expected.pickedField);
        RC_ASSERT(play_.enabled(name("cboSearchOp")) == expected.opOn);
        RC_ASSERT(play_.list(name("cboSearchOp")).items().size() == expected.operators.size());
        RC_ASSERT(play_.list(name("cboSearchOp")).picked() == expected.pickedOp);
        RC_ASSERT(play_.enabled(name("txtSearchVal")) == expected.textOn);
        RC_ASSERT(play_.text(name("txtSearchVal")) == expected.text);
        if (number == kRows - 1)
            return;
        RC_ASSERT(play_.enabled(name("chkCriteria")) == expected.moreOn);
        RC_ASSERT(play_.value(name("chkCriteria")) == expected.more);
        RC_ASSERT(play_.enabled(name("optAnd")) == expected.joinOn);
        RC_ASSERT(play_.enabled(name("optOr")) == expected.joinOn);
        RC_ASSERT(play_.value(name("optAnd")) == expected.isAnd);
        RC_ASSERT(play_.value(name("optOr")) == expected.isOr);
    }

    Choices choices_;
    BrowsePlay play_;
    Model model_;
    int hits_ = 0;
};

TEST(SearchModel, AgreesWithTheScreen) {
    EXPECT_TRUE(rc::check("random use of the event search", [] {
        const auto choices = *rc::gen::resize(
            400, rc::gen::container<std::vector<std::uint8_t>>(rc::gen::arbitrary<std::uint8_t>()));
        SearchUse(choices).play();
        RC_ASSERT(!testing::Test::HasFailure());
    }));
}

}  // namespace

}  // namespace tallybrook::test
