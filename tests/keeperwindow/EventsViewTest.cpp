#include "backup/Backups.h"
#include "keeper/Logbooks.h"
#include "keeperwindow/EventsView.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

class EventsListed : public testing::Test {
protected:
    EventsListed() {
        view.onTicked = [this] { ++told; };
        view.onTrouble = [this](const QString& why) { trouble += why; };
    }

    /// A backup of four events, the second of which has no games.
    static BackupEntry entry() {
        return {
            .summary = Summary{.events = {{.key = 3, .name = "Monday", .counts = {.events = 1, .games = 3}},
                                          {.key = 5, .name = "Tuesday", .counts = {.events = 1}},
                                          {.key = 6, .name = "Friday", .counts = {.events = 1, .games = 1}},
                                          {.key = 9, .name = "Sunday", .counts = {.events = 1, .games = 2}}}},
            .difference = Difference{.fates = {Fate::Deleted, Fate::Changed, Fate::Same, Fate::Deleted}}};
    }
    QStringList column(int column) const {
        QStringList texts;
        for (int row = 0; row < view.topLevelItemCount(); ++row)
            texts << view.topLevelItem(row)->text(column);
        return texts;
    }

    EventsView view;
    int told = 0;
    QString trouble;
};

TEST_F(EventsListed, StandInTheOrderInWhichTheyAreMissed) {
    view.show(nullptr);
    EXPECT_EQ(view.topLevelItemCount(), 0);
    const BackupEntry backup = entry();
    view.show(&backup);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(column(0), (QStringList{"Sunday", "Monday", "Tuesday", "Friday"}));
    EXPECT_EQ(column(3), (QStringList{"2", "3", "0", "1"}));
    EXPECT_EQ(column(4), (QStringList{"deleted since", "deleted since", "changed since", ""}));
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(view.topLevelItem(row)->font(4).bold(), row < 3) << row;
    view.show(nullptr);
    EXPECT_EQ(view.topLevelItemCount(), 0);
}

TEST_F(EventsListed, HaveRoomForTheirNames) {
    BackupEntry backup = entry();
    backup.summary->events[0].name = "Thursday Night Mixed League";
    view.show(&backup);
    EXPECT_GE(view.columnWidth(0), view.fontMetrics().horizontalAdvance("Thursday Night Mixed League"));
}

TEST_F(EventsListed, OpenWhereThereAreGames) {
    const BackupEntry backup = entry();
    view.show(&backup);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(view.topLevelItem(row)->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator, row != 2)
            << row;
}

TEST_F(EventsListed, AreTickedByTheirKeys) {
    BackupEntry backup = entry();
    backup.difference.reset();
    view.show(&backup);
    EXPECT_EQ(column(0), (QStringList{"Sunday", "Friday", "Tuesday", "Monday"})) << "the newest first";
    EXPECT_EQ(column(4), (QStringList{"", "", "", ""})) << "nobody knows";
    told = 0;
    view.topLevelItem(0)->setCheckState(0, Qt::Checked);
    view.topLevelItem(3)->setCheckState(0, Qt::Checked);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(view.ticked(), (std::vector<std::int64_t>{3, 9}));
    view.topLevelItem(3)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(view.ticked(), (std::vector<std::int64_t>{9}));
}

TEST_F(EventsListed, ShowTheGamesOfTheBackupAtHand) {
    const test::TemporaryFolder folder;
    SettableClock clock{makeDate(2026, 11, 22)};
    test::addEvent(folder.path(), "Monday", 1);
    test::change(folder.path(), {"UPDATE tblGameInfo SET fldLanePair = '7-8'"});
    backUpNow(logbookIn(folder.path()), clock);
    test::change(folder.path(), {"UPDATE tblGameInfo SET fldGameScore = 201, fldLanePair = NULL",
                                 "DELETE FROM tblFrameInfo WHERE fldFrameNum > 2"});
    clock.set(makeDate(2026, 11, 23));
    backUpNow(logbookIn(folder.path()), clock);
    NoProgress nobody;
    const std::vector<BackupEntry> backups =
        readBackups(folder.path(), todayIn(folder.path(), clock, nobody), nobody);
    const auto gameIn = [&](const BackupEntry& backup) {
        view.show(&backup);
        view.topLevelItem(0)->setExpanded(true);
        const QTreeWidgetItem& game = *view.topLevelItem(0)->child(0);
        return game.text(0) + "|" + game.text(2) + "|" + game.text(3) + "|" +
               QString::number(game.childCount());
    };
    EXPECT_EQ(gameIn(backups.at(0)), "Game 1||201|2");
    EXPECT_EQ(gameIn(backups.at(1)), "Game 1|lanes 7-8|150|10");
    EXPECT_EQ(trouble, "");
}

}  // namespace

}  // namespace tallybrook::keeper
