#include "paper/PdfOutline.h"
#include "paper/Qpdf.h"
#include "paper/ReportPrinter.h"
#include "pictures/Pictures.h"
#include "readers/Files.h"
#include "readers/Golden.h"

#include <QPageSize>
#include <utility>

#include <gtest/gtest.h>

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

/// Readers of PDFs walk from the first entry to the last, or back.
TEST(PdfOutline, CanBeWalkedBothWays) {
    Files files;
    writePdf({"report.txt", QString("A line\n").repeated(100)}, {}, QPageSize(QPageSize::A4),
             files.path("plain.pdf"));
    QPDF plain;
    plain.processFile(files.path("plain.pdf").toStdString().c_str());
    const auto nowhere = static_cast<int>(plain.getAllPages().size());
    const QByteArray bytes = withOutline(Files::read(files.path("plain.pdf")),
                                         {{"One", 0}, {"Two", 1}, {"Nowhere", nowhere}, {"Three", 1}});
    QPDF pdf;
    pdf.processMemoryFile("outlined", bytes.constData(), static_cast<std::size_t>(bytes.size()));
    EXPECT_EQ(pdf.getRoot().getKey("/PageMode").getName(), "/UseOutlines");
    QPDFObjectHandle outline = pdf.getRoot().getKey("/Outlines");
    EXPECT_EQ(outline.getKey("/Type").getName(), "/Outlines");
    EXPECT_EQ(outline.getKey("/Count").getIntValue(), 3);
    const std::vector<std::pair<std::string, std::size_t>> wanted{{"One", 0}, {"Two", 1}, {"Three", 1}};
    QPDFObjectHandle entry = outline.getKey("/First");
    QPDFObjectHandle before = QPDFObjectHandle::newNull();
    for (const auto& [title, page] : wanted) {
        EXPECT_EQ(entry.getKey("/Title").getUTF8Value(), title);
        EXPECT_EQ(entry.getKey("/Parent").getObjGen(), outline.getObjGen());
        EXPECT_EQ(entry.getKey("/Dest").getArrayItem(0).getObjGen(), pdf.getAllPages().at(page).getObjGen());
        EXPECT_EQ(entry.getKey("/Dest").getArrayItem(1).getName(), "/Fit");
        EXPECT_EQ(entry.getKey("/Prev").getObjGen(), before.getObjGen());
        before = std::exchange(entry, entry.getKey("/Next"));
    }
    EXPECT_TRUE(entry.isNull());
    EXPECT_EQ(before.getObjGen(), outline.getKey("/Last").getObjGen());
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
