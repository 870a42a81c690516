#pragma once

#include "app/Application.h"
#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "store/Recordset.h"
#include "support/InsertRow.h"
#include "support/TemporaryFolder.h"
#include "support/TestDisplay.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// The boxes of a first start, with the check declined.
inline void expectFirstStart(TestDisplay& display) {
    display.expect(
        {"Tallybrook", Answer::OK,
         "No configuration file was found. Click \"OK\" to configure Tallybrook. This will only take a "
         "minute."});
    display.expect({"Database Check", Answer::No});
}

/// The program in an empty data folder, used as a person uses it.
class Play {
public:
    Play() : application_(display, clock, folder_.path() / "data") {
        expectFirstStart(display);
        application_.start();
        display.forgetBoxes();
    }

    TestDisplay display;
    SettableClock clock{makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55} +
                        std::chrono::seconds{32}};

    [[nodiscard]] Program& program() { return application_.program(); }
    [[nodiscard]] SessionState& session() { return program().session; }
    [[nodiscard]] std::filesystem::path dataFolder() const { return folder_.path() / "data"; }

    /// The screen in front.
    [[nodiscard]] Screen& screen() { return *program().screens.front(); }
    [[nodiscard]] Control& control(const std::string& name) { return control(screen(), name); }
    [[nodiscard]] static Control& control(Screen& on, const std::string& name) {
        Control* const found = on.find(name);
        if (found == nullptr)
            throw std::runtime_error("no control " + name + " on " + on.name());
        return *found;
    }
    [[nodiscard]] std::string text(const std::string& name) {
        return dynamic_cast<TextBox&>(control(name)).text();
    }
    [[nodiscard]] bool value(const std::string& name) {
        Control& found = control(name);
        return found.kind() == Control::Kind::CheckBox ? static_cast<CheckBox&>(found).value()
                                                       : dynamic_cast<OptionButton&>(found).value();
    }
    [[nodiscard]] bool enabled(const std::string& name) { return control(name).isEnabled(); }
    [[nodiscard]] std::string focus() {
        const Control* const focused = screen().focused();
        return focused == nullptr ? "none" : focused->name();
    }

    /// A click, with the boxes that it brings up, in their order.
    Arrival click(const std::string& name, const std::vector<Expected>& boxes = {}) {
        Arrival arrival = Arrival::Refused;
        run([&] { arrival = person::click(control(name)); }, boxes);
        return arrival;
    }
    Arrival type(const std::string& name, const std::string& text, const std::vector<Expected>& boxes = {}) {
        Arrival arrival = Arrival::Refused;
        run([&] { arrival = person::type(dynamic_cast<TextBox&>(control(name)), text); }, boxes);
        return arrival;
    }
    void tab(const std::vector<Expected>& boxes = {}) {
        run([&] { person::tab(screen()); }, boxes);
    }
    void press(const std::string& key) {
        run([&] { person::press(screen(), person::readKey(key)); });
    }
    void close(const std::vector<Expected>& boxes = {}) {
        run([&] { person::close(screen()); }, boxes);
    }
    void load(const std::string& name, const std::vector<Expected>& boxes = {}) {
        run([&] { program().screens.load(name); }, boxes);
    }
    /// Loads a screen as another one that hands over does.
    void handOverTo(const std::string& name, const std::vector<Expected>& boxes = {}) {
        run(
            [&] {
                program().screens.hide(screen());
                program().screens.load(name);
            },
            boxes);
    }
    void run(const std::function<void()>& action, const std::vector<Expected>& boxes = {}) {
        for (const Expected& box : boxes)
            display.expect(box);
        program().perform(action);
        display.expectNothingLeft();
    }

    /// A control with the caption and the tip that people see.
    struct Seen {
        const char* name;
        const char* caption;
        const char* tip = "";
    };
    void expectSeen(const std::vector<Seen>& controls) {
        for (const Seen& one : controls) {
            EXPECT_EQ(control(one.name).caption(), one.caption) << one.name;
            EXPECT_EQ(control(one.name).tip(), one.tip) << one.name;
        }
    }

    using Fields = FieldValues;

    /// Adds a row to the logbook past the screens.
    void insert(const std::string& table, const Fields& fields) {
        insertRow(program().store(), table, fields);
    }
    /// The stored rows of a table, one text a row with the values of these fields.
    [[nodiscard]] std::vector<std::string> rows(const std::string& table,
                                                const std::vector<std::string>& fields) {
        Recordset rows(program().store());
        rows.Open("SELECT * FROM " + table);
        std::vector<std::string> found;
        for (; !rows.Eof(); rows.MoveNext()) {
            std::string row;
            for (const std::string& field : fields)
                row += (&field == &fields.front() ? "" : "|") +
                       (isNull(rows[field]) ? "null" : toText(rows[field]));
            found.push_back(row);
        }
        return found;
    }

    /// An event of that many games, the current one.
    void insertEvent(int games = 3) {
        insert("tblEventInfo", {{"fldEventName", "Thursday League"},
                                {"fldDateBowled", makeDate(2026, 11, 12)},
                                {"fldEventType", "LEAGUE"},
                                {"fldNumGames", std::int64_t{games}},
                                {"fldHHRecordID", "NONE"}});
        session().gSessionNum = 1;
    }
    /// A game on lanes 13 and 14 of that event, the current one.
    void insertGame(int number = 1, const std::string& type = "P", int score = 0) {
        insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                               {"fldGameNum", std::int64_t{number}},
                               {"fldStartLane", std::int64_t{13}},
                               {"fldLeftLane", std::int64_t{13}},
                               {"fldRightLane", std::int64_t{14}},
                               {"fldLanePair", "13-14"},
                               {"fldGameScore", std::int64_t{score}},
                               {"fldScoreType", type},
                               {"fldHHRecordID", "NONE"},
                               {"fldBowlHand", "N"}});
        session().gGameNum = number;
    }
    void insertFrame(int frame, const std::string& lineScore, const std::string& first = "",
                     const std::string& second = "", const std::string& fill = "", int game = 1) {
        insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                {"fldGameNum", std::int64_t{game}},
                                {"fldFrameNum", std::int64_t{frame}},
                                {"fldLaneBowled", std::int64_t{frame % 2 == 1 ? 13 : 14}},
                                {"fldFirstBallRes", first},
                                {"fldSecondBallRes", second},
                                {"fldFillBallRes", fill},
                                {"fldLineScore", lineScore},
                                {"fldHHRecordID", "HH" + std::to_string(frame)}});
    }

private:
    TemporaryFolder folder_;
    Application application_;
};

}  // namespace tallybrook::test
