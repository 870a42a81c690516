#include "Window.h"
#include "manual/HelpBrowser.h"
#include "readers/Events.h"
#include "viewer/FiguresReader.h"
#include "viewer/FileWatch.h"
#include "viewer/PictureWidget.h"

#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <chrono>
#include <filesystem>
#include <vector>

namespace tallybrook::test {

namespace {

class ReloadTest : public Window {
protected:
    QFrame& notice() { return *window->findChild<QFrame*>("notice"); }
    QString told() { return notice().isVisible() ? notice().accessibleName() : QString(); }
    [[nodiscard]] bool comesTo(const QString& text) {
        return QTest::qWaitFor([&] { return view().text() == text; });
    }
    [[nodiscard]] bool isToldOf(const QString& begin) {
        return QTest::qWaitFor([&] { return told().startsWith(begin); });
    }
    PictureWidget& picture() { return *dynamic_cast<PictureWidget*>(found()); }

private:
    QWidget* found() {
        for (QWidget* const widget : window->findChild<QScrollArea*>()->findChildren<QWidget*>()) {
            if (dynamic_cast<PictureWidget*>(widget) != nullptr)
                return widget;
        }
        return nullptr;
    }
};

const QString kAnew = "The report was written anew, and is shown as it is now.";

}  // namespace

TEST_F(ReloadTest, FileThatIsWrittenAnewIsShownAnew) {
    files.write("League Night.txt", "Another\r\n");
    EXPECT_TRUE(comesTo("Another\n"));
    EXPECT_EQ(told(), kAnew);
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
}

TEST_F(ReloadTest, AnotherFileThatTakesTheNameIsShown) {
    const QString other = files.write("other.txt", "Another\r\n");
    std::filesystem::rename(other.toStdString(), files.path("League Night.txt").toStdString());
    EXPECT_TRUE(comesTo("Another\n"));
    files.write("League Night.txt", "A third\r\n");  // and it is watched from now on
    EXPECT_TRUE(comesTo("A third\n"));
}

TEST_F(ReloadTest, FileThatWasWrittenWhileItWasReadIsTold) {
    const QString file = files.write("season.txt", "half");
    const FileStamp read = stampOf(file);
    files.write("season.txt", "half and half");
    bool isTold = false;
    FileWatch watch;
    watch.onWritten = [&isTold] { isTold = true; };
    watch.watch(file, read);
    EXPECT_TRUE(QTest::qWaitFor([&isTold] { return isTold; }));
}

TEST_F(ReloadTest, WritingsOfOneSecondAreToldApart) {
    const QString file = files.write("season.txt", "half");
    const std::filesystem::path path = file.toStdString();
    const auto second = std::chrono::floor<std::chrono::seconds>(std::filesystem::last_write_time(path));
    std::filesystem::last_write_time(path, second);
    const FileStamp first = stampOf(file);
    std::filesystem::last_write_time(path, second + std::chrono::milliseconds(1));
    EXPECT_FALSE(stampOf(file) == first);
}

TEST_F(ReloadTest, FileThatIsGoneIsNotTold) {
    const QString gone = files.write("gone.txt", "here");
    const QString other = files.write("other.txt", "before");
    bool isToldOfGone = false;
    bool isToldOfOther = false;
    FileWatch onGone;
    onGone.onWritten = [&] { isToldOfGone = true; };
    onGone.watch(gone, stampOf(gone));
    FileWatch onOther;
    onOther.onWritten = [&] { isToldOfOther = true; };
    onOther.watch(other, stampOf(other));
    ASSERT_TRUE(QFile::remove(gone));
    for (const char* const text : {"after it has gone", "and long after"}) {
        isToldOfOther = false;
        files.write("other.txt", text);
        ASSERT_TRUE(QTest::qWaitFor([&] { return isToldOfOther; }));
    }
    EXPECT_FALSE(isToldOfGone);
}

TEST_F(ReloadTest, FileThatGoesAndComesAgainIsShown) {
    ASSERT_TRUE(QFile::remove(files.path("League Night.txt")));
    files.write("League Night.txt", "Another\r\n");
    EXPECT_TRUE(comesTo("Another\n"));
}

TEST_F(ReloadTest, ReaderStaysWhereTheyWere) {
    const QByteArray lines = QByteArray("A line of the report\r\n").repeated(500);
    start("long.txt", lines);
    view().select(2100, 21);
    view().verticalScrollBar()->setValue(90);
    files.write("long.txt", lines + "One more\r\n");
    ASSERT_TRUE(isToldOf(kAnew));
    EXPECT_TRUE(view().text().endsWith("One more\n"));
    EXPECT_EQ(view().verticalScrollBar()->value(), 90);
    EXPECT_EQ(view().selected().begin, 2100);
    EXPECT_EQ(view().selected().end, 2121);
    EXPECT_TRUE(view().hasFocus());
}

TEST_F(ReloadTest, PicturesStayAsTheyAreLookedAt) {
    start("season.txt", reportOf(weeklyEvents(60)).toUtf8());
    picture().setFocus();
    QTest::keyClick(&picture(), Qt::Key_Plus);
    const PictureView before = picture().view();
    const PictureWidget* const widget = &picture();
    files.write("season.txt", reportOf(weeklyEvents(61)).toUtf8());
    ASSERT_TRUE(isToldOf(kAnew));
    EXPECT_EQ(&picture(), widget);
    EXPECT_EQ(picture().view(), before);
    EXPECT_TRUE(picture().picture().summary.startsWith("61 events"));
}

TEST_F(ReloadTest, NewLeagueIsOfferedBesideThoseBefore) {
    std::vector<WrittenEvent> events = weeklyEvents(30);
    start("season.txt", reportOf(events).toUtf8());
    events.back().name = "Sunday Cup";
    files.write("season.txt", reportOf(events).toUtf8());
    ASSERT_TRUE(isToldOf(kAnew));
    EXPECT_NE(part<QScrollArea>().findChild<QComboBox*>()->findText("Sunday Cup"), -1);
}

TEST_F(ReloadTest, WhatCannotBeShownAnewStaysAndIsTold) {
    files.write("League Night.txt", QByteArray(100, '\0'));
    EXPECT_TRUE(isToldOf("The report was written anew, but cannot be shown. It is no text"));
    EXPECT_EQ(view().text(), "Strike\tSpare\nstrike\tspare\nSTRIKE\n");
}

TEST_F(ReloadTest, F5ShowsItAsItIs) {
    press(Qt::Key_F5);
    EXPECT_EQ(told(), "The report is shown as it is now.");
    ASSERT_TRUE(QFile::remove(files.path("League Night.txt")));
    expectBox("The report cannot be shown:\n\n" + files.path("League Night.txt") +
              "\n\nThere is no such file.");
    press(Qt::Key_F5);
    EXPECT_EQ(view().text(), "Strike\tSpare\nstrike\tspare\nSTRIKE\n");
}

TEST_F(ReloadTest, NoticeIsClosedByEscapeAndByItsButton) {
    press(Qt::Key_F5);
    press(Qt::Key_Escape);
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(window->isVisible());
    press(Qt::Key_F5);
    for (QPushButton* const button : notice().findChildren<QPushButton*>()) {
        if (button->text() == "Close")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_EQ(told(), "");
}

TEST_F(ReloadTest, EscapeClosesTheFindBarBeforeTheNotice) {
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_F5);
    press(Qt::Key_Escape);
    EXPECT_FALSE(findBar().isVisible());
    EXPECT_NE(told(), "");
    press(Qt::Key_Escape);
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ReloadTest, NoticeGoesByItselfUnlessItOffersSomething) {
    auto& going = *notice().findChild<QTimer*>();
    auto& offered = *notice().findChild<QPushButton*>();
    action("Reload")->trigger();
    EXPECT_TRUE(going.isActive());
    EXPECT_TRUE(going.isSingleShot());
    EXPECT_FALSE(offered.isVisible());
    hands.expect([](QDialog& dialog) { dialog.accept(); });
    action("Export as PDF...")->trigger();
    EXPECT_TRUE(offered.isVisible());
    EXPECT_FALSE(going.isActive());
    action("Reload")->trigger();
    EXPECT_FALSE(offered.isVisible());
    EXPECT_EQ(told(), "The report is shown as it is now.");
    going.start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !notice().isVisible(); }));
    action("Reload")->trigger();
    ASSERT_TRUE(window->open(files.write("other.txt", "another")));
    EXPECT_EQ(told(), "") << "it was on another report";
}

TEST_F(ReloadTest, LongReportShowsItsTextFirstAndItsPicturesAfter) {
    start("long.txt", reportOf(weeklyEvents(6000)).toUtf8());
    EXPECT_TRUE(view().text().contains("Thursday League"));
    auto& pane = part<QScrollArea>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane.isVisible(); }));
    EXPECT_TRUE(picture().picture().summary.startsWith("6000 events"));
}

TEST_F(ReloadTest, FiguresOfAnEarlierReportAreNotShown) {
    ASSERT_TRUE(window->open(files.write("long.txt", reportOf(weeklyEvents(6000)).toUtf8())));
    ASSERT_TRUE(window->open(files.write("notes.txt", "notes")));
    QApplication::processEvents();
    EXPECT_FALSE(part<QScrollArea>().isVisible());
}

TEST_F(ReloadTest, FiguresAreThoseOfTheTextGivenLast) {
    const QString longText = reportOf(weeklyEvents(6000));
    std::vector<std::size_t> told;
    FiguresReader reader;
    reader.onRead = [&](const ReportFigures& figures) { told.push_back(figures.events.bowled.size()); };
    reader.read(longText);
    reader.read(reportOf(weeklyEvents(6001)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
    reader.read(longText);
    reader.read("notes");
    bool isLaterRead = false;
    FiguresReader later;
    later.onRead = [&](const ReportFigures&) { isLaterRead = true; };
    later.read(longText);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLaterRead; }));
    EXPECT_EQ(told, (std::vector<std::size_t>{6001, 0}));
}

TEST_F(ReloadTest, F1OpensTheHelpOnReports) {
    press(Qt::Key_F1);
    HelpBrowser* shown = nullptr;
    for (QWidget* const top : QApplication::topLevelWidgets()) {
        if (top->objectName() == "help" && top->isVisible())
            shown = top->findChild<HelpBrowser*>();
    }
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->documentTitle(), "Reading a report");
    action("Contents")->trigger();
    EXPECT_EQ(shown->documentTitle(), "Tallybrook Help");
}

}  // namespace tallybrook::test
