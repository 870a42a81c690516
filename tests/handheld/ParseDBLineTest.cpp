#include "handheld/CdbRecord.h"
#include "handheld/ExportFiles.h"
#include "runtime/RunTimeError.h"

#include <functional>
#include <limits>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook::test {

namespace {

int faultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
    return 0;
}

struct Cut {
    std::string field;
    int start;
    int end;
    bool operator==(const Cut&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Cut& cut) {
    return out << '"' << cut.field << "\" " << cut.start << ' ' << cut.end;
}

Cut cut(int start, char32_t delimiter, std::u32string_view line) {
    CutPosition at{.start = start, .end = 99};
    const std::string field = ParseDBLine(at, delimiter, line);
    return {field, at.start.value(), at.end.value()};
}

TEST(ParseDBLine, CutsWhatLiesBetweenTwoDelimiters) {
    EXPECT_EQ(cut(1, U',', U"a,bc,d"), (Cut{"bc", 6, 5}));
    EXPECT_EQ(cut(2, U',', U"a,bc,d"), (Cut{"bc", 6, 5}));
    EXPECT_EQ(cut(1, U'"', U",\"a,b\",\"\""), (Cut{"a,b", 7, 6}));
    EXPECT_EQ(cut(7, U'"', U",\"a,b\",\"\""), (Cut{"", 10, 9}));
}

TEST(ParseDBLine, TakesTheRestOfTheLineWithoutASecondDelimiter) {
    EXPECT_EQ(cut(3, U',', U"a,bc,d"), (Cut{"d", 1, 0}));
    EXPECT_EQ(cut(1, U',', U"a,"), (Cut{"", 1, 0}));
}

TEST(ParseDBLine, SearchesFromTheBeginningWithoutAFirstDelimiter) {
    EXPECT_EQ(cut(6, U',', U"a,bc,d"), (Cut{"a", 3, 2}));
    EXPECT_EQ(cut(6, U';', U"a,bc,d"), (Cut{"a,bc,d", 1, 0}));
    EXPECT_EQ(cut(20, U',', U",a"), (Cut{"", 2, 1}));
    EXPECT_EQ(cut(1, U',', U""), (Cut{"", 1, 0}));
}

TEST(ParseDBLine, FailsBelowTheFirstColumn) {
    for (const int start : {0, -1, -32768}) {
        CutPosition at{.start = start, .end = 7};
        EXPECT_EQ(faultOf([&] { ParseDBLine(at, U',', U"a,b,c"); }), error::kInvalidProcedureCall);
        EXPECT_EQ(at.start, start);
        EXPECT_EQ(at.end, 7);
    }
}

TEST(ParseDBLine, CountsInCharacters) {
    EXPECT_EQ(cut(1, U',', U"\u00fc\u20ac,\U0001F3B3x,y"), (Cut{"\U0001F3B3x", 7, 6}));
}

TEST(ParseDBLine, CountsInSixteenBits) {
    const auto lineWithCommaAt = [](std::size_t column) {
        return U"," + std::u32string(column - 2, U'x') + U",rest";
    };
    EXPECT_EQ(cut(1, U',', lineWithCommaAt(32766)), (Cut{std::string(32764, 'x'), 32767, 32766}));
    for (const std::size_t column : {32767U, 32768U, 70000U}) {
        CutPosition at{.start = 1, .end = 7};
        EXPECT_EQ(faultOf([&] { ParseDBLine(at, U',', lineWithCommaAt(column)); }), error::kOverflow);
        EXPECT_EQ(at.start, 1);
        EXPECT_EQ(at.end, 7);
    }
    // Where the field begins does not matter, only where it ends.
    for (const std::size_t column : {32766U, 32767U, 32768U, 70000U}) {
        EXPECT_EQ(cut(2, U',', lineWithCommaAt(column)), (Cut{"rest", 1, 0})) << column;
        EXPECT_EQ(faultOf([&] { cut(2, U',', lineWithCommaAt(column) + U",more"); }), error::kOverflow);
    }
    EXPECT_EQ(cut(1, U',', U"," + std::u32string(70000, U'x')), (Cut{std::string(70000, 'x'), 1, 0}));
}

/// The rule told over again, on the positions alone.
Cut plainCut(int start, char delimiter, const std::string& line) {
    const int size = static_cast<int>(line.size());
    const auto firstFrom = [&](int from) {
        for (int column = from; column <= size; ++column) {
            if (line[static_cast<std::size_t>(column - 1)] == delimiter)
                return column;
        }
        return 0;
    };
    const int a = firstFrom(start);
    const int b = firstFrom(a + 1);
    std::string field;
    for (int column = a + 1; column <= (b == 0 ? size : b - 1); ++column)
        field += line[static_cast<std::size_t>(column - 1)];
    return {field, b + 1, b};
}

TEST(ParseDBLine, AgreesWithThePlainRule) {
    const auto lines = rc::gen::container<std::string>(rc::gen::element('a', ',', '"', ' '));
    EXPECT_TRUE(rc::check([&] {
        const std::string line = *lines;
        const int start = *rc::gen::inRange(1, 30);
        const char delimiter = *rc::gen::element(',', '"');
        RC_ASSERT(cut(start, static_cast<char32_t>(delimiter), std::u32string(line.begin(), line.end())) ==
                  plainCut(start, delimiter, line));
    }));
}

// --- Walking a record --------------------------------------------------------------------------------------

CdbRecord recordOf(const CdbFormat& format) {
    return {format, [](const RunTimeError& failure) { throw failure; }};
}

std::vector<std::string> fieldsOf(const CdbFormat& format, const std::string& line) {
    CdbRecord record = recordOf(format);
    record.take(line);
    record.cut(kFirstCutField, format.lastField());
    std::vector<std::string> fields{record.id()};
    for (int field = kFirstCutField; field <= format.lastField(); ++field)
        fields.push_back(toText(record.value(field)));
    return fields;
}

using Fields = std::vector<std::string>;

TEST(CdbRecord, WalksAnEvent) {
    EXPECT_EQ(fieldsOf(kEventFormat, EventLine{.comment = "late, but good"}.text()),
              (Fields{"E000000001", "101", "Thursday League", "11/12/2026", "League", "Rolling Lanes",
                      "Springfield", "late, but good", "3", "180.33", "541"}));
}

TEST(CdbRecord, WalksAGame) {
    EXPECT_EQ(
        fieldsOf(kGameFormat, GameLine{.comment = "fine"}.text()),
        (Fields{"G000000001", "201", "101", "1", "187", "0", "13", "14", "13", "13-14", "P", "dry", "fine"}));
}

TEST(CdbRecord, WalksAFrame) {
    EXPECT_EQ(fieldsOf(kFrameFormat,
                       FrameLine{.first = "7-10", .second = "/", .lineScore = "8/", .comment = "!"}.text()),
              (Fields{"F000000001", "301", "101", "201", "1", "1", "13", "Blue", "20", "10", "7-10", "/", "",
                      "8/", "!"}));
}

TEST(CdbRecord, FindsTheFirstFieldBehindAnyStatus) {
    EXPECT_EQ(fieldsOf(kGameFormat, GameLine{.status = "abcdef"}.text())[1], "201");
    CdbRecord record = recordOf(kGameFormat);
    record.take(GameLine{.status = "0x0002"}.text());
    EXPECT_TRUE(record.isDeleted());
    for (const char* const status : {"0x0003", "0x0012", "0X0002", " 0x0002", "0x00020"}) {
        record.take(GameLine{.status = status}.text());
        EXPECT_EQ(record.isDeleted(), std::string(status).starts_with("0x0002")) << status;
    }
}

TEST(CdbRecord, HasAsMuchOfItsNameAsALineHas) {
    CdbRecord record = recordOf(kGameFormat);
    for (const char* const name : {"", "7", "G00000001", "\u00c9", "G0000\u00c9"}) {
        record.take(name);
        EXPECT_EQ(record.id(), name);
        EXPECT_FALSE(record.isDeleted());
    }
    record.take("\u00c9000000001\u20ac0x0002,");
    EXPECT_EQ(record.id(), "\u00c9000000001");
    EXPECT_TRUE(record.isDeleted());
}

TEST(CdbRecord, StaysOnAnEmptyBareField) {
    // Each further bare field comes back empty; the quoted ones behind are found all the same.
    EXPECT_EQ(fieldsOf(kGameFormat, GameLine{.unused = ""}.text()),
              (Fields{"G000000001", "201", "101", "1", "187", "0", "0", "0", "0", "13-14", "P", "dry", ""}));
    EXPECT_EQ(fieldsOf(kEventFormat, EventLine{.games = ""}.text()),
              (Fields{"E000000001", "101", "Thursday League", "11/12/2026", "League", "Rolling Lanes",
                      "Springfield", "", "0", "0", "0"}));
}

TEST(CdbRecord, MovesTheNumbersBehindATextThatEndsInAComma) {
    EXPECT_EQ(fieldsOf(kEventFormat, EventLine{.comment = "fun,"}.text()),
              (Fields{"E000000001", "101", "Thursday League", "11/12/2026", "League", "Rolling Lanes",
                      "Springfield", "fun,", "0", "3", "180"}));
}

TEST(CdbRecord, TakesAQuoteInAFieldForItsEnd) {
    EXPECT_EQ(fieldsOf(kEventFormat, EventLine{.name = "The \"Big\" One"}.text())[2], "The ");
}

TEST(CdbRecord, FindsEarlierQuotesAgainWhereALineEndsEarly) {
    const std::string numbers = "G000000001,0x0000,201,101,1,187,0,13,14,13,";
    const Fields upToType{"G000000001", "201", "101", "1", "187", "0", "13", "14", "13", "13-14", "P"};
    const auto with = [&](const Fields& more) {
        Fields fields = upToType;
        fields.insert(fields.end(), more.begin(), more.end());
        return fields;
    };
    EXPECT_EQ(fieldsOf(kGameFormat, numbers + R"("13-14","P")"), with({numbers, ","}));
    EXPECT_EQ(fieldsOf(kGameFormat, numbers + R"("13-14","P)"), with({"13-14", "P"}));
}

TEST(CdbRecord, FailsWhereALineEndsBeforeItsLastBareField) {
    struct CutLine {
        const CdbFormat& format;
        std::string line;
    };
    for (const CutLine& cut :
         std::vector<CutLine>{{kEventFormat, R"(E000000001,0x0000,101,"a","b","c","d","e","f",3)"},
                              {kGameFormat, "G000000001,0x0000,201,101,1"},
                              {kFrameFormat, "F000000001,0x0000,301,101"},
                              {kGameFormat, ""},
                              {kFrameFormat, ""}})
        EXPECT_EQ(faultOf([&] { fieldsOf(cut.format, cut.line); }), error::kInvalidProcedureCall) << cut.line;
    // The last bare field itself may end the line, but then the quoted one behind it is asked for.
    EXPECT_EQ(faultOf([] { fieldsOf(kGameFormat, "G000000001,0x0000,201,101,1,187,0,13,14,13"); }),
              error::kInvalidProcedureCall);
}

TEST(CdbRecord, ReadsAnEmptyEventLineAsEmptyFields) {
    CdbRecord record = recordOf(kEventFormat);
    record.take("");
    record.cut(3, 9);
    EXPECT_EQ(record.id(), "");
    EXPECT_FALSE(record.isDeleted());
    for (int field = 3; field <= 9; ++field)
        EXPECT_EQ(record.text(field), "");
}

TEST(CdbRecord, KeepsWhatItHeldWhereACutFails) {
    int failures = 0;
    CdbRecord record(kGameFormat, [&](const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), error::kInvalidProcedureCall);
        ++failures;
    });
    record.take(GameLine{}.text());
    record.cut(3, kGameFormat.lastField());
    record.take("G000000002");
    record.cut(3, 7);
    EXPECT_EQ(failures, 4);
    EXPECT_EQ(record.id(), "G000000002");
    EXPECT_EQ(record.text(3), "G000000002");  // no comma: the whole line
    EXPECT_EQ(record.text(4), "101");
    EXPECT_EQ(toText(record.value(6)), "187");
}

TEST(CdbRecord, RoundsWholeNumbersHalvesToEven) {
    for (const auto& [written, read] :
         std::vector<std::pair<const char*, const char*>>{{"2.5", "2"},
                                                          {"3.5", "4"},
                                                          {"-2.5", "-2"},
                                                          {" 1 2 ", "12"},
                                                          {"12 pins", "12"},
                                                          {"pins", "0"},
                                                          {"-", "0"},
                                                          {"+7", "7"},
                                                          {"1e2", "100"},
                                                          {"32767.4", "32767"},
                                                          {"-32768.5", "-32768"}})
        EXPECT_EQ(fieldsOf(kGameFormat, GameLine{.score = written}.text())[4], read) << written;
    for (const char* const tooFar : {"32767.5", "32768", "-32769", "1e9", "99999999999999999999", "1e999"})
        EXPECT_EQ(faultOf([&] { fieldsOf(kGameFormat, GameLine{.score = tooFar}.text()); }), error::kOverflow)
            << tooFar;
}

TEST(CdbRecord, KeepsTheAverageAsADouble) {
    for (const auto& [written, read] : std::vector<std::pair<const char*, const char*>>{
             {"180.333", "180.333"}, {"200.00", "200"}, {"1e9", "1000000000"}, {".5", "0.5"}, {"-3", "-3"}})
        EXPECT_EQ(fieldsOf(kEventFormat, EventLine{.average = written}.text())[9], read) << written;
    EXPECT_EQ(faultOf([] { fieldsOf(kEventFormat, EventLine{.average = "1e999"}.text()); }),
              error::kOverflow);
}

TEST(CdbRecord, MarksItselfAsDeleted) {
    const auto marked = [](const CdbFormat& format, const std::string& line) {
        CdbRecord record = recordOf(format);
        record.take(line);
        record.cut(kFirstCutField, format.lastField());
        return record.markedLine();
    };
    EXPECT_EQ(marked(kEventFormat, EventLine{.comment = "a, b", .games = "3.4", .average = "180.50"}.text()),
              R"(E000000001,0x0002,101,"Thursday League","11/12/2026","Rolling Lanes","Springfield","a, b",)"
              "3,180.5,541");
    EXPECT_EQ(marked(kGameFormat, GameLine{.unused = "77"}.text()),
              R"(G000000001,0x0002,201,101,1,187,13,14,13,"13-14","P","dry","")");
    EXPECT_EQ(marked(kFrameFormat, FrameLine{}.text()),
              R"(F000000001,0x0002,301,101,201,1,1,13,"Blue","20","10","X","","","X","")");
}

TEST(CdbRecord, CountsColumnsInCharacters) {
    const Fields fields = fieldsOf(kGameFormat, GameLine{.recordId = "\u00fc\u00fc\u00fc4567890"}.text());
    EXPECT_EQ(fields[0], "\u00fc\u00fc\u00fc4567890");
    EXPECT_EQ(fields[1], "201");
}

TEST(RecordCount, StandsInColumnTen) {
    EXPECT_EQ(recordCount("# RECCNT=12"), 12);
    EXPECT_EQ(recordCount("#RECCNT   7 records"), 7);
    EXPECT_EQ(recordCount("#RECCNT=12"), 2);
    EXPECT_EQ(recordCount("# RECCNT="), 0);
    EXPECT_EQ(recordCount("#RECCNT"), 0);
    EXPECT_EQ(recordCount("# RECCNT=many"), 0);
    EXPECT_EQ(recordCount("# RECCNT=-4"), -4);
    EXPECT_EQ(recordCount("# RECCNT=2.5"), 2);
    EXPECT_EQ(recordCount("# RECCNT=2147483647"), 2147483647);
    EXPECT_EQ(recordCount("#\u00fcRECCNT=5"), 5);
    EXPECT_EQ(faultOf([] { recordCount("# RECCNT=2147483648"); }), error::kOverflow);
}

}  // namespace

}  // namespace tallybrook::test
