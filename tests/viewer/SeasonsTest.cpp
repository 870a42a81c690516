#include "Events.h"
#include "Window.h"
#include "viewer/FileFailure.h"
#include "viewer/PictureWidget.h"
#include "viewer/SeasonsSideBySide.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QImage>
#include <QMimeData>
#include <algorithm>

namespace tallybrook::test {

namespace {

ComparedShare share(Proportion before, Proportion last) {
    return {"10", {before, last}, 0};
}

class SeasonsTest : public Window {
protected:
    SeasonsTest()
        : earlier(files.write("earlier.txt", reportOf(weeklyEvents(40)).toUtf8())),
          later(files.write("later.txt", goldenReport("league.txt").toUtf8())) {}

    void drop(const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls += QUrl::fromLocalFile(path);
        data.setUrls(urls);
        QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        QDropEvent event({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &event);
    }
    std::vector<PictureWidget*> pictures() {
        std::vector<PictureWidget*> found;
        for (QWidget* const widget : window->findChild<QScrollArea*>()->findChildren<QWidget*>()) {
            if (auto* const picture = dynamic_cast<PictureWidget*>(widget))
                found.push_back(picture);
        }
        return found;
    }

    QString earlier;
    QString later;
};

}  // namespace

TEST_F(SeasonsTest, ChanceIsToldInPlainWords) {
    EXPECT_EQ(chanceTold(share({15, 38}, {24, 40})), "24 of 40 against 15 of 38: more than chance would do");
    EXPECT_EQ(chanceTold(share({15, 38}, {18, 40})), "18 of 40 against 15 of 38: may well be chance");
    EXPECT_EQ(chanceTold(share({1, 2}, {18, 40})), "18 of 40 against 1 of 2: too few to tell");
}

TEST_F(SeasonsTest, ReportsAreComparedInTheOrderOfTheirEvents) {
    const QString text = readSeasons({later, earlier}).text();
    EXPECT_TRUE(text.contains("Report 1: earlier.txt, 9/6/1990 to 6/6/1991\nReport 2: later.txt, "));
}

/// Every leave of both reports with its figures as they stand there.
TEST_F(SeasonsTest, TextHasTheFiguresOfBoth) {
    const SeasonsSideBySide seasons = readSeasons({earlier, later});
    const QStringList lines = seasons.text().split('\n');
    const auto lineOf = [&](const QString& name) {
        const auto found =
            std::ranges::find_if(lines, [&](const QString& line) { return line.startsWith(name + "  "); });
        return found == lines.end() ? QString() : found->simplified();
    };
    const ReportFigures first = readFigures(goldenReport("statistics.txt"));
    const ReportFigures second = readFigures(goldenReport("league.txt"));
    for (const LeaveFigures& leave : second.leaves) {
        const auto before = std::ranges::find(first.leaves, leave.pins, &LeaveFigures::pins);
        ASSERT_NE(before, first.leaves.end());
        const QString name = leave.standing == Pins::all() ? QString("All ten pins") : leave.pins;
        EXPECT_TRUE(lineOf(name).contains(QString("%1 of %2, ").arg(before->made).arg(before->attempts)));
        EXPECT_TRUE(lineOf(name).contains(QString("%1 of %2, ").arg(leave.made).arg(leave.attempts)))
            << lineOf(name).toStdString();
    }
    EXPECT_TRUE(lineOf("Spares").startsWith(QString("Spares %1 of %2, ")
                                                .arg(*first.strikes->spares)
                                                .arg(*first.strikes->spares + *first.strikes->opens)));
    EXPECT_TRUE(lineOf("Single pins").startsWith("Single pins 30 of 90, 33%"));
}

TEST_F(SeasonsTest, LeavesThatCostMostComeFirst) {
    const ReportFigures last = readFigures(goldenReport("league.txt"));
    const std::vector<ReportPicture> pictures = readSeasons({earlier, later}).pictures();
    const PictureTable table = pictures.back().table({});
    int before = 1 << 20;
    for (const QStringList& row : table.rows) {
        const int lost = row.last().toInt();
        EXPECT_LE(lost, before);
        before = lost;
        const QString pins = row.first() == "All ten pins" ? QString("1-2-3-4-5-6-7-8-9-10") : row.first();
        const auto leave = std::ranges::find(last.leaves, pins, &LeaveFigures::pins);
        const int misses = leave == last.leaves.end() ? 0 : leave->attempts - leave->made;
        EXPECT_EQ(lost, misses * (1 + *last.strikes->firstBallAverage)) << row.join(' ').toStdString();
    }
}

TEST_F(SeasonsTest, DroppedStatisticalReportsAreCompared) {
    drop({earlier, later});
    EXPECT_EQ(window->windowTitle(), "Seasons Side by Side - Tallybrook Report");
    EXPECT_TRUE(view().text().startsWith("Seasons Side by Side\n\nReport 1: earlier.txt"));
    EXPECT_EQ(pictures().size(), 3U);
    for (PictureWidget* const picture : pictures())
        EXPECT_FALSE(picture->grab().isNull());
}

TEST_F(SeasonsTest, ChosenReportIsComparedWithTheOneShown) {
    ASSERT_TRUE(window->open(earlier));
    hands.expect([this](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Compare With");
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(later);
        dialog.accept();
    });
    press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(view().text().contains("Report 2: later.txt"));
}

TEST_F(SeasonsTest, ReportOfAnotherKindIsRefused) {
    const QString night = files.write("night.txt", goldenReport("full.txt").toUtf8());
    expectBox("The reports cannot be compared:\n\n" + earlier + "\n" + night +
              "\n\nnight.txt is no statistical report, and only these can be compared.");
    EXPECT_FALSE(window->compare({earlier, night}));
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
}

TEST_F(SeasonsTest, ComparisonFollowsItsFiles) {
    ASSERT_TRUE(window->compare({earlier, later}));
    files.write("earlier.txt", reportOf(weeklyEvents(41)).toUtf8());
    EXPECT_TRUE(QTest::qWaitFor([&] { return view().text().contains("9/6/1990 to 6/13/1991"); }));
}

// --- Pictures that leave the window ------------------------------------------------------------------------

TEST_F(SeasonsTest, PictureIsCopiedAndItsTable) {
    ASSERT_TRUE(window->open(earlier));
    pictures()[1]->setFocus();
    action("Copy as Table")->trigger();
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(
        "Date\tEvents\tGames\tPinfall\tAverage\n9/6/1990\t1\t3\t400\t"));
    action("Copy Picture")->trigger();
    EXPECT_GT(QApplication::clipboard()->image().width(), 2 * pictures()[1]->width());
}

TEST_F(SeasonsTest, PictureIsSavedAsItsNameTells) {
    ASSERT_TRUE(window->open(earlier));
    for (const char* const name : {"trend.svg", "trend.png"}) {
        hands.expect([this, name](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Save Picture");
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(files.path(name));
            dialog.accept();
        });
        action("Save Picture...")->trigger();
    }
    const QByteArray svg = Files::read(files.path("trend.svg"));
    EXPECT_TRUE(svg.contains("<title>Averages over time</title>"));
    EXPECT_TRUE(svg.contains("Thursday League"));
    const QImage png(files.path("trend.png"));
    EXPECT_EQ(png.pixelColor(1, 1), QColor(Qt::white));
    EXPECT_GT(png.width(), 400);
}

TEST_F(SeasonsTest, TellsWhereAPictureCannotBeSaved) {
    ASSERT_TRUE(window->open(earlier));
    const QString closed = kClosedFolder + "/trend.svg";
    hands.expect([&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(closed);
        dialog.accept();
    });
    hands.expect([closed](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_TRUE(box.text().startsWith("The picture cannot be saved:\n\n" + closed + "\n\n"));
        box.accept();
    });
    action("Save Picture...")->trigger();
}

}  // namespace tallybrook::test
