#include "CutOffASave.h"
#include "store/Check_Null.h"
#include "store/Recordset.h"
#include "store/Store.h"
#include "store/Update_Series.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

class Logbook : public testing::Test {
protected:
    std::string contents() const { return test::bytesOf(file); }
    void write(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }
    std::string refusal() const {
        try {
            const Store store(file, clock);
        } catch (const LogbookRefused& refused) {
            return refused.what();
        }
        return "";
    }
    void expectRefused(const std::string& why) const {
        const std::string before = contents();
        const std::string text = refusal();
        EXPECT_NE(text.find(file.string()), std::string::npos) << text;
        EXPECT_NE(text.find(why), std::string::npos) << text;
        EXPECT_EQ(contents(), before);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    }

    test::TemporaryFolder folder;
    fs::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
};

TEST_F(Logbook, IsMadeEmptyAndForItsOwnerAlone) {
    {
        Store store(file, clock);
        EXPECT_TRUE(store.rows("tblEventInfo").empty());
        EXPECT_EQ(Store::fieldNames("tblGameInfo").size(), 14U);
        EXPECT_TRUE(Store::fieldNames("tblNone").empty());
    }
    EXPECT_EQ(fs::status(file).permissions() & (fs::perms::group_all | fs::perms::others_all),
              fs::perms::none);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    EXPECT_EQ(refusal(), "");
}

TEST_F(Logbook, KeepsWhatWasStored) {
    {
        Store store(file, clock);
        Recordset rows(store);
        rows.Open("SELECT * FROM tblEventInfo");
        rows.AddNew();
        rows["fldEventName"] = "O'Brien";
        rows["fldDateBowled"] = "11/4";
        rows["fldSeriesAvg"] = 200.5;
        rows.Update();
    }
    SQLite::Database plain(file.string());
    SQLite::Statement row(
        plain, "SELECT fldEventName, fldDateBowled, fldSeriesAvg, fldNumGames, fldComment FROM tblEventInfo");
    ASSERT_TRUE(row.executeStep());
    EXPECT_EQ(row.getColumn(0).getString(), "O'Brien");
    EXPECT_EQ(row.getColumn(1).getString(), "2026-11-04");
    EXPECT_EQ(row.getColumn(2).getDouble(), 200.5);
    EXPECT_EQ(row.getColumn(3).getInt(), 0);
    EXPECT_EQ(row.getColumn(4).getString(), "");
}

TEST_F(Logbook, NeverReusesAKey) {
    Store store(file, clock);
    Recordset rows(store);
    rows.Open("SELECT * FROM tblEventInfo");
    rows.AddNew();
    rows.Update();
    rows.Delete();
    rows.MoveNext();
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(toText(rows["fldSessionNum"]), "2");
}

TEST_F(Logbook, ReadsWhatAnotherProgramPutIn) {
    { const Store store(file, clock); }
    {
        SQLite::Database plain(file.string(), SQLite::OPEN_READWRITE);
        plain.exec(
            "INSERT INTO tblEventInfo (fldEventName, fldDateBowled, fldNumGames, fldSeriesAvg) "
            "VALUES (NULL, 'someday', 'many', 5), ('x', '2026-02-30', NULL, 'high'), (x'4142', 7, 99999, "
            "NULL)");
    }
    Store store(file, clock);
    Recordset rows(store);
    rows.Open("SELECT * FROM tblEventInfo");
    EXPECT_TRUE(isNull(rows["fldEventName"]));
    EXPECT_EQ(rows["fldDateBowled"].value(), Value{"someday"});
    EXPECT_EQ(rows["fldNumGames"].value(), Value{"many"});
    rows.MoveNext();
    EXPECT_EQ(rows["fldDateBowled"].value(), Value{"2026-02-30"});
    rows.MoveNext();
    EXPECT_EQ(rows["fldEventName"].value(), Value{"AB"});
    EXPECT_THROW(toInt16(rows["fldNumGames"].value()), RunTimeError);
    for (const auto& [criterion, hits] :
         std::vector<std::pair<std::string, int>>{{"fldNumGames > 0", 1},
                                                  {"fldNumGames < 0", 0},
                                                  {"fldSeriesAvg >= 5", 1},
                                                  {"fldDateBowled >= #1/1/1900#", 0},
                                                  {"fldEventName LIKE '%'", 2},
                                                  {"fldEventName = 'ab'", 1}}) {
        Recordset found(store);
        found.Open("SELECT * FROM tblEventInfo WHERE " + criterion);
        EXPECT_EQ(found.RecordCount(), hits) << criterion;
    }
}

TEST_F(Logbook, RefusesWhatIsNone) {
    write("");
    expectRefused("no logbook");
    write("Just a text.\r\n");
    expectRefused("no logbook");
    write(std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, 'x'));
    expectRefused("Tallybrook Keeper can carry it over");
    write(std::string("\0\1\0\0Standard Jet DB\0", 20));
    expectRefused("Tallybrook Keeper can carry it over");
    fs::remove(file);
    {
        SQLite::Database other(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec("CREATE TABLE recipes (name TEXT)");
    }
    expectRefused("another program");
    {
        SQLite::Database other(file.string(), SQLite::OPEN_READWRITE);
        other.exec("PRAGMA user_version = 1");
    }
    expectRefused("another program");
    {
        SQLite::Database other(file.string(), SQLite::OPEN_READWRITE);
        other.exec("PRAGMA user_version = 2");
    }
    expectRefused("newer version");
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_NE(refusal().find("something else"), std::string::npos);
    EXPECT_TRUE(fs::is_directory(file));
}

TEST_F(Logbook, RefusesADamagedFile) {
    { const Store store(file, clock); }
    std::string bytes = contents();
    bytes.replace(100, 60, std::string(60, '\xEE'));
    write(bytes);
    expectRefused("");
}

TEST_F(Logbook, IsRefusedWithoutATraceInAnyJournalMode) {
    {
        SQLite::Database other(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec("PRAGMA journal_mode = WAL");
        other.exec("CREATE TABLE recipes (name TEXT)");
        other.exec("PRAGMA user_version = 1");
    }
    expectRefused("another program");
}

TEST_F(Logbook, MayLieInTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_NO_THROW(Store("Tallybrook_DB.mdb", clock));
    fs::current_path(before);
    EXPECT_TRUE(fs::exists(file));
}

// Once it is there, what it holds is looked at by way of a URI.
TEST_F(Logbook, MayLieInAFolderOfAnyName) {
    for (const char* name : {"a\tbowler", "50%", "%41", "what?mode=memory", "one#two", " ", "\u00fcber"}) {
        file = folder.path() / name / "Tallybrook_DB.mdb";
        fs::create_directory(file.parent_path());
        EXPECT_EQ(refusal(), "");
        EXPECT_EQ(refusal(), "") << "as it is opened once more";
    }
}

TEST_F(Logbook, NeedsItsFolder) {
    file = folder.path() / "none" / "Tallybrook_DB.mdb";
    EXPECT_NE(refusal().find(file.string()), std::string::npos);
    EXPECT_FALSE(fs::exists(file.parent_path()));
}

TEST_F(Logbook, HasNothingInItThatOtherProgramsLack) {
    { const Store store(file, clock); }
    SQLite::Database plain(file.string(), SQLite::OPEN_READWRITE);
    plain.exec(
        "INSERT INTO tblEventInfo (fldCenterName, fldHHRecordID) VALUES ('\u00dcber', x'41'), (NULL, 7)");
    plain.exec("UPDATE tblEventInfo SET fldCenterName = 'Brook'");
    EXPECT_EQ(plain.execAndGet("PRAGMA integrity_check").getString(), "ok");
    SQLite::Statement sql(plain, "SELECT sql FROM sqlite_master");
    while (sql.executeStep()) {
        for (const char* own : {"tbk", "STRICT", "NOT NULL", "CHECK"})
            EXPECT_EQ(sql.getColumn(0).getString().find(own), std::string::npos);
    }
}

TEST_F(Logbook, IsNotTouchedByWhatAnOlderOneLeftBehind) {
    {
        SQLite::Database older(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        older.exec("CREATE TABLE old (text TEXT)");
        older.exec("INSERT INTO old VALUES ('before')");
        older.exec("PRAGMA cache_size = 0");
        older.exec("BEGIN; UPDATE old SET text = 'after'");
        fs::copy_file(file.string() + "-journal", folder.path() / "journal");
    }
    fs::remove(file);
    fs::rename(folder.path() / "journal", file.string() + "-journal");
    Store store(file, clock);
    EXPECT_TRUE(store.rows("tblEventInfo").empty());
    EXPECT_FALSE(fs::exists(file.string() + "-journal"));
}

TEST_F(Logbook, IsNotTouchedByChangesThatAnotherProgramLeftOfAnOlderOne) {
    { const Store older(file, clock); }
    test::cutOffOtherProgram(file, "INSERT INTO tblEventInfo (fldEventName) VALUES ('of the older one')");
    fs::remove(file);
    EXPECT_EQ(refusal(), "");
    Store store(file, clock);
    EXPECT_TRUE(store.rows("tblEventInfo").empty());
    EXPECT_FALSE(fs::exists(file.string() + "-wal"));
}

TEST_F(Logbook, IsHeldByOneProgram) {
    const Store store(file, clock);
    EXPECT_NE(refusal().find("Another program is using it"), std::string::npos);
}

TEST(CheckNull, ReplacesNullAlone) {
    EXPECT_EQ(Check_Null(Null{}, true), Value{std::int64_t{0}});
    EXPECT_EQ(Check_Null(Null{}), Value{""});
    EXPECT_EQ(Check_Null(Value{"x"}, true), Value{"x"});
    EXPECT_EQ(Check_Null(Value{2.5}), Value{2.5});
}

/// Fails the test on a box that nobody expected, and on an expected one that does not come.
class Reports : public FailureReporter {
public:
    ~Reports() override {
        for (const int number : expected_)
            ADD_FAILURE() << "the box of error " << number << " did not come";
    }
    void expect(std::vector<int> numbers) { expected_ = std::move(numbers); }
    void databaseError(const RunTimeError& failure, std::string_view module) override {
        EXPECT_EQ(module, "TBK_Globals, Update_Series.");
        const auto found = std::ranges::find(expected_, failure.number());
        if (found != expected_.begin() || expected_.empty())
            ADD_FAILURE() << "unexpected box: " << failure.number() << " " << failure.what();
        else
            expected_.erase(found);
    }
    void retrying(std::string_view, int) override { ADD_FAILURE() << "nothing is retried here"; }

private:
    std::vector<int> expected_;  // the numbers of the boxes still to come, in their order
};

class Series : public Logbook {
protected:
    void update(const std::vector<Value>& scores, bool withEvent = true) {
        Recordset events(store);
        events.Open("SELECT * FROM tblEventInfo");
        if (withEvent) {
            events.AddNew();
            events.Update();
        }
        Recordset games(store);
        games.Open("SELECT * FROM tblGameInfo");
        for (const Value& score : scores) {
            games.AddNew();
            games["fldSessionNum"] = std::int64_t{1};
            games["fldGameScore"] = score;
            games.Update();
        }
        Update_Series(store, reports, 1, {total, average, recorded});
        if (withEvent) {
            Recordset event(store);
            event.Open("SELECT * FROM tblEventInfo");
            row = toText(event["fldSeriesTot"]) + " " + toText(event["fldSeriesAvg"]) + " " +
                  toText(event["fldGmsRecorded"]);
        }
    }
    static Value score(int number) { return std::int64_t{number}; }

    Store store{file, clock};
    Reports reports;
    Int16 total = 7;
    double average = 7;
    Int16 recorded = 7;
    std::string row;
};

TEST_F(Series, OfThreeGames) {
    update({score(200), score(201), score(202)});
    EXPECT_EQ(row, "603 201 3");
    EXPECT_EQ(total, Int16(603));
}

TEST_F(Series, OfTwoGames) {
    update({score(200), score(201)});
    EXPECT_EQ(row, "401 200.5 2");
}

TEST_F(Series, OfOneGame) {
    update({score(200)});
    EXPECT_EQ(row, "200 200 1");
}

TEST_F(Series, IsRoundedToTwoPlaces) {
    update({score(100), score(100), score(101)});
    EXPECT_EQ(row, "301 100.33 3");
    EXPECT_EQ(average, 100.33);
}

TEST_F(Series, CountsAGameWithoutAScore) {
    update({score(200), score(0)});
    EXPECT_EQ(row, "200 100 2");
}

TEST_F(Series, WithoutGamesIsNothing) {
    update({});
    EXPECT_EQ(row, "0 0 0");
    EXPECT_EQ(recorded, Int16(0));
}

TEST_F(Series, StopsAddingAtTheOverflow) {
    reports.expect({error::kOverflow});
    update({score(30000), score(2000), score(20000), score(100)});
    EXPECT_EQ(total, Int16(32100));
}

TEST_F(Series, PassesAMissingEventWithoutABox) {
    update({score(200)}, false);
    EXPECT_EQ(recorded, Int16(1));
}

TEST_F(Series, ShowsANullScore) {
    reports.expect({error::kInvalidUseOfNull});
    update({score(200), Null{}});
    EXPECT_EQ(row, "200 100 2");
}

}  // namespace

}  // namespace tallybrook
