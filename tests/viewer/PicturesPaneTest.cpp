#include "Window.h"
#include "readers/Events.h"
#include "viewer/PictureWidget.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSplitter>

namespace tallybrook::test {

namespace {

class PicturesPane : public Window {
protected:
    void openGolden(const QString& name) { ASSERT_TRUE(window->open(goldenFile(name))); }
    PicturesView& pane() { return *dynamic_cast<PicturesView*>(window->findChild<QScrollArea*>()); }
    std::vector<PictureWidget*> pictures() {
        std::vector<PictureWidget*> found;
        for (QWidget* const widget : pane().findChildren<QWidget*>()) {
            if (auto* const picture = dynamic_cast<PictureWidget*>(widget))
                found.push_back(picture);
        }
        return found;
    }
    void reopen() {
        window->close();
        window = std::make_unique<ReportWindow>(settings);
        openGolden("statistics.txt");
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    QMenu& menu(const QString& caption) {
        for (QMenu* const one : window->findChildren<QMenu*>()) {
            if (one->title().remove('&') == caption)
                return *one;
        }
        throw std::runtime_error("no such menu");
    }
    /// The entries of the recent reports as they are when the menu opens.
    QList<QAction*> recentEntries() {
        emit menu("Open Recent").aboutToShow();
        return menu("Open Recent").actions();
    }
    void drop(const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls += path.startsWith("http") ? QUrl(path) : QUrl::fromLocalFile(path);
        data.setUrls(urls);
        QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent event({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &event);
        EXPECT_TRUE(event.isAccepted()) << "who drags it thinks that nothing has become of it";
    }
    /// The other windows, which destroy themselves when they are closed.
    QStringList closeOthers() {
        QStringList titles;
        for (QWidget* const other : QApplication::topLevelWidgets()) {
            if (other == window.get() || dynamic_cast<ReportWindow*>(other) == nullptr)
                continue;
            titles += other->windowTitle();
            other->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return titles;
    }
};

}  // namespace

// --- The pane ----------------------------------------------------------------------------------------------

TEST_F(PicturesPane, TextThatIsNoReportIsTextAlone) {
    EXPECT_FALSE(pane().isVisible());
    EXPECT_FALSE(action("Pictures")->isEnabled());
    EXPECT_EQ(view().width(), window->width());
}

TEST_F(PicturesPane, ReportHasPicturesBesideItsText) {
    openGolden("statistics.txt");
    EXPECT_TRUE(pane().isVisible());
    EXPECT_EQ(pictures().size(), 6U);
    EXPECT_GT(view().width(), window->width() / 3);
    EXPECT_GE(pane().x(), view().width());
    openGolden("full.txt");
    EXPECT_EQ(pictures().front()->accessibleName(), "Game 1: 118");
    ASSERT_TRUE(window->open(files.write("notes.txt", "notes")));
    EXPECT_FALSE(pane().isVisible());
    EXPECT_EQ(pictures().size(), 0U);
}

TEST_F(PicturesPane, F9HidesAndShowsThem) {
    openGolden("statistics.txt");
    press(Qt::Key_F9);
    EXPECT_FALSE(pane().isVisible());
    press(Qt::Key_F9);
    EXPECT_TRUE(pane().isVisible());
}

TEST_F(PicturesPane, RemembersWhetherTheyAreShownAndHowWide) {
    openGolden("statistics.txt");
    auto& splitter = part<QSplitter>();
    splitter.setSizes({400, splitter.width() - 400});
    const QList<int> sizes = splitter.sizes();
    press(Qt::Key_F9);
    reopen();
    EXPECT_FALSE(pane().isVisible());
    EXPECT_FALSE(action("Pictures")->isChecked());
    press(Qt::Key_F9);
    reopen();
    EXPECT_TRUE(pane().isVisible());
    EXPECT_NEAR(part<QSplitter>().sizes().first(), sizes.first(), 20);
}

TEST_F(PicturesPane, PicturesAreHeardAsGraphics) {
    openGolden("statistics.txt");
    EXPECT_EQ(pane().accessibleName(), "Pictures");
    for (PictureWidget* const picture : pictures()) {
        QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(picture);
        ASSERT_NE(heard, nullptr);
        EXPECT_EQ(heard->role(), QAccessible::Graphic);
        EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty());
        EXPECT_GT(heard->text(QAccessible::Description).size(), 20);
    }
}

TEST_F(PicturesPane, KeysReachAndScrollThem) {
    openGolden("statistics.txt");
    press(Qt::Key_Tab);
    ASSERT_TRUE(pane().hasFocus());
    press(Qt::Key_PageDown);
    EXPECT_GT(pane().verticalScrollBar()->value(), 0);
    press(Qt::Key_Backtab);
    EXPECT_TRUE(view().hasFocus());
}

TEST_F(PicturesPane, BoxPicksOutALeague) {
    ASSERT_TRUE(window->open(files.write("season.txt", reportOf(weeklyEvents(30)).toUtf8())));
    auto& box = *pane().findChild<QComboBox*>();
    EXPECT_EQ(box.accessibleName(), "Show in Averages over time");
    EXPECT_EQ(pictures().front()->table().rows.size(), 30U);
    box.setFocus();
    QTest::keyClicks(&box, "City");
    EXPECT_EQ(box.currentText(), "City Open");
    EXPECT_EQ(pictures().front()->table().rows.size(), 10U);
}

TEST_F(PicturesPane, PicturesHaveTheirFullHeight) {
    openGolden("statistics.txt");
    for (const int width : {500, 900, 1300}) {
        window->resize(width, 600);
        QApplication::processEvents();
        for (PictureWidget* const picture : pictures())
            EXPECT_EQ(picture->height(), picture->heightForWidth(picture->width())) << width;
    }
}

TEST_F(PicturesPane, ZoomEnlargesThem) {
    openGolden("statistics.txt");
    const int before = pictures().front()->height();
    press(Qt::Key_Plus, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_GT(pictures().front()->height(), before);
    EXPECT_FALSE(window->grab().isNull());
}

/// Whatever the window and the zoom are: nobody looks at pictures through a slot.
TEST_F(PicturesPane, NothingHasToBeScrolledToTheSide) {
    openGolden("statistics.txt");
    for (const int width : {100, 400, 700, 1200}) {
        for (const int percent : {50, 100, 200, 400}) {
            window->resize(width, 600);
            view().setZoom(Zoom(percent));
            QApplication::processEvents();
            EXPECT_EQ(pane().horizontalScrollBar()->maximum(), 0) << width << ", " << percent;
            EXPECT_LE(pane().widget()->width(), pane().viewport()->width()) << width << ", " << percent;
            EXPECT_LE(pane().mapTo(window.get(), QPoint(pane().width(), 0)).x(), window->width()) << width;
        }
    }
}

TEST_F(PicturesPane, WheelZoomsTextAndPictures) {
    openGolden("statistics.txt");
    const auto turn = [this](int angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event({5, 5}, pane().mapToGlobal(QPoint(5, 5)), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(pane().viewport(), &event);
    };
    turn(60, Qt::ControlModifier);
    EXPECT_EQ(view().zoom().percent(), 100);
    turn(60, Qt::ControlModifier);
    EXPECT_EQ(view().zoom().percent(), 110);
    turn(-120, Qt::NoModifier);
    EXPECT_EQ(view().zoom().percent(), 110);
    EXPECT_GT(pane().verticalScrollBar()->value(), 0);
}

TEST_F(PicturesPane, NothingIsCutOffWithLargeFontsOnASmallScreen) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(2 * usual.pointSizeF());
    QApplication::setFont(large);
    reopen();
    window->resize(1366, 700);
    QApplication::processEvents();
    for (PictureWidget* const picture : pictures()) {
        EXPECT_GE(picture->width(), picture->minimumSizeHint().width());
        EXPECT_EQ(picture->height(), picture->heightForWidth(picture->width()));
    }
    QApplication::setFont(usual);
}

TEST_F(PicturesPane, CopiedIsThePictureInSightOrTheOneTouchedLast) {
    openGolden("statistics.txt");
    const auto copied = [this] {
        action("Copy as Table")->trigger();
        return QApplication::clipboard()->text().toStdString();
    };
    const auto tableOf = [this](std::size_t picture) {
        return pictures()[picture]->table().asText().toStdString();
    };
    EXPECT_EQ(copied(), tableOf(0));
    QScrollBar& rows = *pane().verticalScrollBar();
    rows.setValue(pictures()[0]->geometry().bottom() - 1);
    EXPECT_EQ(copied(), tableOf(0)) << "its last line is seen";
    rows.setValue(pictures()[0]->geometry().bottom());
    EXPECT_EQ(copied(), tableOf(1));
    pictures()[3]->setFocus();
    view().setFocus();
    EXPECT_EQ(copied(), tableOf(3));
    QApplication::clipboard()->setText("before");
    ASSERT_TRUE(window->open(files.write("notes.txt", "notes")));
    EXPECT_EQ(copied(), "before");
}

TEST_F(PicturesPane, EntriesOfPicturesAreOnWhereTheyAreShown) {
    const auto areOn = [this] {
        const bool isOn = action("Copy Picture")->isEnabled();
        EXPECT_EQ(action("Copy as Table")->isEnabled(), isOn);
        EXPECT_EQ(action("Save Picture...")->isEnabled(), isOn);
        return isOn;
    };
    EXPECT_FALSE(areOn());
    openGolden("statistics.txt");
    EXPECT_TRUE(areOn());
    press(Qt::Key_F9);
    EXPECT_FALSE(areOn());
}

TEST_F(PicturesPane, KeysOfPicturesAreForThoseThatAreShown) {
    openGolden("statistics.txt");
    const std::string table = pictures()[0]->table().asText().toStdString();
    for (const bool areShown : {true, false, true}) {
        QApplication::clipboard()->setText("before");
        QTest::keyClick(window.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(), areShown ? table : "before");
        emit menu("Edit").aboutToShow();
        press(Qt::Key_F9);
    }
}

TEST_F(PicturesPane, WhatIsShownIsExported) {
    const auto pagesOf = [this](const QString& name) {
        hands.expect([path = files.path(name)](QDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            dialog.accept();
        });
        action("Export as PDF...")->trigger();
        return Files::read(files.path(name)).count("/Type /Page ");
    };
    openGolden("statistics.txt");
    const qsizetype withPictures = pagesOf("with.pdf");
    action("Pictures")->trigger();
    EXPECT_LT(pagesOf("without.pdf"), withPictures);
}

// --- Recent reports ----------------------------------------------------------------------------------------

TEST_F(PicturesPane, RecentReportsAreListed) {
    const QString other = files.write("R&D.txt", "another");
    ASSERT_TRUE(window->open(other));
    const QList<QAction*> entries = recentEntries();
    ASSERT_EQ(entries.size(), 4);  // with a line and Clear List
    EXPECT_EQ(entries[0]->text(), "&1 R&&D.txt  (" + files.folder() + ")");
    EXPECT_TRUE(entries[1]->text().startsWith("&2 League Night.txt"));
    entries[1]->trigger();
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
    EXPECT_TRUE(recentEntries()[0]->text().startsWith("&1 League Night.txt"));
}

TEST_F(PicturesPane, TenthRecentReportIsReachedByZero) {
    for (int number = 10; number > 0; --number)
        ASSERT_TRUE(window->open(files.write(QString("night %1.txt").arg(number), "a night")));
    EXPECT_TRUE(recentEntries()[8]->text().startsWith("&9 night 9.txt "));
    EXPECT_TRUE(recentEntries()[9]->text().startsWith("1&0 night 10.txt "));
}

TEST_F(PicturesPane, RecentReportIsComparedWithTheOneShown) {
    openGolden("league.txt");
    openGolden("statistics.txt");
    QMenu& recent = menu("Compare With Recent");
    emit recent.aboutToShow();
    recent.actions().at(1)->trigger();
    EXPECT_TRUE(view().text().contains("Report 1: statistics.txt, "));
    EXPECT_TRUE(view().text().contains("Report 2: league.txt, "));
    emit recent.aboutToShow();
    expectBox("The reports cannot be compared:\n\n" + goldenFile("statistics.txt") + "\n" +
              goldenFile("league.txt") + "\n" + files.path("League Night.txt") +
              "\n\nLeague Night.txt is no statistical report, and only these can be compared.");
    recent.actions().at(2)->trigger();
}

TEST_F(PicturesPane, RecentReportThatIsGoneIsOff) {
    const QString other = files.write("other.txt", "another");
    ASSERT_TRUE(window->open(other));
    ASSERT_TRUE(QFile::remove(other));
    EXPECT_FALSE(recentEntries()[0]->isEnabled());
    EXPECT_TRUE(recentEntries()[1]->isEnabled());
}

TEST_F(PicturesPane, RecentReportsAreCleared) {
    recentEntries().last()->trigger();
    emit menu("File").aboutToShow();
    EXPECT_FALSE(menu("Open Recent").isEnabled());
    EXPECT_TRUE(window->open(files.write("other.txt", "another")));
    emit menu("File").aboutToShow();
    EXPECT_TRUE(menu("Open Recent").isEnabled());
}

TEST_F(PicturesPane, FileThatCannotBeShownIsNotRecent) {
    expectBox("The report cannot be shown:\n\n" + files.path("missing.txt") + "\n\nThere is no such file.");
    EXPECT_FALSE(window->open(files.path("missing.txt")));
    EXPECT_EQ(recentEntries().size(), 3);
}

// --- Dropped files -----------------------------------------------------------------------------------------

TEST_F(PicturesPane, DroppedFileIsShown) {
    drop({goldenFile("league.txt")});
    EXPECT_EQ(window->windowTitle(), "league.txt - Tallybrook Report");
    EXPECT_TRUE(pane().isVisible());
    EXPECT_EQ(closeOthers(), QStringList());
}

TEST_F(PicturesPane, DroppedPipeIsRefused) {
    const QString pipe = files.pipe("pipe");
    expectBox("The report cannot be shown:\n\n" + pipe + "\n\nIt is a device and not a file.");
    drop({pipe});
}

TEST_F(PicturesPane, MoreDroppedFilesHaveWindowsOfTheirOwn) {
    drop({goldenFile("league.txt"), goldenFile("full.txt"), goldenFile("summary.txt")});
    EXPECT_EQ(window->windowTitle(), "league.txt - Tallybrook Report");
    QStringList others = closeOthers();
    others.sort();
    EXPECT_EQ(others, (QStringList{"full.txt - Tallybrook Report", "summary.txt - Tallybrook Report"}));
    EXPECT_EQ(closeOthers(), QStringList());
}

TEST_F(PicturesPane, OtherThingsAreNotTaken) {
    drop({"https://tallybrook.example/report.txt"});
    drop({});
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
    EXPECT_FALSE(view().acceptDrops());
}

}  // namespace tallybrook::test
