#include "Window.h"
#include "readers/Events.h"
#include "viewer/PictureWidget.h"
#include "viewer/RecentReports.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QImage>
#include <QMimeData>

namespace tallybrook::test {

namespace {

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

TEST_F(SeasonsTest, ReportIsNotComparedWithItself) {
    ASSERT_TRUE(window->open(earlier));
    hands.expect([this](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(earlier);
        dialog.accept();
    });
    press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window->windowTitle(), "earlier.txt - Tallybrook Report");
    EXPECT_FALSE(window->compare({later}));
    EXPECT_EQ(window->windowTitle(), "earlier.txt - Tallybrook Report");
}

TEST_F(SeasonsTest, ComparedReportsAreRecent) {
    ASSERT_TRUE(window->compare({earlier, later}));
    EXPECT_EQ(RecentReports(settings).files().mid(0, 2), (QStringList{later, earlier}));
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
