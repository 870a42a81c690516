#include "Files.h"
#include "Golden.h"
#include "viewer/FileFailure.h"
#include "viewer/ReportPrinter.h"

#include <QBuffer>
#include <QImage>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>

namespace tallybrook::test {

namespace {

QString lines(int count) {
    QString text;
    for (int line = 1; line <= count; ++line)
        text += QString("Game %1\t187\n").arg(line);
    return text;
}

/// How many pages a report takes on paper.
qsizetype pagesOf(const QString& text, const QString& ranges = {}, Parts parts = Parts::TextAndPictures) {
    QBuffer bytes;
    EXPECT_TRUE(bytes.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&bytes);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageRanges(QPageRanges::fromString(ranges));
        EXPECT_TRUE(drawPages({"report.txt", text}, parts, writer));
    }
    return bytes.data().count("/Type /Page\n");
}

}  // namespace

TEST(ReportPrinter, TakesAsManyPagesAsTheTextNeeds) {
    EXPECT_EQ(pagesOf(""), 1);
    EXPECT_EQ(pagesOf(lines(20)), 1);
    EXPECT_EQ(pagesOf(lines(200)), 4);
}

TEST(ReportPrinter, ScalesAndWrapsWideLines) {
    const qsizetype narrow = pagesOf(lines(400));
    EXPECT_LT(pagesOf(lines(400) + QString(130, 'x')), narrow);            // smaller rows, so fewer pages
    EXPECT_GT(pagesOf(QString(1000, 'x').append('\n').repeated(100)), 5);  // eight rows each
}

TEST(ReportPrinter, PicturesFollowTheText) {
    const QString report = goldenReport("statistics.txt");
    const qsizetype ofText = pagesOf(report, {}, Parts::Text);
    EXPECT_EQ(ofText, 3);
    EXPECT_EQ(pagesOf(report), 5);
    EXPECT_EQ(pagesOf(report, "4-5"), 2);
    EXPECT_EQ(pagesOf(goldenReport("summary.txt")),
              pagesOf(goldenReport("summary.txt"), {}, Parts::Text) + 1);
}

TEST(ReportPrinter, DrawsOnlyTheWantedPages) {
    EXPECT_EQ(pagesOf(lines(200), "2-3"), 2);
    EXPECT_EQ(pagesOf(lines(200), "4"), 1);
}

TEST(ReportPrinter, DeviceThatRefusesIsTold) {
    QPdfWriter writer(kClosedFolder + "/report.pdf");
    EXPECT_FALSE(drawPages({"report.txt", lines(3)}, Parts::Text, writer));
}

TEST(ReportPrinter, WritesAPdf) {
    Files files;
    const QString pdf = files.write("report.pdf", "what was there before");
    writePdf({"report.txt", lines(3)}, Parts::Text, pdf);
    const QByteArray bytes = Files::read(pdf);
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_TRUE(bytes.trimmed().endsWith("%%EOF"));
}

TEST(ReportPrinter, TellsWhyAPdfCannotBeWritten) {
    const Files files;
    for (const QString& place :
         {kClosedFolder + "/report.pdf", files.path("missing/report.pdf"), files.folder()}) {
        try {
            writePdf({"report.txt", lines(3)}, Parts::TextAndPictures, place);
            FAIL() << place.toStdString() << " takes a PDF";
        } catch (const FileFailure& failure) {
            EXPECT_GT(failure.reason().size(), 1) << place.toStdString();
            EXPECT_TRUE(failure.reason().endsWith('.'));
        }
    }
}

}  // namespace tallybrook::test
