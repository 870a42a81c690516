#include "Media.h"
#include "paper/ReportPrinter.h"
#include "pictures/Pictures.h"
#include "readers/FileFailure.h"
#include "readers/Files.h"
#include "readers/Golden.h"
#include "readers/ReportHead.h"

#include <QBuffer>
#include <QImage>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <array>
#include <numeric>

namespace tallybrook::test {

namespace {

QString lines(int count) {
    QString text;
    for (int line = 1; line <= count; ++line)
        text += QString("Game %1\t187\n").arg(line);
    return text;
}

/// What a report takes on a paper.
struct Print {
    QPageSize::PageSizeId paper = QPageSize::A4;
    QString ranges = {};
    bool hasPictures = true;

    [[nodiscard]] qsizetype pagesOf(const QString& text) const {
        const auto pictures = hasPictures ? picturesOf(readFigures(text)) : std::vector<ReportPicture>();
        QBuffer bytes;
        EXPECT_TRUE(bytes.open(QIODevice::WriteOnly));
        {
            QPdfWriter writer(&bytes);
            writer.setPageSize(QPageSize(paper));
            writer.setPageRanges(QPageRanges::fromString(ranges));
            EXPECT_TRUE(drawPages({"report.txt", text}, pictures, writer).has_value());
        }
        return bytes.data().count("/Type /Page\n");
    }

    /// How many lines fit on a page: as many as the font of this machine lets.
    [[nodiscard]] int linesOfPage() const {
        std::array<int, 400> counts{};
        std::iota(counts.begin(), counts.end(), 1);
        const auto isOnOnePage = [this](int count) { return pagesOf(lines(count)) == 1; };
        return *std::ranges::partition_point(counts, isOnOnePage) - 1;
    }
};

constexpr std::array kPapers{QPageSize::A4, QPageSize::Letter};

}  // namespace

TEST(ReportPrinter, TakesAsManyPagesAsTheTextNeeds) {
    for (const QPageSize::PageSizeId paper : kPapers) {
        const Print print{paper};
        const int fitting = print.linesOfPage();
        EXPECT_GT(fitting, 40) << QPageSize::key(paper).toStdString();
        EXPECT_LT(fitting, 100) << QPageSize::key(paper).toStdString();
        EXPECT_EQ(print.pagesOf(""), 1);
        EXPECT_EQ(print.pagesOf(lines(fitting + 1)), 2);
        EXPECT_EQ(print.pagesOf(lines(3 * fitting)), 3);
        EXPECT_EQ(print.pagesOf(lines(3 * fitting + 1)), 4);
    }
    EXPECT_LT(Print{QPageSize::Letter}.linesOfPage(), Print{QPageSize::A4}.linesOfPage());
}

TEST(ReportPrinter, WrapsCommentsAndPrintsNothingSmallerForThem) {
    const Print print;
    EXPECT_EQ(print.pagesOf(lines(400) + QString(208, 'x')), print.pagesOf(lines(400)));
    EXPECT_GT(print.pagesOf(QString(1000, 'x').append('\n').repeated(100)),
              print.pagesOf(lines(100)));  // more rows than one for a line
    EXPECT_LT(print.pagesOf(lines(400) + QString(99, 'x')), print.pagesOf(lines(400)));  // a line of a table
}

TEST(ReportPrinter, PicturesFollowTheText) {
    const QString report = goldenReport("statistics.txt");
    for (const QPageSize::PageSizeId paper : kPapers) {
        const qsizetype ofText = Print{paper, {}, false}.pagesOf(report);
        const qsizetype ofAll = Print{paper}.pagesOf(report);
        EXPECT_GT(ofText, 1);
        EXPECT_GT(ofAll, ofText + 1);
        EXPECT_EQ((Print{paper, QString("%1-%2").arg(ofText + 1).arg(ofAll)}.pagesOf(report)),
                  ofAll - ofText);
    }
}

TEST(ReportPrinter, PicturesBeginOnTheLastPageOfTheText) {
    const QString game = kGameReport;
    EXPECT_EQ(Print().pagesOf(game), 1);
    EXPECT_FALSE(picturesOf(readFigures(game)).empty());
}

TEST(ReportPrinter, DrawsOnlyTheWantedPages) {
    EXPECT_EQ((Print{QPageSize::A4, "2-3"}.pagesOf(lines(400))), 2);
    EXPECT_EQ((Print{QPageSize::Letter, "4"}.pagesOf(lines(400))), 1);
}

TEST(ReportPrinter, DeviceThatRefusesIsTold) {
    QPdfWriter writer(kClosedFolder + "/report.pdf");
    EXPECT_FALSE(drawPages({"report.txt", lines(3)}, {}, writer));
}

TEST(ReportPrinter, WritesAPdf) {
    Files files;
    const QString pdf = files.write("report.pdf", "what was there before");
    const auto written = [&](QPageSize::PageSizeId paper) {
        writePdf({"report.txt", lines(3)}, {}, QPageSize(paper), pdf);
        return Files::read(pdf);
    };
    EXPECT_TRUE(written(QPageSize::A4).startsWith("%PDF"));
    EXPECT_TRUE(written(QPageSize::A4).trimmed().endsWith("%%EOF"));
    EXPECT_TRUE(isOnPaper(written(QPageSize::A4), QPageSize::A4));
    EXPECT_TRUE(isOnPaper(written(QPageSize::Letter), QPageSize::Letter));
}

TEST(ReportPrinter, TellsWhyAPdfCannotBeWritten) {
    const Files files;
    for (const QString& place : {kClosedFolder + "/report.pdf", files.path("missing/report.pdf"),
                                 files.folder(), files.pipe("pipe.pdf")}) {
        try {
            writePdf({"report.txt", lines(3)}, {}, QPageSize(QPageSize::A4), place);
            FAIL() << place.toStdString() << " takes a PDF";
        } catch (const FileFailure& failure) {
            EXPECT_GT(failure.reason().size(), 1) << place.toStdString();
            EXPECT_TRUE(failure.reason().endsWith('.'));
        }
    }
    EXPECT_TRUE(isPipe(files.path("pipe.pdf")));
}

TEST(ReportPrinter, HeadTellsWhatTheReportIs) {
    const auto head = [](const QString& text) {
        const ReportHead found = headOf({"night.txt", text});
        return found.title + " | " + found.date;
    };
    EXPECT_EQ(head(goldenReport("statistics.txt")),
              "Statistical Report - All Events | 11/14/2026, 9:55:00 PM");
    EXPECT_EQ(head(goldenReport("full.txt")), "Event Report - Season | 11/14/2026, 9:55:00 PM");
    EXPECT_EQ(head(kGameReport), "Game Report - Season | 11/14/2026 9:55:00 PM");
    EXPECT_EQ(head("notes"), "night.txt | ");
}

}  // namespace tallybrook::test
