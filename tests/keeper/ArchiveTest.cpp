// A logbook goes into an archive and comes out of it just as it was, and nothing that is no archive does
// anything to one.

#include "keeper/ArchiveIntake.h"
#include "keeper/ArchiveWriter.h"
#include "keeper/ExitStatus.h"
#include "keeper/Export.h"
#include "keeper/Logbooks.h"
#include "keeper/OddProgress.h"
#include "store/file/UnlockedFile.h"
#include "support/CommaLocale.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <sys/stat.h>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

using test::bytesOf;
using test::rowsOf;

class Archive : public testing::Test {
protected:
    Archive() {
        fs::create_directory(data);
        fs::create_directory(other);
    }

    void write() { exportArchive(data, file, clock, nobody); }
    Intake read(const fs::path& into, const Choices& choices = {}) {
        const HeldLogbook held(into);
        ArchiveReader archive(file);
        return takeInArchive(held, archive, choices, clock, nobody);
    }
    /// The archive with something in its first place changed, and a checksum that is right again.
    [[nodiscard]] std::string forged(const std::string& old, const std::string& fresh) const {
        std::string text = bytesOf(file);
        const std::string end = text.substr(text.rfind("{\"end\""));
        text.resize(text.size() - end.size());
        text.replace(text.find(old), old.size(), fresh);
        Checksum checksum;
        checksum.add(text);
        const std::int64_t rows = std::count(text.begin(), text.end(), '\n') - 1;
        return text + lastLine(rows, checksum.take()) + '\n';
    }
    /// Writes this in place of the archive; why it is refused, and nothing is there of it.
    std::string refusalOf(const std::string& bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
        return refusal();
    }
    std::string refusal() {
        const auto before = rowsOf(logbookIn(data));
        std::string why;
        for (const fs::path& into : {data, other}) {
            try {
                read(into);
                ADD_FAILURE() << "it was taken";
            } catch (const Refused& refused) {
                EXPECT_EQ(refused.status(), ExitStatus::BadInput);
                why = refused.what();
            }
        }
        EXPECT_EQ(rowsOf(logbookIn(data)), before);
        EXPECT_FALSE(fs::exists(logbookIn(other)));
        EXPECT_TRUE(why.starts_with("The archive cannot be read: " + file.string() + "\n")) << why;
        return why.substr(why.find('\n') + 1);
    }

    test::TemporaryFolder folder;
    const fs::path data = folder.path() / "data";
    const fs::path other = folder.path() / "other";
    const fs::path file = folder.path() / "mine.jsonl";
    SettableClock clock{makeDate(2026, 11, 22)};
    NoProgress nobody;
};

/// What another program can put into any column.
rc::Gen<StoredValue> anyValue() {
    const double infinity = std::numeric_limits<double>::infinity();
    return rc::gen::oneOf(
        rc::gen::just<StoredValue>(Null{}),
        rc::gen::map(rc::gen::arbitrary<std::int64_t>(),
                     [](std::int64_t number) -> StoredValue { return number; }),
        rc::gen::map(rc::gen::arbitrary<double>(),
                     [](double number) -> StoredValue { return std::isnan(number) ? 0.5 : number; }),
        rc::gen::map(rc::gen::string<std::string>(),
                     [](const std::string& text) -> StoredValue { return text; }),
        rc::gen::map(rc::gen::string<std::string>(),
                     [](const std::string& bytes) -> StoredValue { return Blob{bytes}; }),
        rc::gen::elementOf(std::vector<StoredValue>{
            infinity, -infinity, -0.0, 5e-324, 1.7976931348623157e308, 0.1, 1e22,
            std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
            std::string("\xff\xfe no UTF-8"), std::string("a\0b", 3), std::string("\xed\xa0\x80"),
            std::string(), Blob{}, std::string("{\"event\":[1]}\n\r\xe2\x80\xa8"), std::string("12"),
            std::string("2026-11-03"), std::string("\xf0\x9f\x8e\xb3 \xc3\xa9")}));
}

void putRandomRows(const fs::path& data) {
    test::change(data, {});
    SQLite::Database database(logbookIn(data).string(), SQLite::OPEN_READWRITE);
    for (const Table& table : tables()) {
        RowInserter inserter(database, table, columnsOf(table));
        const int count = *rc::gen::inRange(0, 6);
        for (int row = 0; row < count; ++row) {
            StoredRow values = *rc::gen::container<StoredRow>(table.columns.size(), anyValue());
            values.front() = std::int64_t{row} * 3 - 2;
            inserter.insert(values);
        }
        database.exec(fmt::format("DELETE FROM {} WHERE {} > {}", table.name, table.key().name,
                                  *rc::gen::inRange(0, 20)));
    }
}

TEST_F(Archive, BringsBackEveryValueThatAnybodyHasStored) {
    EXPECT_TRUE(rc::check([&] {
        for (const fs::path& used : {data, other}) {
            fs::remove_all(used);
            fs::create_directory(used);
        }
        putRandomRows(data);
        write();
        read(other);
        RC_ASSERT(rowsOf(logbookIn(other)) == rowsOf(logbookIn(data)));
        const std::string first = bytesOf(file);
        exportArchive(other, file, clock, nobody);
        RC_ASSERT(bytesOf(file) == first);
    }));
}

TEST_F(Archive, IsTheSameWhereDecimalsStandBehindAComma) {
    test::change(data, {"INSERT INTO tblEventInfo (fldEventName, fldDateBowled, fldSeriesAvg) "
                        "VALUES ('Tuesday', '2026-11-03', 180.25)"});
    write();
    const std::string bytes = bytesOf(file);
    const test::CommaLocale comma;
    write();
    EXPECT_EQ(bytesOf(file), bytes);
    EXPECT_TRUE(read(other).isNew);
    EXPECT_EQ(rowsOf(logbookIn(other)), rowsOf(logbookIn(data)));
}

TEST_F(Archive, IsATextThatTellsWhatItHolds) {
    test::change(data,
                 {"INSERT INTO tblEventInfo (fldSessionNum, fldEventName, fldDateBowled, fldNumGames, "
                  "fldSeriesAvg, fldComment, fldCenterLoc) VALUES (7, 'Tuesday', '2026-11-03', 3, 9e999, "
                  "CAST(x'ff41' AS TEXT), x'00ff')"});
    write();
    const std::string text = bytesOf(file);
    EXPECT_NE(text.find("{\"format\":\"Tallybrook archive\",\"version\":1,\"schema\":1,"), std::string::npos);
    EXPECT_NE(text.find("\"counts\":{\"event\":1,\"game\":0,\"frame\":0},\"lastKeys\":{\"event\":7,"),
              std::string::npos);
    EXPECT_NE(text.find("{\"event\":[7,\"Tuesday\",\"2026-11-03\",\"\",{\"blob\":\"00ff\"},\"\",3,0,0,"
                        "{\"real\":\"inf\"},{\"text\":\"ff41\"},\"\"]}\n{\"end\":{\"rows\":1,\"sha256\":\""),
              std::string::npos)
        << text;
}

TEST_F(Archive, MakesALogbookOnlyWhereThereIsNoneOrAnEmptyOne) {
    test::addEvent(data, "Tuesday");
    write();
    test::change(other, {});
    EXPECT_TRUE(read(other).isNew);
    EXPECT_EQ(rowsOf(logbookIn(other)), rowsOf(logbookIn(data)));
    EXPECT_FALSE(read(other).isNew);
}

TEST_F(Archive, FillsAnEmptyLogbookToWhichALinkLeads) {
    test::addEvent(data, "Tuesday");
    write();
    test::change(other, {});
    const fs::path real = folder.path() / "real.mdb";
    fs::rename(logbookIn(other), real);
    fs::create_symlink(real, logbookIn(other));
    EXPECT_TRUE(read(other).isNew);
    EXPECT_TRUE(fs::is_symlink(logbookIn(other)));
    EXPECT_EQ(rowsOf(real), rowsOf(logbookIn(data)));
}

TEST_F(Archive, MakesALogbookBesideWhichNothingOldIsLeft) {
    test::addEvent(data, "Tuesday");
    write();
    const fs::path journal = logbookIn(other).string() + "-journal";
    std::ofstream(journal) << "of a logbook that is gone";
    EXPECT_TRUE(read(other).isNew);
    EXPECT_FALSE(fs::exists(journal));
    EXPECT_EQ(rowsOf(logbookIn(other)), rowsOf(logbookIn(data)));
}

TEST_F(Archive, LeavesEventsThatAreThereAlreadyUnlessItIsChosen) {
    test::addEvent(data, "Tuesday", 1);
    test::addEvent(data, "Friday", 1);
    write();
    test::change(data, {"UPDATE tblGameInfo SET fldGameScore = 299"});
    const Intake kept = read(data);
    EXPECT_EQ(kept.passedOver, 2);
    EXPECT_EQ(kept.added, Counts{});

    const Intake taken = read(data, {.usual = Same::Keep, .ofEvents = {{2, Same::Take}}});
    EXPECT_EQ(taken.passedOver, 1);
    EXPECT_EQ(taken.replaced, 1);
    SQLite::Database logbook(logbookIn(data).string());
    EXPECT_EQ(logbook.execAndGet("SELECT fldGameScore FROM tblGameInfo WHERE fldSessionNum = 1").getInt(),
              299);
    EXPECT_EQ(logbook.execAndGet("SELECT fldGameScore FROM tblGameInfo WHERE fldSessionNum = 2").getInt(),
              150);
    EXPECT_EQ(countsOf(logbook), (Counts{.events = 2, .games = 2, .frames = 20}));
}

TEST_F(Archive, AddsEventsUnderKeysOfTheirOwn) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const Intake both = read(data, {.usual = Same::Both});
    EXPECT_EQ(both.added, (Counts{.events = 1, .games = 1, .frames = 10}));
    SQLite::Database logbook(logbookIn(data).string());
    EXPECT_EQ(logbook.execAndGet("SELECT group_concat(fldSessionNum) FROM tblEventInfo").getString(), "1,2");
    EXPECT_EQ(logbook.execAndGet("SELECT count(*) FROM tblFrameInfo WHERE fldSessionNum = 2").getInt(), 10);
}

TEST_F(Archive, FindsTwoEventsOfOneNameOneByOne) {
    test::addEvent(data, "Practice");
    test::addEvent(data, "Practice");
    write();
    test::deleteEvent(data, 2);
    const Intake intake = read(data);
    EXPECT_EQ(intake.passedOver, 1);
    EXPECT_EQ(intake.added.events, 1);
}

TEST_F(Archive, PairsTwoEventsOfOneNameInTheirOrder) {
    test::addEvent(data, "Practice", 1);
    test::addEvent(data, "Practice", 1);
    write();
    test::change(data, {"UPDATE tblGameInfo SET fldGameScore = 299"});
    EXPECT_EQ(read(data, {.usual = Same::Keep, .ofEvents = {{1, Same::Take}}}).replaced, 1);
    SQLite::Database logbook(logbookIn(data).string());
    EXPECT_EQ(logbook.execAndGet("SELECT fldGameScore FROM tblGameInfo WHERE fldSessionNum = 1").getInt(),
              150);
    EXPECT_EQ(logbook.execAndGet("SELECT fldGameScore FROM tblGameInfo WHERE fldSessionNum = 2").getInt(),
              299);
}

TEST_F(Archive, LeavesOutRowsWithoutAnEventWhereItIsAdded) {
    test::addEvent(data, "Tuesday");
    test::change(data, {"INSERT INTO tblGameInfo (fldSessionNum) VALUES (99), (NULL), ('x')"});
    write();
    EXPECT_EQ(read(data, {.usual = Same::Both}).strays, 3);
    EXPECT_TRUE(read(other).isNew);
    EXPECT_EQ(rowsOf(logbookIn(other)).size(), 1U + 5 + 20 + 3) << "rows and the three keys";
}

TEST_F(Archive, IsRefusedForAChoiceOfAnEventThatItHasNot) {
    test::addEvent(data, "Tuesday");
    write();
    EXPECT_THROW(read(data, {.usual = Same::Keep, .ofEvents = {{5, Same::Take}}}), Refused);
}

TEST_F(Archive, IsRefusedWhereAByteIsAnother) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const std::string good = bytesOf(file);
    for (std::size_t at = 0; at < good.size(); at += 7) {
        std::string bad = good;
        bad[at] = static_cast<char>(bad[at] ^ 1);
        EXPECT_NE(refusalOf(bad), "") << at;
    }
}

TEST_F(Archive, IsRefusedWhereverItIsCut) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const std::string good = bytesOf(file);
    for (std::size_t size = 0; size < good.size(); size += 11)
        EXPECT_NE(refusalOf(good.substr(0, size)), "") << size;
    EXPECT_EQ(refusalOf(good.substr(0, good.rfind("{\"end\""))),
              "Line 14: The end of the archive is missing.");
}

TEST_F(Archive, TellsWhatIsWrongWithIt) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const std::string good = bytesOf(file);
    const auto with = [&](const std::string& old, const std::string& fresh) {
        std::string text = good;
        text.replace(text.find(old), old.size(), fresh);
        return refusalOf(text);
    };
    EXPECT_EQ(refusalOf(""), "It is no archive of Tallybrook.");
    EXPECT_EQ(refusalOf(std::string(100000, '[') + "\n"), "It is no archive of Tallybrook.");
    EXPECT_EQ(refusalOf("[[[[[[[[1]]]]]]]]\n"), "It is no archive of Tallybrook.");
    EXPECT_EQ(refusalOf("{\"format\":\"Recipes\"}\n"), "It is no archive of Tallybrook.");
    EXPECT_EQ(with("\"version\":1", "\"version\":2"),
              "It was written by a newer version of Tallybrook. Please update the program.");
    EXPECT_EQ(with("\"schema\":1", "\"schema\":2"),
              "It was written by a newer version of Tallybrook. Please update the program.");
    for (const std::string schema : {"0", "-3", "0.5", "\"1\"", "null"})
        EXPECT_EQ(with("\"schema\":1", "\"schema\":" + schema),
                  "A number in its first line cannot be right.");
    EXPECT_EQ(with("\"version\":1", "\"version\":\"1\""), "A number in its first line cannot be right.");
    for (const std::string columns : {"\"fldTeamName\",", ""})
        EXPECT_EQ(with("\"fldEventName\",", columns), "Its columns are not those of a logbook.");
    EXPECT_EQ(
        with("\"event\":1,", "\"event\":2,"),
        "Line 14: The archive should hold 2 events, 1 game and 10 frames, and holds 1 event, 1 game and "
        "10 frames.");
    EXPECT_EQ(with("\"frame\":10", "\"frame\":9223372036854775807"),
              "A number in its first line cannot be right.");
    EXPECT_EQ(with("\"frame\":10", "\"frame\":-1"), "A number in its first line cannot be right.");
    EXPECT_EQ(with("Tuesday", "Friday"),
              "Line 14: The checksum is not that of the archive: it was changed or is damaged.");
    EXPECT_EQ(with("{\"event\":[1,", "{\"event\":[[1],"), "Line 2: The line is no row of the logbook.");
    EXPECT_EQ(with("{\"event\":[1,", "{\"event\":[1,1,"), "Line 2: The line is no row of the logbook.");
    for (const std::string value :
         {"true", "[1]", "{}", R"({"text":1})", R"({"text":"0"})", R"({"text":"0G"})", R"({"text":"g0"})",
          R"({"blob":"0/"})", R"({"real":"nan"})", R"({"word":"00"})", R"({"text":"00","blob":"00"})"})
        EXPECT_EQ(with("\"Tuesday\"", value), "Line 2: The line is no row of the logbook.") << value;
    EXPECT_EQ(with("{\"event\":[1,", "{\"event\":[9223372036854775808,"),
              "Line 2: The line is no row of the logbook.");
    EXPECT_EQ(with("{\"event\":[1,", "{\"event\":[\"1\","), "Line 2: The key of the row is no whole number.");
    EXPECT_EQ(with("{\"frame\":[1,", "{\"frame\":[2,"), "Line 5: The rows are not in their order.");
    EXPECT_EQ(with("{\"event\":[1,", "{\"lane\":[1,"), "Line 2: The line is no row of the logbook.");
    EXPECT_EQ(refusalOf(good + "{}\n"), "Line 15: There is more behind its end.");
}

TEST_F(Archive, IsRefusedWhereItsLastKeysLeaveNoneToGive) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const std::string good = bytesOf(file);
    for (const std::string last : {"9223372036854775807", "2147483647", "2000000001", "0"}) {
        std::ofstream(file, std::ios::binary) << good;
        EXPECT_EQ(refusalOf(forged("\"lastKeys\":{\"event\":1,", "\"lastKeys\":{\"event\":" + last + ",")),
                  "Line 14: The last keys in the first line are not those of such rows.");
    }
    std::ofstream(file, std::ios::binary) << good;
    const std::string allowed = forged(R"("lastKeys":{"event":1,)", R"("lastKeys":{"event":2000000000,)");
    std::ofstream(file, std::ios::binary) << allowed;
    EXPECT_TRUE(read(other).isNew);
}

TEST_F(Archive, CanBeReadWhateverAnotherProgramHasNotedForTheLastKeys) {
    for (const std::string noted : {"9223372036854775807", "'x'", "-1", "NULL", "2.5", "x'ff'"}) {
        fs::remove_all(other);
        fs::create_directory(other);
        test::change(data, {"INSERT INTO tblEventInfo (fldEventName) VALUES ('Tuesday')",
                            "UPDATE sqlite_sequence SET seq = " + noted, "DELETE FROM tblGameInfo"});
        write();
        EXPECT_TRUE(read(other).isNew) << noted;
        test::addEvent(other, "Friday");
        test::change(data, {"DELETE FROM tblEventInfo", "DELETE FROM sqlite_sequence"});
    }
}

TEST_F(Archive, KeepsAKeyBeyondAllThatTheProgramGives) {
    test::change(data, {"INSERT INTO tblEventInfo (fldSessionNum) VALUES (9223372036854775807), (-7)"});
    write();
    read(other);
    EXPECT_EQ(rowsOf(logbookIn(other)), rowsOf(logbookIn(data)));
}

TEST_F(Archive, IsNotWrittenOverWhatIsNoFile) {
    test::addEvent(data, "Tuesday");
    ASSERT_EQ(mkfifo(file.c_str(), S_IRUSR | S_IWUSR), 0);
    fs::create_symlink(file, folder.path() / "link");
    for (const fs::path& place : {file, folder.path() / "link"})
        EXPECT_THROW(exportArchive(data, place, clock, nobody), Refused);
    EXPECT_TRUE(fs::is_fifo(file));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
}

TEST_F(Archive, DoesNotReadLinesWithoutEnd) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const std::string head = bytesOf(file).substr(0, bytesOf(file).find('\n') + 1);
    std::ofstream(file, std::ios::binary) << head << "{\"event\":[";
    fs::resize_file(file, std::uintmax_t{10} << 30U);  // of nothing, which takes no room
    EXPECT_EQ(refusal(), "Line 2: The line is too long.");
    std::ofstream(file, std::ios::binary) << head << std::string(3 << 20U, '[') << '\n';
    EXPECT_EQ(refusal(), "Line 2: The line is no row of the logbook.");
}

TEST_F(Archive, IsNotWrittenWithALineThatCouldNotBeRead) {
    test::addEvent(data, "Tuesday", 1);
    test::change(data, {"UPDATE tblEventInfo SET fldComment = hex(zeroblob(33 << 20))"});
    try {
        write();
        ADD_FAILURE() << "it was written";
    } catch (const Refused& refused) {
        EXPECT_STREQ(refused.what(),
                     "The event with the key 1 holds more than an archive can take, which is 64 MB.");
    }
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(Archive, IsAFileAndNothingElse) {
    test::change(data, {});
    ASSERT_EQ(mkfifo(file.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_THROW(read(data), Refused);
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_THROW(read(data), Refused);
    EXPECT_THROW(write(), Refused);
}

TEST_F(Archive, TakesTheNameFromALinkAndLeavesWhatItLedTo) {
    test::addEvent(data, "Tuesday");
    std::ofstream(folder.path() / "letter") << "Dear Aunt";
    fs::create_symlink(folder.path() / "letter", file);
    write();
    EXPECT_EQ(bytesOf(folder.path() / "letter"), "Dear Aunt");
    EXPECT_FALSE(fs::is_symlink(file));
}

TEST_F(Archive, IsNotWrittenOverTheLogbook) {
    test::addEvent(data, "Tuesday");
    const auto before = rowsOf(logbookIn(data));
    fs::create_symlink(logbookIn(data), file);
    for (const fs::path& place :
         {file, logbookIn(data), lockIn(data), data / "." / "Tallybrook_DB.mdb-journal",
          folder.path() / "nowhere" / "file"})
        EXPECT_THROW(exportArchive(data, place, clock, nobody), Refused) << place;
    fs::remove(file);
    fs::create_symlink(logbookIn(data), file.string() + ".new");
    EXPECT_THROW(exportArchive(data, file, clock, nobody), Refused) << "what is on its way is made there";
    EXPECT_EQ(rowsOf(logbookIn(data)), before);
}

TEST_F(Archive, IsRefusedWhereItChangesWhileItIsRead) {
    test::addEvent(data, "Tuesday");
    write();
    const std::string good = bytesOf(file);
    const auto before = rowsOf(logbookIn(data));
    const std::string why = "The archive was changed while it was read.";
    struct Change {
        std::string stage, old, fresh, told;
    };
    for (const Change& change : {
             Change{"Checking the archive", "\"event\":1,", "\"event\":2,", "Line 1: " + why},
             Change{"Storing the rows", "{\"event\":[1,", "{\"event\":[-1,", why},
             Change{"Storing the rows", "Tuesday", "Fridays", "Line 26: " + why},
         }) {
        std::ofstream(file, std::ios::binary) << good;
        const std::string changed = forged(change.old, change.fresh);
        Meddling progress(change.stage, [&] { std::ofstream(file, std::ios::binary) << changed; });
        std::string told;
        try {
            const HeldLogbook held(data);
            ArchiveReader archive(file);
            takeInArchive(held, archive, {}, clock, progress);
        } catch (const Refused& refused) {
            EXPECT_EQ(refused.status(), ExitStatus::BadInput);
            told = refused.what();
        }
        EXPECT_TRUE(told.ends_with(change.told)) << change.fresh << ": " << told;
    }
    EXPECT_EQ(rowsOf(logbookIn(data)), before);
}

TEST_F(Archive, LeavesNothingBehindWhenItIsCancelled) {
    test::addEvent(data, "Tuesday", 1);
    write();
    const std::string good = bytesOf(file);
    test::change(other, {"INSERT INTO tblEventInfo (fldEventName) VALUES ('Mine')"});
    const auto before = rowsOf(logbookIn(other));
    int steps = 0;
    for (bool isDone = false; !isDone; ++steps) {
        Impatient progress(steps);
        try {
            const HeldLogbook held(other);
            ArchiveReader archive(file);
            takeInArchive(held, archive, {}, clock, progress);
            isDone = true;
        } catch (const Cancelled&) {
            EXPECT_EQ(rowsOf(logbookIn(other)), before);
        }
    }
    EXPECT_GT(steps, 20);
    Impatient progress(5);
    EXPECT_THROW(exportArchive(other, file, clock, progress), Cancelled);
    EXPECT_EQ(bytesOf(file), good);
    EXPECT_FALSE(fs::exists(file.string() + ".new"));
}

}  // namespace

}  // namespace tallybrook::keeper
