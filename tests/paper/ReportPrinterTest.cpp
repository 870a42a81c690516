#include "Media.h"
#include "paper/PicturePages.h"
#include "paper/ReportPrinter.h"
#include "pictures/Pictures.h"
#include "readers/FileFailure.h"
#include "readers/Files.h"
#include "readers/Golden.h"
#include "readers/ReportHead.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPageRanges>
#include <QPaintEngine>
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

/// Writes down where each text and each straight line of a page comes to stand.
class ToldEngine : public QPaintEngine {
public:
    ToldEngine() : QPaintEngine(AllFeatures) {}

    struct Word {
        int page;
        QString text;
        QRectF place;  // from the baseline up
    };
    int page = 0;
    std::vector<Word> words;
    std::vector<QLineF> rules;

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/, const QRectF& /*from*/) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    [[nodiscard]] Type type() const override { return User; }
    void drawLines(const QLineF* lines, int count) override {
        rules.insert(rules.end(), lines, lines + count);
    }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        const QPointF baseline = painter()->transform().map(at);
        words.push_back(
            {page, item.text(), {baseline - QPointF(0, item.ascent()), QSizeF(item.width(), item.ascent())}});
    }
};

/// Pages that are told instead of written.
class ToldPages : public QPdfWriter {
public:
    ToldPages() : QPdfWriter(&nowhere_) { setPageSize(QPageSize(QPageSize::A4)); }

    bool newPage() override {
        ++told.page;
        return true;
    }
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &told; }
    /// The texts of a page in the order in which they were drawn.
    [[nodiscard]] QStringList textsOf(int page) const {
        QStringList texts;
        for (const ToldEngine::Word& word : told.words) {
            if (word.page == page)
                texts += word.text;
        }
        return texts;
    }

    mutable ToldEngine told;

private:
    QBuffer nowhere_;
};

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

TEST(ReportPrinter, APageHasItsHeadItsRowsAndItsFoot) {
    ToldPages pages;
    const QString text = "Event Report\n\nfirst\nsecond\n";
    ASSERT_TRUE(drawPages({"/reports/night.txt", text}, {}, pages));
    const std::vector<ToldEngine::Word>& words = pages.told.words;
    EXPECT_EQ(pages.textsOf(0),
              (QStringList{"night.txt", "night.txt", "Page 1 of 1", "Event Report", "first", "second"}));
    ASSERT_EQ(words.size(), 6U);
    const QRectF page(0, 0, pages.width(), pages.height());
    EXPECT_EQ(words[0].place.left(), 0);
    EXPECT_EQ(words[1].place.left(), 0);
    EXPECT_NEAR(words[2].place.right(), page.right(), 1);
    for (std::size_t row = 3; row < words.size(); ++row)
        EXPECT_EQ(words[row].place.left(), 0);
    ASSERT_EQ(pages.told.rules.size(), 2U);
    const double above = pages.told.rules[0].y1();
    const double below = pages.told.rules[1].y1();
    for (const QLineF& rule : pages.told.rules)
        EXPECT_EQ(rule, QLineF(0, rule.y1(), page.right(), rule.y1()));
    EXPECT_NEAR(above, page.height() - below, 0.01);
    EXPECT_GE(words[0].place.top(), 0);
    EXPECT_LT(words[0].place.bottom(), above);
    EXPECT_LT(above, words[3].place.top());
    EXPECT_LT(words[3].place.top() - above, 1.2 * words[0].place.height())
        << "the text begins right below the head";
    EXPECT_NEAR(words[4].place.top() - words[3].place.top(),
                2 * (words[5].place.top() - words[4].place.top()), 0.01);
    EXPECT_GT(words[1].place.top(), below);
    EXPECT_LT(words[1].place.bottom(), page.height());
    EXPECT_EQ(words[1].place.bottom(), words[2].place.bottom());
}

TEST(ReportPrinter, LongNameIsSeenFromItsBeginningToItsEnd) {
    ToldPages pages;
    ASSERT_TRUE(drawPages({"/reports/night" + QString(400, 'n') + ".txt", "first\n"}, {}, pages));
    const QString foot = pages.textsOf(0).at(1);
    EXPECT_LT(foot.size(), 400);
    EXPECT_TRUE(foot.startsWith("nightnn")) << foot.toStdString();
    EXPECT_TRUE(foot.endsWith("nn.txt")) << foot.toStdString();
}

TEST(ReportPrinter, SectionsBeginOnTheirPages) {
    for (const QString& text : {goldenReport("statistics.txt"), goldenReport("full.txt"), kGameReport}) {
        ToldPages pages;
        const std::vector<ReportPicture> pictures = picturesOf(readFigures(text));
        const std::optional<Sections> sections = drawPages({"report.txt", text}, pictures, pages);
        ASSERT_TRUE(sections);
        EXPECT_GE(sections->size(), pictures.size());
        for (const SectionPlace& section : *sections) {
            const QStringList texts = pages.textsOf(section.page);
            EXPECT_TRUE(std::ranges::any_of(
                texts, [&](const QString& one) { return one.trimmed().startsWith(section.name); }))
                << section.page << ": " << section.name.toStdString();
        }
        EXPECT_EQ(sections->back().name, pictures.back().name);
    }
}

TEST(ReportPrinter, PicturesAreDrawnALittleSmallerWhereThatSavesAPage) {
    const std::vector<ReportPicture> pictures = picturesOf(readFigures(goldenReport("statistics.txt")));
    std::vector<double> widths;
    for (double part = 0.5; part < 1.5; part += 0.05) {
        ToldPages paper;
        const QSizeF room(paper.width(), part * paper.height());
        const PicturePages pages(pictures, QGuiApplication::font(), paper, {room, 0});
        QPainter painter(&paper);
        pages.draw(painter, 0);
        widths.push_back(paper.told.words.front().place.width());
        EXPECT_EQ(pages.sections().size(), pictures.size()) << part;
    }
    const double usual = std::ranges::max(widths);
    EXPECT_GT(std::ranges::count(widths, usual), 5);
    EXPECT_LT(std::ranges::min(widths), 0.98 * usual);
    EXPECT_GT(std::ranges::min(widths), 0.8 * usual);
}

TEST(ReportPrinter, PicturesBeginBelowTheText) {
    ToldPages pages;
    const std::vector<ReportPicture> pictures = picturesOf(readFigures(kGameReport));
    ASSERT_TRUE(drawPages({"report.txt", kGameReport}, pictures, pages));
    const auto placeOf = [&pages](const QString& text) {
        const auto found = std::ranges::find(pages.told.words, text, &ToldEngine::Word::text);
        return found == pages.told.words.end() ? QRectF() : found->place;
    };
    const QRectF last = placeOf("All Rights Reserved");
    const QRectF title = placeOf(pictures.front().name);
    EXPECT_GT(title.top(), last.bottom() + last.height());
    EXPECT_LT(title.top(), last.bottom() + 5 * last.height());
}

TEST(ReportPrinter, PictureThatIsHigherThanAPageBeginsAtTheTopOfTheFirst) {
    ToldPages paper;
    const ReportPicture high{"High", "",
                             [](const PictureLook&, double, const PictureView&) {
                                 return Strips{gapStrip(2000), gapStrip(10)};
                             },
                             nullptr};
    const PicturePages pages({high}, QGuiApplication::font(), paper, {QSizeF(900, 1000), 0});
    EXPECT_EQ(pages.count(), 2U);
    EXPECT_EQ(pages.sections().front().page, 0);
}

TEST(ReportPrinter, PicturesHaveALineBetweenThem) {
    ToldPages paper;
    const ReportPicture half{
        "Half", "", [](const PictureLook&, double, const PictureView&) { return Strips{gapStrip(500)}; },
        nullptr};
    const PicturePages pages({half, half}, QGuiApplication::font(), paper, {QSizeF(900, 1000), 0});
    EXPECT_EQ(pages.count(), 2U) << "the second one stands right below the first";
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
    EXPECT_EQ(head("Event Report - Full\nReport Date: 11/14/2026\n"), "Event Report | 11/14/2026");
    EXPECT_EQ(head("notes"), "night.txt | ");
}

}  // namespace tallybrook::test
