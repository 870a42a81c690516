#include "store/DataControl.h"
#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <limits>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

class RecordsetEdges : public testing::Test {
protected:
    void SetUp() override {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        for (int game = 1; game <= 3; ++game) {
            rows.AddNew();
            rows["fldSessionNum"] = std::int64_t{1};
            rows["fldGameNum"] = std::int64_t{game};
            rows["fldGameScore"] = std::int64_t{100} * game;
            rows.Update();
        }
    }
    static int faultOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& failure) {
            return failure.number();
        }
        return 0;
    }
    std::vector<std::string> stored(const std::string& field = "fldGameScore") {
        std::vector<std::string> values;
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        for (; !rows.Eof(); rows.MoveNext())
            values.push_back(isNull(rows[field]) ? "null" : toText(rows[field]));
        return values;
    }

    test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
    Store store{folder.path() / "Tallybrook_DB.mdb", clock};
};

// Every operation in every state: what fails, and where the recordset then is.
TEST_F(RecordsetEdges, FailAsTheyShould) {
    using Prepare = std::function<void(Recordset&)>;
    const std::string all = "SELECT * FROM tblGameInfo";
    const std::vector<std::pair<std::string, Prepare>> states{
        {"closed", [](Recordset&) {}},
        {"empty", [](Recordset& rows) { rows.Open("SELECT * FROM tblFrameInfo"); }},
        {"on a row", [&](Recordset& rows) { rows.Open(all); }},
        {"before the first",
         [&](Recordset& rows) {
             rows.Open(all);
             rows.MovePrevious();
         }},
        {"past the last",
         [&](Recordset& rows) {
             rows.Open(all);
             rows.MoveLast();
             rows.MoveNext();
         }},
        {"edit pending",
         [&](Recordset& rows) {
             rows.Open(all);
             rows["fldGameNum"] = std::int64_t{1};
         }},
        {"new row pending",
         [&](Recordset& rows) {
             rows.Open(all);
             rows.AddNew();
         }},
        {"deleted",
         [&](Recordset& rows) {
             rows.Open(all);
             rows.AddNew();
             rows.Update();
             rows.Delete();
         }},
    };
    struct Operation {
        std::string name;
        std::function<void(Recordset&)> run;
        std::vector<int> faults;  // by state
    };
    constexpr int kClosed = error::kObjectClosed;
    constexpr int kNoRow = error::kNoCurrentRow;
    const std::vector<Operation> operations{
        {"Open", [&](Recordset& rows) { rows.Open(all); }, {0, 3705, 3705, 3705, 3705, 3705, 3705, 3705}},
        {"Close", [](Recordset& rows) { rows.Close(); }, {kClosed, 0, 0, 0, 0, 0, 0, 0}},
        {"RecordCount",
         [](Recordset& rows) { static_cast<void>(rows.RecordCount()); },
         {kClosed, 0, 0, 0, 0, 0, 0, 0}},
        {"Eof", [](Recordset& rows) { static_cast<void>(rows.Eof()); }, {kClosed, 0, 0, 0, 0, 0, 0, 0}},
        {"Bof", [](Recordset& rows) { static_cast<void>(rows.Bof()); }, {kClosed, 0, 0, 0, 0, 0, 0, 0}},
        {"MoveFirst", [](Recordset& rows) { rows.MoveFirst(); }, {kClosed, kNoRow, 0, 0, 0, 0, 0, 0}},
        {"MoveLast", [](Recordset& rows) { rows.MoveLast(); }, {kClosed, kNoRow, 0, 0, 0, 0, 0, 0}},
        {"MoveNext", [](Recordset& rows) { rows.MoveNext(); }, {kClosed, kNoRow, 0, 0, kNoRow, 0, 0, 0}},
        {"MovePrevious",
         [](Recordset& rows) { rows.MovePrevious(); },
         {kClosed, kNoRow, 0, kNoRow, 0, 0, 0, 0}},
        {"read",
         [](Recordset& rows) { static_cast<void>(rows["fldGameNum"].value()); },
         {kClosed, kNoRow, 0, kNoRow, kNoRow, 0, 0, kNoRow}},
        {"read unknown",
         [](Recordset& rows) { static_cast<void>(rows["fldNone"].value()); },
         {kClosed, 3265, 3265, 3265, 3265, 3265, 3265, 3265}},
        {"write",
         [](Recordset& rows) { rows["fldGameNum"] = std::int64_t{5}; },
         {kClosed, kNoRow, 0, kNoRow, kNoRow, 0, 0, kNoRow}},
        {"AddNew", [](Recordset& rows) { rows.AddNew(); }, {kClosed, 0, 0, 0, 0, 0, 0, 0}},
        {"Update",
         [](Recordset& rows) { rows.Update(); },
         {kClosed, kNoRow, 0, kNoRow, kNoRow, 0, 0, kNoRow}},
        {"CancelUpdate", [](Recordset& rows) { rows.CancelUpdate(); }, {kClosed, 0, 0, 0, 0, 0, 0, 0}},
        {"Delete",
         [](Recordset& rows) { rows.Delete(); },
         {kClosed, kNoRow, 0, kNoRow, kNoRow, 0, 0, kNoRow}},
        {"Resync",
         [](Recordset& rows) { rows.Resync(); },
         {kClosed, kNoRow, 0, kNoRow, kNoRow, 0, kNoRow, kNoRow}},
    };
    for (const Operation& operation : operations) {
        for (std::size_t state = 0; state < states.size(); ++state) {
            Recordset rows(store);
            states[state].second(rows);
            EXPECT_EQ(faultOf([&] { operation.run(rows); }), operation.faults[state])
                << operation.name << ", " << states[state].first;
            EXPECT_EQ(rows.State(),
                      operation.name == "Close" || (state == 0 && operation.name != "Open") ? 0 : 1);
        }
    }
}

TEST_F(RecordsetEdges, WalkToBothEnds) {
    Recordset rows(store);
    rows.Open("SELECT fldGameScore FROM tblGameInfo WHERE fldSessionNum = 1 ORDER BY fldGameNum");
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_FALSE(rows.Bof());
    std::string walked;
    for (; !rows.Eof(); rows.MoveNext())
        walked += toText(rows["fldGameScore"]) + " ";
    EXPECT_EQ(walked, "100 200 300 ");
    rows.MovePrevious();
    EXPECT_EQ(toText(rows["FLDGAMESCORE"]), "300");
    rows.MoveFirst();
    rows.MovePrevious();
    EXPECT_TRUE(rows.Bof());
    EXPECT_FALSE(rows.Eof());
    rows.MoveNext();
    EXPECT_EQ(toText(rows["fldGameScore"]), "100");
}

TEST_F(RecordsetEdges, AreBothEndsAtOnceWhenEmpty) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo WHERE fldSessionNum = 9");
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(rows.RecordCount(), 0);
    rows.AddNew();
    EXPECT_FALSE(rows.Eof());
    rows.CancelUpdate();
    EXPECT_TRUE(rows.Eof());
}

TEST_F(RecordsetEdges, KeepANewRowToThemselvesUntilItIsStored) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows.MoveLast();
    rows.AddNew();
    EXPECT_TRUE(isNull(rows["fldScoreType"]));
    rows["fldGameNum"] = "4";
    EXPECT_EQ(toText(rows["fldGameNum"]), "4");
    EXPECT_EQ(stored().size(), 3U);
    rows.Update();
    EXPECT_EQ(stored().size(), 4U);
    EXPECT_EQ(toText(rows["fldGameKey"]), "4");
    EXPECT_EQ(toText(rows["fldScoreType"]), "P");  // what the store puts where nobody wrote
    EXPECT_EQ(toText(rows["fldGameScore"]), "0");
    EXPECT_EQ(toText(rows["fldLaneCond"]), "");
    EXPECT_EQ(rows.RecordCount(), 4);
    rows.MovePrevious();
    EXPECT_EQ(toText(rows["fldGameNum"]), "3");
}

TEST_F(RecordsetEdges, DiscardANewRow) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows.MoveNext();
    rows.AddNew();
    rows["fldGameNum"] = std::int64_t{7};
    rows.CancelUpdate();
    EXPECT_EQ(toText(rows["fldGameNum"]), "2");
    rows.AddNew();
    rows["fldGameNum"] = std::int64_t{8};
    rows.AddNew();  // in place of the other
    EXPECT_TRUE(isNull(rows["fldGameNum"]));
    rows.MoveNext();  // from the row that was current before
    EXPECT_EQ(toText(rows["fldGameNum"]), "3");
    rows.Update();
    EXPECT_EQ(stored().size(), 3U);
}

TEST_F(RecordsetEdges, StoreAnEditWhenTheyMove) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows["fldGameScore"] = std::int64_t{111};
    EXPECT_EQ(stored()[0], "100");
    rows.MoveNext();
    EXPECT_EQ(stored()[0], "111");
    rows["fldGameScore"] = std::int64_t{222};
    rows.CancelUpdate();
    EXPECT_EQ(toText(rows["fldGameScore"]), "200");
    rows.MoveFirst();
    EXPECT_EQ(toText(rows["fldGameScore"]), "111");
}

TEST_F(RecordsetEdges, StoreJustTheFieldsWritten) {
    Recordset one(store);
    one.Open("SELECT * FROM tblGameInfo");
    one["fldGameScore"] = std::int64_t{111};
    Recordset other(store);
    other.Open("SELECT * FROM tblGameInfo");
    other["fldLaneCond"] = "dry";
    other.Update();
    one.Update();
    EXPECT_EQ(stored("fldLaneCond")[0] + stored()[0], "dry111");
    EXPECT_EQ(toText(one["fldLaneCond"]), "");  // as it was when opened
    one.Resync();
    EXPECT_EQ(toText(one["fldLaneCond"]), "dry");
}

TEST_F(RecordsetEdges, AreSnapshotsHoweverLateTheyAreLookedAt) {
    Recordset early(store);
    early.Open("SELECT * FROM tblGameInfo WHERE fldGameScore >= 100");
    Recordset changing(store);
    changing.Open("SELECT * FROM tblGameInfo");
    changing["fldGameScore"] = std::int64_t{1};
    changing.MoveNext();
    changing.Delete();
    changing.MoveNext();
    changing.AddNew();
    changing["fldGameScore"] = std::int64_t{400};
    changing.Update();
    EXPECT_EQ(early.RecordCount(), 3);
    EXPECT_EQ(toText(early["fldGameScore"]), "100");
    early.MoveNext();
    EXPECT_EQ(toText(early["fldGameScore"]), "200");
    EXPECT_EQ(faultOf([&] {
                  early["fldGameScore"] = std::int64_t{5};
                  early.Update();
              }),
              error::kRowGone);
    EXPECT_EQ(stored(), (std::vector<std::string>{"1", "300", "400"}));
}

// The keys of rows that were undone are given again.
TEST_F(RecordsetEdges, AreSnapshotsAfterRowsWereUndoneToo) {
    SQLite::Database& database = store.connection().database();
    const auto add = [this] {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblGameInfo");
        rows.AddNew();
        rows.Update();
        return toText(rows["fldGameKey"]);
    };
    database.exec("BEGIN");
    EXPECT_EQ(add(), "4");
    database.exec("ROLLBACK");
    Recordset before(store);
    before.Open("SELECT * FROM tblGameInfo");
    EXPECT_EQ(add(), "4");
    EXPECT_EQ(before.RecordCount(), 3);
}

TEST_F(RecordsetEdges, KeepEachRowAsItWasBeforeAnotherTouchesIt) {
    for (std::size_t touched = 0; touched < 3; ++touched) {
        const std::vector<std::string> before = stored();
        Recordset unread(store);
        unread.Open("SELECT * FROM tblGameInfo");
        Recordset other(store);
        other.Open("SELECT * FROM tblGameInfo");
        for (std::size_t i = 0; i < touched; ++i)
            other.MoveNext();
        other["fldGameScore"] = std::int64_t{7};
        other.Update();
        std::vector<std::string> seen;
        for (; !unread.Eof(); unread.MoveNext())
            seen.push_back(toText(unread["fldGameScore"]));
        EXPECT_EQ(seen, before) << touched;
    }
    for (std::size_t left = 3; left > 0; --left) {
        Recordset unread(store);
        unread.Open("SELECT * FROM tblGameInfo");
        Recordset other(store);
        other.Open("SELECT * FROM tblGameInfo");
        other.MoveLast();
        other.Delete();
        EXPECT_EQ(unread.RecordCount(), static_cast<int>(left));
    }
}

// Few rows that are looked at are read for themselves, many all at once; what is seen is always the same.
TEST_F(RecordsetEdges, ShowAnyOfManyRows) {
    constexpr int kRows = 1000;
    Recordset adding(store);
    adding.Open("SELECT * FROM tblGameInfo");
    for (int game = 4; game <= kRows; ++game) {
        adding.AddNew();
        adding["fldGameNum"] = std::int64_t{game};
        adding["fldGameScore"] = std::int64_t{game % 300};
        adding["fldComment"] = "Game " + std::to_string(game);
        adding.Update();
    }
    const std::string sql = "SELECT * FROM tblGameInfo WHERE fldGameNum >= 4 ORDER BY fldGameScore";
    Recordset reading(store);
    reading.Open(sql);
    std::vector<std::string> comments;
    for (; !reading.Eof(); reading.MoveNext())
        comments.push_back(toText(reading["fldComment"]));
    ASSERT_EQ(comments.size(), kRows - 3);
    for (const int step : {1, 63, 64, 331}) {
        Recordset looked(store);
        looked.Open(sql);
        const auto look = [&] {
            for (int row = kRows - 4; row >= 0; row -= step)
                EXPECT_EQ(toText(looked.valueAt(row, "fldComment")), comments[static_cast<std::size_t>(row)]);
        };
        look();
        Recordset other(store);
        other.Open(sql);
        other["fldComment"] = "Changed before steps of " + std::to_string(step);
        other.Update();
        look();
        comments[0] = toText(other["fldComment"]);
    }
}

TEST_F(RecordsetEdges, MoveOnFromADeletedRow) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows.Delete();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_FALSE(rows.Eof());
    rows.MoveNext();
    EXPECT_EQ(toText(rows["fldGameScore"]), "200");
    while (!rows.Eof()) {
        rows.Delete();
        rows.MoveNext();
    }
    EXPECT_TRUE(stored().empty());
    EXPECT_TRUE(rows.Bof());
}

TEST_F(RecordsetEdges, KeepWhatAFieldHadWhenItCannotTakeAValue) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows["fldGameScore"] = std::int64_t{150};
    for (const Value& bad :
         {Value{"3 games"}, Value{""}, Value{"40000"}, Value{1e9}, Value{"x"}, Value{"1 2"}, Value{"1,23"},
          Value{"12,3456"}, Value{",123"}, Value{"123,"}, Value{"1,,234"}, Value{"1234,567"},
          Value{"1.0,000"}, Value{"1e0,001"}, Value{","}})
        EXPECT_EQ(faultOf([&] { rows["fldGameScore"] = bad; }), error::kValueNotTaken) << toText(bad);
    EXPECT_EQ(toText(rows["fldGameScore"]), "150");
    EXPECT_EQ(faultOf([&] { rows["fldGameKey"] = std::int64_t{9}; }), error::kValueNotTaken);
    for (const auto& [text, number] :
         std::vector<std::pair<std::string, std::string>>{{" 12 ", "12"},
                                                          {"-7", "-7"},
                                                          {"1,234", "1234"},
                                                          {"-12,345.5", "-12346"},
                                                          {"2.5", "2"},
                                                          {"3.5", "4"},
                                                          {"1e2", "100"},
                                                          {"+5", "5"}}) {
        rows["fldGameScore"] = text;
        EXPECT_EQ(toText(rows["fldGameScore"]), number) << text;
    }
    rows["fldGameScore"] = Null{};
    rows.Update();
    EXPECT_EQ(stored()[0], "null");
}

TEST_F(RecordsetEdges, CompareTextWithoutCase) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblEventInfo");
    for (const char* name : {"\u00dcber Lanes", "brook", "Brook", "apple", "\u00fcBER lanes"}) {
        rows.AddNew();
        rows["fldEventName"] = name;
        rows["fldDateBowled"] = makeDate(2026, 11, 4);
        rows.Update();
    }
    const auto names = [&](const std::string& ending) {
        Recordset found(store);
        found.Open("SELECT " + ending);
        std::string all;
        for (; !found.Eof(); found.MoveNext())
            all += (isNull(found["fldEventName"]) ? "null" : toText(found["fldEventName"])) + "|";
        return all;
    };
    EXPECT_EQ(names("* FROM tblEventInfo WHERE fldEventName = '\u00fcber LANES'"),
              "\u00dcber Lanes|\u00fcBER lanes|");
    EXPECT_EQ(names("* FROM tblEventInfo WHERE fldEventName LIKE '%ROO%'"), "brook|Brook|");
    EXPECT_EQ(names("* FROM tblEventInfo WHERE fldEventName > 'B' ORDER BY fldEventName"),
              "brook|Brook|\u00dcber Lanes|\u00fcBER lanes|");
    EXPECT_EQ(names("* FROM tblEventInfo ORDER BY fldDateBowled, fldEventName"),
              "apple|brook|Brook|\u00dcber Lanes|\u00fcBER lanes|");
    EXPECT_EQ(names("DISTINCT fldEventName FROM tblEventInfo"), "apple|brook|\u00dcber Lanes|");
    EXPECT_EQ(names("* FROM tblEventInfo WHERE fldDateBowled LIKE '11/4%' AND fldSessionNum < 3"),
              "\u00dcber Lanes|brook|");
    EXPECT_EQ(names("* FROM tblEventInfo WHERE fldDateBowled = #2026-11-04# AND fldSessionNum >= 4"),
              "apple|\u00fcBER lanes|");
    rows.AddNew();
    rows["fldEventName"] = Null{};
    rows.Update();
    EXPECT_EQ(names("* FROM tblEventInfo WHERE fldEventName < 'zz'").find("null"), std::string::npos);
    EXPECT_EQ(names("* FROM tblEventInfo ORDER BY fldEventName").rfind("null|", 0), 0U);
}

TEST_F(RecordsetEdges, RefuseToChangeDistinctValues) {
    Recordset rows(store);
    rows.Open("SELECT DISTINCT fldGameNum FROM tblGameInfo");
    EXPECT_EQ(faultOf([&] { rows["fldGameNum"] = std::int64_t{1}; }), error::kValueNotTaken);
    EXPECT_EQ(faultOf([&] { rows.AddNew(); }), error::kValueNotTaken);
    EXPECT_EQ(faultOf([&] { rows.Delete(); }), error::kValueNotTaken);
    EXPECT_EQ(stored().size(), 3U);
}

TEST_F(RecordsetEdges, StoreNoNumberThatIsNone) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblEventInfo");
    rows.AddNew();
    rows["fldSeriesAvg"] = 200.5;
    for (const double none :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(faultOf([&] { rows["fldSeriesAvg"] = none; }), error::kValueNotTaken);
    EXPECT_EQ(toText(rows["fldSeriesAvg"]), "200.5");
}

TEST_F(RecordsetEdges, KeepAnEditWhoseRowIsGoneUntilItIsCancelled) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    EXPECT_EQ(rows.RecordCount(), 3);
    Recordset other(store);
    other.Open("SELECT * FROM tblGameInfo");
    other.Delete();
    rows["fldGameScore"] = std::int64_t{5};
    EXPECT_EQ(faultOf([&] { rows.MoveNext(); }), error::kRowGone);
    EXPECT_EQ(toText(rows["fldGameScore"]), "5");
    EXPECT_EQ(faultOf([&] { rows.Resync(); }), error::kRowGone);
    rows.CancelUpdate();
    EXPECT_EQ(toText(rows["fldGameScore"]), "100");
    rows.MoveNext();
    EXPECT_EQ(toText(rows["fldGameScore"]), "200");
}

TEST_F(RecordsetEdges, ForgetAnEditWhenTheyResync) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows["fldGameScore"] = std::int64_t{150};
    rows.Resync();
    EXPECT_EQ(toText(rows["fldGameScore"]), "100");
    rows.MoveNext();
    EXPECT_EQ(stored(), (std::vector<std::string>{"100", "200", "300"}));
}

TEST_F(RecordsetEdges, BeginNoEditWithAValueThatIsNotTaken) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    EXPECT_EQ(faultOf([&] { rows["fldGameScore"] = "many"; }), error::kValueNotTaken);
    rows.Update();
    rows.MoveNext();
    EXPECT_EQ(toText(rows["fldGameScore"]), "200");
    EXPECT_EQ(stored(), (std::vector<std::string>{"100", "200", "300"}));
}

TEST_F(RecordsetEdges, CanBeOpenedAgain) {
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    rows.MoveLast();
    rows.AddNew();
    rows["fldGameScore"] = std::int64_t{9};
    rows.Close();
    rows.Open("SELECT * FROM tblGameInfo WHERE fldGameNum = 2");
    EXPECT_EQ(toText(rows["fldGameScore"]), "200");
    EXPECT_EQ(stored().size(), 3U);
}

TEST_F(RecordsetEdges, AreUnharmedByAStatementThatFails) {
    Recordset rows(store);
    EXPECT_EQ(faultOf([&] { rows.Open("SELECT * FROM tblGameInfo WHERE fldComment = 'O'Brien'"); }),
              error::kStatementNotUnderstood);
    EXPECT_EQ(rows.State(), 0);
    rows.Open(
        "SELECT * FROM tblGameInfo WHERE fldComment = 'x' OR fldGameScore LIKE '%'");  // a quote's doing
    EXPECT_EQ(rows.RecordCount(), 3);
}

TEST_F(RecordsetEdges, ShowTheRowInBoundBoxes) {
    DataControl control(store);
    std::vector<std::string> shown;
    control.bind("fldGameScore", [&](const std::string& text) { shown.push_back(text); });
    EXPECT_EQ(faultOf([&] { static_cast<void>(control.recordset()); }), error::kObjectNotSet);
    control.setRecordSource("SELECT * FROM tblGameInfo ORDER BY fldGameNum");
    control.Refresh();
    Recordset& rows = control.recordset();
    rows.MoveNext();
    rows["fldGameScore"] = std::int64_t{5};
    rows.Update();
    rows.AddNew();
    rows.CancelUpdate();
    rows.CancelUpdate();
    rows.MoveLast();
    rows.MoveNext();
    EXPECT_EQ(shown, (std::vector<std::string>{"100", "200", "", "5", "300", ""}));
    rows.MoveFirst();
    rows["fldGameScore"] = Null{};
    rows.Update();
    control.Refresh();
    EXPECT_EQ(shown.back(), "");
    control.setRecordSource("SELECT nonsense");
    EXPECT_NE(faultOf([&] { control.Refresh(); }), 0);
    EXPECT_EQ(faultOf([&] { static_cast<void>(control.recordset()); }), error::kObjectNotSet);
}

TEST_F(RecordsetEdges, ShowDatesAndNumbersInTheirUsualForms) {
    Recordset events(store);
    events.Open("SELECT * FROM tblEventInfo");
    events.AddNew();
    events["fldDateBowled"] = "2026-11-04";
    events["fldSeriesAvg"] = "1,200.50";
    events.Update();
    DataControl control(store);
    std::string shown;
    for (const char* field : {"fldDateBowled", "fldSeriesAvg", "fldNumGames"})
        control.bind(field, [&](const std::string& text) { shown += text + "|"; });
    control.setRecordSource("SELECT * FROM tblEventInfo");
    control.Refresh();
    EXPECT_EQ(shown, "11/4/2026|1200.5|0|");
}

TEST_F(RecordsetEdges, TellWhenARowIsToBeShown) {
    Recordset rows(store);
    std::string shown;
    rows.onRowShown([&] { shown += rows.Eof() ? "-" : toText(rows["fldGameNum"]) + " "; });
    rows.Open("SELECT * FROM tblGameInfo");
    EXPECT_EQ(shown, "1 ");
    rows.MoveNext();
    rows["fldGameScore"] = std::int64_t{7};
    rows.CancelUpdate();
    EXPECT_EQ(shown, "1 2 2 ");
    rows.CancelUpdate();  // of nothing
    rows.Update();
    EXPECT_EQ(shown, "1 2 2 ");
}

TEST_F(RecordsetEdges, AreReadAnewOnceWhatWasStoredIsUndone) {
    EXPECT_EQ(stored(), (std::vector<std::string>{"100", "200", "300"}));  // from now on all fields are read
    const std::string sql = "SELECT * FROM tblGameInfo";
    SQLite::Database& database = store.connection().database();
    database.exec("BEGIN; UPDATE tblGameInfo SET fldGameScore = 7");
    Recordset within(store);
    within.Open(sql);
    EXPECT_EQ(toText(within["fldGameScore"]), "7");
    database.exec("ROLLBACK");
    Recordset afterwards(store);
    afterwards.Open(sql);
    EXPECT_EQ(toText(afterwards["fldGameScore"]), "100");
}

TEST_F(RecordsetEdges, ShowThatWorkGoesOn) {
    int looks = 0;
    store.whileAtWork([&] { ++looks; });
    Recordset rows(store);
    rows.Open("SELECT * FROM tblGameInfo");
    EXPECT_EQ(looks, 1);
    rows["fldGameScore"] = std::int64_t{7};
    EXPECT_EQ(looks, 1);
    rows.Update();
    EXPECT_EQ(looks, 2);
}

TEST_F(RecordsetEdges, AreNotShownInAFieldThatTheyHaveNot) {
    DataControl control(store);
    control.bind("fldBowler", [](const std::string&) {});
    control.setRecordSource("SELECT * FROM tblGameInfo");
    EXPECT_EQ(faultOf([&] { control.Refresh(); }), error::kUnknownField);
}

TEST_F(RecordsetEdges, StopShowingWhenABoxUnloadsItsScreen) {
    DataControl control(store);
    int shown = 0;
    bool unloads = false;
    control.bind("fldGameScore", [&](const std::string&) {
        if (unloads)
            control.drop();
    });
    control.bind("fldComment", [&](const std::string&) { ++shown; });
    control.setRecordSource("SELECT * FROM tblGameInfo");
    control.Refresh();
    unloads = true;
    control.recordset().MoveNext();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(faultOf([&] { static_cast<void>(control.recordset()); }), error::kObjectNotSet);
}

}  // namespace

}  // namespace tallybrook
