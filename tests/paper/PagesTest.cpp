#include "paper/Pages.h"
#include "readers/Printing.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

using Rows = QStringList;

TEST(Pages, WidestLineCountsTabsToEveryEighthColumn) {
    EXPECT_EQ(widestLine(""), 0);
    EXPECT_EQ(widestLine("\t"), 8);
    EXPECT_EQ(widestLine("a\nab\na"), 2);
    EXPECT_EQ(widestLine("1234567\t9"), 9);
    EXPECT_EQ(widestLine("12345678\t9"), 17);
    EXPECT_EQ(widestLine("1\t2\t3\t"), 24);
}

TEST(Pages, WidthIsThatOfTheCharactersAsTheyAreSeen) {
    EXPECT_EQ(widestLine(QString::fromUtf8("José")), 4);
    EXPECT_EQ(widestLine(QString::fromUtf8("Jose\u0301")), 4);
    EXPECT_EQ(widestLine(QString::fromUtf8("保齢球")), 6);
    EXPECT_EQ(widestLine(QString(QChar(QChar::ReplacementCharacter))), 1);
}

TEST(Pages, TextIsPrintedAtTheUsualSizeWhereItFits) {
    const PrintSize narrow = printSizeFor(40, 800);
    EXPECT_DOUBLE_EQ(narrow.points, kUsualPrint);
    EXPECT_EQ(narrow.columns, 80);
    EXPECT_DOUBLE_EQ(printSizeFor(80, 800).points, kUsualPrint);
    EXPECT_DOUBLE_EQ(printSizeFor(0, 800).points, kUsualPrint);
}

TEST(Pages, TextIsScaledDownUntilItsWidestLineFits) {
    for (int widest = 81; widest <= 133; ++widest) {
        const PrintSize size = printSizeFor(widest, 800);
        EXPECT_LT(size.points, kUsualPrint);
        EXPECT_GE(size.points, kSmallestPrint);
        EXPECT_EQ(size.columns, widest);
    }
}

TEST(Pages, TextIsNeverPrintedTooSmallToBeRead) {
    const PrintSize size = printSizeFor(134, 800);
    EXPECT_DOUBLE_EQ(size.points, kSmallestPrint);
    EXPECT_EQ(size.columns, 133);
    EXPECT_EQ(printSizeFor(1, 0.5).columns, 1);
}

TEST(Pages, RowsHaveBlanksForTabs) {
    EXPECT_EQ(printedRows("1\t2", 80), Rows{"1       2"});
    EXPECT_EQ(printedRows("\tX", 80), Rows{"        X"});
    EXPECT_EQ(printedRows("12345678\t9", 80), Rows{"12345678        9"});
    EXPECT_EQ(printedRows(QString::fromUtf8("é\tX"), 80), Rows{QString::fromUtf8("é       X")});
}

TEST(Pages, WideLinesGoOnOnTheNextRow) {
    EXPECT_EQ(printedRows("abcdefgh\nij", 3), (Rows{"abc", "def", "gh", "ij"}));
    EXPECT_EQ(printedRows("abc", 3), Rows{"abc"});
    EXPECT_EQ(printedRows("a\tb\tc", 8), (Rows{"a       ", "b       ", "c"}));
    EXPECT_EQ(printedRows("a\tb\tc", 12), (Rows{"a       b   ", "    c"}));
    EXPECT_EQ(printedRows("ab", 1), (Rows{"a", "b"}));
}

TEST(Pages, RowsBreakBetweenWholeCharacters) {
    EXPECT_EQ(printedRows(QString::fromUtf8("a🎳b"), 1), (Rows{"a", QString::fromUtf8("🎳"), "b"}));
    EXPECT_EQ(printedRows(QString::fromUtf8("e\u0301e\u0301"), 1),
              (Rows{QString::fromUtf8("e\u0301"), QString::fromUtf8("e\u0301")}));
}

TEST(Pages, LastLineEndStartsNoRow) {
    EXPECT_EQ(printedRows("a\n", 80), Rows{"a"});
    EXPECT_EQ(printedRows("a\n\n", 80), (Rows{"a", ""}));
    EXPECT_EQ(printedRows("", 80), Rows{""});
    EXPECT_EQ(printedRows("\n", 80), Rows{""});
}

TEST(Pages, RowsBreakAtBlanks) {
    EXPECT_EQ(printedRows("Comment: dry lanes", 13), (Rows{"Comment: dry ", "lanes"}));
    EXPECT_EQ(printedRows("    abcdefgh", 6), (Rows{"    ab", "cdefgh"}));
    EXPECT_EQ(printedRows("ab cdefghijkl", 5), (Rows{"ab ", "cdefg", "hijkl"}));
    EXPECT_EQ(printedRows("ab cd ef", 5), (Rows{"ab cd", " ef"}));
}

TEST(Pages, LongCommentsAreNoReasonToPrintSmaller) {
    EXPECT_EQ(widestLine(QString(kWidestFitted, 'x')), kWidestFitted);
    EXPECT_EQ(widestLine("abc\n" + QString(kWidestFitted + 1, 'x')), 3);
}

TEST(Pages, AreFilledOneAfterAnother) {
    EXPECT_EQ(paginated({{"a", "b", "c", "d", "e"}}, 2), (std::vector<Rows>{{"a", "b"}, {"c", "d"}, {"e"}}));
    EXPECT_EQ(paginated({{"a"}, {"b"}}, 2), (std::vector<Rows>{{"a", "b"}}));
    EXPECT_EQ(paginated({{""}}, 50), std::vector<Rows>{Rows{""}});
    EXPECT_EQ(paginated({}, 50), std::vector<Rows>{Rows{}});
}

TEST(Pages, BlocksStayTogether) {
    EXPECT_EQ(paginated({{"a", "b", ""}, {"c", "d", ""}, {"e"}}, 4),
              (std::vector<Rows>{{"a", "b", ""}, {"c", "d", "", "e"}}));
    EXPECT_EQ(paginated({{"a", "b", ""}, {"c", "d", ""}}, 3),
              (std::vector<Rows>{{"a", "b", ""}, {"c", "d", ""}}));
    EXPECT_EQ(paginated({{"a", "b", ""}, {"c", "d", "", ""}}, 5),
              (std::vector<Rows>{{"a", "b", "", "c", "d"}}));
    EXPECT_EQ(paginated({{"a", "b", "", ""}, {"c"}}, 3),
              (std::vector<Rows>{{"a", "b", ""}, {"c"}}));                       // none begins empty
    EXPECT_EQ(paginated({{"a", "b", ""}}, 2), (std::vector<Rows>{{"a", "b"}}));  // and none is empty
}

TEST(Pages, EventsAndFramesAreBlocks) {
    EXPECT_EQ(printedBlocks("Event: A\nComment:\n\nEvent: B\n", 80),
              (std::vector<Block>{{"Event: A", "Comment:", ""}, {"Event: B"}}));
    const QString frame = QString(20, '-');
    EXPECT_EQ(printedBlocks("Frame 1\n" + frame + "\nFrame 2\n" + frame, 80),
              (std::vector<Block>{{"Frame 1", frame}, {"Frame 2", frame}}));
}

TEST(Pages, HeadingsBelongToWhatFollows) {
    EXPECT_EQ(printedBlocks("Spare Statistics\n----------\n\n7  1\n\nnext", 80),
              (std::vector<Block>{{"Spare Statistics", "----------", "", "7  1", ""}, {"next"}}));
    EXPECT_EQ(printedBlocks("Game 1   Game Score: 9\n\nLine Score:\n---\n81\n\nGame 2   Game Score: 1\nGame "
                            "score only\n\nend",
                            80),
              (std::vector<Block>{{"Game 1   Game Score: 9", "", "Line Score:", "---", "81", ""},
                                  {"Game 2   Game Score: 1", "Game score only", ""},
                                  {"end"}}));
}

TEST(Pages, HeadingsMayHaveARemarkAndLabelsBelongToWhatFollows) {
    const auto countOf = [](const QString& text) { return printedBlocks(text, 80).size(); };
    EXPECT_EQ(countOf("Heading\n-------\n(of all games)\n\n7  1"), 1U);
    EXPECT_EQ(countOf("Heading\n-------\n  \n\n7  1"), 1U) << "a line of blanks says nothing";
    EXPECT_EQ(countOf("Heading\n-------\nof all games\n\n7  1"), 2U);
    EXPECT_EQ(countOf("Heading\n-------\n(of all games)\n7  1\n\n7  1"), 2U);
    EXPECT_EQ(countOf("Heading\n" + QString(20, '-') + "\n\n7  1"), 2U) << "a frame of one line";
    EXPECT_EQ(countOf("Line Score:\n\n7  1"), 1U);
    EXPECT_EQ(countOf("Line Score\n\n7  1"), 2U);
    EXPECT_EQ(countOf("Comment:\nLine Score:\n\n7  1"), 2U);
    EXPECT_EQ(countOf("Frame\n*\nFrame\n*\n"), 2U);
}

TEST(Pages, SectionsAreFound) {
    const std::vector<Rows> pages{{"Event Summary", "-------------", "x"},
                                  {"Game 2   Game Score: 117", "Comment: ", QString(20, '-')}};
    EXPECT_EQ(sectionsOf(pages), (std::vector<SectionPlace>{{"Event Summary", 0}, {"Game 2", 1}}));
    for (const QString& none :
         {QString("Frame Summary"), QString("Line Score:"), QString(" "), QString("----")})
        EXPECT_TRUE(sectionsOf({{none, QString(13, '-')}}).empty()) << none.toStdString();
    EXPECT_TRUE(sectionsOf({{"Games", QString(9, '-')}}).empty());
    EXPECT_EQ(sectionsOf({{"Games", QString(10, '-')}}), (std::vector<SectionPlace>{{"Games", 0}}));
    EXPECT_TRUE(sectionsOf({{"Game 2", "x"}, {"Lane Game Score: 9"}}).empty());
}

}  // namespace tallybrook::test
