#include "OldLogbooks.h"
#include "carry/CarryOver.h"
#include "carry/Conversion.h"
#include "carry/JetHeader.h"
#include "carry/Messages.h"
#include "store/Store.h"
#include "store/sql/FieldValue.h"
#include "support/FileCalls.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <random>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/stat.h>

namespace tallybrook::carry {

namespace {

namespace fs = std::filesystem;

using test::JetTableText;
using test::RowPlace;
using test::rowWith;

/// One night: an event with a game and a frame.
std::vector<JetTableText> oneNight() {
    std::vector<JetTableText> old = test::emptyOldTables();
    old[0].rows = {rowWith(old[0], {{"fldSessionNum", std::int64_t{17}},
                                    {"fldEventName", "Thursday"},
                                    {"fldDateBowled", 37622.0},
                                    {"fldSeriesTot", std::int64_t{201}},
                                    {"fldSeriesAvg", 200.33},
                                    {"fldComment", ""}})};
    old[1].rows = {rowWith(old[1], {{"fldGameKey", std::int64_t{40}},
                                    {"fldSessionNum", std::int64_t{17}},
                                    {"fldGameNum", std::int64_t{1}},
                                    {"fldGameScore", std::int64_t{201}}})};
    old[2].rows = {rowWith(old[2], {{"fldFrameKey", std::int64_t{400}},
                                    {"fldSessionNum", std::int64_t{17}},
                                    {"fldGameNum", std::int64_t{1}},
                                    {"fldFirstBallRes", "3-6-10"}})};
    return old;
}

class AnOldLogbook : public testing::Test {
protected:
    void write(const std::vector<JetTableText>& tables, const test::JetHeaderText& header = {}) const {
        test::writeBytes(folder.old(), test::jetFile(tables, header));
    }
    CarriedOver carry() const {
        NoProgress progress;
        return carryOver(folder.job(), clock, progress);
    }
    /// Why it is refused; nothing is there afterwards that was not there before.
    std::string refusal() const {
        const std::ptrdiff_t before = folder.count();
        const auto bytes = [this] {
            return fs::is_regular_file(folder.old()) ? test::bytesOf(folder.old()) : std::string();
        };
        const std::string old = bytes();
        try {
            carry();
            return "";
        } catch (const OldLogbookRefused& refused) {
            EXPECT_EQ(folder.count(), before);
            EXPECT_EQ(bytes(), old);
            return refused.what();
        }
    }
    std::string taken() const {
        try {
            carry();
            return "";
        } catch (const PlaceTaken& there) {
            return there.what();
        }
    }
    void expectRefused(const std::string& why) const {
        EXPECT_EQ(refusal(),
                  "The old logbook cannot be carried over:\r\n" + folder.old().string() + "\r\n" + why);
    }
    void expectTaken(const std::string& why) const {
        EXPECT_EQ(taken(), "Nothing can be carried over to this place:\r\n" + folder.logbook().string() +
                               "\r\n" + why);
    }
    auto rows(const std::string& sql) const { return test::storedRows(folder.logbook(), sql); }

    test::OldLogbookFolder folder;
    SettableClock clock{makeDate(2026, 11, 14)};
};

TEST_F(AnOldLogbook, IsCarriedOverWithItsKeys) {
    write(oneNight());
    const CarriedOver carried = carry();
    EXPECT_EQ(
        rows(
            "SELECT fldSessionNum, fldEventName, fldDateBowled, fldSeriesAvg, fldComment, fldCenterName FROM "
            "tblEventInfo"),
        (test::StoredRows{{"17", "Thursday", "2003-01-01", "200.33", "", std::nullopt}}));
    EXPECT_EQ(rows("SELECT fldGameKey, fldGameScore FROM tblGameInfo"), (test::StoredRows{{"40", "201"}}));
    EXPECT_EQ(rows("SELECT fldFrameKey, fldFirstBallRes FROM tblFrameInfo"),
              (test::StoredRows{{"400", "3-6-10"}}));
    EXPECT_TRUE(carried.notes.empty());
    ASSERT_EQ(carried.tables.size(), 3U);
    EXPECT_EQ(carried.tables[2].carried, 1);
    EXPECT_EQ(carried.figures.byEvent.at(17),
              (EventFigures{.isThere = true, .games = 1, .frames = 1, .pins = 201, .seriesTotal = 201}));
    EXPECT_FALSE(carried.oldLogbookNow.has_value());
    EXPECT_EQ(folder.count(), 2);
    EXPECT_NO_THROW(Store(folder.logbook(), clock));
}

TEST_F(AnOldLogbook, LeavesKeysThatAreNotUsedAgain) {
    write(oneNight());
    carry();
    SQLite::Database(folder.logbook().string(), SQLite::OPEN_READWRITE)
        .exec("DELETE FROM tblEventInfo; INSERT INTO tblEventInfo (fldEventName) VALUES ('next')");
    EXPECT_EQ(rows("SELECT fldSessionNum FROM tblEventInfo"), (test::StoredRows{{"18"}}));
}

TEST_F(AnOldLogbook, IsMatchedByTheNamesOfItsColumns) {
    std::vector<JetTableText> old = oneNight();
    std::swap(old[0].fields[1], old[0].fields[5]);
    std::swap(old[0].rows[0].cells[1], old[0].rows[0].cells[5]);
    old[0].name = "TBLEVENTINFO";
    old[0].fields[0].name = "FLDsessionNUM";
    old[1].fields.pop_back();
    old[1].rows[0].cells.pop_back();
    old[1].fields[10].name = "fldOther";
    old.push_back({.name = "Recipes", .fields = {{"Name", JetType::Text}}, .rows = {}});
    write(old);
    const CarriedOver carried = carry();
    EXPECT_EQ(rows("SELECT fldSessionNum, fldEventName FROM tblEventInfo"),
              (test::StoredRows{{"17", "Thursday"}}));
    EXPECT_EQ(rows("SELECT fldScoreType, fldBowlHand FROM tblGameInfo"), (test::StoredRows{{"P", ""}}));
    EXPECT_EQ(carried.notes,
              (std::vector<std::string>{
                  "tblGameInfo has no column fldScoreType: it is as in a new row.",
                  "tblGameInfo has no column fldBowlHand: it is as in a new row.",
                  "tblGameInfo has a column fldOther, which a logbook does not have: it stays behind.",
                  "The table Recipes is none of a logbook's: it stays behind."}));
}

TEST_F(AnOldLogbook, TellsEachValueThatChanges) {
    std::vector<JetTableText> old = oneNight();
    old[0].fields[6] = {"fldNumGames", JetType::Double};
    old[0].fields[7] = {"fldGmsRecorded", JetType::Integer32};
    old[0].fields[8] = {"fldSeriesTot", JetType::Text};
    old[0].fields[11] = {"fldHHRecordID", JetType::Integer32};
    old[0].rows = {rowWith(old[0], {{"fldSessionNum", std::int64_t{1}},
                                    {"fldDateBowled", 37622.5},
                                    {"fldNumGames", 3.0},
                                    {"fldGmsRecorded", std::int64_t{40000}},
                                    {"fldSeriesTot", " 603 "},
                                    {"fldHHRecordID", std::int64_t{77}}}),
                   rowWith(old[0], {{"fldSessionNum", std::int64_t{2}},
                                    {"fldDateBowled", 1e9},
                                    {"fldNumGames", 2.6},
                                    {"fldSeriesTot", "many"}})};
    write(old);
    EXPECT_EQ(carry().notes,
              (std::vector<std::string>{
                  "tblEventInfo 1, fldDateBowled: the time of day, 12:00:00 PM, was left out.",
                  "tblEventInfo 1, fldGmsRecorded: \"40000\" is not a number from -32768 to 32767; it is "
                  "empty now.",
                  "tblEventInfo 2, fldDateBowled: there is a date outside of the calendar; it is empty now.",
                  "tblEventInfo 2, fldNumGames: 2.6 was rounded to 3.",
                  "tblEventInfo 2, fldSeriesTot: \"many\" is not a number from -32768 to 32767; it is empty "
                  "now."}));
    EXPECT_EQ(rows("SELECT fldDateBowled, fldNumGames, fldGmsRecorded, fldSeriesTot, fldHHRecordID FROM "
                   "tblEventInfo"),
              (test::StoredRows{{"2003-01-01", "3", std::nullopt, "603", "77"},
                                {std::nullopt, "3", std::nullopt, std::nullopt, std::nullopt}}));
}

TEST_F(AnOldLogbook, TellsWhatAColumnCannotHold) {
    std::vector<JetTableText> old = oneNight();
    for (const std::size_t column : {0U, 2U, 9U})
        old[0].fields[column].type = JetType::Text;
    const std::string most(40, 'x');
    old[0].rows = {
        rowWith(old[0], {{"fldSessionNum", "1"}, {"fldDateBowled", "soon"}, {"fldSeriesAvg", most}}),
        rowWith(old[0], {{"fldSessionNum", "first"}, {"fldSeriesAvg", most + "x"}})};
    write(old);
    EXPECT_EQ(
        carry().notes,
        (std::vector<std::string>{
            "tblEventInfo 1, fldDateBowled: \"soon\" is not a date; it is empty now.",
            "tblEventInfo 1, fldSeriesAvg: \"" + most + "\" is not a number; it is empty now.",
            "tblEventInfo without a key, fldSessionNum: \"first\" is not a number from -2147483648 to "
            "2147483647; it is empty now.",
            "tblEventInfo without a key, fldSeriesAvg: \"" + most + "...\" is not a number; it is empty now.",
            "A row of tblEventInfo has no key, and stays behind."}));
}

TEST_F(AnOldLogbook, LeavesRowsBehindWhoseKeyIsNone) {
    std::vector<JetTableText> old = oneNight();
    old[1].rows.push_back(old[1].rows[0]);
    old[1].rows.push_back(rowWith(old[1], {{"fldGameScore", std::int64_t{99}}}));
    old[1].toldRows = 5;
    write(old);
    const CarriedOver carried = carry();
    EXPECT_EQ(carried.notes, (std::vector<std::string>{
                                 "tblGameInfo 40, there is another row of this key; this one stays behind.",
                                 "A row of tblGameInfo has no key, and stays behind.",
                                 "The file says that tblGameInfo has 5 rows; 3 could be read."}));
    EXPECT_EQ(carried.tables[1].carried, 1);
    EXPECT_EQ(carried.figures.pins(), 201);
}

TEST_F(AnOldLogbook, HasEachTableOnce) {
    std::vector<JetTableText> old = oneNight();
    old.push_back(old[0]);
    write(old);
    const CarriedOver carried = carry();
    EXPECT_EQ(carried.notes,
              (std::vector<std::string>{"The table tblEventInfo is none of a logbook's: it stays behind."}));
    EXPECT_EQ(carried.figures.events, 1);
}

TEST_F(AnOldLogbook, KeepsNotesWithinBounds) {
    std::vector<JetTableText> old = oneNight();
    old[2].rows.assign(kMostNotes + 5, old[2].rows[0]);
    write(old);
    const CarriedOver carried = carry();
    EXPECT_EQ(carried.notes.size(), kMostNotes);
    EXPECT_EQ(carried.furtherNotes, 4);
}

TEST_F(AnOldLogbook, IsRefusedByName) {
    write({}, {.version = 0});
    expectRefused(std::string(refusalOf(JetKind::Jet3)));
    write({}, {.version = 3});
    expectRefused(std::string(refusalOf(JetKind::Access2007)));
    write({}, {.key = 5});
    expectRefused(std::string(refusalOf(JetKind::Encoded)));
    write({}, {.password = u"ten"});
    expectRefused(std::string(refusalOf(JetKind::Password)));
    write({}, {.mark = "MSISAM Database"});
    expectRefused(std::string(refusalOf(JetKind::OtherVariant)));
    test::writeBytes(folder.old(), "=1+1");
    expectRefused(std::string(refusalOf(JetKind::NoDatabase)));
    test::writeBytes(folder.old(), "");
    expectRefused(std::string(refusalOf(JetKind::NoDatabase)));
    test::writeBytes(folder.old(), test::jetFile(oneNight()).substr(0, 5000));
    expectRefused(std::string(refusalOf(JetKind::CutOff)));
}

TEST_F(AnOldLogbook, IsRefusedWithoutItsTables) {
    write({});
    expectRefused("It has no table tblEventInfo, so it is no logbook.");
    std::vector<JetTableText> old = oneNight();
    old.pop_back();
    write(old);
    expectRefused("It has no table tblFrameInfo, so it is no logbook.");
    old = oneNight();
    old[1].fields[0].name = "fldOther";
    write(old);
    expectRefused("Its table tblGameInfo has no column fldGameKey, so it is no logbook.");
    old = oneNight();
    old[2] = {.name = "tblFrameInfo", .fields = {}, .rows = {}, .type = 6, .database = "D:\\frames.mdb"};
    write(old);
    expectRefused(
        "The rows of its table tblFrameInfo lie in another database: D:\\frames.mdb\r\nPlease carry that one "
        "over.");
}

TEST_F(AnOldLogbook, IsAFile) {
    fs::create_directory(folder.old());
    expectRefused("It is no file.");
    fs::remove(folder.old());
    expectRefused("No such file or directory.");
    ASSERT_EQ(mkfifo(folder.old().c_str(), 0600), 0);
    expectRefused("It is no file.");
    fs::remove(folder.old());
    fs::create_symlink(folder.old(), folder.old());
    EXPECT_THROW(carry(), OldLogbookRefused);
}

TEST_F(AnOldLogbook, MayLieInThePlaceOfTheNewOne) {
    const std::string bytes = test::jetFile(oneNight());
    fs::create_symlink(folder.path() / "nothing", folder.path() / "Tallybrook_DB (old 2).mdb");
    const fs::file_time_type written = fs::file_time_type::clock::now() - std::chrono::hours{9000};
    for (const char* name : {"Tallybrook_DB (old).mdb", "Tallybrook_DB (old 3).mdb"}) {
        test::writeBytes(folder.logbook(), bytes);
        fs::last_write_time(folder.logbook(), written);
        test::writeBytes(folder.logbook().string() + "-journal", "left over");
        NoProgress progress;
        const CarriedOver carried =
            carryOver({.oldLogbook = folder.logbook(), .logbook = folder.logbook()}, clock, progress);
        EXPECT_EQ(carried.oldLogbookNow, folder.path() / name);
        EXPECT_EQ(test::bytesOf(folder.path() / name), bytes);
        EXPECT_EQ(fs::last_write_time(folder.path() / name), written) << "it tells how old it is";
        EXPECT_EQ(rows("SELECT fldEventName FROM tblEventInfo"), (test::StoredRows{{"Thursday"}}));
        EXPECT_FALSE(fs::exists(folder.logbook().string() + "-journal"));
    }
}

TEST_F(AnOldLogbook, TakesThePlaceOfAnEmptyLogbookAlone) {
    write(oneNight());
    { const Store made(folder.logbook(), clock); }
    carry();
    const std::string full = test::bytesOf(folder.logbook());
    expectTaken(
        "There is a logbook with events already, which stays as it is. Please carry the old logbook over "
        "into another folder, write an archive there, and read that archive into this logbook.");
    EXPECT_EQ(test::bytesOf(folder.logbook()), full);
    for (const test::JetHeaderText& header : {test::JetHeaderText{}, test::JetHeaderText{.version = 3}}) {
        test::writeBytes(folder.logbook(), test::jetFile({}, header));
        expectTaken("There is another old logbook. Please carry that one over, or move it away.");
    }
    test::writeBytes(folder.logbook(), "a text");
    EXPECT_NE(taken().find("no logbook"), std::string::npos);
    test::writeBytes(folder.path() / "empty", "");
    for (const fs::path& led : {folder.old(), folder.path() / "empty"}) {
        fs::remove(folder.logbook());
        fs::create_symlink(led, folder.logbook());
        expectTaken("It is a link. Please put the logbook itself there, or remove the link.");
    }
}

/// Looks at what the work says of itself, and gives it up after so many steps.
class WatchedProgress : public Progress {
public:
    explicit WatchedProgress(int steps) : left_(steps) {}
    [[nodiscard]] const std::string& said() const { return said_; }

protected:
    void show(std::string_view what, std::int64_t total) override {
        said_ += fmt::format("{} {};", what, total);
    }
    void showStep(std::int64_t /*done*/) override {}
    bool isCancelled() override { return left_-- == 0; }

private:
    int left_;
    std::string said_;
};

TEST_F(AnOldLogbook, TellsHowFarItIs) {
    write(oneNight());
    WatchedProgress progress(-1);
    carryOver(folder.job(), clock, progress);
    EXPECT_EQ(progress.said(),
              "Reading the old logbook 0;Carrying over tblEventInfo 1;Carrying over tblGameInfo 1;"
              "Carrying over tblFrameInfo 1;Comparing the new logbook with the old one 0;"
              "Putting the new logbook in its place 0;");
}

TEST_F(AnOldLogbook, IsGivenUpAtAnyStep) {
    write(oneNight());
    int steps = 0;
    for (; !fs::exists(folder.logbook()); ++steps) {
        WatchedProgress progress(steps);
        try {
            carryOver(folder.job(), clock, progress);
        } catch (const Cancelled&) {
            EXPECT_EQ(folder.count(), 1) << steps;
        }
    }
    EXPECT_GT(steps, 10);
}

/// A program in the place of the one that reads.
class AnotherReader : public AnOldLogbook {
protected:
    std::string refusalWith(const std::string& script) {
        write(oneNight());
        const fs::path program = folder.path() / "reader";
        test::writeBytes(program, "#!/bin/sh\n" + script + "\n");
        fs::permissions(program, fs::perms::owner_all);
        CarryOverJob job = folder.job();
        job.reading = {.program = program, .longestSilence = std::chrono::milliseconds{300}};
        NoProgress progress;
        try {
            carryOver(job, clock, progress);
            return "";
        } catch (const OldLogbookRefused& refused) {
            EXPECT_EQ(folder.count(), 2);
            return refused.what();
        }
    }
};

TEST_F(AnotherReader, IsNotBelieved) {
    for (const char* script : {"exit 0", "kill -9 $$", "exec sleep 1000", "echo nonsense, and more of it",
                               "exec cat /dev/zero", R"(printf '\001\0\0\0\0\0\0\0\001')"})
        EXPECT_TRUE(
            refusalWith(script).ends_with("\r\nThe file is damaged, so that it could not be read to its end. "
                                          "Please look for another copy of it."))
            << script;
    // That all has been read, though nothing was told.
    EXPECT_NE(refusalWith(R"(printf '\001\0\0\0\0\0\0\0\006')").find("no table"), std::string::npos);
}

TEST_F(AnotherReader, IsNotListenedToForEver) {
    const test::TemporaryFolder elsewhere;
    std::string said;
    while (said.size() < std::size_t{1} << 20U)
        said += packed(OtherTable{"tblPhotos"});
    test::writeBytes(elsewhere.path() / "said", said);
    EXPECT_TRUE(refusalWith("while cat '" + (elsewhere.path() / "said").string() + "'; do :; done")
                    .ends_with("Please look for another copy of it."));
}

TEST_F(AnotherReader, IsNotHeardOtherwise) {
    testing::internal::CaptureStderr();
    refusalWith("echo 'some page is odd' >&2");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(AnotherReader, HasNoSettingsOfTheUser) {
    setenv("MDBICONV", "UTF-16", 1);
    EXPECT_NE(
        refusalWith(R"([ "$LC_ALL$MDBICONV" = C ] && printf '\001\0\0\0\0\0\0\0\006')").find("no table"),
        std::string::npos);
    unsetenv("MDBICONV");
}

TEST_F(AnotherReader, CanBeMissing) {
    write(oneNight());
    CarryOverJob job = folder.job();
    job.reading.program = folder.path() / "none";
    NoProgress progress;
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const auto before = openFiles();
    EXPECT_THROW(carryOver(job, clock, progress), std::system_error);
    EXPECT_EQ(folder.count(), 1);
    EXPECT_EQ(openFiles(), before);
}

/// Lets each call on files fail in turn, as long as one does.
void failEachCall(const std::function<void()>& work, const std::function<void()>& check) {
    constexpr int kMostCalls = 100000;
    for (int failing = 0; failing < kMostCalls; ++failing) {
        int call = 0;
        bool hasFailed = false;
        {
            const test::FileCalls calls([&](const test::FileCall& made) {
                const bool isOurs = made.path.find("Tallybrook_DB") != std::string::npos;
                if (!isOurs || made.kind == test::FileCall::Kind::Close || call++ != failing)
                    return 0;
                hasFailed = true;
                return ENOSPC;
            });
            try {
                work();
            } catch (const std::exception&) {
            }
        }
        if (!hasFailed)
            return;
        check();
    }
    ADD_FAILURE() << "it does not end";
}

TEST_F(AnOldLogbook, IsThereOrNotWhateverFails) {
    write(oneNight());
    const std::string sql = "SELECT fldEventName FROM tblEventInfo";
    int made = 0;
    int notMade = 0;
    failEachCall([&] { carry(); },
                 [&] {
                     if (fs::exists(folder.logbook())) {
                         EXPECT_EQ(rows(sql), (test::StoredRows{{"Thursday"}}));
                         ++made;
                     } else {
                         ++notMade;
                     }
                     for (const fs::directory_entry& entry : fs::directory_iterator(folder.path())) {
                         if (entry.path() != folder.old())
                             fs::remove(entry);
                     }
                 });
    EXPECT_GT(notMade, 20);
    EXPECT_EQ(rows(sql), (test::StoredRows{{"Thursday"}}));
}

TEST_F(AnOldLogbook, StaysInItsPlaceWhateverFails) {
    const std::string bytes = test::jetFile(oneNight());
    test::writeBytes(folder.logbook(), bytes);
    int kept = 0;
    failEachCall(
        [&] {
            NoProgress progress;
            carryOver({.oldLogbook = folder.logbook(), .logbook = folder.logbook()}, clock, progress);
        },
        [&] {
            if (test::bytesOf(folder.logbook()) == bytes) {
                EXPECT_EQ(folder.count(), 1);
                ++kept;
            } else {
                EXPECT_EQ(rows("SELECT fldEventName FROM tblEventInfo"), (test::StoredRows{{"Thursday"}}));
                EXPECT_EQ(test::bytesOf(folder.path() / "Tallybrook_DB (old).mdb"), bytes);
            }
            for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
                fs::remove(entry);
            test::writeBytes(folder.logbook(), bytes);
        });
    EXPECT_GT(kept, 20);
}

/// Carries over, or is refused with the logbook's place as it was; nothing else. Returns whether it carries
/// over.
bool tryDamaged(const test::OldLogbookFolder& folder, const Clock& clock) {
    NoProgress progress;
    bool isTaken = false;
    try {
        carryOver(folder.job(), clock, progress);
        isTaken = true;
        const Store opened(folder.logbook(), clock);
        fs::remove(folder.logbook());
    } catch (const OldLogbookRefused&) {
    }
    EXPECT_EQ(folder.count(), 1);
    return isTaken;
}

TEST_F(AnOldLogbook, DoesNoHarmHoweverItIsDamaged) {
    std::vector<JetTableText> old = oneNight();
    for (int row = 0; row < 60; ++row) {
        old[2].rows.push_back(
            rowWith(old[2],
                    {{"fldFrameKey", std::int64_t{row}},
                     {"fldComment", std::string(static_cast<std::size_t>(row * row * 2), 'c')}},
                    row % 7 == 0 ? RowPlace::Moved : RowPlace::Usual));
    }
    const std::string sound = test::jetFile(old);
    std::mt19937 chance(20261114);
    const auto below = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(chance);
    };
    constexpr int kRounds = 200;
    int taken = 0;
    for (int round = 0; round < kRounds; ++round) {
        std::string bytes = sound;
        for (std::size_t changes = below(30) + 1; changes > 0; --changes) {
            const std::size_t page = below(bytes.size() / 4096);
            // Most of what matters stands at the beginning of a page.
            const std::size_t at = page * 4096 + below(round % 3 == 0 ? 4096 : 160);
            bytes[at] = static_cast<char>(below(2) == 0 ? below(256) : (below(2) == 0 ? 0 : 255));
        }
        if (round % 10 == 9)
            bytes.resize(below(bytes.size() / 4096) * 4096);
        test::writeBytes(folder.old(), bytes);
        taken += tryDamaged(folder, clock) ? 1 : 0;
    }
    EXPECT_GT(taken, kRounds / 2);             // much of the damage lies where nothing is told
    EXPECT_GT(kRounds - taken, kRounds / 10);  // and much is found
}

/// A long text that goes on for ever, and one that says that it has a gigabyte.
TEST_F(AnOldLogbook, DoesNoHarmWithAnEndlessText) {
    std::vector<JetTableText> old = oneNight();
    old[2].rows[0] =
        rowWith(old[2], {{"fldFrameKey", std::int64_t{1}}, {"fldComment", std::string(9000, 'e')}});
    old[2].fields[11].isCompressed = false;
    std::string bytes = test::jetFile(old);
    const std::uint32_t size = 18000;
    const std::size_t head = bytes.find({reinterpret_cast<const char*>(&size), sizeof size});
    ASSERT_NE(head, std::string::npos);
    std::uint32_t pointer = 0;
    std::memcpy(&pointer, bytes.data() + head + 4, sizeof pointer);
    const std::size_t page = std::size_t{pointer >> 8U} * 4096;
    std::uint16_t place = 0;
    std::memcpy(&place, bytes.data() + page + 14 + std::size_t{2} * (pointer & 0xFF), sizeof place);
    std::memcpy(bytes.data() + page + place, &pointer, sizeof pointer);  // the first part is the next one
    for (const std::uint32_t told : {size, 0x3FFFFFFFU}) {
        std::memcpy(bytes.data() + head, &told, sizeof told);
        test::writeBytes(folder.old(), bytes);
        EXPECT_TRUE(tryDamaged(folder, clock));
    }
}

/// Pieces of texts that are written in different ways.
std::string anyText() {
    static const std::vector<std::string> kPieces{"a",      "B",      " ",          "7",    "\u00e9",
                                                  "\u20ac", "\u0100", "\U0001F3B3", "\r\n", "'"};
    std::string text;
    for (const std::size_t piece :
         *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, kPieces.size())))
        text += kPieces[piece];
    return text;
}

/// A value that a column can have.
Cell anyCell(JetType type) {
    if (*rc::gen::inRange(0, 6) == 0)
        return Null{};
    switch (type) {
        case JetType::Integer16:
            return std::int64_t{*rc::gen::arbitrary<std::int16_t>()};
        case JetType::Integer32:
            return std::int64_t{*rc::gen::arbitrary<std::int32_t>()};
        case JetType::Double:
            return *rc::gen::arbitrary<double>();
        case JetType::Date:
            return static_cast<double>(*rc::gen::inRange(-657434, 2958466));
        default:
            return anyText();
    }
}

/// Rows of a table under different keys, some of them deleted or moved.
void addAnyRows(JetTableText& table) {
    const int count = *rc::gen::inRange(0, 12);
    for (int row = 0; row < count; ++row) {
        test::JetRow& added = table.rows.emplace_back();
        for (const test::JetField& field : table.fields)
            added.cells.push_back(anyCell(field.type));
        added.cells.front() = std::int64_t{*rc::gen::inRange(-100000, 100000) * 20 + row};
        added.place = *rc::gen::element(RowPlace::Usual, RowPlace::Usual, RowPlace::Usual, RowPlace::Deleted,
                                        RowPlace::DeletedElsewhere, RowPlace::Moved, RowPlace::MovedTwice);
    }
}

bool isLive(const test::JetRow& row) {
    return row.place != RowPlace::Deleted && row.place != RowPlace::DeletedElsewhere;
}

/// Whether a stored value is that of the old logbook.
bool isSame(const SQLite::Column& stored, const Cell& old, JetType type) {
    if (std::holds_alternative<Null>(old))
        return stored.isNull();
    if (type == JetType::Date) {
        const std::chrono::days days{static_cast<int>(std::get<double>(old))};
        return storedDateIn(stored.getString()) == kZeroDate + days;
    }
    if (const auto* const number = std::get_if<double>(&old))
        return stored.isFloat() && stored.getDouble() == *number;
    if (const auto* const whole = std::get_if<std::int64_t>(&old))
        return stored.isInteger() && stored.getInt64() == *whole;
    return stored.isText() && stored.getString() == std::get<std::string>(old);
}

void expectSameRows(const SQLite::Database& logbook, const JetTableText& table) {
    std::map<std::int64_t, const test::JetRow*> byKey;
    for (const test::JetRow& row : table.rows) {
        if (isLive(row))
            byKey[std::get<std::int64_t>(row.cells.front())] = &row;
    }
    SQLite::Statement stored(logbook, fmt::format("SELECT * FROM {} ORDER BY 1", table.name));
    for (const auto& [key, row] : byKey) {
        RC_ASSERT(stored.executeStep());
        for (std::size_t at = 0; at < row->cells.size(); ++at)
            RC_ASSERT(isSame(stored.getColumn(static_cast<int>(at)), row->cells[at], table.fields[at].type));
    }
    RC_ASSERT(!stored.executeStep());
}

RC_GTEST_PROP(AnyOldLogbook, HasTheSameRowsAfterwards, ()) {
    std::vector<JetTableText> old = test::emptyOldTables();
    for (JetTableText& table : old) {
        for (test::JetField& field : table.fields)
            field.isCompressed = *rc::gen::arbitrary<bool>();
        table.isMapWide = *rc::gen::arbitrary<bool>();
        addAnyRows(table);
    }
    const test::OldLogbookFolder folder;
    test::writeBytes(folder.old(), test::jetFile(old));
    NoProgress progress;
    const CarriedOver carried = carryOver(folder.job(), SettableClock(makeDate(2026, 11, 14)), progress);
    RC_ASSERT(carried.notes.empty());
    const SQLite::Database logbook(folder.logbook().string());
    for (const JetTableText& table : old)
        expectSameRows(logbook, table);
}

}  // namespace

}  // namespace tallybrook::carry
