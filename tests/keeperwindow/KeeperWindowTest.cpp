// The window, used with mouse and keys.

#include "Window.h"
#include "carry/OldLogbooks.h"
#include "desktop/Heard.h"
#include "desktop/WindowPlan.h"
#include "keeperwindow/ArchiveDialog.h"
#include "keeperwindow/WordsDialog.h"
#include "runtime/InstanceLock.h"
#include "style/OutlinedStyle.h"
#include "support/SameText.h"

#include <QDir>
#include <QHeaderView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <fstream>

namespace tallybrook::keeper {

namespace {

TEST_F(Window, ShowsTheLogbookItsBackupsAndTheirEvents) {
    open();
    EXPECT_TRUE(isShown("It holds 2 events, 4 games and 40 frames. Last night bowled: 11/3/2026."));
    ASSERT_EQ(backups().count(), 1);
    EXPECT_TRUE(
        backups().item(0)->text().startsWith("Sunday, November 22, 2026, 8:00 PM\n"
                                             "2 events, 4 games and 40 frames"))
        << backups().item(0)->text().toStdString();
    EXPECT_TRUE(backups().item(0)->text().endsWith("\nThe same as today's logbook."));
    EXPECT_EQ(events().topLevelItemCount(), 2);
    EXPECT_FALSE(button("Add Ticked").isEnabled());
}

TEST_F(Window, IsAsItWasWanted) {
    test::change(data, {"UPDATE tblGameInfo SET fldLanePair = '27-28' WHERE fldGameKey = 1"});
    clock.set(clock.now() + std::chrono::hours{18});
    backUpNow(logbookIn(data), clock);
    test::deleteEvent(data, 2);
    open();
    for (int event = 0; event < events().topLevelItemCount(); ++event)
        events().topLevelItem(event)->setExpanded(true);
    events().topLevelItem(0)->setCheckState(0, Qt::Checked);
    events().topLevelItem(1)->setCheckState(0, Qt::Checked);
    test::expectPlan(*window, "keeperwindow/plans/window.txt");

    const ArchivedEvent old{
        .key = 1, .name = "Tuesday", .date = "11/3/2026", .center = "Lanes", .present = 1};
    const ArchivedEvent fresh{.key = 2, .name = "Friday"};
    test::expectPlan(ArchiveDialog({.counts = {.events = 2}, .events = {old, fresh}}, nullptr),
                     "keeperwindow/plans/archive.txt");
    test::expectPlan(ArchiveDialog({.counts = {.events = 1}, .events = {fresh}}, nullptr),
                     "keeperwindow/plans/new-archive.txt");
    test::expectPlan(WordsDialog("What Was Done", "Some words", nullptr), "keeperwindow/plans/words.txt");
}

TEST_F(Window, GivesADeletedEventBackByTheKeyboardAlone) {
    test::deleteEvent(data, 1);
    open();
    EXPECT_TRUE(backups().item(0)->text().endsWith("1 event, 2 games and 20 frames were deleted since."));
    EXPECT_EQ(window->focusWidget(), &backups());
    QTest::keyClick(&backups(), Qt::Key_Tab);
    ASSERT_EQ(window->focusWidget(), &events());
    QTest::keyClick(&events(), Qt::Key_Down);
    QTest::keyClick(&events(), Qt::Key_Home);
    EXPECT_EQ(events().currentItem()->text(0), "Tuesday") << "what was deleted stands first";
    EXPECT_EQ(events().currentItem()->text(4), "deleted since");
    const test::Heard heard;
    QTest::keyClick(&events(), Qt::Key_Space);
    ASSERT_EQ(events().currentItem()->checkState(0), Qt::Checked);
    EXPECT_EQ(test::Heard::take(QAccessible::StateChanged).front(), "Tuesday");
    ASSERT_TRUE(button("Add 1 Ticked Event").isEnabled());
    QTest::keyClick(window.get(), Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return window->isBusy(); }));  // a pressed button is seen pressed first
    waitForWork();
    waitForWork();
    EXPECT_TRUE(isShown("Added to the logbook: 1 event, 2 games and 20 frames."));
    EXPECT_TRUE(isReadAloud("Added to the logbook: 1 event, 2 games and 20 frames."));
    EXPECT_TRUE(isShown("It holds 2 events, 4 games and 40 frames."));
    ASSERT_EQ(backups().count(), 2);
    EXPECT_TRUE(backups().item(1)->text().endsWith("\nThe same as today's logbook."));
}

TEST_F(Window, ShowsTheGamesAndFramesOfAnEvent) {
    open();
    QTreeWidgetItem& event = *events().topLevelItem(0);
    event.setExpanded(true);
    ASSERT_EQ(event.childCount(), 2);
    EXPECT_EQ(event.child(0)->text(0), "Game 1");
    EXPECT_EQ(event.child(0)->text(3), "150");
    EXPECT_EQ(event.child(0)->childCount(), 10);
    EXPECT_EQ(event.child(0)->child(0)->text(0), "Frame 1: 7-10");
}

TEST_F(Window, ShowsTheEventsOfTheBackupThatIsChosen) {
    test::deleteEvent(data, 1);
    clock.set(clock.now() + std::chrono::hours{18});
    backUpNow(logbookIn(data), clock);
    open();
    ASSERT_EQ(backups().count(), 2);
    EXPECT_EQ(backups().currentRow(), 0);
    ASSERT_EQ(events().topLevelItemCount(), 1);
    EXPECT_EQ(events().topLevelItem(0)->text(4), "") << "it is as today";
    backups().setCurrentRow(1);
    ASSERT_EQ(events().topLevelItemCount(), 2);
    EXPECT_EQ(events().topLevelItem(0)->text(4), "deleted since");
    events().topLevelItem(0)->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(button("Add 1 Ticked Event").isEnabled());
    backups().setCurrentRow(0);
    EXPECT_FALSE(button("Add Ticked Events").isEnabled()) << "what was ticked is no longer shown";
}

TEST_F(Window, SaysWhichBackupIsDamaged) {
    clock.set(clock.now() + std::chrono::hours{18});
    std::ofstream(backupsIn(data).fileFor(clock.now())) << "Dear Aunt\n";
    open();
    EXPECT_TRUE(backups().item(0)->text().endsWith("\nThis backup is damaged."));
    EXPECT_TRUE(isShown("This backup is damaged."));
    EXPECT_EQ(events().topLevelItemCount(), 0);
    EXPECT_FALSE(button("Restore").isEnabled());
    backups().setCurrentRow(1);
    EXPECT_TRUE(isShown("Tick the events that you want back."));
    EXPECT_EQ(events().topLevelItemCount(), 2);
    EXPECT_TRUE(button("Restore").isEnabled());
}

TEST_F(Window, DoesOneThingAtATime) {
    const auto isAnyOn = [this](const QString& leftOut) {
        const auto actions = window->menuBar()->actions().front()->menu()->actions();
        return std::ranges::any_of(actions, [&](const QAction* action) {
            return !action->isSeparator() && action->text() != leftOut && action->isEnabled();
        });
    };
    window = std::make_unique<KeeperWindow>(data, clock);
    window->show();
    ASSERT_TRUE(window->isBusy());
    EXPECT_FALSE(isAnyOn("&Close"));
    EXPECT_FALSE(button("Restore").isEnabled());
    window->refresh();  // what is on its way goes on alone
    waitForWork();
    EXPECT_TRUE(isAnyOn("&Close"));
    EXPECT_TRUE(button("Restore").isEnabled());
    EXPECT_FALSE(button("Cancel").isVisible());
    EXPECT_FALSE(part<QProgressBar>().isVisible());
}

TEST_F(Window, GamesStandOnceHoweverOftenTheirEventIsOpened) {
    open();
    QTreeWidgetItem& event = *events().topLevelItem(0);
    for (const bool isOpen : {true, false, true})
        event.setExpanded(isOpen);
    EXPECT_EQ(event.childCount(), 2);
}

TEST_F(Window, OpenedEventIsNotReadAloudAsTicked) {
    open();
    events().setFocus();
    events().setCurrentItem(events().topLevelItem(0));
    const test::Heard heard;
    events().topLevelItem(0)->setExpanded(true);
    EXPECT_EQ(test::Heard::take(QAccessible::StateChanged), std::vector<std::string>{});
}

TEST_F(Window, FitsOnTheDisplay) {
    open();
    const QSize room = window->screen()->availableSize();
    EXPECT_EQ(window->size().boundedTo(room), window->size());
    EXPECT_GT(events().width(), backups().width()) << "there is more to be read in it";
}

TEST_F(Window, KeepsItsColumnsInSightWhateverTheNames) {
    test::addEvent(data, std::string(1'000'000, 'n'));
    backUpNow(logbookIn(data), clock);
    open();
    const QHeaderView& header = *events().header();
    EXPECT_LT(header.sectionPosition(header.count() - 1), 100 * events().fontMetrics().averageCharWidth());
    EXPECT_EQ(events().topLevelItem(0)->text(0), QString(2000, 'n'));
}

TEST_F(Window, RestoresABackupOnceThatIsConfirmed) {
    const auto backedUp = test::rowsOf(logbookIn(data));
    test::deleteEvent(data, 1);
    const auto before = test::rowsOf(logbookIn(data));
    open();
    expectBox(
        "Put this backup in the place of your logbook?\n\nSunday, November 22, 2026, 8:00 PM\n2 events, 4 "
        "games and 40 frames \u00b7 last night bowled 11/3/2026 \u00b7 49.2 kB\n1 event, 2 games and 20 "
        "frames were deleted since.\n\nYour present logbook is backed up first",
        "Cancel");
    button("Restore").click();
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
    expectBox("Your present logbook is backed up first", "Restore");
    button("Restore").click();
    waitForWork();
    waitForWork();
    EXPECT_EQ(test::rowsOf(logbookIn(data)), backedUp);
    EXPECT_TRUE(
        isShown("Restored, checked and compared: the logbook holds 2 events, 4 games and 40 frames."));
    EXPECT_EQ(backups().count(), 2);
}

TEST_F(Window, ReturnRestoresNothing) {
    test::deleteEvent(data, 1);
    const auto before = test::rowsOf(logbookIn(data));
    open();
    hands.expect([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    button("Restore").click();
    waitForWork();
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(Window, EventsComeBackInTheOrderInWhichTheyWereEntered) {
    test::deleteEvent(data, 1);
    test::deleteEvent(data, 2);
    open();
    EXPECT_EQ(events().topLevelItem(0)->text(0), "Friday") << "the newest stands first";
    events().topLevelItem(0)->setCheckState(0, Qt::Checked);
    events().topLevelItem(1)->setCheckState(0, Qt::Checked);
    button("Add 2 Ticked").click();
    waitForWork();
    const auto rows = test::rowsOf(logbookIn(data));
    EXPECT_TRUE(rows.at(0).starts_with("tblEventInfo integer3 text'Tuesday'")) << rows.at(0);
    EXPECT_TRUE(rows.at(1).starts_with("tblEventInfo integer4 text'Friday'")) << rows.at(1);
}

TEST_F(Window, WhatIsCancelledCanBeDoneAgain) {
    window = std::make_unique<KeeperWindow>(data, clock);
    window->show();
    EXPECT_TRUE(window->isBusy());
    button("Cancel").click();
    waitForWork();
    expectFile(data / "mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    EXPECT_TRUE(isShown("mine.jsonl: 2 events, 4 games and 40 frames."));
}

TEST_F(Window, WhatWasDoneEarlierIsNotToldAgain) {
    open();
    expectFile(data / "mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    trigger("Read Backups Again");
    EXPECT_TRUE(isShown("mine.jsonl"));
    std::ofstream(data / "letter.jsonl") << "Dear Aunt\n";
    expectFile(data / "letter.jsonl", "Read Archive");
    expectBox("The archive could not be read.", "OK");
    trigger("Read Archive...");
    trigger("Read Backups Again");
    EXPECT_FALSE(isShown("mine.jsonl"));
}

TEST_F(Window, NameThatLooksLikeMarkupIsShownAsItIs) {
    open();
    expectFile(data / "<b>mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    EXPECT_TRUE(isShown("<b>mine.jsonl: 2 events, 4 games and 40 frames."));
    for (const QLabel* const label : window->findChildren<QLabel*>())
        EXPECT_TRUE(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()))
            << label->text().toStdString();
}

TEST_F(Window, SaysThatTallybrookRuns) {
    const InstanceLock running(lockIn(data));
    open();
    EXPECT_TRUE(isShown("Tallybrook is running. This is from its newest backup, of 11/22/2026 8:00:00 PM."));
    events().topLevelItem(0)->setCheckState(0, Qt::Checked);
    expectBox("The events could not be added.\n\nTallybrook is running", "OK");
    button("Add 1 Ticked").click();
    waitForWork();
    expectBox("Put this backup in the place of your logbook?", "Restore");
    expectBox("The backup could not be restored.\n\nTallybrook is running", "OK");
    button("Restore").click();
    waitForWork();
}

TEST_F(Window, TellsWhatThereIsNotToBeShown) {
    open();
    fs::remove_all(data / "Backups");
    expectBox("The games cannot be shown.\n\n", "OK");
    events().topLevelItem(0)->setExpanded(true);
    std::ofstream(logbookIn(data)) << "Dear Aunt\n";
    open();
    EXPECT_TRUE(isShown("It cannot be read."));
    EXPECT_TRUE(isShown("There are no backups yet. Tallybrook makes the first at its next start."));
}

TEST_F(Window, CarriesALogbookToANewMachine) {
    open();
    expectFile(data / "mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    EXPECT_TRUE(isShown("mine.jsonl: 2 events, 4 games and 40 frames."));
    const test::TemporaryFolder other;
    window = std::make_unique<KeeperWindow>(other.path(), clock);
    window->show();
    waitForWork();
    EXPECT_TRUE(isShown("There are no backups yet."));
    expectFile(data / "mine.jsonl", "Read Archive");
    trigger("Read Archive...");
    EXPECT_TRUE(isShown("A new logbook was made: 2 events, 4 games and 40 frames."));
    EXPECT_EQ(test::rowsOf(logbookIn(other.path())), test::rowsOf(logbookIn(data)));
}

TEST_F(Window, AsksWhatIsToBeDoneWithEventsThatAreThere) {
    open();
    expectFile(data / "mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    test::deleteEvent(data, 2);
    expectFile(data / "mine.jsonl", "Read Archive");
    hands.expect([](QDialog& dialog) {
        const QTreeWidget& list = *dialog.findChild<QTreeWidget*>();
        EXPECT_EQ(list.topLevelItemCount(), 1);
        EXPECT_EQ(list.topLevelItem(0)->text(3), "the logbook's stays");
        for (QPushButton* const each : dialog.findChildren<QPushButton*>()) {
            EXPECT_EQ(each->isDefault(), each->text() == "&Read Archive") << each->text().toStdString();
            if (each->text() == "Keep &Both")
                each->click();
        }
        EXPECT_EQ(list.topLevelItem(0)->text(3), "both are kept");
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);  // which would hide what is done
        EXPECT_GE(list.columnWidth(3), list.fontMetrics().horizontalAdvance("the archive's takes its place"));
        dialog.accept();
    });
    trigger("Read Archive...");
    EXPECT_TRUE(isShown("Added to the logbook: 2 events, 4 games and 40 frames."));
}

TEST_F(Window, TellsHowManyEventsWerePassedOver) {
    test::deleteEvent(data, 2);
    test::change(data, {"INSERT INTO tblGameInfo (fldSessionNum, fldGameNum) VALUES (99, 1)"});
    open();
    expectFile(data / "mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    const auto before = test::rowsOf(logbookIn(data));
    expectFile(data / "mine.jsonl", "Read Archive");
    hands.expect([](QDialog& dialog) { dialog.reject(); });
    trigger("Read Archive...");
    EXPECT_FALSE(isShown("Added to the logbook"));
    expectFile(data / "mine.jsonl", "Read Archive");
    hands.expect([](QDialog& dialog) { dialog.accept(); });
    trigger("Read Archive...");
    EXPECT_TRUE(
        isShown("Added to the logbook: nothing. Passed over, since the logbook has them: 1. Without an "
                "event, and passed over: 1."));
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(Window, AsksNothingWhereTheLogbookIsEmpty) {
    open();
    expectFile(data / "mine.jsonl", "Write Archive");
    trigger("Write Archive...");
    const auto before = test::rowsOf(logbookIn(data));
    test::deleteEvent(data, 1);
    test::deleteEvent(data, 2);
    expectFile(data / "mine.jsonl", "Read Archive");
    trigger("Read Archive...");
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(Window, TellsWhatIsWrongWithAnArchive) {
    open();
    std::ofstream(data / "letter.jsonl") << "Dear Aunt\n";
    expectFile(data / "letter.jsonl", "Read Archive");
    expectBox("The archive could not be read.\n\nThe archive cannot be read: ", "OK");
    trigger("Read Archive...");
}

TEST_F(Window, CarriesAnOldLogbookOver) {
    const test::OldLogbookFolder other;
    std::vector<test::JetTableText> old = test::emptyOldTables();
    old[0].rows = {
        test::rowWith(old[0], {{"fldSessionNum", std::int64_t{17}}, {"fldEventName", "Thursday"}})};
    old[1].fields.pop_back();
    test::writeBytes(other.logbook(), test::jetFile(old));
    window = std::make_unique<KeeperWindow>(other.path(), clock);
    window->show();
    waitForWork();
    EXPECT_TRUE(isShown("Tallybrook Keeper can carry it over"));
    hands.expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "Tallybrook_DB.mdb");
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    hands.expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "What Was Carried Over");
        const QString words = dialog.findChild<QPlainTextEdit*>()->toPlainText();
        EXPECT_TRUE(words.startsWith("Carried over: 1 event, 0 pins in all.\n")) << words.toStdString();
        EXPECT_TRUE(words.contains("tblGameInfo has no column fldBowlHand"));
        EXPECT_TRUE(words.contains("Tallybrook_DB (old).mdb"));
        dialog.reject();
    });
    trigger("Carry Over an Old Logbook...");
    EXPECT_TRUE(isReadAloud("Carried over: 1 event, 0 pins in all."));
    EXPECT_TRUE(isShown("It holds 1 event."));
}

TEST_F(Window, CarriesNothingOverALogbook) {
    open();
    test::writeBytes(data / "old.mdb", test::jetFile({}));
    expectFile(data / "old.mdb", "Carry Over an Old Logbook");
    expectBox("a logbook with events already", "OK");
    trigger("Carry Over an Old Logbook...");
    EXPECT_TRUE(isShown("It holds 2 events"));
}

TEST_F(Window, TellsWhatIsNoOldLogbook) {
    const auto before = test::rowsOf(logbookIn(data));
    open();
    std::ofstream(data / "letter.mdb") << "Dear Aunt\n";
    expectFile(data / "letter.mdb", "Carry Over an Old Logbook");
    expectBox("The old logbook could not be carried over.", "OK");
    trigger("Carry Over an Old Logbook...");
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(Window, WritesASpreadsheet) {
    open();
    expectFile(data / "season.xlsx", "Write Spreadsheet");
    trigger("Write Spreadsheet...");
    EXPECT_TRUE(isShown("season.xlsx: 2 events, 4 games and 40 frames."));
    EXPECT_GT(fs::file_size(data / "season.xlsx"), 1000U);
}

TEST_F(Window, WritesCsvFilesOfTheNewestBackupWhereTallybrookRuns) {
    test::addEvent(data, "Sunday");
    const InstanceLock running(lockIn(data));
    open();
    fs::create_directory(data / "sheets");
    expectFile(data / "sheets", "Write CSV Files into a Folder");
    trigger("Write CSV Files...");
    EXPECT_TRUE(
        isShown("sheets: 2 events, 4 games and 40 frames. Tallybrook is running. This is from its newest "
                "backup, of 11/22/2026 8:00:00 PM."));
    EXPECT_TRUE(fs::exists(data / "sheets" / "events.csv"));
}

TEST_F(Window, WritesCsvFilesThatNoSpreadsheetTakesForFormulas) {
    test::addEvent(data, "=1+1");
    fs::create_directory(data / "sheets");
    open();
    expectFile(data / "sheets", "Write CSV Files into a Folder");
    trigger("Write CSV Files...");
    const std::string text = test::bytesOf(data / "sheets" / "events.csv");
    EXPECT_NE(text.find(",'=1+1,"), std::string::npos) << text;
}

TEST_F(Window, DoesNothingWhereNoFileIsChosen) {
    open();
    for (const auto& [caption, offered] :
         {std::pair("Write Archive...", "Tallybrook logbook.jsonl"),
          std::pair("Write Spreadsheet...", "Tallybrook logbook.xlsx"), std::pair("Write CSV Files...", ""),
          std::pair("Read Archive...", ""), std::pair("Carry Over an Old Logbook...", "")}) {
        hands.expect([offered = offered](QDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), offered);
            EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory(), QDir::home());
            dialog.reject();
        });
        trigger(caption);
    }
    EXPECT_FALSE(isShown("Written to"));
    EXPECT_TRUE(isShown("It holds 2 events, 4 games and 40 frames."));
}

TEST_F(Window, TellsWhatCannotBeWritten) {
    const auto before = test::rowsOf(logbookIn(data));
    open();
    for (const auto& [caption, failed] :
         {std::pair("Write Archive...", "The archive could not be written."),
          std::pair("Write Spreadsheet...", "The spreadsheet could not be written.")}) {
        expectFile(data / "Tallybrook_DB.mdb-journal", QString(caption).chopped(3));
        expectBox(QString(failed) + "\n\nThis file belongs to the logbook itself, and is not written over: ",
                  "OK");
        trigger(caption);
    }
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(Window, TellsWhereNoCsvFilesCanBeWritten) {
    fs::create_directories(data / "sheets" / "games.csv");
    open();
    expectFile(data / "sheets", "Write CSV Files into a Folder");
    expectBox("The CSV files could not be written.\n\nThis is a folder; please name a file: ", "OK");
    trigger("Write CSV Files...");
    EXPECT_FALSE(fs::exists(data / "sheets" / "events.csv"));
}

/// A way the desktop can look.
struct Look {
    const char* name;
    bool isDark;
    int points;
};

QPalette darkPalette() {
    QPalette palette(QColor(0x2a, 0x2e, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(role, QColor(0xfc, 0xfc, 0xfc));
    palette.setColor(QPalette::Highlight, QColor(0x1d, 0x5a, 0x7a));
    return palette;
}

/// With TALLYBROOK_SHOTS, a folder, it leaves pictures there; the first is that of the help.
TEST_F(Window, ShowsAllOfItsWordsWhateverTheDesktopLooksLike) {
    test::deleteEvent(data, 1);
    test::deleteEvent(data, 2);
    for (const char* name : {"Monday Scratch Trio", "Thursday Night League", "Practice with coach",
                             "City Open", "Thursday Night League", "Club Championship"})
        test::addEvent(data, name, 3);
    clock.set(clock.now() + std::chrono::hours{22});
    backUpNow(logbookIn(data), clock);
    test::deleteEvent(data, 7);
    test::change(data, {"UPDATE tblGameInfo SET fldGameScore = 201 WHERE fldSessionNum = 4"});
    test::addEvent(data, "Sunday Mixed", 3);
    QApplication::setStyle(new OutlinedStyle);
    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    for (const Look& look :
         {Look{"keeper", false, 10}, Look{"keeper-dark", true, 10}, Look{"keeper-large", false, 18}}) {
        QApplication::setPalette(look.isDark ? darkPalette() : palette);
        QApplication::setFont(QFont(font.family(), look.points));
        open();
        EXPECT_EQ(events().topLevelItem(0)->text(0), "Thursday Night League");
        EXPECT_EQ(events().topLevelItem(0)->text(4), "deleted since");
        events().topLevelItem(0)->setExpanded(true);
        events().topLevelItem(0)->setCheckState(0, Qt::Checked);
        events().setCurrentItem(events().topLevelItem(0));
        EXPECT_TRUE(QTest::qWaitFor([this] { return isEveryButtonWideEnough(); })) << look.name;
        const QByteArray shots = qgetenv("TALLYBROOK_SHOTS");
        EXPECT_TRUE(shots.isEmpty() || window->grab().save(shots + "/" + look.name + ".png"));
        for (const QLabel* const label : window->findChildren<QLabel*>())
            EXPECT_TRUE(!label->isVisible() || label->height() >= label->heightForWidth(label->width()))
                << look.name << ": " << label->text().toStdString();
    }
    window.reset();
    QApplication::setFont(font);
    QApplication::setPalette(palette);
}

TEST_F(Window, HasANameForWhateverTakesTheFocus) {
    open();
    for (const QWidget* const widget : window->findChildren<QWidget*>()) {
        const bool isReached = widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0;
        const auto* const push = dynamic_cast<const QPushButton*>(widget);
        EXPECT_TRUE(!isReached || !widget->accessibleName().isEmpty() ||
                    (push != nullptr && !push->text().isEmpty()))
            << widget->metaObject()->className();
    }
}

TEST_F(Window, CanBeClosedWhileItReads) {
    for (int round = 0; round < 5; ++round) {
        window = std::make_unique<KeeperWindow>(data, clock);
        window->show();
        EXPECT_TRUE(window->isBusy());
        window->close();
        window.reset();
    }
}

}  // namespace

}  // namespace tallybrook::keeper
