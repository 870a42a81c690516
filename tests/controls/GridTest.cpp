#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "shell/ProgramScreen.h"
#include "support/TemporaryFolder.h"
#include "support/TestDisplay.h"

#include <functional>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

using Log = std::vector<std::string>;

/// A grid over the events.
class GridScreen : public ProgramScreen {
public:
    explicit GridScreen(Program& owner) : ProgramScreen(owner, "frmSample", "GridScreen") {
        txtOne.onLostFocus = [this] {
            if (leaving)
                leaving();
        };
        dgdEvents.onClick = [this] { ++clicks; };
    }

    DataControl adoEvents{store()};
    TextBox txtOne{*this, "txtOne"};
    Grid dgdEvents{*this,
                   "dgdEvents",
                   "Event List",
                   adoEvents,
                   {{.caption = "Event", .field = "fldSessionNum"},
                    {.caption = "Event Name", .field = "fldEventName", .width = 28},
                    {.caption = "Date Bowled", .field = "fldDateBowled"},
                    {.caption = "Series Avg.", .field = "fldSeriesAvg", .decimals = 2},
                    {.caption = "Comment", .field = "fldComment"},
                    {.caption = "None", .field = "fldNone"}}};

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}
    void onUnload() override { adoEvents.drop(); }

    std::function<void()> leaving;
    int clicks = 0;
};

class Grids : public testing::Test {
protected:
    Grids() {
        program.openLogbook();
        program.screens.add("frmSample", [this] { return std::make_unique<GridScreen>(program); });
        program.screens.load("frmSample");
        screen = static_cast<GridScreen*>(program.screens.find("frmSample"));
        screen->txtOne.focus();
    }

    void insert(const std::string& name, const Value& average) {
        Recordset rows(program.store());
        rows.Open("SELECT * FROM tblEventInfo");
        rows.AddNew();
        rows["fldEventName"] = name;
        rows["fldDateBowled"] = makeDate(2026, 11, 4);
        rows["fldSeriesAvg"] = average;
        rows["fldComment"] = Null{};
        rows.Update();
    }
    void insertThree() {
        insert("Thursday League", 188.125);
        insert("City Open", 1204.0);
        insert("", Null{});
        open("SELECT * FROM tblEventInfo");
    }
    void insertMany(int count) {
        for (int event = 1; event <= count; ++event)
            insert("Event " + std::to_string(event), 0.0);
        open("SELECT * FROM tblEventInfo");
    }
    void open(const std::string& sql) {
        screen->adoEvents.setRecordSource(sql);
        screen->adoEvents.Refresh();
    }
    [[nodiscard]] Grid& grid() const { return screen->dgdEvents; }
    bool press(const std::string& key) { return person::press(*screen, person::readKey(key)).used; }
    [[nodiscard]] Log row(int number) const {
        Log cells;
        for (int column = 0; column < static_cast<int>(grid().columns().size()); ++column)
            cells.push_back(grid().cell(number, column));
        return cells;
    }

    TemporaryFolder folder;
    TestDisplay display;
    SettableClock clock{makeDate(2026, 11, 14)};
    Program program{display, clock, folder.path()};
    GridScreen* screen = nullptr;
};

TEST_F(Grids, AreEmptyWithoutARecordset) {
    EXPECT_EQ(grid().rowCount(), 0);
    EXPECT_EQ(grid().currentRow(), 0);
    EXPECT_EQ(grid().text(0), "");
    EXPECT_EQ(grid().cell(1, 0), "");
    EXPECT_FALSE(grid().isNumber(1, 0));
    EXPECT_EQ(grid().caption(), "Event List");
    EXPECT_TRUE(grid().hasRows() && grid().isFocusable());
    EXPECT_FALSE(grid().isList());
}

TEST_F(Grids, ShowTheTextsOfTheirRows) {
    insertThree();
    EXPECT_EQ(grid().rowCount(), 3);
    EXPECT_EQ(row(1), (Log{"1", "Thursday League", "11/4/2026", "188.13", "", ""}));
    EXPECT_EQ(row(2), (Log{"2", "City Open", "11/4/2026", "1204.00", "", ""}));
    EXPECT_EQ(row(3), (Log{"3", "", "11/4/2026", "", "", ""}));
}

TEST_F(Grids, KnowWhereTheNumbersAre) {
    insertThree();
    Log kinds;
    for (const int row : {1, 3, 4}) {
        std::string kind;
        for (int column = 0; column < 6; ++column)
            kind += grid().isNumber(row, column) ? '#' : '-';
        kinds.push_back(kind);
    }
    EXPECT_EQ(kinds, (Log{"#--#--", "#-----", "------"}));
}

TEST_F(Grids, BeginAtTheFirstRowAfterEachRefresh) {
    insertThree();
    EXPECT_EQ(grid().currentRow(), 1);
    EXPECT_EQ(grid().text(1), "Thursday League");
    EXPECT_EQ(person::selectRow(grid(), 2), Arrival::Arrived);
    EXPECT_EQ(grid().currentRow(), 2);
    EXPECT_EQ(grid().text(1), "City Open");
    screen->adoEvents.Refresh();
    EXPECT_EQ(grid().currentRow(), 1);
}

TEST_F(Grids, HaveNoCurrentRowWithoutRows) {
    open("SELECT * FROM tblEventInfo WHERE fldSessionNum = 99");
    EXPECT_EQ(grid().rowCount(), 0);
    EXPECT_EQ(grid().currentRow(), 0);
    EXPECT_EQ(grid().text(2), "");
}

TEST_F(Grids, LoseTheirRowsWithARefreshThatFails) {
    insertThree();
    EXPECT_THROW(open("no statement"), RunTimeError);
    EXPECT_EQ(grid().rowCount(), 0);
    EXPECT_EQ(grid().cell(1, 1), "");
    EXPECT_EQ(grid().text(1), "");
}

TEST_F(Grids, FailBeyondTheirRowsAndColumns) {
    insertThree();
    for (const int row : {-1, 0, 4})
        EXPECT_THROW(person::selectRow(grid(), row), RunTimeError) << row;
    for (const int column : {-1, 6})
        EXPECT_THROW(static_cast<void>(grid().text(column)), RunTimeError) << column;
    EXPECT_EQ(grid().currentRow(), 1);
}

TEST_F(Grids, KeepTheirRowWhereTheFocusDoesNotArrive) {
    insertThree();
    screen->leaving = [this] { screen->txtOne.focus(); };
    EXPECT_EQ(person::selectRow(grid(), 2), Arrival::Kept);
    screen->leaving = [this] { grid().setEnabled(false); };
    EXPECT_EQ(person::selectRow(grid(), 2), Arrival::Refused);
    grid().setEnabled(true);
    screen->leaving = [this] { program.screens.hide(*screen); };
    EXPECT_EQ(person::selectRow(grid(), 2), Arrival::Arrived);
    EXPECT_EQ(grid().currentRow(), 1);
}

struct Step {
    std::string key;
    bool used;
    int row;
};

TEST_F(Grids, FollowTheKeys) {
    insertMany(13);
    grid().focus();
    for (const Step& step : std::vector<Step>{{"Up", false, 1},
                                              {"Down", true, 2},
                                              {"PageDown", true, 12},
                                              {"PageDown", true, 13},
                                              {"Down", false, 13},
                                              {"Home", true, 1},
                                              {"End", true, 13},
                                              {"PageUp", true, 3},
                                              {"Up", true, 2},
                                              {"e", false, 2},
                                              {"Left", false, 2},
                                              {"Right", false, 2},
                                              {"Space", false, 2},
                                              {"Shift+Down", false, 2},
                                              {"Ctrl+End", false, 2}}) {
        EXPECT_EQ(press(step.key), step.used) << step.key;
        EXPECT_EQ(grid().currentRow(), step.row) << step.key;
    }
    EXPECT_EQ(screen->clicks, 0);
}

TEST_F(Grids, TakeNoKeysWithoutRows) {
    grid().focus();
    for (const char* key : {"Up", "Down", "Home", "End", "PageUp", "PageDown"})
        EXPECT_FALSE(press(key)) << key;
}

TEST_F(Grids, SeeTheRowsAsTheyWereOpened) {
    insertThree();
    insert("Later", 0.0);
    EXPECT_EQ(grid().rowCount(), 3);
    screen->adoEvents.Refresh();
    EXPECT_EQ(grid().rowCount(), 4);
    EXPECT_EQ(grid().cell(4, 1), "Later");
}

TEST_F(Grids, SurviveTheRowDeletedUnderThem) {
    insertThree();
    person::selectRow(grid(), 3);
    open("SELECT * FROM tblEventInfo WHERE fldSessionNum = 2");
    screen->adoEvents.recordset().Delete();
    EXPECT_EQ(grid().rowCount(), 0);
    EXPECT_EQ(grid().currentRow(), 0);
    EXPECT_EQ(grid().text(1), "");
}

}  // namespace

}  // namespace tallybrook::test
