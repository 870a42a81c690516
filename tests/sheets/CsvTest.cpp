#include "Logbooks.h"
#include "sheets/Csv.h"
#include "store/sql/Schema.h"
#include "support/SameText.h"

#include <optional>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::sheets {

namespace {

namespace fs = std::filesystem;

/// A field that is read: nothing where there stands nothing, not even quotes.
using Read = std::optional<std::string>;

/// A reader by the words of RFC 4180, and nothing else.
std::vector<std::vector<Read>> readCsv(const std::string& bytes) {
    std::vector<std::vector<Read>> lines;
    std::size_t at = 0;
    while (at < bytes.size()) {
        std::vector<Read> line;
        for (bool goesOn = true; goesOn;) {
            Read field;
            if (bytes.at(at) == '"') {
                field.emplace();
                for (++at; bytes.at(at) != '"' || bytes.at(at + 1) == '"'; ++at) {
                    *field += bytes[at];
                    at += bytes[at] == '"' ? 1U : 0U;
                }
                ++at;
            } else {
                const std::size_t end = bytes.find_first_of(",\r", at);
                if (end > at)
                    field = bytes.substr(at, end - at);
                at = end;
            }
            line.push_back(field);
            goesOn = bytes.at(at) == ',';
            if (goesOn)
                ++at;
            else if (bytes.substr(at, 2) != "\r\n")
                throw std::runtime_error("a line does not end in CR LF");
            else
                at += 2;
        }
        lines.push_back(line);
    }
    return lines;
}

class CsvOfALogbook : public testing::Test {
protected:
    void write(Formulas formulas = Formulas::Guarded) const {
        NoProgress progress;
        writeCsv(logbook.open(), out.path(), formulas, progress);
    }
    std::vector<std::vector<Read>> lines(const std::string& name) const {
        return readCsv(test::bytesOf(out.path() / name));
    }
    bool isEmpty() const { return fs::is_empty(out.path()); }

    test::FilledLogbook logbook;
    test::TemporaryFolder out;
};

TEST_F(CsvOfALogbook, HasAFileForEachTable) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldSessionNum, fldEventName, fldDateBowled, fldSeriesAvg, fldComment) "
        "VALUES "
        "(7, 'Smith, \"Al\"', '2026-11-04', 200.5, NULL)");
    write();
    EXPECT_EQ(test::bytesOf(out.path() / "events.csv"),
              "fldSessionNum,fldEventName,fldDateBowled,fldCenterName,fldCenterLoc,fldEventType,fldNumGames,"
              "fldGmsRecorded,fldSeriesTot,fldSeriesAvg,fldComment,fldHHRecordID\r\n"
              "7,\"Smith, \"\"Al\"\"\",2026-11-04,\"\",\"\",\"\",0,0,0,200.5,,\"\"\r\n");
    EXPECT_EQ(lines("games.csv").size(), 1U);
    EXPECT_EQ(lines("frames.csv").front().size(), findTable("tblFrameInfo")->columns.size());
}

TEST_F(CsvOfALogbook, HoldsNoFormula) {
    const std::vector<std::string> formulas{"=1+1", "+1",      "-1",      "@SUM(A1)", "\t=1",   "\r=1",
                                            "\n=1", "\uFF1D1", "\uFF0B1", "\uFF0D1",  "\uFF201"};
    for (const std::string& formula : formulas) {
        const std::string field = csvField(formula, Formulas::Guarded);
        EXPECT_EQ(readCsv(field + "\r\n").front().front(), Read("'" + formula));
        EXPECT_EQ(readCsv(csvField(formula, Formulas::Verbatim) + "\r\n").front().front(), Read(formula));
    }
    EXPECT_EQ(csvField("'tis", Formulas::Guarded), "''tis");  // so that the guard can be taken off again
    EXPECT_EQ(csvField("7-10", Formulas::Guarded), "7-10");
}

TEST_F(CsvOfALogbook, QuotesOnlyWhatNeedsIt) {
    for (const char* const plain : {"a b", "a;b", "a'b", "7-10"})
        EXPECT_EQ(csvField(plain, Formulas::Guarded), plain);
    for (const char* const quoted : {"", " a", "a ", "a,b", "a\rb", "a\nb"})
        EXPECT_EQ(csvField(quoted, Formulas::Guarded), "\"" + std::string(quoted) + "\"");
}

TEST_F(CsvOfALogbook, TellsHowFarItIs) {
    logbook.fill("INSERT INTO tblGameInfo (fldGameKey) VALUES (1), (2)");
    test::ToldProgress progress;
    writeCsv(logbook.open(), out.path(), Formulas::Guarded, progress);
    EXPECT_EQ(progress.told(),
              "Writing events.csv of 0: 0\nWriting games.csv of 2: 0 1 2\nWriting frames.csv of 0: 0\n");
}

TEST_F(CsvOfALogbook, LeavesNumbersBelowZeroAlone) {
    logbook.fill("INSERT INTO tblGameInfo (fldGameKey, fldGameScore) VALUES (-3, -12)");
    write();
    const std::vector<Read> game = lines("games.csv").at(1);
    EXPECT_EQ(game[0], Read("-3"));
    EXPECT_EQ(game[7], Read("-12"));
}

TEST_F(CsvOfALogbook, IsAlwaysUtf8) {
    logbook.fill("INSERT INTO tblEventInfo (fldEventName) VALUES (CAST(x'41FF42' AS TEXT))");
    write();
    EXPECT_EQ(lines("events.csv").at(1)[1], Read("A\uFFFDB"));
}

TEST_F(CsvOfALogbook, TakesThePlaceOfALink) {
    const fs::path other = logbook.folder() / "other";
    std::ofstream(other) << "mine";
    fs::create_symlink(other, out.path() / "games.csv");
    write();
    EXPECT_EQ(test::bytesOf(other), "mine");
    EXPECT_FALSE(fs::is_symlink(out.path() / "games.csv"));
}

TEST_F(CsvOfALogbook, IsNotThereWhereItWasGivenUp) {
    logbook.fill("INSERT INTO tblEventInfo (fldEventName) VALUES ('a'), ('b'), ('c')");
    for (int steps = 0; steps < 6; ++steps) {
        test::ImpatientProgress progress(steps);
        EXPECT_THROW(writeCsv(logbook.open(), out.path(), Formulas::Guarded, progress), Cancelled) << steps;
        EXPECT_TRUE(isEmpty()) << steps;
    }
}

TEST_F(CsvOfALogbook, NeedsItsFolder) {
    NoProgress progress;
    EXPECT_THROW(writeCsv(logbook.open(), out.path() / "none", Formulas::Guarded, progress),
                 std::system_error);
    EXPECT_TRUE(isEmpty());
}

/// Texts with what matters to CSV and to spreadsheets more often than chance would have it.
rc::Gen<std::string> anyText() {
    return rc::gen::container<std::string>(
        rc::gen::element('a', ' ', ',', '"', '\r', '\n', '\t', '=', '+', '-', '@', '\'', '1', ';'));
}

RC_GTEST_PROP(Csv, GivesEachTextBack, ()) {
    const std::string text = *anyText();
    const auto guarded = readCsv(csvField(text, Formulas::Guarded) + "\r\n").at(0).at(0);
    RC_ASSERT(guarded.has_value());
    RC_ASSERT((guarded->starts_with('\'') ? guarded->substr(1) : *guarded) == text);
    RC_ASSERT(guarded->find_first_of("=+-@\t\r\n") != 0U);
    RC_ASSERT(readCsv(csvField(text, Formulas::Verbatim) + "\r\n").at(0).at(0) == Read(text));
}

/// Gives a parameter a value that any program may have put in.
void bindAny(SQLite::Statement& row, int parameter) {
    switch (*rc::gen::inRange(0, 5)) {
        case 0:
            return row.bind(parameter);
        case 1:
            return row.bind(parameter, *rc::gen::arbitrary<std::int64_t>());
        case 2:
            return row.bind(parameter, *rc::gen::arbitrary<double>());
        default:
            return row.bind(parameter, *anyText());
    }
}

/// Whether a field is what was stored: of a real any text that reads back as the same number.
bool isSame(const Read& field, const SQLite::Column& value) {
    if (value.isNull() || !field)
        return value.isNull() && !field;
    return value.isFloat() ? std::stod(*field) == value.getDouble() : *field == value.getString();
}

RC_GTEST_PROP(Csv, HoldsEachValueOfAnyLogbook, ()) {
    const test::FilledLogbook logbook;
    const test::TemporaryFolder out;
    const int rows = *rc::gen::inRange(0, 6);
    SQLite::Database database = logbook.open();
    SQLite::Statement insert(database,
                             "INSERT INTO tblGameInfo VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int row = 0; row < rows; ++row) {
        insert.bind(1, row + 1);
        for (int column = 2; column <= 14; ++column)
            bindAny(insert, column);
        insert.exec();
        insert.reset();
    }
    NoProgress progress;
    writeCsv(database, out.path(), Formulas::Verbatim, progress);
    const auto lines = readCsv(test::bytesOf(out.path() / "games.csv"));
    RC_ASSERT(lines.size() == static_cast<std::size_t>(rows) + 1);
    SQLite::Statement stored(database, "SELECT * FROM tblGameInfo ORDER BY fldGameKey");
    for (std::size_t line = 1; stored.executeStep(); ++line) {
        for (int column = 0; column < 14; ++column)
            RC_ASSERT(isSame(lines[line].at(static_cast<std::size_t>(column)), stored.getColumn(column)));
    }
}

}  // namespace

}  // namespace tallybrook::sheets
