// Checks of random logbooks, against a plain telling of what a check does.

#include "maintenance/modDBUtils.h"
#include "shell/TBK_Globals.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <filesystem>
#include <map>
#include <optional>
#include <random>

namespace tallybrook::test {

namespace {

struct Event {
    std::optional<int> recorded;
};
struct Game {
    int session = 0;
    int number = 0;
    std::optional<std::string> type;
    std::optional<int> recorded;
};
struct Frame {
    int session = 0;
    int game = 0;
    int number = 0;
    std::optional<std::string> firstBall;
};

/// The tables of a logbook; the events have the keys from 1.
struct Tables {
    std::vector<Event> events;
    std::vector<Game> games;
    std::vector<Frame> frames;
};

/// What a check does to the tables, the lines that it writes and the boxes that it shows.
class Model {
public:
    explicit Model(Tables& tables) : tables_(tables) {}

    void check() {
        lines.emplace_back("Checking database integrity.");
        dropOrphans(tables_.frames, "frames");
        dropOrphans(tables_.games, "games");
        lines.emplace_back("Checking game score types.");
        if (tables_.events.empty())
            fails("Check_ScType", error::kNoCurrentRow);
        for (std::size_t event = 0; event < tables_.events.size(); ++event)
            checkEvent(static_cast<int>(event) + 1, tables_.events[event]);
        lines.emplace_back("Game score type check complete.");
        lines.emplace_back("Updating event averages.");
        if (tables_.events.empty()) {
            fails("Upd_Avg", error::kSubscriptOutOfRange);
            boxes.push_back({"No Events"});
        }
        boxes.push_back({"Check Complete"});
    }

    std::vector<std::string> lines;
    std::vector<Expected> boxes;

private:
    void fails(const std::string& procedure, int number) {
        boxes.push_back({"Database Error", Answer::OK,
                         databaseErrorBox(RunTimeError(number), "DB_Utils, " + procedure + ".").text});
    }

    template <typename Rows>
    void dropOrphans(Rows& rows, const std::string& what) {
        const std::size_t checked = rows.size();
        if (rows.empty())
            fails("DB_Integ", error::kNoCurrentRow);
        const std::size_t deleted = std::erase_if(rows, [this](const auto& row) {
            return row.session < 1 || row.session > static_cast<int>(tables_.events.size());
        });
        lines.push_back(std::to_string(checked) + " " + what + " checked, " + std::to_string(deleted) + " " +
                        what + " deleted.");
    }

    void checkEvent(int key, Event& event) {
        const std::string label = "Event: Event " + std::to_string(key) + ", Date: 11/12/2026";
        std::vector<Game*> games;
        for (Game& game : tables_.games) {
            if (game.session == key)
                games.push_back(&game);
        }
        std::ranges::stable_sort(games, {}, &Game::number);
        if (games.empty())
            fails("Check_ScType", error::kNoCurrentRow);
        for (Game* const game : games)
            checkGame(*game, label);
        correct(event.recorded, static_cast<int>(games.size()), label + ", games recorded changed to ");
    }

    void checkGame(Game& game, const std::string& eventLabel) {
        const Frame* lowest = nullptr;
        int count = 0;
        for (const Frame& frame : tables_.frames) {
            if (frame.session != game.session || frame.game != game.number)
                continue;
            ++count;
            if (lowest == nullptr || frame.number < lowest->number)
                lowest = &frame;
        }
        const std::string type = lowest == nullptr ? "N" : lowest->firstBall == "" ? "L" : "P";
        const std::string label = "Game number: " + std::to_string(game.number) + ", " + eventLabel;
        if (game.type && *game.type != type) {
            game.type = type;
            lines.push_back(label + ", score type changed to " + type);
        }
        correct(game.recorded, count, label + ", frames recorded changed to ");
    }

    void correct(std::optional<int>& stored, int count, const std::string& line) {
        if (!stored || *stored == count)
            return;
        stored = count;
        lines.push_back(line + std::to_string(count));
    }

    Tables& tables_;
};

class RandomTables {
public:
    explicit RandomTables(unsigned seed) : random_(seed) {}

    Tables make() {
        Tables tables;
        for (std::size_t count = below(4); count > 0; --count)
            tables.events.push_back({maybe<int>([this] { return number(4); })});
        for (std::size_t count = below(8); count > 0; --count)
            tables.games.push_back(
                {.session = number(6) - 1,
                 .number = number(3) + 1,
                 .type = maybe<std::string>([this] { return std::string(kTypes[below(4)]); }),
                 .recorded = maybe<int>([this] { return number(3); })});
        for (std::size_t count = below(14); count > 0; --count)
            tables.frames.push_back(
                {.session = number(6) - 1,
                 .game = number(3) + 1,
                 .number = number(3) + 1,
                 .firstBall = maybe<std::string>([this] { return std::string(kBalls[below(3)]); })});
        return tables;
    }

private:
    static constexpr const char* kTypes[] = {"P", "L", "N", "p"};
    static constexpr const char* kBalls[] = {"", "X", "7-10"};

    std::size_t below(std::size_t count) { return random_() % count; }
    int number(std::size_t count) { return static_cast<int>(below(count)); }
    template <typename Made, typename Make>
    std::optional<Made> maybe(Make make) {
        return below(8) == 0 ? std::nullopt : std::optional<Made>(make());
    }
    std::mt19937 random_;
};

template <typename Stored>
Value valueOr(const std::optional<Stored>& stored) {
    if (!stored)
        return Null{};
    if constexpr (std::is_same_v<Stored, int>)
        return std::int64_t{*stored};
    else
        return *stored;
}

void fill(Play& play, const Tables& tables) {
    int key = 0;
    for (const Event& event : tables.events)
        play.insert("tblEventInfo", {{"fldEventName", "Event " + std::to_string(++key)},
                                     {"fldDateBowled", makeDate(2026, 11, 12)},
                                     {"fldGmsRecorded", valueOr(event.recorded)}});
    for (const Game& game : tables.games)
        play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{game.session}},
                                    {"fldGameNum", std::int64_t{game.number}},
                                    {"fldScoreType", valueOr(game.type)},
                                    {"fldFrmsRecorded", valueOr(game.recorded)}});
    for (const Frame& frame : tables.frames)
        play.insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{frame.session}},
                                     {"fldGameNum", std::int64_t{frame.game}},
                                     {"fldFrameNum", std::int64_t{frame.number}},
                                     {"fldFirstBallRes", valueOr(frame.firstBall)}});
}

std::string written(const Value& value) {
    return isNull(value) ? "null" : toText(value);
}

std::vector<std::string> gamesOf(const Tables& tables) {
    std::vector<std::string> rows;
    for (const Game& game : tables.games)
        rows.push_back(std::to_string(game.session) + "|" + std::to_string(game.number) + "|" +
                       written(valueOr(game.type)) + "|" + written(valueOr(game.recorded)));
    return rows;
}

std::vector<std::string> eventsOf(const Tables& tables) {
    std::vector<std::string> rows;
    for (const Event& event : tables.events)
        rows.push_back(written(valueOr(event.recorded)));
    return rows;
}

class RandomCheck : public testing::TestWithParam<unsigned> {};

// The second check meets a logbook in which little or nothing is left to correct.
TEST_P(RandomCheck, DoesWhatTheModelDoes) {
    Tables tables = RandomTables(GetParam()).make();
    Play play;
    fill(play, tables);
    for (int check = 1; check <= 2; ++check) {
        SCOPED_TRACE(check);
        Model model(tables);
        model.check();
        std::filesystem::remove(play.dataFolder() / "DB_Report.txt");
        play.run([&] { DB_Check(play.program()); }, model.boxes);

        model.lines.insert(model.lines.begin(), {"***************************************************",
                                                 "Database check started on 11/14/2026, 9:55:00 PM"});
        model.lines.emplace_back("Database check completed on 11/14/2026, 9:55:00 PM");
        EXPECT_TRUE(isSameText(bytesOf(play.dataFolder() / "DB_Report.txt"), withLineEnds(model.lines)));
        EXPECT_EQ(
            play.rows("tblGameInfo", {"fldSessionNum", "fldGameNum", "fldScoreType", "fldFrmsRecorded"}),
            gamesOf(tables));
        EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded"}), eventsOf(tables));
        EXPECT_EQ(play.rows("tblFrameInfo", {"fldSessionNum"}).size(), tables.frames.size());
    }
}

INSTANTIATE_TEST_SUITE_P(Logbooks, RandomCheck, testing::Range(0U, 60U));

}  // namespace

}  // namespace tallybrook::test
