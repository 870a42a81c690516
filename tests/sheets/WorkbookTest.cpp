#include "Logbooks.h"
#include "sheets/SheetColumns.h"
#include "sheets/Workbook.h"
#include "sheets/WorkbookCheck.h"
#include "support/SameText.h"

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unzip.h>
#include <zip.h>

namespace tallybrook::sheets {

namespace {

namespace fs = std::filesystem;

/// A part of a workbook's archive as it is unpacked.
std::string part(const fs::path& workbook, const std::string& name) {
    const std::unique_ptr<void, int (*)(unzFile)> archive(unzOpen64(workbook.c_str()), unzClose);
    if (archive == nullptr || unzLocateFile(archive.get(), name.c_str(), 1) != UNZ_OK ||
        unzOpenCurrentFile(archive.get()) != UNZ_OK)
        throw std::runtime_error("no part " + name);
    std::array<char, 4096> bytes{};
    std::string text;
    for (int read = 1; read > 0;) {
        read = unzReadCurrentFile(archive.get(), bytes.data(), bytes.size());
        text.append(bytes.data(), static_cast<std::size_t>(std::max(read, 0)));
    }
    return unzCloseCurrentFile(archive.get()) == UNZ_OK ? text : "";
}

class WorkbookOfALogbook : public testing::Test {
protected:
    WorkbookResult write() const {
        NoProgress progress;
        return writeWorkbook(logbook.open(), file, progress);
    }
    std::string sheet(int number) const {
        return part(file, fmt::format("xl/worksheets/sheet{}.xml", number));
    }
    /// What stands in a cell, as the sheet is written: the whole element.
    std::string cell(int sheetNumber, const std::string& place) const {
        const std::string text = sheet(sheetNumber);
        const std::size_t begin = text.find("<c r=\"" + place + "\"");
        return begin == std::string::npos ? "" : text.substr(begin, text.find("</c>", begin) + 4 - begin);
    }
    bool isEmpty() const { return fs::is_empty(out.path()); }

    test::FilledLogbook logbook;
    test::TemporaryFolder out;
    fs::path file = out.path() / "season.xlsx";
};

TEST_F(WorkbookOfALogbook, HasFourSheets) {
    write();
    const std::string names = part(file, "xl/workbook.xml");
    for (const char* name : {"Events", "Games", "Frames", "Games with Events"})
        EXPECT_NE(names.find(fmt::format("<sheet name=\"{}\"", name)), std::string::npos) << name;
    EXPECT_NE(cell(1, "B1").find("Event"), std::string::npos);
    EXPECT_NE(cell(4, "A1").find("Date"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, HasTheHeadingsAndWidthsOfItsPlan) {
    write();
    for (std::size_t number = 0; number < sheetPlans().size(); ++number) {
        const std::string text = sheet(static_cast<int>(number) + 1);
        std::string headings;
        std::size_t at = 0;
        for (const SheetColumn& column : sheetPlans()[number].columns) {
            headings += fmt::format("<c r=\"{}1\" s=\"1\" t=\"inlineStr\"><is><t>{}</t></is></c>",
                                    static_cast<char>('A' + at), column.heading);
            ++at;
            // the letters with the room around them, as a file of this kind counts them
            const std::string width =
                fmt::format("<col min=\"{0}\" max=\"{0}\" width=\"{1}.7109375\"", at, column.width);
            EXPECT_NE(text.find(width), std::string::npos) << width;
        }
        EXPECT_NE(text.find(headings + "</row>"), std::string::npos) << headings;
    }
}

/// Headings are bold and stand at the top of their cells on as many lines as they take, above a line.
TEST_F(WorkbookOfALogbook, HasHeadingsThatAreSeen) {
    write();
    const std::string styles = part(file, "xl/styles.xml");
    for (const char* const wanted :
         {"<xf numFmtId=\"0\" fontId=\"1\" fillId=\"0\" borderId=\"1\" xfId=\"0\" applyFont=\"1\" "
          "applyBorder=\"1\" "
          "applyAlignment=\"1\"><alignment vertical=\"top\" wrapText=\"1\"/></xf></cellXfs>",
          "<font><b/>", "<bottom style=\"thin\">"})
        EXPECT_NE(styles.find(wanted), std::string::npos) << wanted;
}

TEST_F(WorkbookOfALogbook, TellsHowFarItIs) {
    logbook.fill("INSERT INTO tblGameInfo (fldGameKey) VALUES (1), (2)");
    test::ToldProgress progress;
    writeWorkbook(logbook.open(), file, progress);
    std::string check = "Checking the workbook of 0: 0";
    for (const int number : {1, 2, 3, 4})
        check += fmt::format(" {}", sheet(number).size());
    EXPECT_EQ(progress.told(),
              "Writing the sheet Events of 0: 0\nWriting the sheet Games of 2: 0 1 2\n"
              "Writing the sheet Frames of 0: 0\nWriting the sheet Games with Events of 2: 0 1 2\n"
              "Packing the workbook of 0: 0\n" +
                  check + "\n");
}

TEST_F(WorkbookOfALogbook, FreezesTheHeadingsAndFiltersByThem) {
    logbook.fill("INSERT INTO tblEventInfo (fldEventName) VALUES ('a'), ('b')");
    write();
    for (const int number : {1, 2, 3, 4})
        EXPECT_NE(sheet(number).find("<pane ySplit=\"1\" topLeftCell=\"A2\""), std::string::npos) << number;
    EXPECT_NE(sheet(1).find("<autoFilter ref=\"A1:L3\"/>"), std::string::npos);
    EXPECT_NE(sheet(3).find("<autoFilter ref=\"A1:N1\"/>"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, HasRealDatesAndNumbers) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldDateBowled, fldNumGames, fldSeriesAvg) VALUES ('2026-11-04', 3, "
        "201.25)");
    write();
    EXPECT_EQ(cell(1, "C2"), "<c r=\"C2\" s=\"2\"><v>46330</v></c>");
    EXPECT_EQ(cell(1, "G2"), "<c r=\"G2\"><v>3</v></c>");
    EXPECT_EQ(cell(1, "J2"), "<c r=\"J2\" s=\"3\"><v>201.25</v></c>");
    const std::string styles = part(file, "xl/styles.xml");
    const std::size_t date = styles.find("<xf numFmtId=\"14\"");  // as the user's own country has it
    EXPECT_LT(date, styles.find("<xf numFmtId=\"2\""));           // with two places
    EXPECT_NE(styles.find("<xf numFmtId=\"2\""), std::string::npos);
}

TEST_F(WorkbookOfALogbook, KeepsADateThatASpreadsheetDoesNotKnow) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldDateBowled) VALUES ('1899-12-31'), ('2026-02-30'), (NULL), "
        "('1900-01-01')");
    write();
    EXPECT_NE(cell(1, "C2").find("<t>1899-12-31</t>"), std::string::npos);
    EXPECT_NE(cell(1, "C3").find("<t>2026-02-30</t>"), std::string::npos);
    EXPECT_EQ(cell(1, "C4"), "");
    EXPECT_NE(cell(1, "C5").find("<v>1</v>"), std::string::npos) << "its first day";
}

TEST_F(WorkbookOfALogbook, TakesNoTextForAFormulaOrANumber) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldEventName, fldComment, fldCenterName, fldCenterLoc) VALUES "
        "('=1+1', '{=SUM(A1)}', '7-10', 'https://example.com')");
    write();
    for (const auto& [place, text] : std::vector<std::pair<std::string, std::string>>{
             {"B2", "=1+1"}, {"K2", "{=SUM(A1)}"}, {"D2", "7-10"}, {"E2", "https://example.com"}})
        EXPECT_EQ(cell(1, place),
                  fmt::format("<c r=\"{}\" t=\"inlineStr\"><is><t>{}</t></is></c>", place, text));
    EXPECT_EQ(sheet(1).find("<f"), std::string::npos);
    EXPECT_EQ(sheet(1).find("hyperlink"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, HoldsTheTextsOfAllLanguages) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldEventName, fldComment, fldCenterName) VALUES "
        "('\u30DC\u30A6\u30EA\u30F3\u30B0 \U0001F3B3', '<&\"_x0041_' || char(1), x'41ff')");
    write();
    EXPECT_NE(cell(1, "B2").find("<t>\u30DC\u30A6\u30EA\u30F3\u30B0 \U0001F3B3</t>"), std::string::npos);
    EXPECT_NE(cell(1, "K2").find("<t>&lt;&amp;\"_x005F_x0041__x0001_</t>"), std::string::npos)
        << cell(1, "K2");
    EXPECT_NE(cell(1, "D2").find("<t>A\uFFFD</t>"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, HoldsNumbersThatOtherProgramsPutIn) {
    logbook.fill(
        "INSERT INTO tblGameInfo (fldGameKey, fldGameScore, fldStartLane, fldLeftLane, fldRightLane) VALUES "
        "(9223372036854775807, 9e999, 'many', 4.5, -9007199254740993)");
    write();
    EXPECT_NE(cell(2, "A2").find("<t>9223372036854775807</t>"), std::string::npos);
    EXPECT_NE(cell(2, "H2").find("<t>inf</t>"), std::string::npos);
    EXPECT_NE(cell(2, "D2").find("<t>many</t>"), std::string::npos);
    EXPECT_EQ(cell(2, "E2"), "<c r=\"E2\"><v>4.5</v></c>");
    EXPECT_NE(cell(2, "F2").find("<t>-9007199254740993</t>"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, CutsATextThatIsTooLongForACell) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldEventName, fldComment) VALUES (replace(hex(zeroblob(20000)), '00', "
        "'ab'), "
        "replace(hex(zeroblob(20000)), '00', '_x0041_'))");
    EXPECT_EQ(write().cutTexts, 2);
    const std::string name = cell(1, "B2");
    EXPECT_EQ(std::count(name.begin(), name.end(), 'a'), 16384);
}

TEST_F(WorkbookOfALogbook, JoinsGamesWithTheirEvents) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldSessionNum, fldEventName, fldDateBowled) VALUES (5, 'League', "
        "'2026-11-04');"
        "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum, fldGameScore) VALUES (5, 1, 201), (5, 2, 187), "
        "(9, 1, 99)");
    write();
    EXPECT_NE(cell(4, "G2").find("<v>99</v>"), std::string::npos);  // a game without an event is there too
    EXPECT_EQ(cell(4, "B2"), "");
    EXPECT_NE(cell(4, "B3").find("<t>League</t>"), std::string::npos);
    EXPECT_NE(cell(4, "A4").find("<v>46330</v>"), std::string::npos);
    EXPECT_NE(cell(4, "G4").find("<v>187</v>"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, HasTheGamesOfANightTogether) {
    logbook.fill(
        "INSERT INTO tblEventInfo (fldSessionNum, fldDateBowled) VALUES (5, '2026-11-04'), (6, "
        "'2026-11-04'), "
        "(7, '2026-11-03');"
        "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum, fldGameScore) VALUES (6, 1, 161), (5, 2, 152), "
        "(6, 2, 162), (5, 1, 151), (7, 1, 171)");
    write();
    std::string scores;
    for (const char* const place : {"G2", "G3", "G4", "G5", "G6"})
        scores += cell(4, place).substr(cell(4, place).find("<v>") + 3, 3) + " ";
    EXPECT_EQ(scores, "171 151 152 161 162 ");
}

TEST_F(WorkbookOfALogbook, GoesOnOnTheNextSheet) {
    logbook.fill("INSERT INTO tblFrameInfo (fldFrameKey) VALUES (11), (12), (13), (14), (15)");
    NoProgress progress;
    writeWorkbook(logbook.open(), file, progress, 3);
    EXPECT_NE(part(file, "xl/workbook.xml").find("<sheet name=\"Frames 2\""), std::string::npos);
    EXPECT_NE(cell(4, "A1").find("Frame Key"), std::string::npos);
    EXPECT_NE(cell(4, "A3").find("<v>14</v>"), std::string::npos);
    EXPECT_NE(cell(5, "A2").find("<v>15</v>"), std::string::npos);
}

TEST_F(WorkbookOfALogbook, TakesThePlaceOfALink) {
    const fs::path other = logbook.folder() / "other";
    std::ofstream(other) << "mine";
    fs::create_symlink(other, file);
    write();
    EXPECT_EQ(test::bytesOf(other), "mine");
    EXPECT_FALSE(fs::is_symlink(file));
}

TEST_F(WorkbookOfALogbook, IsNotThereWhereItWasGivenUp) {
    logbook.fill("INSERT INTO tblEventInfo (fldEventName) VALUES ('a'), ('b')");
    for (int steps = 0; steps < 12; ++steps) {
        test::ImpatientProgress progress(steps);
        EXPECT_THROW(writeWorkbook(logbook.open(), file, progress), Cancelled) << steps;
        EXPECT_TRUE(isEmpty()) << steps;
    }
}

TEST_F(WorkbookOfALogbook, NeedsItsFolder) {
    file = out.path() / "none" / "season.xlsx";
    EXPECT_THROW(write(), std::system_error);
}

/// Its rows are counted wherever the parts in which it is read end.
TEST_F(WorkbookOfALogbook, MayBeLong) {
    logbook.fill(
        "WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n < 900) "
        "INSERT INTO tblFrameInfo (fldFrameNum, fldComment) SELECT n, hex(zeroblob(n % 50)) FROM numbers");
    write();
    NoProgress progress;
    EXPECT_NO_THROW(checkWorkbook(file, std::vector<SheetSize>{{1}, {1}, {901}, {1}}, progress));
    EXPECT_THROW(checkWorkbook(file, std::vector<SheetSize>{{1}, {1}, {902}, {1}}, progress),
                 std::runtime_error);
}

/// Makes an archive of one sheet with that text.
void packSheet(const fs::path& file, const std::string& text) {
    const zipFile archive = zipOpen64(file.c_str(), APPEND_STATUS_CREATE);
    ASSERT_EQ(zipOpenNewFileInZip(archive, "xl/worksheets/sheet1.xml", nullptr, nullptr, 0, nullptr, 0,
                                  nullptr, Z_DEFLATED, Z_BEST_SPEED),
              ZIP_OK);
    ASSERT_EQ(zipWriteInFileInZip(archive, text.data(), static_cast<unsigned>(text.size())), ZIP_OK);
    ASSERT_EQ(zipCloseFileInZip(archive), ZIP_OK);
    ASSERT_EQ(zipClose(archive, nullptr), ZIP_OK);
}

TEST_F(WorkbookOfALogbook, IsCountedWhereverItsPartsEnd) {
    constexpr std::size_t kPart = 65536;  // bytes that are read at once
    NoProgress progress;
    for (std::size_t before = kPart - 40; before < kPart; ++before) {
        packSheet(file, std::string(before, 'x') + "<row 1><row 2></worksheet>");
        EXPECT_NO_THROW(checkWorkbook(file, std::vector<SheetSize>{{2}}, progress)) << before;
        packSheet(file, std::string(before, 'x') + "<row 1><row 2></worksheet> ");
        EXPECT_THROW(checkWorkbook(file, std::vector<SheetSize>{{2}}, progress), std::runtime_error)
            << before;
    }
}

TEST_F(WorkbookOfALogbook, IsReadAgain) {
    logbook.fill("INSERT INTO tblEventInfo (fldEventName) VALUES ('a'), ('b')");
    write();
    NoProgress progress;
    const std::vector<SheetSize> sizes{{3}, {1}, {1}, {1}};
    EXPECT_NO_THROW(checkWorkbook(file, sizes, progress));
    try {
        checkWorkbook(file, std::vector<SheetSize>{{4}}, progress);
        ADD_FAILURE() << "a row is wanting";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(
            failure.what(),
            "The workbook could not be written: it was not whole when it was read again.\r\nPlease see "
            "that there is room on the disk, and in the folder for temporary files.");
    }
    EXPECT_THROW(checkWorkbook(file, std::vector<SheetSize>{{2}}, progress), std::runtime_error);
    EXPECT_THROW(checkWorkbook(file, std::vector<SheetSize>(5, {1}), progress), std::runtime_error);
    std::string bytes = test::bytesOf(file);
    bytes.at(bytes.find("xl/worksheets/sheet1.xml") + 40) ^= 0x10;
    std::ofstream(file, std::ios::binary) << bytes;
    EXPECT_THROW(checkWorkbook(file, sizes, progress), std::runtime_error);
}

}  // namespace

}  // namespace tallybrook::sheets
