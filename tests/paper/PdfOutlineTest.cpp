#include "paper/PdfOutline.h"
#include "paper/ReportPrinter.h"
#include "pictures/Pictures.h"
#include "readers/Files.h"
#include "readers/Golden.h"

#include <QPageSize>

#include <gtest/gtest.h>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>

namespace tallybrook::test {

TEST(PdfOutline, HasATitleAndTheSections) {
    Files files;
    const ReportText report{"report.txt", goldenReport("statistics.txt")};
    writePdf(report, picturesOf(readFigures(report.text)), QPageSize(QPageSize::A4),
             files.path("report.pdf"));
    QPDF pdf;
    pdf.processFile(files.path("report.pdf").toStdString().c_str());
    EXPECT_EQ(pdf.getTrailer().getKey("/Info").getKey("/Title").getUTF8Value(),
              "Statistical Report - All Events");
    QStringList names;
    for (QPDFOutlineObjectHelper entry : QPDFOutlineDocumentHelper(pdf).getTopLevelOutlines()) {
        names += QString::fromStdString(entry.getTitle());
        EXPECT_TRUE(entry.getDestPage().isPageObject());
    }
    EXPECT_EQ(names.mid(0, 3),
              (QStringList{"Event Summary", "Event Listing (12 events found):", "Game Statistics"}));
    EXPECT_TRUE(names.contains("Averages over time"));
    EXPECT_EQ(names.last(), "Spares, by attempts");
}

/// Every page has text that a reader can select, in fonts that tell which characters they show.
TEST(PdfOutline, StandsBesideTextToSelect) {
    Files files;
    writePdf({"report.txt", QString("A line\n").repeated(100)}, {}, QPageSize(QPageSize::A4),
             files.path("report.pdf"));
    QPDF pdf;
    pdf.processFile(files.path("report.pdf").toStdString().c_str());
    for (QPDFObjectHandle page : pdf.getAllPages()) {
        const auto fonts = page.getKey("/Resources").getKey("/Font").getDictAsMap();
        EXPECT_FALSE(fonts.empty());
        for (auto [name, font] : fonts)
            EXPECT_TRUE(font.hasKey("/ToUnicode")) << name;
    }
}

TEST(PdfOutline, LeavesWhatIsNoPdfAsItIs) {
    EXPECT_EQ(withOutline("no PDF", {{"Games", 0}}), "no PDF");
}

}  // namespace tallybrook::test
