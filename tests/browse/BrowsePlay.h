#pragma once

#include "shell/TBK_Globals.h"
#include "support/Play.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tallybrook::test {

// What both searches say of what they found.
inline const Expected kNoHits{"Tallybrook - Event Search", Answer::OK,
                              "No rows returned.\r\nReturning to search screen."};
inline const Expected kFound{"Tallybrook - Search Results"};

/// The program with a hand for lists, grids and what stands in the logbook.
class BrowsePlay : public Play {
public:
    /// Whatever was played: a failure is told with the icon of failures.
    ~BrowsePlay() {
        for (const MessageBox& box : display.boxes()) {
            if (box.text.starts_with("Error Number: ")) {
                EXPECT_EQ(box.icon, Icon::Critical) << box.text;
                EXPECT_EQ(box.buttons, Buttons::OK) << box.text;
            }
        }
    }

    [[nodiscard]] ComboBox& list(const std::string& name) { return dynamic_cast<ComboBox&>(control(name)); }
    [[nodiscard]] Grid& grid() { return dynamic_cast<Grid&>(control("dgdEventList")); }

    /// A person picks an item of a list, by its words or its position.
    Arrival pick(const std::string& name, const std::string& words, const std::vector<Expected>& boxes = {}) {
        const auto& items = list(name).items();
        const auto found = std::ranges::find(items, words);
        EXPECT_NE(found, items.end()) << name << " does not offer \"" << words << "\"";
        return pick(name, static_cast<int>(found - items.begin()), boxes);
    }
    Arrival pick(const std::string& name, int index, const std::vector<Expected>& boxes = {}) {
        Arrival arrival = Arrival::Refused;
        run([&] { arrival = person::pick(list(name), index); }, boxes);
        return arrival;
    }
    /// A person makes a row of the grid the current one, from 1.
    void row(int number) {
        run([&] { person::selectRow(grid(), number); });
    }
    /// The cells of a row of the grid, from 1, with "|" between them.
    [[nodiscard]] std::string cells(int number) {
        std::string cells;
        for (int column = 0; column < static_cast<int>(grid().columns().size()); ++column)
            cells += (column == 0 ? "" : "|") + grid().cell(number, column);
        return cells;
    }
    /// The focus goes to a control, with the boxes that come up on the way.
    Arrival focusOn(const std::string& name, const std::vector<Expected>& boxes = {}) {
        Arrival arrival = Arrival::Refused;
        run([&] { arrival = person::arrive(control(name)); }, boxes);
        return arrival;
    }

    /// The controls that Tab leads to, in their order.
    [[nodiscard]] std::vector<std::string> tabOrder() {
        std::vector<std::string> names;
        for (const Control* const control : screen().tabOrder())
            names.push_back(control->name());
        return names;
    }

    /// Adds an event with the next key.
    void addEvent(const std::string& name, const Fields& more = {}) {
        Fields fields{{"fldEventName", name},
                      {"fldDateBowled", makeDate(2026, 11, 12)},
                      {"fldEventType", "LEAGUE"},
                      {"fldNumGames", std::int64_t{3}}};
        fields.insert(fields.end(), more.begin(), more.end());
        insert("tblEventInfo", fields);
    }
    void addGame(int session, int number, const Fields& more = {}) {
        Fields fields{{"fldSessionNum", std::int64_t{session}}, {"fldGameNum", std::int64_t{number}}};
        fields.insert(fields.end(), more.begin(), more.end());
        insert("tblGameInfo", fields);
    }
    void addFrame(int session, int game, int number, const Fields& more = {}) {
        Fields fields{{"fldSessionNum", std::int64_t{session}},
                      {"fldGameNum", std::int64_t{game}},
                      {"fldFrameNum", std::int64_t{number}}};
        fields.insert(fields.end(), more.begin(), more.end());
        insert("tblFrameInfo", fields);
    }

    /// The last thing that the display was told.
    [[nodiscard]] std::string lastEvent() const {
        return display.events().empty() ? "" : display.events().back();
    }
    /// Whether a failure of that number was shown and has ended the program.
    [[nodiscard]] testing::AssertionResult hasEndedWith(int number) {
        const std::vector<std::string>& events = display.events();
        const std::vector<std::string> wanted{"run-time error " + std::to_string(number), "end program"};
        if (program().hasEnded() && events.size() >= 2 &&
            std::equal(wanted.begin(), wanted.end(), events.end() - 2))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "the last that happened is \"" << lastEvent() << "\"";
    }

    /// The general box of a failure in a module, with its whole text.
    [[nodiscard]] static Expected failure(const std::string& module, int number) {
        return {"Database Error", Answer::OK, databaseErrorBox(RunTimeError(number), module).text};
    }
};

}  // namespace tallybrook::test
